// A guard over a file that is read as one which nobody changes.
#pragma once

#include <sqlite3.h>

#include <string>

namespace qbrpt::database {

/// A file opened as immutable is read without locks, and pages once read are kept. Should somebody write to
/// it after all, the next query must not mix old pages with new ones.
class UnchangingFile {
public:
    /// Guards the file of `handle` if that was opened as immutable, else nothing.
    explicit UnchangingFile(sqlite3* handle);

    /// Raises FailureNumber::FileAccess when the file has changed, or has got a log beside it, since.
    void Check() const;

private:
    struct State {
        long long size = 0;
        long long seconds = 0; ///< of the last change
        long long nanoseconds = 0;
        bool operator==(const State&) const = default;
    };

    [[nodiscard]] State Look() const;

    std::string mFile; ///< empty: nothing to guard
    State mOpened;
};

} // namespace qbrpt::database
