// What the rooms of the system may include, and how that is found out.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qbrpt::test {

/// A room that is written against the ports only, with the rooms that it may use besides itself.
struct RoomRule {
    std::string folder;
    std::vector<std::string> mayUse;
};

[[nodiscard]] const std::vector<RoomRule>& RoomRules();

/// Looks at files of one room in two ways. What they name themselves (#include lines) must be a header of an
/// allowed room or on the white list of standard headers. What the compiler then really reads must be in
/// allowed rooms too, or be something that the white list alone brings in: so nothing comes in by a side
/// door, wherever a system header may lie.
class IncludeCheck {
public:
    /// `source` holds the rooms' folders.
    explicit IncludeCheck(std::filesystem::path source);

    /// Complaints about `files`, each a line "file: reason"; empty when all is well.
    [[nodiscard]] std::vector<std::string> Complaints(const RoomRule& rule,
                                                      const std::vector<std::filesystem::path>& files) const;

    /// All headers and sources of a room.
    [[nodiscard]] std::vector<std::filesystem::path> FilesOf(const RoomRule& rule) const;

private:
    void CheckLines(const RoomRule& rule, const std::filesystem::path& file,
                    std::vector<std::string>& complaints) const;
    void CheckDependencies(const RoomRule& rule, const std::filesystem::path& file,
                           std::vector<std::string>& complaints) const;
    [[nodiscard]] bool IsAllowedRoom(const RoomRule& rule, const std::string& headerInSource) const;

    std::filesystem::path mSource;
    std::vector<std::string> mStandardFiles; ///< all that the white list brings in, sorted
};

} // namespace qbrpt::test
