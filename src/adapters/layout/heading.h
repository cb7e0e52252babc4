// The heading of the first page and of later pages, and the footer.
#pragma once

#include "adapters/layout/band.h"

#include <map>
#include <string>
#include <string_view>

namespace qbrpt::layout {

/// A text of the heading that a layout fills: the café's name, an address line, the title.
struct Slot {
    Place place;
    std::string object; ///< the name under which code finds it; empty: none does
    std::string text;   ///< what stands there until code writes something else
};

/// What a layout says of its heading: the slots that it fills, and the forms of the first and later pages.
struct HeadingWords {
    Place place;
    std::string form;
    std::string laterForm;
    std::map<std::string, Slot, std::less<>> slots;
};

/// Reads `[heading]`.
[[nodiscard]] HeadingWords ReadHeading(const Node& node, const Workshop& shop);

/// The first page's heading, by a form of `[headings]`. A line whose slot the layout does not fill takes
/// no room.
[[nodiscard]] Band HeadingBand(const HeadingWords& words, const Node& forms, const Workshop& shop);
/// The heading of the pages after the first; its texts are those of the first page's objects.
[[nodiscard]] Band LaterHeadingBand(const HeadingWords& words, const Node& forms, const Workshop& shop);
/// Reads `[footer]` and draws it.
[[nodiscard]] Band FooterBand(const Node& node, const Workshop& shop);

/// The name of the title's object.
[[nodiscard]] std::string TitleObjectOf(const HeadingWords& words);

} // namespace qbrpt::layout
