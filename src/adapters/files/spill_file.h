// A file without a name, for what is too much for memory.
#pragma once

#include "base/byte_sink.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qbrpt {

/// The folder that TMPDIR names or, without that, /var/tmp, which lies on a disk where /tmp may be memory.
[[nodiscard]] std::string SpillFolder();

/// Grows at its end and is read anywhere. It has no name in its folder, so that nothing is left
/// behind however the program ends.
class SpillFile {
public:
    /// Makes the file in `folder`; an empty one stands for SpillFolder(). `what` is what a failure calls the
    /// file. Raises FailureNumber::FileAccess.
    SpillFile(const std::string& folder, std::string what);
    SpillFile(const SpillFile&) = delete;
    SpillFile& operator=(const SpillFile&) = delete;
    ~SpillFile();

    /// Writes `bytes` at the end and returns where they begin. Raises FailureNumber::FileAccess, a full
    /// disk among the reasons.
    std::uint64_t Append(std::string_view bytes);
    /// Reads `size` bytes from `offset` into `target`.
    void Read(std::uint64_t offset, char* target, std::size_t size) const;

    /// A path under which a library of this process can write the file anew, as long as it is open here.
    [[nodiscard]] std::string Path() const { return "/proc/self/fd/" + std::to_string(mHandle); }
    /// Passes on everything that stands in the file, whoever wrote it.
    void CopyTo(ByteSink& sink) const;
    /// The folder in which the file lies.
    [[nodiscard]] const std::string& Folder() const { return mFolder; }

private:
    [[noreturn]] void Fail(const char* what, int error) const;

    std::string mFolder;
    std::string mWhat;
    int mHandle = -1;
    std::uint64_t mSize = 0;
};

} // namespace qbrpt
