// The font files of the machine that pages can be set in.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::text {

/// One upright face in a font file.
struct FontFile {
    std::string path;
    unsigned index = 0; ///< of the face in a collection
    std::vector<std::string> families;
    int weight = 80; ///< as FontConfig counts: 80 regular, 200 bold
    int width = 100; ///< 75 condensed, 100 normal
    bool arabic = false;
    bool latin = false;
    std::shared_ptr<const void> characters; ///< FontConfig's set of those that the face has
};

/// What FontConfig knows of: upright TrueType outlines that are not variable, since the PDF embeds these as
/// they are. FONTCONFIG_FILE chooses another configuration, as for every program.
class FontFiles {
public:
    FontFiles();

    /// The file of a family, by its exact name without regard to case; null where it is not installed. A
    /// family without a bold file gives its regular one.
    [[nodiscard]] const FontFile* Find(std::string_view family, bool bold) const;

    /// A file of any family that has a character; null where none is installed.
    [[nodiscard]] const FontFile* FindFor(char32_t character, bool bold) const;

    /// The names of all families, each once, sorted; `arabicOnly`: of those with Arabic letters.
    [[nodiscard]] std::vector<std::string> Families(bool arabicOnly) const;

    [[nodiscard]] const std::vector<FontFile>& All() const { return mFiles; }

private:
    std::vector<FontFile> mFiles;
};

/// Whether two family names are the same but for the case of ASCII letters.
[[nodiscard]] bool SameFamily(std::string_view left, std::string_view right);

} // namespace qbrpt::text
