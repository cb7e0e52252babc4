#include "adapters/text/font_book.h"

#include "base/failure.h"

#include <algorithm>
#include <array>
#include <limits>

namespace qbrpt::text {

namespace {

// A hyphen is too short beside digits. Noto Sans has no minus sign; its en dash is as long and stands as
// high.
constexpr char32_t MinusSign = 0x2212;
constexpr char32_t EnDash = 0x2013;
/// DejaVu Sans runs wide; at this share of the size it fits where the house's faces fit.
constexpr float WideFaceScale = 0.9F;

/// Bounds what is remembered of characters outside the chain against texts of random bytes.
constexpr std::size_t OthersKept = 4096;

struct Chain {
    std::vector<std::string_view> arabic;
    std::vector<std::string_view> latin;
};

Chain ChainOf(std::string_view family) {
    using namespace house;
    if (SameFamily(family, BodyArabic) || family.empty())
        return {{BodyArabic, Condensed, Everywhere}, {BodyLatin, Condensed, Everywhere, BodyArabic}};
    if (SameFamily(family, Heading))
        return {{Heading, BodyArabic, Everywhere}, {BodyLatin, Everywhere, Heading}};
    if (SameFamily(family, Codes)) return {{Codes, Everywhere}, {Codes, Everywhere}};
    return {{family, BodyArabic, Condensed, Everywhere},
            {family, BodyLatin, Condensed, Everywhere, BodyArabic}};
}

bool IsHouseRole(std::string_view family) {
    return family.empty() || SameFamily(family, house::BodyArabic) || SameFamily(family, house::Heading);
}

} // namespace

const FontFiles& FontBook::Files() {
    if (!mFiles) mFiles.emplace();
    return *mFiles;
}

report::StyleId FontBook::Style(const report::FontSpec& font) {
    for (std::size_t i = 0; i < mStyles.size(); ++i)
        if (mStyles[i]->spec == font) return static_cast<report::StyleId>(i);
    if (mStyles.size() > std::numeric_limits<report::StyleId>::max())
        throw Failure(FailureNumber::Report, "a report uses more than 65536 different fonts");
    mStyles.push_back(MakeStyle(font));
    return static_cast<report::StyleId>(mStyles.size() - 1);
}

report::FaceId FontBook::FaceOf(const FontFile& file, std::string_view family) {
    const auto key = std::make_pair(file.path, file.index);
    const auto known = mFaceIds.find(key);
    if (known != mFaceIds.end()) return known->second;
    mFaces.push_back(std::make_unique<FontFace>(file.path, file.index));
    mFamilies.emplace_back(family);
    const auto face = static_cast<report::FaceId>(mFaces.size() - 1);
    mFaceIds.emplace(key, face);
    return face;
}

std::optional<report::FaceId> FontBook::FaceWith(char32_t character, bool bold) {
    if (mOthers.size() >= OthersKept) mOthers.clear();
    const auto [known, isNew] = mOthers.try_emplace({character, bold});
    if (!isNew) return known->second;
    const FontFile* file = Files().FindFor(character, bold);
    if (file != nullptr) known->second = FaceOf(*file, file->families.front());
    return known->second;
}

void FontBook::Add(std::vector<report::FaceId>& chain, std::string_view family, bool bold) {
    const FontFile* file = Files().Find(family, bold);
    if (file == nullptr) return;
    const report::FaceId face = FaceOf(*file, family);
    if (std::find(chain.begin(), chain.end(), face) == chain.end()) chain.push_back(face);
}

// A machine with none of the house's families: the first by name that has the letters.
void FontBook::AddAnything(StyleFaces& style) {
    for (const FontFile& file : Files().All()) {
        if (style.arabic.empty() && file.arabic) Add(style.arabic, file.families.front(), style.spec.bold);
        if (style.latin.empty() && file.latin) Add(style.latin, file.families.front(), style.spec.bold);
    }
    if (style.arabic.empty()) style.arabic = style.latin;
    if (style.latin.empty()) style.latin = style.arabic;
    if (style.latin.empty())
        throw Failure(FailureNumber::Report, "no TrueType font is installed that pages can be set in; "
                                             "install the package fonts-dejavu-core");
}

std::unique_ptr<StyleFaces> FontBook::MakeStyle(const report::FontSpec& font) {
    auto style = std::make_unique<StyleFaces>();
    style->spec = font;
    const Chain chain = ChainOf(font.family);
    for (const std::string_view family : chain.arabic)
        Add(style->arabic, family, font.bold);
    for (const std::string_view family : chain.latin)
        Add(style->latin, family, font.bold);
    AddAnything(*style);
    const bool standIn =
        !SameFamily(font.family, house::Everywhere) && !SameFamily(font.family, house::Codes);
    const bool wide = FamilyOf(style->arabic.front()) == house::Everywhere;
    style->size =
        static_cast<float>(std::max<report::Twips>(font.size, 1)) * (standIn && wide ? WideFaceScale : 1.0F);
    const FontFace& first = Face(IsHouseRole(font.family) ? style->arabic.front() : style->latin.front());
    const std::uint16_t blank = first.GlyphOf(U' ');
    style->blank = blank != 0 ? first.AdvanceOf(blank) : 0.25F;
    FillFigures(*style);
    return style;
}

void FontBook::FillFigures(StyleFaces& style) {
    constexpr std::u32string_view needed = U"0123456789.,:/%";
    const auto complete = [this, needed](report::FaceId id) {
        const FontFace& face = Face(id);
        return std::all_of(needed.begin(), needed.end(), [&face](char32_t c) { return face.Has(c); });
    };
    const auto found = std::find_if(style.latin.begin(), style.latin.end(), complete);
    report::FigureFont& figures = style.figures;
    figures.face = found != style.latin.end() ? *found : style.latin.front();
    figures.size = style.size;
    const FontFace& face = Face(figures.face);
    for (std::size_t c = U' '; c < 0x7F; ++c)
        figures.glyph[c] = face.GlyphOf(static_cast<char32_t>(c));
    for (const char32_t dash : {EnDash, MinusSign})
        if (face.Has(dash)) figures.glyph['-'] = face.GlyphOf(dash);
    for (std::size_t c = U' '; c < 0x7F; ++c)
        figures.advance[c] = face.AdvanceOf(figures.glyph[c]);
}

} // namespace qbrpt::text
