#include "adapters/text/shaper.h"

#include "adapters/text/characters.h"
#include "adapters/text/letters.h"
#include "base/utf8.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::text {

namespace {

// Serials are unique in the process, so that a writer that outlives a text adapter cannot mix words up.
std::uint64_t firstFreeSerial = 1;
constexpr std::uint64_t SerialsPerShaper = std::uint64_t{1} << 40U;

std::uint64_t ReserveSerials() {
    const std::uint64_t first = firstFreeSerial;
    firstFreeSerial += SerialsPerShaper;
    return first;
}

// Bounds the list of missing characters against texts of random bytes.
constexpr std::size_t MostMissing = 256;

bool InChain(const std::vector<report::FaceId>& chain, report::FaceId face) {
    return std::find(chain.begin(), chain.end(), face) != chain.end();
}

} // namespace

Shaper::Shaper(FontBook& fonts) : mFonts(fonts), mBuffer(hb_buffer_create()), mNextSerial(ReserveSerials()) {}

report::FaceId Shaper::FaceFor(const StyleFaces& style, const std::vector<report::FaceId>& chain,
                               char32_t character) {
    for (const report::FaceId face : chain)
        if (mFonts.Face(face).Has(character)) return face;
    if (const auto other = mFonts.FaceWith(character, style.spec.bold)) return *other;
    if (!IsAttached(character) && mMissing.size() < MostMissing) mMissing.insert(character);
    return chain.back();
}

void Shaper::AddPart(report::FaceId face, std::size_t first, std::size_t end) {
    if (!mParts.empty() && mParts.back().face == face) {
        mParts.back().length += end - first;
    } else {
        mParts.push_back({first, end - first, face});
    }
}

// One face for all characters from `begin` to `end` where any face has them all; else the best for each.
void Shaper::ChooseFaces(const StyleFaces& style, std::size_t begin, std::size_t end, std::size_t byteEnd) {
    const auto arabicFigures = [this](std::size_t first, std::size_t last) {
        return std::all_of(mCharacters.begin() + static_cast<std::ptrdiff_t>(first),
                           mCharacters.begin() + static_cast<std::ptrdiff_t>(last), [](const Character& c) {
                               return IsArabicDigit(c.value) || IsArabicFigureMark(c.value);
                           });
    };
    const bool arabic = mCharacters[begin].arabic || arabicFigures(begin, end);
    const std::vector<report::FaceId>& chain = arabic ? style.arabic : style.latin;
    const auto hasAll = [&](report::FaceId id) {
        const FontFace& face = mFonts.Face(id);
        for (std::size_t i = begin; i < end; ++i)
            if (!face.Has(mCharacters[i].value) && !IsAttached(mCharacters[i].value)) return false;
        return true;
    };
    const auto whole = std::find_if(chain.begin(), chain.end(), hasAll);
    if (whole != chain.end()) return AddPart(*whole, mCharacters[begin].first, byteEnd);
    report::FaceId face = 0;
    for (std::size_t i = begin; i < end; ++i) {
        const bool stays =
            i > begin && (IsAttached(mCharacters[i].value) ||
                          (!InChain(chain, face) && mFonts.Face(face).Has(mCharacters[i].value)));
        if (!stays) face = FaceFor(style, chain, mCharacters[i].value);
        AddPart(face, mCharacters[i].first, i + 1 < end ? mCharacters[i + 1].first : byteEnd);
    }
}

// Cuts the stretch where the face changes.
void Shaper::Split(const StyleFaces& style, const Stretch& stretch) {
    mCharacters.clear();
    mParts.clear();
    const std::size_t end = stretch.first + stretch.length;
    bool arabic = false;
    for (std::size_t position = stretch.first; position < end;) {
        const std::size_t first = position;
        const char32_t c = NextCharacter(stretch.text, position);
        if (!IsAttached(c) || mCharacters.empty()) arabic = IsArabic(c);
        mCharacters.push_back({c, first, arabic});
    }
    for (std::size_t i = 0; i < mCharacters.size();) {
        std::size_t next = i + 1;
        while (next < mCharacters.size() && mCharacters[next].arabic == mCharacters[i].arabic)
            ++next;
        ChooseFaces(style, i, next, next < mCharacters.size() ? mCharacters[next].first : end);
        i = next;
    }
}

report::GlyphRun Shaper::ShapePart(const StyleFaces& style, const Stretch& stretch, const Part& part) {
    const FontFace& face = mFonts.Face(part.face);
    hb_buffer_t* buffer = mBuffer.get();
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf8(buffer, stretch.text.data(), static_cast<int>(stretch.text.size()),
                       static_cast<unsigned>(part.first), static_cast<int>(part.length));
    hb_buffer_set_cluster_level(buffer, HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS);
    hb_buffer_set_flags(buffer, HB_BUFFER_FLAG_REMOVE_DEFAULT_IGNORABLES);
    hb_buffer_set_direction(buffer, stretch.rightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_guess_segment_properties(buffer);
    if (hb_buffer_get_script(buffer) == HB_SCRIPT_ARABIC)
        hb_buffer_set_language(buffer, hb_language_from_string("ar", -1));
    hb_shape(face.Font(), buffer, nullptr, 0);

    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
    report::GlyphRun run{part.face, style.size, {}};
    run.glyphs.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        report::Glyph glyph;
        glyph.id = static_cast<std::uint16_t>(infos[i].codepoint);
        glyph.advance = face.Ems(positions[i].x_advance);
        glyph.xOffset = face.Ems(positions[i].x_offset);
        glyph.yOffset = face.Ems(positions[i].y_offset);
        glyph.textStart = static_cast<std::uint16_t>(infos[i].cluster - stretch.first);
        run.glyphs.push_back(glyph);
    }
    AssignLetters(run.glyphs, part.first - stretch.first, part.length, stretch.rightToLeft);
    return run;
}

// Figures need no shaping, and are the one thing of which every row has new ones. They look as the figure
// font sets them, but for the hyphen, which is none of a minus here.
bool Shaper::SetFigures(const StyleFaces& style, report::ShapedWord& word) const {
    constexpr std::string_view mark = "\xE2\x80\x8F"; // ReadingMark
    const std::size_t start = word.text.starts_with(mark) ? mark.size() : 0;
    const FontFace& face = mFonts.Face(style.figures.face);
    report::GlyphRun run{style.figures.face, style.size, {}};
    run.glyphs.reserve(word.text.size());
    for (std::size_t i = start; i < word.text.size(); ++i) {
        const auto c = static_cast<unsigned char>(word.text[i]);
        const bool figure =
            IsAsciiDigit(c) || std::string_view(".,:/-+%").find(word.text[i]) != std::string_view::npos;
        report::Glyph glyph;
        glyph.id = figure ? face.GlyphOf(c) : std::uint16_t{0};
        if (glyph.id == 0) return false;
        glyph.advance = face.AdvanceOf(glyph.id);
        glyph.textStart = static_cast<std::uint16_t>(i == start ? 0 : i);
        glyph.textLength = static_cast<std::uint16_t>(i + 1 - glyph.textStart);
        run.glyphs.push_back(glyph);
    }
    word.runs.push_back(std::move(run));
    return true;
}

std::shared_ptr<const report::ShapedWord> Shaper::Shape(const StyleFaces& style, const Stretch& stretch) {
    auto word = std::make_shared<report::ShapedWord>();
    word->serial = mNextSerial++;
    word->text = stretch.text.substr(stretch.first, stretch.length);
    word->rightToLeft = stretch.rightToLeft;
    if (stretch.rightToLeft || !SetFigures(style, *word)) {
        Split(style, stretch);
        if (stretch.rightToLeft) std::reverse(mParts.begin(), mParts.end());
        word->runs.reserve(mParts.size());
        for (const Part& part : mParts)
            word->runs.push_back(ShapePart(style, stretch, part));
    }
    float width = 0;
    for (const report::GlyphRun& run : word->runs)
        for (const report::Glyph& glyph : run.glyphs)
            width += glyph.advance * run.size;
    word->width = static_cast<report::Twips>(std::lround(width));
    return word;
}

} // namespace qbrpt::text
