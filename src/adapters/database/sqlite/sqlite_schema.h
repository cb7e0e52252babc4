// The tables of a SQLite database as the translator sees them.
#pragma once

#include "dialect/catalogue.h"
#include "dialect/translate.h"

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qbrpt::database {

/// The kind of value that a column's declaration promises; Null for one that promises nothing.
[[nodiscard]] ValueKind KindOfDeclaration(std::string_view declaration);

/// Tables and views of one handle, looked up when first named and kept until the schema changes.
class SqliteSchema final : public dialect::Catalogue {
public:
    explicit SqliteSchema(sqlite3* handle) : mHandle(handle) {}

    /// Forgets what it knows if the database has other tables, columns or rows now. Begins a statement: the
    /// tables that FindTable is asked for are counted from here on.
    void BeginStatement();
    /// Raises BadColumn when one of these columns holds text. Every column is looked through once
    /// until rows change. A view that was asked for stands for all dates of the tables behind it.
    void CheckDates(const std::vector<dialect::DateColumn>& dates);

    [[nodiscard]] const dialect::Table* FindTable(std::string_view name) const override;
    [[nodiscard]] std::optional<std::string> SavedQuery(std::string_view name) const override;

private:
    using TableName = std::pair<std::string, std::string>; ///< "main" or "temp"; the name as it is spelt

    struct Entry {
        dialect::Table table;
        std::string schema; ///< "main" or "temp"
        bool isView = false;
        bool read = false;             ///< the columns have been read
        bool asked = false;            ///< named by the statement at hand
        std::string problem;           ///< why the columns cannot be read: a view over something that is gone
        std::set<std::string> checked; ///< dates that have been looked through
        std::optional<std::set<TableName>> behind; ///< of a view, once somebody wants to know
    };

    using Versions = std::pair<std::int64_t, std::int64_t>;

    [[nodiscard]] std::int64_t Ask(const char* pragma) const;
    void ReadTables() const;
    void ReadColumns(Entry& entry) const;
    void ReadIndexes(Entry& entry) const;
    [[nodiscard]] const std::set<TableName>& TablesBehind(Entry& view) const;
    [[nodiscard]] std::set<TableName> ReadTablesBehind(const Entry& view) const;
    [[noreturn]] static void RaiseUnreadable(const Entry& entry, const std::string& problem);
    void CheckDates(Entry& entry, const std::vector<std::string>& columns) const;

    sqlite3* mHandle;
    mutable std::map<std::string, Entry, std::less<>> mTables; ///< by folded name
    Versions mTablesAre{-1, -1};                               ///< of the lasting and the temporary tables
    Versions mRowsAre{-1, -1}; ///< as others write them, and as this handle does
};

} // namespace qbrpt::database
