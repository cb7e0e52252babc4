// The content stream of a page.
#pragma once

#include "adapters/pdf/image_objects.h"
#include "adapters/pdf/word_codes.h"
#include "report/page.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qbrpt::pdf {

/// Turns display lists into content streams. Coordinates are twips under one scaling matrix, so that all
/// are whole numbers; pens and fonts are named only when they change.
class PageContent {
public:
    PageContent(WordCodes& words, ImageObjects& images) : mWords(words), mImages(images) {}

    /// The content of `page`; valid until the next call.
    std::string_view Build(const report::Page& page);

private:
    /// What an open path waits for: to be filled or drawn.
    enum class Paint : std::uint8_t { None, Fill, Stroke };

    void Word(const report::Item& item, const report::Item* next);
    void Figures(const report::Page& page, const report::Item& item);
    void Path(const report::Item& item);
    void Image(const report::Page& page, const report::Item& item);

    void OpenString(const FontChoice& font, report::Color color, report::Twips x, report::Twips y);
    void BeginLine(report::Twips x, report::Twips up);
    void EndStrings();
    void OpenPath(Paint paint, report::Color color, std::int32_t stroke);
    void ClosePath();
    void Rectangle(const report::Item& item);
    void KeepPaintersOrder(const report::Item& item);
    void NoteText(report::Twips y);
    void Flush();

    WordCodes& mWords;
    ImageObjects& mImages;
    report::Twips mHeight = 0;
    std::string mContent;

    // Text and drawing are gathered apart, so that a row's rule does not cut its text into pieces: drawing
    // goes underneath. Where it would have to cover text, both are written out first.
    std::string mText;
    std::string mDrawing;
    report::Twips mTextTop = 0;    ///< topmost baseline gathered
    report::Twips mTextBottom = 0; ///< lowest baseline gathered

    bool mStringsOpen = false; ///< an array of strings that one operator will show
    bool mOnLine = false;      ///< the pen stands on a line of text
    double mPen = 0;           ///< where the last string ends
    report::Twips mX = 0;      ///< where the line of text begins
    report::Twips mY = 0;      ///< its baseline, from below
    std::optional<FontChoice> mFont;
    std::optional<report::Color> mTextColor;

    Paint mPaint = Paint::None;
    std::optional<report::Color> mFillColor;
    std::optional<report::Color> mStrokeColor;
    std::optional<std::int32_t> mStroke;
};

} // namespace qbrpt::pdf
