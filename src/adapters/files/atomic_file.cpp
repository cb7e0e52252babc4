#include "adapters/files/atomic_file.h"

#include "adapters/files/database_file.h"
#include "adapters/files/system_words.h"
#include "base/failure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <utility>

namespace qbrpt {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t BufferBytes = 256UL * 1024;
constexpr mode_t NewFileMode = 0666; // less what the user's mask takes away

fs::path FolderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : fs::path{"."};
}

[[noreturn]] void RefuseTarget(const fs::path& target, const std::string& reason) {
    throw Failure(FailureNumber::FileAccess,
                  "The file \"" + target.string() + "\" cannot be written: " + reason);
}

/// A name beside `target` that nobody else uses.
fs::path HiddenNameBeside(const fs::path& target) {
    static std::atomic<unsigned> serial{0};
    return FolderOf(target) /
           (".qbrpt-" + std::to_string(::getpid()) + "-" + std::to_string(++serial) + ".part");
}

} // namespace

AtomicFile::AtomicFile(const fs::path& target) : mTarget(target) {
    if (target.empty()) RefuseTarget(target, "it has no name.");
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) RefuseTarget(target, "a folder of that name stands there.");
    if (exists && !S_ISREG(status.st_mode)) {
        mHandle = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
        if (mHandle < 0) RefuseTarget(target, SystemWords(errno));
        mDirect = true;
        return;
    }
    if (exists && HoldsDatabase(target))
        RefuseTarget(target, "a database stands there, which is left as it is. Choose another name.");
    if (exists && ::access(target.c_str(), W_OK) != 0) RefuseTarget(target, SystemWords(errno));
    // A link to a file keeps pointing at it: the file behind it is replaced, not the link.
    std::error_code unresolved;
    if (exists) mTarget = fs::canonical(target, unresolved);
    if (unresolved) mTarget = target;
    Begin(FolderOf(mTarget));
    if (exists) static_cast<void>(::fchmod(mHandle, status.st_mode & 07777));
}

AtomicFile::~AtomicFile() {
    Discard();
}

void AtomicFile::Begin(const fs::path& folder) {
    mHandle = ::open(folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, NewFileMode);
    if (mHandle >= 0) return;
    if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)
        BeginHidden();
    else
        RefuseTarget(mTarget, SystemWords(errno));
}

void AtomicFile::BeginHidden() {
    mHidden = HiddenNameBeside(mTarget);
    mHandle = ::open(mHidden.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    if (mHandle < 0) {
        const int reason = errno;
        mHidden.clear();
        RefuseTarget(mTarget, SystemWords(reason));
    }
}

void AtomicFile::Write(std::string_view bytes) {
    if (mBuffer.size() + bytes.size() > BufferBytes) Flush();
    if (bytes.size() >= BufferBytes)
        WriteThrough(bytes);
    else
        mBuffer.append(bytes);
}

void AtomicFile::Flush() {
    WriteThrough(mBuffer);
    mBuffer.clear();
}

void AtomicFile::WriteThrough(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(mHandle, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) Refuse(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void AtomicFile::Settle() {
    Flush();
    if (!mDirect && ::fsync(mHandle) != 0) Refuse(errno);
}

/// Links the file, which may have no name yet, under `name`; false if that name is taken.
bool AtomicFile::Name(const fs::path& name) const {
    int result = 0;
    if (mHidden.empty()) {
        const std::string handle = "/proc/self/fd/" + std::to_string(mHandle);
        result = ::linkat(AT_FDCWD, handle.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW);
    } else {
        result = ::link(mHidden.c_str(), name.c_str());
    }
    if (result != 0 && errno == EEXIST) return false;
    if (result != 0) Refuse(errno);
    return true;
}

void AtomicFile::Commit() {
    Settle();
    if (!mDirect) {
        // Only a file with a name can take the place of another.
        if (mHidden.empty()) {
            fs::path hidden = HiddenNameBeside(mTarget);
            if (!Name(hidden)) Refuse(EEXIST);
            mHidden = std::move(hidden);
        }
        if (::rename(mHidden.c_str(), mTarget.c_str()) != 0) Refuse(errno);
        mHidden.clear();
    }
    // Some file systems report a full disk only here.
    if (::close(std::exchange(mHandle, -1)) != 0) Refuse(errno);
}

bool AtomicFile::CommitAs(const fs::path& target) {
    Settle();
    if (!Name(target)) return false;
    mTarget = target;
    Discard();
    return true;
}

void AtomicFile::Discard() noexcept {
    if (mHandle >= 0) ::close(std::exchange(mHandle, -1));
    if (!mHidden.empty()) ::unlink(mHidden.c_str());
    mHidden.clear();
}

void AtomicFile::Refuse(int reason) const {
    throw Failure(FailureNumber::Output,
                  "The file \"" + mTarget.string() + "\" could not be written: " + SystemWords(reason));
}

} // namespace qbrpt
