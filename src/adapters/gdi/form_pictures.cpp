#include "adapters/gdi/form_pictures.h"

#include "platform/gdi.h"

#include <array>
#include <span>
#include <utility>

namespace qbrpt::gdi {

namespace {

/// A letter a pixel. Pure red is what painting leaves out.
constexpr std::array Letters = {
    std::pair{'.', ColorRef{0x0000FF}}, // nothing
    std::pair{'#', ColorRef{0x2F2923}}, // the edge of the sheet
    std::pair{'o', ColorRef{0xFFFFFF}}, // paper
    std::pair{'f', ColorRef{0xEEEBE4}}, // the back of its folded corner
    std::pair{'s', ColorRef{0xD0CCC6}}, // shadow
    std::pair{'a', ColorRef{0x4F3F0B}}, // a heading
    std::pair{'g', ColorRef{0xABA49A}}, // lines of text
};

constexpr std::array<std::string_view, 32> SheetPortrait = {
    "..........................", ".......################...", "......##ooooooooooooooo#..",
    ".....#f#ooooooooooooooo#s.", "....#ff#ooooooooooooooo#s.", "...#fff#ooooooooooooooo#s.",
    "..#ffff#oooooaaaaaaaooo#s.", ".#######oooooaaaaaaaooo#s.", ".#ooooooooooooooooooooo#s.",
    ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.",
    ".#ooooggggggggggggggooo#s.", ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.",
    ".#ooooggggggggggggggooo#s.", ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.",
    ".#ooooooggggggggggggooo#s.", ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.",
    ".#ooooggggggggggggggooo#s.", ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.",
    ".#ooooooooooggggggggooo#s.", ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.",
    ".#ooooooooooooooooooooo#s.", ".#ooooooooooooooooooooo#s.", "..#####################ss.",
    "...ssssssssssssssssssssss.", "..........................",
};

constexpr std::array<std::string_view, 23> SheetLandscape = {
    "...............................", ".......#####################...", "......##oooooooooooooooooooo#..",
    ".....#f#oooooooooooooooooooo#s.", "....#ff#oooooooooooooooooooo#s.", "...#fff#ooooooooaaaaaaaaaooo#s.",
    "..#ffff#ooooooooaaaaaaaaaooo#s.", ".#######oooooooooooooooooooo#s.", ".#oooooooooooooooooooooooooo#s.",
    ".#oooooooooooooooooooooooooo#s.", ".#oooogggggggggggggggggggooo#s.", ".#oooooooooooooooooooooooooo#s.",
    ".#oooooooooooooooooooooooooo#s.", ".#oooogggggggggggggggggggooo#s.", ".#oooooooooooooooooooooooooo#s.",
    ".#oooooooooooooooooooooooooo#s.", ".#oooooooooooogggggggggggooo#s.", ".#oooooooooooooooooooooooooo#s.",
    ".#oooooooooooooooooooooooooo#s.", ".#oooooooooooooooooooooooooo#s.", "..##########################ss.",
    "...sssssssssssssssssssssssssss.", "...............................",
};

ColorRef ColorOf(char letter) {
    for (const auto& [known, color] : Letters) {
        if (known == letter) return color;
    }
    return ColorBlack;
}

Picture PictureFrom(std::span<const std::string_view> rows) {
    constexpr std::uint8_t opaque = 255;
    Picture picture;
    picture.width = static_cast<std::int32_t>(rows.front().size());
    picture.height = static_cast<std::int32_t>(rows.size());
    for (const std::string_view row : rows) {
        for (const char letter : row) {
            const ColorRef color = ColorOf(letter);
            for (const ColorRef channel : {color, color >> 8, color >> 16})
                picture.rgba.push_back(static_cast<std::uint8_t>(channel));
            picture.rgba.push_back(opaque);
        }
    }
    return picture;
}

} // namespace

std::optional<Picture> FormPicture(std::string_view name) {
    if (name == "sheet-portrait") return PictureFrom(SheetPortrait);
    if (name == "sheet-landscape") return PictureFrom(SheetLandscape);
    return std::nullopt;
}

} // namespace qbrpt::gdi
