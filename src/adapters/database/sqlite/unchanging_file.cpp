#include "adapters/database/sqlite/unchanging_file.h"

#include "base/failure.h"

#include <sys/stat.h>

namespace qbrpt::database {

UnchangingFile::UnchangingFile(sqlite3* handle) {
    const char* file = sqlite3_db_filename(handle, "main");
    if (file == nullptr || sqlite3_uri_boolean(file, "immutable", 0) == 0) return;
    mFile = file;
    mOpened = Look();
}

UnchangingFile::State UnchangingFile::Look() const {
    struct stat status {};
    if (::stat(mFile.c_str(), &status) != 0) return {};
    return {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void UnchangingFile::Check() const {
    if (mFile.empty()) return;
    struct stat log {};
    const bool beingWritten = ::stat((mFile + "-wal").c_str(), &log) == 0 && log.st_size > 0;
    if (beingWritten || Look() != mOpened)
        throw Failure(
            FailureNumber::FileAccess,
            "Another program writes to the database \"" + mFile +
                "\", whose folder may not be written by this user; so it cannot be read safely. Allow "
                "writing in the folder, or open the database again when the other program has ended.");
}

} // namespace qbrpt::database
