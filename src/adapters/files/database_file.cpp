#include "adapters/files/database_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <optional>

namespace qbrpt {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t HeadBytes = 24;

std::string_view HeadOf(int handle, std::array<char, HeadBytes>& bytes) {
    const ssize_t size = ::pread(handle, bytes.data(), bytes.size(), 0);
    return {bytes.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
}

// Of this process. Closing a file gives up every lock that the process has on it, also those of a connection
// to the database in it: a file that is open already must be read through the handle that it has.
std::optional<int> OpenHandleOf(const struct stat& file) {
    std::error_code none;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd", none)) {
        const int handle = std::atoi(entry.path().filename().c_str());
        struct stat status {};
        if (::fstat(handle, &status) == 0 && status.st_dev == file.st_dev && status.st_ino == file.st_ino &&
            (::fcntl(handle, F_GETFL) & O_ACCMODE) != O_WRONLY)
            return handle;
    }
    return std::nullopt;
}

} // namespace

DatabaseKind KindOfHead(std::string_view head) {
    using namespace std::string_view_literals;
    if (head.starts_with("SQLite format 3\0"sv)) return DatabaseKind::Sqlite;
    constexpr std::size_t nameAt = 4;
    const std::string_view name = head.substr(std::min(nameAt, head.size()));
    const bool access = name.starts_with("Standard Jet DB") || name.starts_with("Standard ACE DB");
    return access ? DatabaseKind::Access : DatabaseKind::None;
}

bool HoldsDatabase(const fs::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    std::array<char, HeadBytes> bytes{};
    if (const auto handle = OpenHandleOf(status))
        return KindOfHead(HeadOf(*handle, bytes)) != DatabaseKind::None;
    const int handle = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) return false;
    const DatabaseKind kind = KindOfHead(HeadOf(handle, bytes));
    ::close(handle);
    return kind != DatabaseKind::None;
}

} // namespace qbrpt
