#include "adapters/text/text_engine.h"

#include "adapters/text/characters.h"
#include "adapters/text/paragraphs.h"
#include "adapters/text/word_cutter.h"
#include "base/utf8.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <span>
#include <utility>

namespace qbrpt::text {

namespace {

constexpr std::size_t WordsKept = 12000;
constexpr std::size_t BlocksKept = 6000;
/// Longer texts are laid out anew each time: they rarely come twice.
constexpr std::size_t LongestKept = 96;
/// A run of letters longer than this is shaped in stretches, so that no text can make one call slow.
constexpr std::size_t LongestWord = 1000;

template <typename T>
void AppendBytes(std::string& key, T value) {
    for (unsigned shift = 0; shift < sizeof(T) * 8; shift += 8)
        key.push_back(static_cast<char>((static_cast<std::uint64_t>(value) >> shift) & 0xFFU));
}

report::Twips BlankWidth(const StyleFaces& faces) {
    return static_cast<report::Twips>(std::lround(faces.blank * faces.size));
}

} // namespace

TextEngine::TextEngine() : mShaper(mFonts), mWords(WordsKept), mBlocks(BlocksKept) {}

report::StyleId TextEngine::Style(const report::FontSpec& font) {
    return mFonts.Style(font);
}

const report::FigureFont& TextEngine::Figures(report::StyleId style) {
    return mFonts.Faces(style).figures;
}

std::shared_ptr<const report::ShapedWord> TextEngine::Word(report::StyleId style, bool rightToLeft) {
    mKey.clear();
    AppendBytes(mKey, style);
    mKey.push_back(rightToLeft ? 'r' : 'l');
    mKey += mText;
    if (const auto* known = mWords.Find(mKey)) return *known;
    auto word = mShaper.Shape(mFonts.Faces(style), {mText, 0, mText.size(), rightToLeft});
    mWords.Offer(mKey, word);
    return word;
}

// Readers of a page guess its reading order from the letters alone: to them, blanks and marks behind a figure
// belong to the figure. A right-to-left mark between the two, at the left of all that reads from left to
// right, tells them better.
bool TextEngine::NeedsMark(std::size_t first, std::size_t end) const {
    const auto letter = [](char32_t c) { return IsArabic(c) && c != U'،' && c != U'؛' && c != U'؟'; };
    const auto rightToLeft = [this](std::size_t i) { return (mLevels[i] & 1U) != 0; };
    if (rightToLeft(first)) {
        if (letter(mCharacters[end - 1])) return false;
    } else {
        if (first > 0 && !rightToLeft(first - 1)) return false;
        while (end < mCharacters.size() && !rightToLeft(end))
            ++end;
    }
    return end < mCharacters.size() && rightToLeft(end) && !letter(mCharacters[end]);
}

void TextEngine::AddWord(report::StyleId style, std::size_t first, std::size_t end) {
    mText.clear();
    Unit unit;
    unit.level = mLevels[first];
    const bool rightToLeft = (unit.level & 1U) != 0;
    const bool marked = NeedsMark(first, end);
    if (marked && !rightToLeft) AppendCharacter(mText, report::ReadingMark);
    for (std::size_t i = first; i < end; ++i)
        AppendCharacter(mText, mCharacters[i]);
    if (marked && rightToLeft) AppendCharacter(mText, report::ReadingMark);
    unit.word = Word(style, rightToLeft);
    unit.width = unit.word->width;
    mUnits.push_back(std::move(unit));
}

// The units of the paragraph in mCharacters: words, or the parts of a word that read in different directions.
void TextEngine::ReadUnits(report::StyleId style, report::BaseDirection base) {
    ResolveLevels(mCharacters, base, mLevels);
    mUnits.clear();
    const report::Twips blank = BlankWidth(mFonts.Faces(style));
    for (std::size_t i = 0; i < mCharacters.size();) {
        if (IsBlank(mCharacters[i])) {
            mUnits.push_back({nullptr, blank, mLevels[i]});
            ++i;
            continue;
        }
        std::size_t end = i + 1;
        while (end < mCharacters.size() && !IsBlank(mCharacters[end]) && mLevels[end] == mLevels[i] &&
               (end - i < LongestWord || IsAttached(mCharacters[end])) && end - i < 2 * LongestWord)
            ++end;
        AddWord(style, i, end);
        i = end;
    }
}

// The units of a plain text, which is all of the line: see CutPlain and NeedsMark.
void TextEngine::ReadPieces(report::StyleId style, std::size_t length) {
    mUnits.clear();
    const report::Twips blank = BlankWidth(mFonts.Faces(style));
    std::size_t end = 0;
    for (const PlainPiece& piece : mPieces) {
        end += piece.text.size();
        if (piece.kind == PlainPiece::Kind::Blank) {
            mUnits.push_back({nullptr, blank, 1});
            continue;
        }
        const bool figures = piece.kind == PlainPiece::Kind::Figures;
        mText.clear();
        if (figures && end < length) AppendCharacter(mText, report::ReadingMark);
        mText += piece.text;
        Unit& unit = mUnits.emplace_back();
        unit.level = figures ? 2 : 1;
        unit.word = Word(style, !figures);
        unit.width = unit.word->width;
    }
}

// The reading of a text of one line, or null where it has several or is not worth keeping.
const TextEngine::Reading* TextEngine::ReadOneLine(std::string_view text, report::StyleId style,
                                                   report::BaseDirection base) {
    if (text.empty() || text.size() > LongestKept) return nullptr;
    Reading& reading = mReadings[std::hash<std::string_view>{}(text) % mReadings.size()];
    if (reading.text == text && reading.style == style && reading.base == base) return &reading;
    if (base == report::BaseDirection::RightToLeft && CutPlain(text, mPieces)) {
        ReadPieces(style, text.size());
    } else {
        ParagraphReader reader(text);
        reader.Next(mCharacters);
        if (!reader.AtEnd()) return nullptr;
        ReadUnits(style, base);
    }
    reading.text = text;
    reading.style = style;
    reading.base = base;
    std::swap(reading.units, mUnits);
    reading.width = WidthOf(WithoutOuterBlanks(reading.units));
    return &reading;
}

std::vector<Unit> TextEngine::Cut(const StyleFaces& faces, const Unit& unit, report::Twips width) {
    std::vector<Unit> pieces;
    std::size_t first = 0;
    for (const std::size_t end : CutWord(*unit.word, width)) {
        const Stretch stretch{unit.word->text, first, end - first, unit.word->rightToLeft};
        Unit piece{mShaper.Shape(faces, stretch), 0, unit.level};
        piece.width = piece.word->width;
        pieces.push_back(std::move(piece));
        first = end;
    }
    return pieces;
}

std::shared_ptr<const report::TextBlock> TextEngine::Layout(std::string_view text, report::StyleId style,
                                                            report::Twips maxWidth,
                                                            report::BaseDirection base) {
    const bool kept = text.size() <= LongestKept;
    if (kept) {
        mBlockKey.clear();
        AppendBytes(mBlockKey, style);
        AppendBytes(mBlockKey, static_cast<std::uint32_t>(maxWidth));
        mBlockKey.push_back(base == report::BaseDirection::RightToLeft ? 'r' : 'l');
        mBlockKey += text;
        if (const auto* known = mBlocks.Find(mBlockKey)) return *known;
    }
    mBuilder.Begin();
    if (const Reading* line = ReadOneLine(text, style, base)) {
        AddLines(line->units, style, maxWidth);
    } else {
        ParagraphReader reader(text);
        while (reader.Next(mCharacters)) {
            ReadUnits(style, base);
            AddLines(mUnits, style, maxWidth);
        }
    }
    auto block = mBuilder.Finish();
    if (kept) mBlocks.Offer(mBlockKey, block);
    return block;
}

void TextEngine::AddLines(std::span<const Unit> units, report::StyleId style, report::Twips maxWidth) {
    const std::span<const Unit> line = WithoutOuterBlanks(units);
    if (maxWidth <= 0 || WidthOf(line) <= maxWidth) {
        mBuilder.AddLine(line);
        return;
    }
    const StyleFaces& faces = mFonts.Faces(style);
    const UnitCutter cut = [&](const Unit& unit, report::Twips width) { return Cut(faces, unit, width); };
    for (const Line& broken : BreakLines({units.begin(), units.end()}, maxWidth, cut))
        mBuilder.AddLine(broken);
}

report::Twips TextEngine::Width(std::string_view text, report::StyleId style, report::BaseDirection base) {
    if (const Reading* line = ReadOneLine(text, style, base)) return line->width;
    report::Twips widest = 0;
    ParagraphReader reader(text);
    while (reader.Next(mCharacters)) {
        ReadUnits(style, base);
        widest = std::max(widest, WidthOf(WithoutOuterBlanks(mUnits)));
    }
    return widest;
}

std::vector<std::string> TextEngine::MissingGlyphs() const {
    std::vector<std::string> missing;
    for (const char32_t c : mShaper.MissingCharacters()) {
        std::array<char, 16> code{};
        std::snprintf(code.data(), code.size(), "U+%04X ", static_cast<unsigned>(c));
        AppendCharacter(missing.emplace_back(code.data()), c);
    }
    return missing;
}

std::unique_ptr<TextEngine> MakeTextPort() {
    return std::make_unique<TextEngine>();
}

} // namespace qbrpt::text
