#include "adapters/text/font_face.h"

#include "base/failure.h"

#include <hb-ot.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace qbrpt::text {

namespace {

template <auto Destroy>
struct Deleter {
    template <typename T>
    void operator()(T* object) const {
        Destroy(object);
    }
};

// Big-endian number at `offset` of a font table; 0 beyond its end.
int Signed16(hb_face_t* face, hb_tag_t table, unsigned offset) {
    const std::unique_ptr<hb_blob_t, Deleter<hb_blob_destroy>> blob(hb_face_reference_table(face, table));
    unsigned length = 0;
    const char* data = hb_blob_get_data(blob.get(), &length);
    if (data == nullptr || offset + 2 > length) return 0;
    const auto high = static_cast<unsigned char>(data[offset]);
    const auto low = static_cast<unsigned char>(data[offset + 1]);
    return static_cast<std::int16_t>(high * 256 + low);
}

} // namespace

FontFace::FontFace(const std::string& path, unsigned index) {
    const std::unique_ptr<hb_blob_t, Deleter<hb_blob_destroy>> blob(
        hb_blob_create_from_file_or_fail(path.c_str()));
    if (!blob) throw Failure(FailureNumber::FileAccess, "the font file " + path + " cannot be read");
    const std::unique_ptr<hb_face_t, Deleter<hb_face_destroy>> face(hb_face_create(blob.get(), index));
    if (hb_face_get_glyph_count(face.get()) == 0 || hb_face_get_upem(face.get()) == 0)
        throw Failure(FailureNumber::FileAccess, "the file " + path + " is no font that can be used");
    mFont.reset(hb_font_create(face.get()));
    mUnitsPerEm = static_cast<float>(hb_face_get_upem(face.get()));
}

std::uint16_t FontFace::GlyphOf(char32_t character) const {
    hb_codepoint_t glyph = 0;
    if (hb_font_get_nominal_glyph(mFont.get(), character, &glyph) == 0) return 0;
    return static_cast<std::uint16_t>(glyph);
}

float FontFace::AdvanceOf(std::uint16_t glyph) const {
    return Ems(hb_font_get_glyph_h_advance(mFont.get(), glyph));
}

int FontFace::EmptyGlyph() const {
    const auto draws = [this](hb_codepoint_t glyph) {
        hb_glyph_extents_t extents{};
        return hb_font_get_glyph_extents(mFont.get(), glyph, &extents) == 0 || extents.width != 0 ||
               extents.height != 0;
    };
    for (const char32_t blank : {U' ', U'\u00A0', U'\u200B'}) {
        const std::uint16_t glyph = GlyphOf(blank);
        if (glyph != 0 && !draws(glyph)) return glyph;
    }
    const unsigned count = std::min(hb_face_get_glyph_count(Face()), 0xFFFFU);
    for (unsigned glyph = 1; glyph < count; ++glyph)
        if (!draws(glyph)) return static_cast<int>(glyph);
    return -1;
}

std::string FontFace::PostScriptName() const {
    std::array<char, 128> name{};
    auto size = static_cast<unsigned>(name.size());
    hb_ot_name_get_utf8(Face(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, name.data());
    std::string clean;
    for (const char c : std::string_view(name.data(), size)) {
        const bool plain =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
        if (plain) clean.push_back(c);
    }
    return clean.empty() ? "Face" : clean;
}

std::string FontFace::File() const {
    using Blob = std::unique_ptr<hb_blob_t, Deleter<hb_blob_destroy>>;
    std::unique_ptr<hb_face_t, Deleter<hb_face_destroy>> alone(hb_face_reference(Face()));
    if (hb_face_get_index(Face()) != 0) {
        alone.reset(hb_face_builder_create());
        std::array<hb_tag_t, 64> tags{};
        auto count = static_cast<unsigned>(tags.size());
        hb_face_get_table_tags(Face(), 0, &count, tags.data());
        for (unsigned i = 0; i < count; ++i) {
            const Blob table(hb_face_reference_table(Face(), tags.at(i)));
            hb_face_builder_add_table(alone.get(), tags.at(i), table.get());
        }
    }
    const Blob blob(hb_face_reference_blob(alone.get()));
    unsigned length = 0;
    const char* data = hb_blob_get_data(blob.get(), &length);
    return data == nullptr ? std::string() : std::string(data, length);
}

FaceMetrics FontFace::Metrics() const {
    const auto scaled = [this](int units) {
        return static_cast<int>(std::lround(static_cast<float>(units) * 1000.0F / mUnitsPerEm));
    };
    const hb_tag_t head = HB_TAG('h', 'e', 'a', 'd');
    const hb_tag_t os2 = HB_TAG('O', 'S', '/', '2');
    FaceMetrics metrics;
    hb_font_extents_t extents{};
    hb_font_get_h_extents(mFont.get(), &extents);
    metrics.ascent = scaled(extents.ascender);
    metrics.descent = scaled(extents.descender);
    metrics.left = scaled(Signed16(Face(), head, 36));
    metrics.bottom = scaled(Signed16(Face(), head, 38));
    metrics.right = scaled(Signed16(Face(), head, 40));
    metrics.top = scaled(Signed16(Face(), head, 42));
    const int capHeight = scaled(Signed16(Face(), os2, 88));
    metrics.capHeight = capHeight > 0 ? capHeight : 700;
    const int weight = Signed16(Face(), os2, 4);
    metrics.weight = weight > 0 ? weight : 400;
    metrics.fixedPitch = Signed16(Face(), HB_TAG('p', 'o', 's', 't'), 14) != 0;
    return metrics;
}

} // namespace qbrpt::text
