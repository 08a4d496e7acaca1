#include "library/groups/special_positions.h"

#include <cmath>
#include <cstdint>

namespace {

constexpr int steps = 12;
constexpr int step_size = xyz_op_3::edge / steps;

// Which points of the grid have been met as images of others.
class seen_points {
public:
    bool contains(const triple_3& step) const { return seen_[step[0]][step[1]][step[2]]; }

    // Takes up an image, unless it lies off the grid.
    void insert(const triple_3& image) {
        for (int i = 0; i < 3; ++i) {
            if (image[i] % step_size != 0) return;
        }
        seen_[image[0] / step_size][image[1] / step_size][image[2] / step_size] = true;
    }

private:
    bool seen_[steps][steps][steps] = {};
};

triple_3 image_of(const xyz_op_3& op, const triple_3& step) {
    triple_3 image;
    for (int i = 0; i < 3; ++i) {
        std::int64_t sum = op.trans(i);
        for (int j = 0; j < 3; ++j) sum += std::int64_t{op.rot(i, j)} * step[j] * step_size;
        image[i] = normalised_translation(static_cast<int>(sum % xyz_op_3::edge));
    }
    return image;
}

void write_point(stream_out& stream, const triple_3& step) {
    constexpr double width = 0.08333333333333333;
    stream << step[0] * width << ' ' << step[1] * width << ' ' << step[2] * width << '\n';
}

}  // namespace

void write_special_positions(const xyz_list_3& ops, stream_out& stream) {
    stream << "\nspecial_positions\n{\n";
    seen_points seen;
    list_0_3<triple_3> images;
    int n_written = 0;
    for (int i = 0; i < steps * steps * steps; ++i) {
        const triple_3 step = {{i / (steps * steps), i / steps % steps, i % steps}};
        if (seen.contains(step)) continue;
        images.set_n(ops.n);
        for (int k = 0; k < images.n; ++k) images[k] = image_of(ops[k], step);
        sort_unique(images);
        if (images.n == ops.n) continue;
        ++n_written;
        for (const triple_3& image : images) seen.insert(image);
        write_point(stream, step);
    }
    stream << "} " << n_written;
}

void write_special_positions(const sg_decoder_3& decoder, stream_out& stream) {
    write_special_positions(decoder.ops, stream);
}

namespace {

// Where an operator sends a point, within the cell.
struct point_image {
    float v[3];
};

bool element_less(const point_image& a, const point_image& b) {
    for (int i = 0; i < 2; ++i) {
        if (a.v[i] != b.v[i]) return a.v[i] < b.v[i];
    }
    return a.v[2] < b.v[2];
}

double fraction_within_cell(double value) {
    constexpr double zero = 1e-9;
    const double r = std::fmod(value, 1.0);
    const double size = std::abs(r);
    if (size < zero || 1.0 - size < zero) return 0.0;
    return r < -zero ? r + 1.0 : r;
}

point_image image_of_point(const xyz_op_3& op, double x, double y, double z) {
    constexpr double translation_unit = 0.002777777777777778;
    point_image image;
    for (int i = 0; i < 3; ++i) {
        const double value =
            op.rot(i, 0) * x + op.rot(i, 1) * y + op.rot(i, 2) * z + op.trans(i) * translation_unit;
        image.v[i] = static_cast<float>(fraction_within_cell(value));
    }
    return image;
}

// Appends the members of a set by the run that each belongs to, without empty sets.
void divide_set(const int_list_3& set, const group_record_3& runs, partition_3& out) {
    partition_3 parts;
    parts.new_n(runs.unique.n);
    for (const int op : set) {
        if (op >= 0 && op < runs.group.n) parts[runs.group[op]].add(op);
    }
    for (int_list_3& part : parts) {
        if (part.n != 0) out.add().take(part);
    }
}

}  // namespace

void refine_partition_3(const xyz_list_3& ops, partition_3& partition, double x, double y,
                        double z) {
    list_0_3<point_image> images;
    for (const xyz_op_3& op : ops) images.add(image_of_point(op, x, y, z));
    group_record_3 runs;
    group(images, runs);
    if (partition.n == 0) {
        int_list_3 all;
        for (int i = 0; i < ops.n; ++i) all.add(i);
        partition.add(all);
    }
    partition_3 refined;
    for (const int_list_3& set : partition) divide_set(set, runs, refined);
    partition.take(refined);
}
