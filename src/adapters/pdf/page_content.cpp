#include "adapters/pdf/page_content.h"

#include "adapters/pdf/numbers.h"

#include <algorithm>

namespace qbrpt::pdf {

namespace {

/// A gap between two words that is one blank of their line, in twips; wider ones part columns.
constexpr report::Twips WidestBlank = 200;

void AppendPair(std::string& text, std::int64_t x, std::int64_t y) {
    AppendInteger(text, x, ' ');
    AppendInteger(text, y, ' ');
}

// std::llround, without a call for each figure of a page.
std::int64_t Nearest(double value) {
    return static_cast<std::int64_t>(value < 0 ? value - 0.5 : value + 0.5);
}

void AppendColor(std::string& text, report::Color color, std::string_view grey, std::string_view rgb) {
    const auto part = [&text, color](unsigned shift) {
        AppendScaled(text, (((color >> shift) & 0xFFU) * 1000 + 127) / 255, 3);
        text.push_back(' ');
    };
    const bool isGrey =
        ((color >> 16U) & 0xFFU) == (color & 0xFFU) && ((color >> 8U) & 0xFFU) == (color & 0xFFU);
    part(16);
    if (isGrey) {
        text += grey;
        return;
    }
    part(8);
    part(0);
    text += rgb;
}

} // namespace

std::string_view PageContent::Build(const report::Page& page) {
    mContent = ".05 0 0 .05 0 0 cm\n"; // a twip is a twentieth of a point
    mHeight = page.height;
    for (std::size_t i = 0; i < page.items.size(); ++i) {
        const report::Item& item = page.items[i];
        switch (item.kind) {
        case report::ItemKind::Word:
            Word(item, i + 1 < page.items.size() ? &page.items[i + 1] : nullptr);
            break;
        case report::ItemKind::Figures:
            Figures(page, item);
            break;
        case report::ItemKind::Rule:
        case report::ItemKind::Fill:
        case report::ItemKind::Frame:
            Path(item);
            break;
        case report::ItemKind::Image:
            Image(page, item);
            break;
        }
    }
    Flush();
    return mContent;
}

void PageContent::Flush() {
    ClosePath();
    EndStrings();
    mContent += mDrawing;
    if (!mText.empty()) mContent.append("BT\n").append(mText).append("ET\n");
    mDrawing.clear();
    mText.clear();
    mX = mY = 0;
    mOnLine = false;
    mFont.reset();
    mTextColor.reset();
    mFillColor.reset();
    mStrokeColor.reset();
    mStroke.reset();
}

void PageContent::EndStrings() {
    if (mStringsOpen) mText += "]TJ\n";
    mStringsOpen = false;
}

// Opens a string at a place. What stands on one baseline in one font and colour goes into one array. On the
// same baseline a number in the array moves the pen, in fewer bytes than an operator would.
void PageContent::OpenString(const FontChoice& font, report::Color color, report::Twips x, report::Twips y) {
    NoteText(y);
    const report::Twips up = mHeight - y;
    const bool goesOn = mOnLine && up == mY;
    if (!goesOn || mFont != font || mTextColor != color) {
        EndStrings();
        if (mTextColor != color) AppendColor(mText, color, "g\n", "rg\n");
        if (mFont != font) AppendFont(mText, font);
        mTextColor = color;
        mFont = font;
        if (!goesOn) BeginLine(x, up);
        mText.push_back('[');
        mStringsOpen = true;
    }
    const std::int64_t back = Nearest((mPen - x) * 1000 / font.size);
    mPen -= static_cast<double>(back) * font.size / 1000;
    if (back != 0)
        AppendInteger(mText, back, '(');
    else
        mText.push_back('(');
}

void PageContent::BeginLine(report::Twips x, report::Twips up) {
    AppendPair(mText, std::int64_t{x} - mX, std::int64_t{up} - mY);
    mText += "Td";
    mPen = mX = x;
    mY = up;
    mOnLine = true;
}

void PageContent::NoteText(report::Twips y) {
    mTextTop = mText.empty() ? y : std::min(mTextTop, y);
    mTextBottom = mText.empty() ? y : std::max(mTextBottom, y);
}

void PageContent::Word(const report::Item& item, const report::Item* next) {
    if (item.word == nullptr) return;
    const EncodedWord& word = mWords.Encode(*item.word);
    if (word.show.empty()) return;
    OpenString(word.first, item.color, item.x + word.start, item.y);
    mText += word.show;
    mPen += word.advance;
    mFont = word.last;
    const bool sameLine = next != nullptr && next->kind == report::ItemKind::Word && next->y == item.y;
    const report::Twips gap = sameLine ? next->x - item.x - item.word->width : 0;
    if (gap > 0 && gap <= WidestBlank) {
        mText.append(word.blank.data(), word.blank.size());
        mPen += double{word.last.size} * BlankAdvance / EmUnits;
    }
    mText.push_back(')');
    for (const Overlay& overlay : word.overlays) {
        OpenString(overlay.font, item.color, item.x + overlay.x, item.y - overlay.y);
        mText.push_back(static_cast<char>(overlay.code >> 8U));
        mText.push_back(static_cast<char>(overlay.code & 0xFFU));
        mText.push_back(')');
    }
}

void PageContent::Figures(const report::Page& page, const report::Item& item) {
    if (item.first >= page.figureText.size() || item.length == 0) return;
    const FontChoice font = mWords.FigureFont(item.style);
    OpenString(font, item.color, item.x, item.y);
    const std::string_view figures = std::string_view(page.figureText).substr(item.first, item.length);
    mPen += double{font.size} * mWords.AppendFigures(mText, figures, item.style) / EmUnits;
    mText.push_back(')');
}

void PageContent::ClosePath() {
    if (mPaint != Paint::None) mDrawing += mPaint == Paint::Fill ? "f\n" : "S\n";
    mPaint = Paint::None;
}

void PageContent::OpenPath(Paint paint, report::Color color, std::int32_t stroke) {
    std::optional<report::Color>& current = paint == Paint::Fill ? mFillColor : mStrokeColor;
    const bool samePen = paint == Paint::Fill || mStroke == stroke;
    if (mPaint == paint && current == color && samePen) return;
    ClosePath();
    mPaint = paint;
    if (current != color) {
        if (paint == Paint::Fill) AppendColor(mDrawing, color, "g\n", "rg\n");
        if (paint == Paint::Stroke) AppendColor(mDrawing, color, "G\n", "RG\n");
        current = color;
    }
    if (samePen) return;
    AppendScaled(mDrawing, std::int64_t{stroke} * 2, 1); // hundredths of a point in twips
    mDrawing += " w\n";
    mStroke = stroke;
}

void PageContent::Rectangle(const report::Item& item) {
    AppendPair(mDrawing, item.x, std::int64_t{mHeight} - item.y - item.height);
    AppendPair(mDrawing, item.width, item.height);
}

// A surface that would lie over text already gathered must come behind it.
void PageContent::KeepPaintersOrder(const report::Item& item) {
    if (mText.empty()) return;
    const report::Twips top = std::min(item.y, item.y + item.height);
    const report::Twips bottom = std::max(item.y, item.y + item.height);
    if (top <= mTextBottom && bottom >= mTextTop) Flush();
}

void PageContent::Path(const report::Item& item) {
    if (item.kind == report::ItemKind::Fill) {
        KeepPaintersOrder(item);
        OpenPath(Paint::Fill, item.color, 0);
        Rectangle(item);
        mDrawing += "re\n";
        return;
    }
    OpenPath(Paint::Stroke, item.color, item.stroke);
    if (item.kind == report::ItemKind::Frame) {
        Rectangle(item);
        mDrawing += "re\n";
        return;
    }
    AppendPair(mDrawing, item.x, std::int64_t{mHeight} - item.y);
    mDrawing += "m ";
    AppendPair(mDrawing, std::int64_t{item.x} + item.width, std::int64_t{mHeight} - item.y - item.height);
    mDrawing += "l\n";
}

void PageContent::Image(const report::Page& page, const report::Item& item) {
    if (item.first >= page.pictures.size() || !page.pictures[item.first]) return;
    const ImageId image = mImages.IdOf(page.pictures[item.first]);
    KeepPaintersOrder(item);
    ClosePath();
    mDrawing += "q ";
    AppendPair(mDrawing, item.width, 0);
    AppendPair(mDrawing, 0, item.height);
    AppendPair(mDrawing, item.x, std::int64_t{mHeight} - item.y - item.height);
    mDrawing += "cm/I";
    AppendInteger(mDrawing, image);
    mDrawing += " Do Q\n";
}

} // namespace qbrpt::pdf
