#include "adapters/files/spill_file.h"

#include "base/failure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace qbrpt {

namespace {

constexpr std::size_t PieceSize = std::size_t{1} << 18;

// Some file systems (network ones above all) know no nameless files; there the name is taken away at once.
int OpenNameless(const std::string& folder) {
    const int handle = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (handle >= 0 || (errno != EOPNOTSUPP && errno != EISDIR)) return handle;
    std::string name = folder + "/qbrpt-XXXXXX";
    const int named = ::mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0) ::unlink(name.c_str());
    return named;
}

} // namespace

std::string SpillFolder() {
    const char* named = std::getenv("TMPDIR");
    return named != nullptr && *named != '\0' ? named : "/var/tmp";
}

SpillFile::SpillFile(const std::string& folder, std::string what)
    : mFolder(folder.empty() ? SpillFolder() : folder), mWhat(std::move(what)) {
    mHandle = OpenNameless(mFolder);
    if (mHandle < 0) Fail("made", errno);
}

SpillFile::~SpillFile() {
    if (mHandle >= 0) ::close(mHandle);
}

std::uint64_t SpillFile::Append(std::string_view bytes) {
    const std::uint64_t begin = mSize;
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(mHandle, bytes.data(), bytes.size(), static_cast<off_t>(mSize));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) Fail("written", written == 0 ? ENOSPC : errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
        mSize += static_cast<std::uint64_t>(written);
    }
    return begin;
}

void SpillFile::Read(std::uint64_t offset, char* target, std::size_t size) const {
    while (size > 0) {
        const ssize_t got = ::pread(mHandle, target, size, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) Fail("read", got == 0 ? EIO : errno);
        target += got;
        offset += static_cast<std::uint64_t>(got);
        size -= static_cast<std::size_t>(got);
    }
}

void SpillFile::CopyTo(ByteSink& sink) const {
    struct stat status {};
    if (::fstat(mHandle, &status) != 0) Fail("read", errno);
    std::string piece;
    const auto size = static_cast<std::uint64_t>(status.st_size);
    for (std::uint64_t at = 0; at < size; at += piece.size()) {
        piece.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size - at, PieceSize)));
        Read(at, piece.data(), piece.size());
        sink.Write(piece);
    }
}

void SpillFile::Fail(const char* what, int error) const {
    throw Failure(FailureNumber::FileAccess, mWhat + " cannot be " + std::string(what) + " in \"" + mFolder +
                                                 "\": " + std::generic_category().message(error) +
                                                 ". Make room there, or name another folder in TMPDIR.");
}

} // namespace qbrpt
