#include "library/groups/special_positions.h"

#include <cstdint>

#include "foundation/sorted.h"

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
