// Our own functions and text order inside SQLite.
#pragma once

#include <sqlite3.h>

#include <exception>
#include <optional>

namespace qbrpt::database {

/// Makes the dialect's functions and the collation QBRPT known to `handle`. May be done again on the same
/// handle.
void RegisterFunctions(sqlite3* handle);

/// What our functions know while one statement takes a step, and what they leave behind.
class FunctionRun {
public:
    /// The local time as a day number: asked for once, the same for the whole statement.
    double Now();
    /// Keeps a failure of a function, which SQLite itself can only carry as words.
    void Keep(std::exception_ptr failure) { mFailure = std::move(failure); }
    /// Raises the kept failure, if any.
    void Rethrow();

    /// Makes a run the current one of the thread.
    class Scope {
    public:
        explicit Scope(FunctionRun& run);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        FunctionRun* mOuter;
    };

private:
    std::optional<double> mNow;
    std::exception_ptr mFailure;
};

} // namespace qbrpt::database
