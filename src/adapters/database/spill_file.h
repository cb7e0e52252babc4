// A file without a name, for rows that are too many for memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qbrpt::database {

/// Grows at its end and is read anywhere. It has no name in its folder, so that nothing is left
/// behind however the program ends.
class SpillFile {
public:
    /// Makes the file in `folder`; an empty one stands for TMPDIR or, without that, /var/tmp, which
    /// lies on a disk where /tmp may be memory. Raises FailureNumber::FileAccess.
    explicit SpillFile(const std::string& folder);
    SpillFile(const SpillFile&) = delete;
    SpillFile& operator=(const SpillFile&) = delete;
    ~SpillFile();

    /// Writes `bytes` at the end and returns where they begin. Raises FailureNumber::FileAccess, a full
    /// disk among the reasons.
    std::uint64_t Append(std::string_view bytes);
    /// Reads `size` bytes from `offset` into `target`.
    void Read(std::uint64_t offset, char* target, std::size_t size) const;

private:
    [[noreturn]] void Fail(const char* what, int error) const;

    std::string mFolder;
    int mHandle = -1;
    std::uint64_t mSize = 0;
};

} // namespace qbrpt::database
