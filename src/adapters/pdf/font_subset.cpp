#include "adapters/pdf/font_subset.h"

#include "base/failure.h"

#include <hb-subset.h>

#include <memory>

namespace qbrpt::pdf {

namespace {

template <auto Destroy>
struct Deleter {
    template <typename T>
    void operator()(T* object) const {
        Destroy(object);
    }
};

using Input = std::unique_ptr<hb_subset_input_t, Deleter<hb_subset_input_destroy>>;
using Plan = std::unique_ptr<hb_subset_plan_t, Deleter<hb_subset_plan_destroy>>;
using Face = std::unique_ptr<hb_face_t, Deleter<hb_face_destroy>>;
using Blob = std::unique_ptr<hb_blob_t, Deleter<hb_blob_destroy>>;

[[noreturn]] void Refuse(const text::FontFace& face) {
    throw Failure(FailureNumber::Output,
                  "the font " + face.PostScriptName() + " cannot be embedded in the PDF");
}

} // namespace

FontSubset CutFont(const text::FontFace& face, const std::set<std::uint16_t>& glyphs) {
    const Input input(hb_subset_input_create_or_fail());
    if (!input) Refuse(face);
    for (const std::uint16_t glyph : glyphs)
        hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
    // Readers place glyphs by number, so neither shaping rules nor names have work left; glyph 0 keeps its
    // box, since a missing letter should be seen.
    hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* tag : {"GSUB", "GPOS", "GDEF", "kern", "name", "DSIG", "MATH", "FFTM", "gasp", "hdmx",
                            "VDMX", "LTSH", "PCLT", "STAT", "BASE", "JSTF"})
        hb_set_add(dropped, hb_tag_from_string(tag, -1));
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
    const Plan plan(hb_subset_plan_create_or_fail(face.Face(), input.get()));
    if (!plan) Refuse(face);
    const Face cut(hb_subset_plan_execute_or_fail(plan.get()));
    if (!cut) Refuse(face);
    const Blob blob(hb_face_reference_blob(cut.get()));
    unsigned length = 0;
    const char* data = hb_blob_get_data(blob.get(), &length);
    if (data == nullptr || length == 0) Refuse(face);
    FontSubset subset;
    subset.file.assign(data, length);
    const hb_map_t* numbers = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
    for (const std::uint16_t glyph : glyphs) {
        const hb_codepoint_t number = hb_map_get(numbers, glyph);
        if (number != HB_MAP_VALUE_INVALID) subset.glyphs[glyph] = static_cast<std::uint16_t>(number);
    }
    return subset;
}

} // namespace qbrpt::pdf
