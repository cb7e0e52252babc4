#include "adapters/text/text_engine.h"

#include "adapters/text/characters.h"
#include "adapters/text/paragraphs.h"
#include "base/utf8.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

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

// A block that owns the words it points to.
struct OwningBlock : report::TextBlock {
    std::vector<std::shared_ptr<const report::ShapedWord>> owned;
};

void PlaceLine(const Line& line, OwningBlock& block) {
    std::vector<Level> levels;
    levels.reserve(line.size());
    for (const Unit& unit : line)
        levels.push_back(unit.level);
    std::vector<std::size_t> order;
    DrawingOrder(levels, order);
    report::TextLine& placed = block.lines.emplace_back();
    placed.words.reserve(line.size());
    for (const std::size_t i : order) {
        if (line[i].word) {
            placed.words.push_back({line[i].word.get(), placed.width});
            block.owned.push_back(line[i].word);
        }
        placed.width += line[i].width;
    }
    block.width = std::max(block.width, placed.width);
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
    return mWords.Put(mKey, mShaper.Shape(mFonts.Faces(style), {mText, 0, mText.size(), rightToLeft}));
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
    const StyleFaces& faces = mFonts.Faces(style);
    const auto blank = static_cast<report::Twips>(std::lround(faces.blank * faces.size));
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

std::vector<Unit> TextEngine::Cut(const StyleFaces& faces, const Unit& unit, report::Twips width) {
    // Where a cluster begins, and how wide it is, in reading order.
    struct Cluster {
        std::size_t first;
        float width;
    };
    std::vector<Cluster> clusters;
    for (const report::GlyphRun& run : unit.word->runs)
        for (const report::Glyph& glyph : run.glyphs)
            clusters.push_back({glyph.textStart, glyph.advance * run.size});
    std::stable_sort(clusters.begin(), clusters.end(),
                     [](const Cluster& a, const Cluster& b) { return a.first < b.first; });
    const std::string_view text = unit.word->text;
    std::vector<std::size_t> cuts;
    float filled = 0;
    for (std::size_t i = 0; i < clusters.size(); ++i) {
        std::size_t position = clusters[i].first;
        const bool begins = position < text.size() && (i == 0 || clusters[i - 1].first != position) &&
                            !IsAttached(NextCharacter(text, position));
        if (begins && filled > 0 && filled + clusters[i].width > static_cast<float>(width)) {
            cuts.push_back(clusters[i].first);
            filled = 0;
        }
        filled += clusters[i].width;
    }
    cuts.push_back(text.size());
    std::vector<Unit> pieces;
    std::size_t first = 0;
    for (const std::size_t end : cuts) {
        Unit piece;
        piece.level = unit.level;
        piece.word = mShaper.Shape(faces, {text, first, end - first, unit.word->rightToLeft});
        piece.width = piece.word->width;
        pieces.push_back(std::move(piece));
        first = end;
    }
    return pieces;
}

std::shared_ptr<const report::TextBlock> TextEngine::Layout(std::string_view text, report::StyleId style,
                                                            report::Twips maxWidth,
                                                            report::BaseDirection base) {
    std::string key;
    if (text.size() <= LongestKept) {
        AppendBytes(key, style);
        AppendBytes(key, static_cast<std::uint32_t>(maxWidth));
        key.push_back(base == report::BaseDirection::RightToLeft ? 'r' : 'l');
        key += text;
        if (const auto* known = mBlocks.Find(key)) return *known;
    }
    auto block = std::make_shared<OwningBlock>();
    const StyleFaces& faces = mFonts.Faces(style);
    const UnitCutter cut = [this, &faces](const Unit& unit, report::Twips width) {
        return Cut(faces, unit, width);
    };
    ParagraphReader reader(text);
    while (reader.Next(mCharacters)) {
        ReadUnits(style, base);
        for (const Line& line : BreakLines(std::move(mUnits), maxWidth, cut))
            PlaceLine(line, *block);
    }
    while (!block->lines.empty() && block->lines.back().words.empty())
        block->lines.pop_back();
    if (!key.empty()) mBlocks.Put(key, block);
    return block;
}

report::Twips TextEngine::Width(std::string_view text, report::StyleId style, report::BaseDirection base) {
    report::Twips widest = 0;
    ParagraphReader reader(text);
    while (reader.Next(mCharacters)) {
        ReadUnits(style, base);
        const auto isWord = [](const Unit& unit) { return unit.word != nullptr; };
        const auto first = std::find_if(mUnits.begin(), mUnits.end(), isWord);
        const auto last = std::find_if(mUnits.rbegin(), mUnits.rend(), isWord).base();
        report::Twips width = 0;
        for (auto unit = first; unit < last; ++unit)
            width += unit->width;
        widest = std::max(widest, width);
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
