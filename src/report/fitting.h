// Makes texts fit their places: wrapped where they may grow, made smaller where not. Never cut.
#pragma once

#include "report/compiled.h"
#include "report/text_port.h"

#include <memory>
#include <string_view>

namespace qbrpt::report {

/// Left to right for a text without right-to-left letters, so that a Latin name keeps its full stop.
[[nodiscard]] BaseDirection DirectionOf(std::string_view text);

/// Width of figures in twips.
[[nodiscard]] Twips FiguresWidth(const FigureFont& font, std::string_view figures);

struct FittedText {
    std::shared_ptr<const TextBlock> block;
    StyleId style = 0;
};

struct FittedFigures {
    StyleId style = 0;
    Twips size = 0; ///< of the font
    Twips width = 0;
};

class TextFitter {
public:
    explicit TextFitter(TextPort& text) : mText(text) {}

    /// The lines that Fit will make.
    [[nodiscard]] std::size_t LineCount(const CompiledObject& object, std::string_view text);

    /// `text` in no more than `width` (0: no limit). An object that grows wraps it, unless it fits on one
    /// line at `shrinkTo` or above; any other has one line, as small as it must be.
    [[nodiscard]] FittedText Fit(const CompiledObject& object, std::string_view text, Twips width);

    /// `largest` (0: no limit) is the size to begin with.
    [[nodiscard]] FittedFigures FitFigures(const CompiledObject& object, std::string_view figures,
                                           Twips width, Twips largest = 0);

private:
    [[nodiscard]] bool FitsOnLine(std::string_view text, StyleId style, BaseDirection base, Twips width);

    TextPort& mText;
};

} // namespace qbrpt::report
