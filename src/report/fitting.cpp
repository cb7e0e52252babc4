#include "report/fitting.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::report {

namespace {

constexpr Twips SmallestSize = 2;
// Sizes come in quarter points, so that a run of shrunk figures needs few fonts; tiny ones in twips.
constexpr Twips SizeStep = 5;
constexpr Twips FinestSize = 40;

unsigned char ByteAt(std::string_view text, std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
}

// Smaller sizes of a font, each the likely one for what did not fit at the one before.
class Shrinking {
public:
    explicit Shrinking(const FontSpec& font) : mFont(font) {}

    // The next size to try for something `taken` wide in a place `width` wide; false when there is none.
    bool Next(Twips taken, Twips width) {
        if (mFont.size <= SmallestSize) return false;
        const std::int64_t likely = std::int64_t{mFont.size} * width / std::max(taken, 1);
        auto size = static_cast<Twips>(std::min<std::int64_t>(likely, mFont.size - 1));
        if (size >= FinestSize) size -= size % SizeStep;
        mFont.size = std::max(size, SmallestSize);
        return true;
    }
    [[nodiscard]] const FontSpec& Font() const { return mFont; }

private:
    FontSpec mFont;
};

} // namespace

BaseDirection DirectionOf(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char lead = ByteAt(text, i);
        if (lead < 0xD6) continue;
        const unsigned char next = ByteAt(text, i + 1);
        // Hebrew to Arabic Extended, their presentation forms.
        const bool rightToLeft = lead <= 0xDF || (lead == 0xE0 && next >= 0xA0 && next <= 0xA3) ||
                                 (lead == 0xEF && next >= 0xAC && next <= 0xBB);
        if (rightToLeft) return BaseDirection::RightToLeft;
    }
    return BaseDirection::LeftToRight;
}

Twips FiguresWidth(const FigureFont& font, std::string_view figures) {
    float ems = 0;
    for (const char figure : figures)
        ems += font.advance[static_cast<unsigned char>(figure) & 0x7FU];
    return static_cast<Twips>(ems * font.size + 0.5F); // no figure is less than nothing wide
}

bool TextFitter::FitsOnLine(std::string_view text, StyleId style, BaseDirection base, Twips width) {
    if (text.find('\n') != std::string_view::npos) return false;
    return width <= 0 || mText.Width(text, style, base) <= width;
}

std::size_t TextFitter::LineCount(const CompiledObject& object, std::string_view text) {
    if (!object.mayGrow || text.empty()) return 1;
    const Twips width = object.object->width;
    if (FitsOnLine(text, object.style, DirectionOf(text), width)) return 1;
    return std::max<std::size_t>(Fit(object, text, width).block->lines.size(), 1);
}

FittedText TextFitter::Fit(const CompiledObject& object, std::string_view text, Twips width) {
    const BaseDirection base = DirectionOf(text);
    FittedText fitted;
    fitted.style = object.style;
    if (object.mayGrow && !FitsOnLine(text, object.style, base, width)) {
        const Object& source = *object.object;
        if (source.shrinkTo > 0 && source.shrinkTo < source.font.spec.size && width > 0) {
            Shrinking smaller(source.font.spec);
            for (Twips taken = mText.Width(text, object.style, base);
                 smaller.Next(taken, width) && smaller.Font().size >= source.shrinkTo;) {
                const StyleId style = mText.Style(smaller.Font());
                if (FitsOnLine(text, style, base, width)) return {mText.Layout(text, style, 0, base), style};
                if (text.find('\n') != std::string_view::npos) break;
                taken = mText.Width(text, style, base);
            }
        }
        fitted.block = mText.Layout(text, object.style, width, base);
        return fitted;
    }
    fitted.block = mText.Layout(text, object.style, 0, base);
    Shrinking smaller(object.object->font.spec);
    while (width > 0 && fitted.block->width > width && smaller.Next(fitted.block->width, width)) {
        fitted.style = mText.Style(smaller.Font());
        fitted.block = mText.Layout(text, fitted.style, 0, base);
    }
    return fitted;
}

FittedFigures TextFitter::FitFigures(const CompiledObject& object, std::string_view figures, Twips width,
                                     Twips largest) {
    FittedFigures fitted{object.style, object.object->font.spec.size, FiguresWidth(*object.figures, figures)};
    const bool asItIs = largest <= 0 || largest >= fitted.size;
    if (asItIs && (width <= 0 || fitted.width <= width)) return fitted;
    FontSpec font = object.object->font.spec;
    const auto take = [&](const FontSpec& smaller) {
        fitted.style = mText.Style(smaller);
        fitted.size = smaller.size;
        fitted.width = FiguresWidth(mText.Figures(fitted.style), figures);
    };
    if (!asItIs) {
        font.size = largest;
        take(font);
    }
    if (width <= 0 || fitted.width <= width) return fitted;
    Shrinking smaller(font);
    while (fitted.width > width && smaller.Next(fitted.width, width))
        take(smaller.Font());
    return fitted;
}

} // namespace qbrpt::report
