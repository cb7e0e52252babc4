#include "adapters/database/spill_file.h"

#include "base/failure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace qbrpt::database {

namespace {

std::string FolderFor(const std::string& wanted) {
    if (!wanted.empty()) return wanted;
    const char* named = std::getenv("TMPDIR");
    return named != nullptr && *named != '\0' ? named : "/var/tmp";
}

// Some file systems (network ones above all) know no nameless files; there the name is taken away at once.
int OpenNameless(const std::string& folder) {
    const int handle = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (handle >= 0 || (errno != EOPNOTSUPP && errno != EISDIR)) return handle;
    std::string name = folder + "/qbrpt-rows-XXXXXX";
    const int named = ::mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0) ::unlink(name.c_str());
    return named;
}

} // namespace

SpillFile::SpillFile(const std::string& folder) : mFolder(FolderFor(folder)) {
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

void SpillFile::Fail(const char* what, int error) const {
    throw Failure(FailureNumber::FileAccess, "The file for the rows of a large query cannot be " +
                                                 std::string(what) + " in \"" + mFolder +
                                                 "\": " + std::generic_category().message(error) +
                                                 ". Make room there, or name another folder in TMPDIR.");
}

} // namespace qbrpt::database
