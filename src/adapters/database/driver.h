// What the database layer asks of one engine's own client library.
#pragma once

#include "base/rows.h"
#include "dialect/translate.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace qbrpt::database {

/// One statement that the engine has taken and that can be run once. Its destructor lets go of
/// everything that the engine holds for it.
class Statement {
public:
    Statement() = default;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    virtual ~Statement() = default;

    /// Binds the parameter that the translation numbers `index`, counted from 0.
    virtual void Bind(std::size_t index, const Value& value) = 0;
    /// Steps to the next row, false behind the last. The cells come in the kinds that the engine keeps:
    /// Null, Whole, Number or Text; what a column means is for the caller to know. Texts are bytes of any
    /// kind, and stay valid until the next call.
    [[nodiscard]] virtual bool Step(RowView& row) = 0;
    /// Runs a statement that writes to its end.
    virtual void Run() = 0;
    /// True for a statement that changes nothing.
    [[nodiscard]] virtual bool ReadOnly() const = 0;
    /// "table.column" where column `index` of the result comes straight from a table, else nothing.
    [[nodiscard]] virtual std::string Origin(std::size_t index) const = 0;
};

/// A transaction that writes, or a part of the host's. Its destructor undoes what was not committed.
class Writing {
public:
    Writing() = default;
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
    virtual ~Writing() = default;

    virtual void Commit() = 0;
};

/// One session with a database. All calls come from one thread.
class Connection {
public:
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    virtual ~Connection() = default;

    /// Puts a statement of the system's dialect into the engine's own. The tables are looked up as they
    /// are now, and those that the statement names are checked for dates kept as text (BadColumn).
    [[nodiscard]] virtual dialect::Translation Translate(std::string_view statement) = 0;
    /// Takes a statement in the engine's own dialect. `source` is what the caller wrote, for messages.
    [[nodiscard]] virtual std::unique_ptr<Statement> Prepare(const std::string& sql,
                                                             std::string_view source) = 0;
    /// The text of a saved query, by name in any case.
    [[nodiscard]] virtual std::optional<std::string> SavedQuery(std::string_view name) = 0;
    /// True for a table or view of this name, in any case.
    [[nodiscard]] virtual bool HasTable(std::string_view name) = 0;
    /// Rows that the last writing statement changed.
    [[nodiscard]] virtual std::int64_t RowsWritten() = 0;

    /// Waits for other programs that write, as long as the session waits at all. What it gives must not
    /// live longer than the connection.
    [[nodiscard]] virtual std::unique_ptr<Writing> BeginWriting() = 0;

    /// All that is read up to EndReading is read from one state of the database, however much another
    /// program writes meanwhile. Calls do not nest.
    virtual void BeginReading() = 0;
    virtual void EndReading() noexcept = 0;
};

} // namespace qbrpt::database
