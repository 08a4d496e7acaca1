#pragma once

#include <compare>
#include <map>

#include "drawing/element_set.h"
#include "drawing/operator_action.h"

namespace lomar {

/// Finds the elements of all operators in the axes of a view, one for each class under the integer
/// translations, and sorts them by where they are. elements_of hands them out.
class element_gatherer {
public:
    element_gatherer(std::span<const symop> operators, int axis);

    /// Whether what is drawn repeats after half of either drawn axis.
    bool repeats_by_halves() const;
    /// Has a quarter of the cell drawn: each element then stands for all that the translations make
    /// of it. For groups that repeat by halves.
    void draw_quarter();

    /// Takes the elements that meet the closed cell, or its quarter.
    element_set take() const;

private:
    struct line_key {
        int_vector direction{};
        std::array<std::int64_t, 2> place{};  // piercing point; of a flat axis offset and height
        friend std::strong_ordering operator<=>(const line_key&, const line_key&) = default;
    };
    struct plane_key {
        int_vector plane{};
        std::int64_t offset = 0;
        int time = 1;
        friend std::strong_ordering operator<=>(const plane_key&, const plane_key&) = default;
    };
    struct plane_group {
        scaled_vector glide{};
        std::vector<std::size_t> operators;
        std::string location;
    };
    using lines = std::map<line_key, std::vector<axis_member>>;

    void gather(std::size_t op);
    void add_point(const axis_member& member, const int_vector& axis, const scaled_vector& point);
    void add_plane(const operator_action& action, std::size_t op, const scaled_vector& shift);
    std::string location_of(std::size_t op, const scaled_vector& shift) const;
    axis_member member_of(const operator_action& action, std::size_t op,
                          const scaled_vector& intrinsic) const;

    void take_points(element_set& set, const lines& from) const;
    void take_flat_axes(element_set& set) const;
    void take_steep_plane(element_set& set, const plane_key& key, const plane_group& group) const;
    void take_flat_plane(element_set& set, const plane_key& key, const plane_group& group) const;
    void take_unshown(element_set& set, const plane_key& key, const plane_group& group) const;
    void take_planes(element_set& set) const;
    void take_antitranslations(element_set& set) const;

    std::span<const symop> given;
    int view;
    fraction part = 1;
    std::string letters;
    std::vector<symop> operators;
    lattice translations;
    std::map<int_matrix, operator_action> actions;
    lines normal, flat, inclined;
    std::map<plane_key, plane_group> planes;
};

}  // namespace lomar
