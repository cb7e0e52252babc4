// Which faces draw which text: the house's chain of families, by role.
#pragma once

#include "adapters/text/font_face.h"
#include "adapters/text/font_files.h"
#include "report/text_port.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::text {

/// The families of the house, best first. A layout names the first of a chain; the others stand in for it
/// where it is not installed, or lacks a character.
namespace house {
constexpr std::string_view BodyArabic = "Noto Sans Arabic";
constexpr std::string_view BodyLatin = "Noto Sans";
constexpr std::string_view Heading = "Noto Kufi Arabic";
constexpr std::string_view Condensed = "DejaVu Sans Condensed";
constexpr std::string_view Everywhere = "DejaVu Sans";
constexpr std::string_view Codes = "DejaVu Sans Mono";
} // namespace house

/// The faces of one style.
struct StyleFaces {
    report::FontSpec spec;
    float size = 0;                     ///< twips; smaller than asked for where a wide stand-in is used
    float blank = 0;                    ///< width of a blank in ems
    std::vector<report::FaceId> arabic; ///< for Arabic letters, best first
    std::vector<report::FaceId> latin;  ///< for everything else, best first
    report::FigureFont figures;
};

class FontBook {
public:
    /// Raises FailureNumber::Report when the machine has no font at all that pages can be set in.
    report::StyleId Style(const report::FontSpec& font);
    [[nodiscard]] const StyleFaces& Faces(report::StyleId style) const { return *mStyles.at(style); }
    [[nodiscard]] const FontFace& Face(report::FaceId face) const { return *mFaces.at(face); }
    /// A face outside the house's chain that has a character, for names in other scripts; nothing where no
    /// font has it.
    std::optional<report::FaceId> FaceWith(char32_t character, bool bold);
    /// The family that a face was found under.
    [[nodiscard]] const std::string& FamilyOf(report::FaceId face) const { return mFamilies.at(face); }

private:
    report::FaceId FaceOf(const FontFile& file, std::string_view family);
    void Add(std::vector<report::FaceId>& chain, std::string_view family, bool bold);
    void AddAnything(StyleFaces& style);
    std::unique_ptr<StyleFaces> MakeStyle(const report::FontSpec& font);
    void FillFigures(StyleFaces& style);

    const FontFiles& Files();

    std::optional<FontFiles> mFiles; ///< read at the first style: a program that prints nothing pays nothing
    std::map<std::pair<std::string, unsigned>, report::FaceId> mFaceIds;
    std::vector<std::unique_ptr<FontFace>> mFaces;
    std::vector<std::string> mFamilies;
    std::vector<std::unique_ptr<StyleFaces>> mStyles;
    std::map<std::pair<char32_t, bool>, std::optional<report::FaceId>> mOthers;
};

} // namespace qbrpt::text
