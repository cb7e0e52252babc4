// Bands: the pieces of a page that a layout is made of, before they are stacked into sections.
#pragma once

#include "adapters/layout/field_book.h"
#include "adapters/layout/mistakes.h"
#include "adapters/layout/picture_shelf.h"
#include "adapters/layout/style_sheet.h"
#include "report/definition.h"

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::layout {

/// An object with the place in the file that asked for it.
struct Placed {
    report::Object object;
    Place place;
    bool named = false; ///< the file gives the name; else it was made up and may be changed
};

struct Band {
    report::SectionKind kind = report::SectionKind::Details;
    report::OnPages on = report::OnPages::All;
    int group = 0;
    bool repeat = false;
    bool skipAlone = false;
    report::Twips height = 0;
    std::vector<Placed> objects;
};

/// What every part of a layout is built from.
struct Workshop {
    const StyleSheet& styles;
    Mistakes& mistakes;
    const FieldBook& fields;
    const PictureShelf& pictures;
    report::Twips width = 0;               ///< of the template
    report::Twips margin = 0;              ///< kept free at each side
    std::shared_ptr<const Picture> logo{}; ///< the café's picture; null: it has none
    [[nodiscard]] report::Twips Content() const { return width - 2 * margin; }
};

/// A stretch of a line, from the template's right edge.
struct Span {
    report::Twips right = 0;
    report::Twips width = 0;
};

/// Text on one line in a band; `baseline` from the band's top.
[[nodiscard]] Placed TextOnLine(const std::string& name, const std::string& text, const TextStyle& style,
                                Span span, report::Twips baseline, report::Align align, const Place& place);
/// Gives an object the cell of a table row: it fills the row's height and may grow by lines.
void PutInRow(report::Object& object, Span span, const RowMeasure& row);
void Dress(report::Object& object, const TextStyle& style);
/// Shows `picture` in the object's place, as large as its proportions allow: at the place's left edge, in the
/// middle of its height.
void ShowPicture(report::Object& object, std::shared_ptr<const Picture> picture);
[[nodiscard]] Placed LineAcross(const std::string& name, const Stroke& stroke, Span span, report::Twips top,
                                const Place& place);
[[nodiscard]] Placed TintedBox(const std::string& name, report::Color fill, Span span, report::Twips top,
                               report::Twips height, const Place& place);

} // namespace qbrpt::layout
