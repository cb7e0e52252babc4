#include "adapters/pdf/word_codes.h"

#include "adapters/pdf/numbers.h"
#include "base/utf8.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::pdf {

namespace {

/// Words kept ready; when there are more, all are dropped and made anew as they come.
constexpr std::size_t WordsKept = 30000;
/// A glyph narrower than this, in ems, takes no part in the row of letters.
constexpr float Narrowest = 0.01F;

std::int32_t TenThousandths(float ems) {
    return static_cast<std::int32_t>(std::lround(ems * EmUnits));
}

report::Twips Rounded(float twips) {
    return static_cast<report::Twips>(std::lround(twips));
}

void AppendCode(std::string& content, std::uint16_t code) {
    content.push_back(static_cast<char>(code >> 8U));
    content.push_back(static_cast<char>(code & 0xFFU));
}

bool Carries(const report::Glyph& glyph) {
    return glyph.textLength > 0 && glyph.advance > Narrowest;
}

bool HasReadingMark(const report::ShapedWord& word) {
    constexpr std::string_view mark = "\xE2\x80\x8F";
    return word.rightToLeft ? word.text.ends_with(mark) : word.text.starts_with(mark);
}

bool IsInvisible(char32_t c) {
    return (c >= 0x200B && c <= 0x200F) || (c >= 0xFE00 && c <= 0xFE0F);
}

} // namespace

void AppendFont(std::string& content, const FontChoice& choice) {
    content += "/F";
    AppendInteger(content, choice.font);
    content.push_back(' ');
    AppendScaled(content, std::lround(choice.size * 100.0F), 2);
    content += " Tf\n";
}

const EncodedWord& WordCodes::Encode(const report::ShapedWord& word) {
    const auto known = mWords.find(word.serial);
    if (known != mWords.end()) return known->second;
    if (mWords.size() >= WordsKept) mWords.clear();
    EncodedWord encoded;
    float left = 0;
    for (const report::GlyphRun& run : word.runs) {
        EncodeRun(word, run, left, encoded);
        for (const report::Glyph& glyph : run.glyphs)
            left += glyph.advance * run.size;
    }
    return mWords.emplace(word.serial, std::move(encoded)).first->second;
}

int WordCodes::EmptyGlyph(report::FaceId face) {
    const auto [place, isNew] = mEmpty.try_emplace(face, 0);
    if (isNew) place->second = mFonts.Face(face).EmptyGlyph();
    return place->second;
}

// Fills mCarriers in drawing order and gives the width of the run in ems. The letters of a glyph that draws
// no letter of its own (a vowel mark) go with the carrier before it in reading order, its base: they share
// the base's width, so that a reader finds them side by side.
float WordCodes::FindCarriers(const report::ShapedWord& word, const report::GlyphRun& run) {
    mCarriers.clear();
    float pen = 0;
    std::size_t first = word.text.size();
    std::size_t end = 0;
    for (const report::Glyph& glyph : run.glyphs) {
        if (Carries(glyph)) mCarriers.push_back({&glyph, pen + glyph.xOffset, glyph.textStart, 0});
        pen += glyph.advance;
        if (glyph.textLength == 0) continue;
        first = std::min<std::size_t>(first, glyph.textStart);
        end = std::max<std::size_t>(end, glyph.textStart + glyph.textLength);
    }
    if (mCarriers.empty() && !run.glyphs.empty()) mCarriers.push_back({run.glyphs.data(), 0, first, end});
    const std::size_t count = mCarriers.size();
    for (std::size_t i = 0; i < count; ++i) {
        Carrier& carrier = mCarriers[word.rightToLeft ? count - 1 - i : i];
        if (i == 0) carrier.first = first;
        carrier.end = i + 1 < count ? mCarriers[word.rightToLeft ? count - 2 - i : i + 1].first : end;
    }
    return pen;
}

// One code for each letter, in drawing order: the first draws the glyph, the others nothing.
std::int32_t WordCodes::AppendCarrier(CodeTable& table, const report::ShapedWord& word,
                                      const Carrier& carrier, float width, std::string& show) {
    mLetters.clear();
    for (std::size_t position = carrier.first; position < carrier.end;) {
        const char32_t letter = NextCharacter(word.text, position);
        if (!IsInvisible(letter)) mLetters.push_back(letter);
    }
    if (word.rightToLeft) std::reverse(mLetters.begin(), mLetters.end());
    const int empty = EmptyGlyph(table.Face());
    const bool raised = std::abs(carrier.glyph->yOffset) > Narrowest;
    const std::uint16_t drawn = raised && empty >= 0 ? static_cast<std::uint16_t>(empty) : carrier.glyph->id;
    if (mLetters.empty()) mLetters.push_back(0);
    if (empty < 0) mLetters.resize(1);
    const std::int32_t whole = TenThousandths(width);
    const auto count = static_cast<std::int32_t>(mLetters.size());
    for (std::int32_t i = 0; i < count; ++i) {
        const std::uint16_t glyph = i == 0 ? drawn : static_cast<std::uint16_t>(empty);
        const std::int32_t share = whole / count + (i + 1 == count ? whole % count : 0);
        AppendCode(show, table.CodeOf({glyph, mLetters[static_cast<std::size_t>(i)], share}));
    }
    return whole;
}

void WordCodes::AddOverlays(const FontChoice& font, const report::GlyphRun& run, float left,
                            EncodedWord& encoded) {
    float pen = 0;
    auto carrier = mCarriers.begin();
    for (const report::Glyph& glyph : run.glyphs) {
        const float x = left + (pen + glyph.xOffset) * run.size;
        pen += glyph.advance;
        const bool inRow = carrier != mCarriers.end() && carrier->glyph == &glyph;
        if (inRow) ++carrier;
        const bool raised = std::abs(glyph.yOffset) > Narrowest && EmptyGlyph(run.face) >= 0;
        if (inRow && !raised) continue;
        const std::uint16_t code = mCodes.Table(font.font).CodeOf({glyph.id, 0, 0});
        encoded.overlays.push_back({font, Rounded(x), Rounded(glyph.yOffset * run.size), code});
    }
}

void WordCodes::EncodeRun(const report::ShapedWord& word, const report::GlyphRun& run, float left,
                          EncodedWord& encoded) {
    const float width = FindCarriers(word, run);
    if (mCarriers.empty()) return;
    const std::size_t codes = 2 * run.glyphs.size() + word.text.size() + 1;
    const FontChoice choice{mCodes.FontFor(run.face, codes), run.size};
    CodeTable& table = mCodes.Table(choice.font);
    const float start = mCarriers.front().origin;
    std::string& show = encoded.show;
    const bool opensWord = show.empty();
    if (opensWord) {
        encoded.first = choice;
        encoded.start = Rounded(left + start * run.size);
    } else {
        show.push_back(')');
        if (choice != encoded.last) {
            show += "]TJ";
            AppendFont(show, choice);
            show.push_back('[');
        }
        const std::int64_t shift = std::lround(start * 1000.0F);
        if (shift != 0) AppendInteger(show, -shift);
        encoded.advance += static_cast<double>(shift) * run.size / 1000;
        show.push_back('(');
    }
    encoded.last = choice;
    if (opensWord && HasReadingMark(word)) {
        const auto empty = static_cast<std::uint16_t>(std::max(EmptyGlyph(run.face), 0));
        AppendCode(show, table.CodeOf({empty, report::ReadingMark, 0}));
    }
    for (std::size_t i = 0; i < mCarriers.size(); ++i) {
        const float next = i + 1 < mCarriers.size() ? mCarriers[i + 1].origin : width;
        const std::int32_t advance =
            AppendCarrier(table, word, mCarriers[i], next - mCarriers[i].origin, show);
        encoded.advance += double{run.size} * advance / EmUnits;
    }
    AddOverlays(choice, run, left, encoded);
    const int empty = EmptyGlyph(run.face);
    const Code blank{static_cast<std::uint16_t>(std::max(empty, 0)), U' ', BlankAdvance};
    const std::uint16_t code = table.CodeOf(blank);
    encoded.blank = {static_cast<char>(code >> 8U), static_cast<char>(code & 0xFFU)};
}

EncodedFigures& WordCodes::FiguresOf(report::StyleId style) {
    if (style >= mFigures.size()) mFigures.resize(std::size_t{style} + 1);
    EncodedFigures& figures = mFigures[style];
    const report::FigureFont& font = mFonts.Faces(style).figures;
    // A face draws each of its 128 characters in one way: its font is never full.
    const FontId current = mCodes.FontFor(font.face, 0, CodeBytes::One);
    if (figures.font.font != current || figures.font.size != font.size) figures = {{current, font.size}, {}};
    return figures;
}

char WordCodes::AssignFigure(EncodedFigures& figures, report::StyleId style, unsigned character) {
    const report::FigureFont& font = mFonts.Faces(style).figures;
    const std::int32_t advance = TenThousandths(font.advance[character]);
    figures.advances[character] = advance;
    const Code code{font.glyph[character], static_cast<char32_t>(character), advance};
    return figures.codes[character] = static_cast<char>(mCodes.Table(figures.font.font).CodeOf(code));
}

FontChoice WordCodes::FigureFont(report::StyleId style) {
    return FiguresOf(style).font;
}

double WordCodes::AppendFigures(std::string& content, std::string_view text, report::StyleId style) {
    EncodedFigures& figures = mFigures.at(style);
    std::int64_t advance = 0;
    std::size_t at = content.size();
    content.resize(at + text.size());
    for (const char c : text) {
        const unsigned character = static_cast<unsigned char>(c) & 0x7FU;
        char code = figures.codes[character];
        if (code == 0) code = AssignFigure(figures, style, character);
        content[at++] = code;
        advance += figures.advances[character];
    }
    return static_cast<double>(advance);
}

} // namespace qbrpt::pdf
