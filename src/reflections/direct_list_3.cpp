#include "reflections/direct_list_3.h"

#include <algorithm>

#include "symmetry/centring_table.h"

namespace {

// An orbit has at most as many members as the Laue class has elements.
double least_rows(const laue_group_3& group, const triple_3& limits) {
    double cells = 1.0;
    for (int i = 0; i < 3; ++i) cells *= 2.0 * limits[i] + 1.0;
    return cells / group.order() / (group.lattice.n + 1);
}

}  // namespace

bool direct_list_3::set_up(const hkl_generator_3& generator, const triple_3& limits) {
    generator_ = &generator;
    const xyz_list_3& ops = *generator.sum.ops;
    if (!group_.set_up(ops, generator.classes)) return false;
    if (least_rows(group_, limits) > most_rows) return false;
    is_free_ = generator.axis_free_count != 0;
    if (!box_.set_up(group_, limits) || !find_lattice(ops)) return false;
    const int reach[3] = {box_.reach(0), box_.reach(1), box_.reach(2)};
    line_.set_up(group_);
    zeros_.set_up(group_);
    presence_.set_up(group_, hkl_generator_3::test_positions[0], reach);
    conditions_.set_max_n(group_.order() + group_.lattice.n, false);
    lines_.reserve(group_.order());
    covered_.reserve(group_.order());
    sums_.set_n(generator.sum.groups.n);
    phase_table_3();
    make_line_table();
    return true;
}

int direct_list_3::largest_index() const {
    return std::max({box_.reach(0), box_.reach(1), box_.reach(2)});
}

// General reflections that aren't tested must pass the conditions of the lattice. They do so with
// all their equivalents or with none, if the rotations leave the one vector of such a lattice where
// it is; with others there is no free axis.
bool direct_list_3::find_lattice(const xyz_list_3& ops) {
    free_lattice_.clear();
    if (!is_free_) return true;
    const int place = text_index(lattice_letter_3(ops), lattice_letters_3);
    for (const triple_3& v : centring_vectors_3(place)) {
        free_lattice_.add(v);
        for (const laue_element_3& element : group_.elements) {
            for (int i = 0; i < 3; ++i) {
                int image = -v[i];
                for (int j = 0; j < 3; ++j) image += element.row[j][i] * v[j];
                if (image % xyz_op_3::edge != 0) return false;
            }
        }
    }
    can_be_sure_ = free_lattice_.n == group_.lattice.n;
    return true;
}

void direct_list_3::write(hkl_row_writer_3& writer) {
    writer_ = &writer;
    for (int h = 0; h <= box_.reach(0); ++h) {
        box_.lines_of(h, lines_);
        for (const interval_3& part : lines_) {
            for (int k = part.first; k <= part.last; ++k) write_line(h, k);
        }
    }
}

// What the lattice leaves of the lines, by the residues of h and k, if these are few.
void direct_list_3::make_line_table() {
    constexpr int most = 256;
    line_table_.clear();
    const triple_3& period = group_.period;
    if (period[0] * period[1] > most) return;
    for (int i = 0; i < period[0] * period[1]; ++i) {
        line_table_.add(
            whole_phases_3(first_conditions(), i / period[1], i % period[1], period[2]));
    }
}

progression_3 direct_list_3::first_members(int h, int k) const {
    const triple_3& period = group_.period;
    if (line_table_.n == 0) return whole_phases_3(first_conditions(), h, k, period[2]);
    const int rest = k % period[1];
    return line_table_[h % period[0] * period[1] + (rest < 0 ? rest + period[1] : rest)];
}

void direct_list_3::write_line(int h, int k) {
    members_ = first_members(h, k);
    if (members_.is_empty()) return;
    if (!line_.find(h, k, {-box_.reach(2), box_.reach(2)})) return;
    box_.cover(h, k, line_.span(), covered_);
    if (covered_.is_empty()) return;
    h_ = h;
    k_ = k;
    choose_tests(h, k);
    if (members_.is_empty()) return;
    presence_.begin_line(h, k, members_);
    writer_->begin_line(h, k);
    for (const interval_3& part : covered_) write_span(part);
}

void direct_list_3::choose_tests(int h, int k) {
    tests_ = tests::all;
    if (is_free_) {
        const index_zeros_3::kind kind = zeros_.begin_line(h, k);
        if (kind == index_zeros_3::single) tests_ = tests::single;
        if (kind == index_zeros_3::some_members) tests_ = tests::mixed;
    }
    if (tests_ != tests::all) return;
    const bool plain = line_.shifts().n == 1;  // that of the unit
    if (plain && (!is_free_ || can_be_sure_)) return;
    conditions_.n = 0;
    for (const triple_3& shift : group_.lattice) conditions_.add(shift);
    for (const triple_3& shift : line_.shifts()) conditions_.add(shift);
    members_ = whole_phases_3(conditions_, h, k, group_.period[2]);
}

void direct_list_3::write_span(interval_3 part) {
    const interval_3 span = line_.span();
    const bool has_last = part.last == span.last && line_.is_special(line_.last());
    if (part.first == span.first && line_.is_special(line_.first())) {
        write_end(part.first++, line_.first());
        if (part.first > part.last) return;
    }
    if (has_last) --part.last;
    write_inner(part);
    if (has_last) write_end(span.last, line_.last());
}

void direct_list_3::write_end(int l, const greatest_line_3::line_end& end) {
    if (!members_.contains(l)) return;
    if (end.absent && tests_ == tests::all) return;
    if (is_doubtful(l) && !is_present(l, end.absent)) return;
    writer_->add_run(l, l, 1, multiplicity(end.fixing));
}

void direct_list_3::write_inner(interval_3 part) {
    const int all = multiplicity(line_.fixing());
    for (int l = members_.from(part.first); l <= part.last; l += members_.step) {
        const int doubtful = next_doubtful(l, part.last);
        writer_->add_run(l, std::min(doubtful - 1, part.last), members_.step, all);
        if (doubtful > part.last) return;
        l = doubtful;
        if (is_present(l, false)) writer_->add_run(l, l, 1, all);
    }
}

// Whether the member l of the line may be absent by the grid's test.
bool direct_list_3::is_doubtful(int l) const {
    if (tests_ == tests::single && zeros_.next(l, l, 1) != l) return false;
    return (tests_ != tests::all && !can_be_sure_) || !presence_.is_sure(l);
}

// The first such member from l on, or a number above `last`.
int direct_list_3::next_doubtful(int l, int last) {
    if (tests_ == tests::all) return presence_.first_unsure(l, last);
    for (; l <= last; l += members_.step) {
        if (tests_ == tests::single) l = zeros_.next(l, last, members_.step);
        if (l > last || is_doubtful(l)) break;
    }
    return l;
}

bool direct_list_3::is_present(int l, bool known_absent) {
    const auto [h, k, m] = box_.first_member(h_, k_, l).v;
    if (is_free_ && h != 0 && k != 0 && m != 0) return true;
    return !known_absent &&
           generator_->absence_value(h, k, m, sums_) > hkl_generator_3::absence_limit;
}
