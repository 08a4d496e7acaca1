#pragma once

#include <string>

#include "drawing/diagram.h"
#include "drawing/label_placer.h"
#include "drawing/symbol_book.h"

namespace lomar {

/// What the two diagrams have in common: the cell in projection with its letters, the texts of the
/// operators, symbols and labels. Places are those of the page, with the cell's origin at 0, 0.
class picture {
public:
    /// A dense one has smaller symbols and texts, though not in proportion. At a width of 300
    /// pixels the texts of both are legible.
    picture(std::span<const symop> operators, const diagram_options& options,
            const std::string& prefix, bool is_dense, const drawn_part& part = {1, 1});

    const projection& cell() const { return cell_; }
    page_vector at(const std::array<fraction, 2>& place) const {
        return cell_.at(place[0].to_double(), place[1].to_double());
    }
    /// The texts of operators with `;` between them.
    std::string operators_text(const std::vector<std::size_t>& which) const;
    /// The letter of a drawn axis (0 down, 1 right) or of the projection axis (2): a, b, c.
    char letter(std::size_t of_view) const;
    /// Of the coordinate along it: x, y, z.
    char coordinate(std::size_t of_view) const;
    /// Texts that belong to the two drawn axes, in the order of a, b, c.
    std::string in_cell_order(const std::string& down, const std::string& right) const;

    /// A direction of the view in the cell's axes: `1 0 -1`.
    std::string direction_text(const int_vector& of_view) const;

    /// The outline of the cell, or of the part that is drawn.
    void write_outline();
    /// The letters of the axes and the mark of the origin.
    void write_letters();
    /// A line of text beneath all that is there.
    void write_line(const std::string& content);
    /// A line on the part that is drawn, where it isn't the whole.
    void write_part();
    /// A label near a point.
    void write_label(const std::string& content, page_vector point, double clear,
                     page_vector towards = {0, 0});
    void write_text(const std::string& content, page_vector at, const std::string& text_class);

    /// Everything in an <svg>, with its definitions, at a place of the page around it.
    struct panel {
        std::string markup;
        double width = 0, height = 0;
    };
    panel finish() const;

    std::string summary;  ///< what is in the picture, for those who don't see it
    svg_writer body;
    label_placer labels;
    symbol_book symbols;

private:
    std::span<const symop> operators_;
    int axis;
    bool with_time;
    bool is_dense;
    projection cell_;
};

/// The two diagrams.
picture elements_picture(std::span<const symop> operators, const diagram_options& options,
                         const std::string& prefix);
picture positions_picture(std::span<const symop> operators, const diagram_options& options,
                          const std::string& prefix);

}  // namespace lomar
