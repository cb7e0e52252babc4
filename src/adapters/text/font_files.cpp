#include "adapters/text/font_files.h"

#include "base/failure.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <set>

namespace qbrpt::text {

namespace {

constexpr int Regular = FC_WEIGHT_REGULAR;
constexpr int Bold = FC_WEIGHT_BOLD;

template <auto Destroy>
struct Deleter {
    template <typename T>
    void operator()(T* object) const {
        Destroy(object);
    }
};

using Config = std::unique_ptr<FcConfig, Deleter<FcConfigDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Deleter<FcPatternDestroy>>;
using ObjectSet = std::unique_ptr<FcObjectSet, Deleter<FcObjectSetDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Deleter<FcFontSetDestroy>>;

std::string Text(const FcPattern* pattern, const char* object, int index = 0) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, index, &value) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(value); // FcChar8 is a byte of UTF-8
}

int Number(const FcPattern* pattern, const char* object, int otherwise) {
    int value = 0;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : otherwise;
}

bool Flag(const FcPattern* pattern, const char* object) {
    FcBool value = FcFalse;
    return FcPatternGetBool(pattern, object, 0, &value) == FcResultMatch && value != FcFalse;
}

bool Covers(const FcPattern* pattern, std::u32string_view characters) {
    FcCharSet* set = nullptr;
    if (FcPatternGetCharSet(pattern, FC_CHARSET, 0, &set) != FcResultMatch) return false;
    return std::all_of(characters.begin(), characters.end(),
                       [set](char32_t c) { return FcCharSetHasChar(set, c) != FcFalse; });
}

bool Usable(const FcPattern* pattern) {
    return Flag(pattern, FC_OUTLINE) && !Flag(pattern, FC_COLOR) && !Flag(pattern, FC_VARIABLE) &&
           Text(pattern, FC_FONTFORMAT) == "TrueType" && Number(pattern, FC_SLANT, 0) == FC_SLANT_ROMAN &&
           static_cast<unsigned>(Number(pattern, FC_INDEX, 0)) <=
               0xFFFFU; // above: an instance of a variable font
}

FontFile FileOf(const FcPattern* pattern) {
    FontFile file;
    file.path = Text(pattern, FC_FILE);
    file.index = static_cast<unsigned>(Number(pattern, FC_INDEX, 0));
    for (int i = 0;; ++i) {
        std::string family = Text(pattern, FC_FAMILY, i);
        if (family.empty()) break;
        file.families.push_back(std::move(family));
    }
    file.weight = Number(pattern, FC_WEIGHT, Regular);
    file.width = Number(pattern, FC_WIDTH, FC_WIDTH_NORMAL);
    file.arabic = Covers(pattern, U"ءآأؤإئابةتثجحخدذرزسشصضطظعغفقكلمنهوىي");
    file.latin = Covers(pattern, U"0123456789.,:/-%ABCxyz");
    FcCharSet* set = nullptr;
    if (FcPatternGetCharSet(pattern, FC_CHARSET, 0, &set) == FcResultMatch)
        file.characters = std::shared_ptr<const FcCharSet>(FcCharSetCopy(set), FcCharSetDestroy);
    return file;
}

// How far a face is from a plain or a bold one of normal width.
int Distance(const FontFile& file, bool bold) {
    return std::abs(file.weight - (bold ? Bold : Regular)) * 1000 + std::abs(file.width - FC_WIDTH_NORMAL);
}

// A condensed or light face is listed under the family as a whole and under a name of its own.
const std::string& OwnName(const FontFile& file) {
    return file.width == FC_WIDTH_NORMAL ? file.families.front() : file.families.back();
}

} // namespace

bool SameFamily(std::string_view left, std::string_view right) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [lower](char a, char b) { return lower(a) == lower(b); });
}

FontFiles::FontFiles() {
    const Config config(FcInitLoadConfigAndFonts());
    if (!config) throw Failure(FailureNumber::Report, "FontConfig has no configuration that can be read");
    const Pattern any(FcPatternCreate());
    const ObjectSet wanted(FcObjectSetBuild(FC_FAMILY, FC_FILE, FC_INDEX, FC_WEIGHT, FC_WIDTH, FC_SLANT,
                                            FC_OUTLINE, FC_COLOR, FC_VARIABLE, FC_FONTFORMAT, FC_CHARSET,
                                            static_cast<char*>(nullptr)));
    const FontSet found(FcFontList(config.get(), any.get(), wanted.get()));
    if (found == nullptr) return;
    for (int i = 0; i < found->nfont; ++i) {
        if (!Usable(found->fonts[i])) continue;
        FontFile file = FileOf(found->fonts[i]);
        if (!file.families.empty() && !file.path.empty()) mFiles.push_back(std::move(file));
    }
    // The list comes in the order of a hash table; a fixed one keeps every choice the same on every run.
    std::sort(mFiles.begin(), mFiles.end(), [](const FontFile& a, const FontFile& b) {
        return a.path != b.path ? a.path < b.path : a.index < b.index;
    });
}

const FontFile* FontFiles::Find(std::string_view family, bool bold) const {
    const FontFile* best = nullptr;
    int bestDistance = 0;
    for (const FontFile& file : mFiles) {
        if (std::none_of(file.families.begin(), file.families.end(),
                         [family](const std::string& name) { return SameFamily(name, family); }))
            continue;
        const int distance = Distance(file, bold);
        if (best == nullptr || distance < bestDistance) {
            best = &file;
            bestDistance = distance;
        }
    }
    return best;
}

const FontFile* FontFiles::FindFor(char32_t character, bool bold) const {
    const auto has = [character](const FontFile& file) {
        const auto* set = static_cast<const FcCharSet*>(file.characters.get());
        return set != nullptr && FcCharSetHasChar(set, character) != FcFalse;
    };
    // Sans faces go with the house's; among them the one of the wanted weight, the first by name.
    const auto rank = [bold](const FontFile& file) {
        const bool sans = file.families.front().find("Sans") != std::string::npos;
        return std::make_pair(!sans, Distance(file, bold));
    };
    const FontFile* best = nullptr;
    for (const FontFile& file : mFiles)
        if (has(file) && (best == nullptr || rank(file) < rank(*best))) best = &file;
    return best;
}

std::vector<std::string> FontFiles::Families(bool arabicOnly) const {
    std::set<std::string> names;
    for (const FontFile& file : mFiles)
        if (file.arabic || !arabicOnly) names.insert(OwnName(file));
    return {names.begin(), names.end()};
}

} // namespace qbrpt::text
