// The tables of a SQLite database as the translator sees them.
#pragma once

#include "dialect/catalogue.h"

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
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

    /// Forgets what it knows if the database has other tables or columns now. Begins a statement: the
    /// tables that FindTable is asked for are counted from here on.
    void BeginStatement();
    /// Raises BadColumn when a date column of a table that was asked for holds text. Every table is looked
    /// through once; a view stands for all tables, since what lies behind it is not known.
    void CheckDates();

    [[nodiscard]] const dialect::Table* FindTable(std::string_view name) const override;
    [[nodiscard]] std::optional<std::string> SavedQuery(std::string_view name) const override;

private:
    struct Entry {
        dialect::Table table;
        std::string schema; ///< "main" or "temp"
        bool isView = false;
        bool read = false;    ///< the columns have been read
        bool checked = false; ///< the dates have been looked through
        bool asked = false;   ///< named by the statement at hand
        std::string problem;  ///< why the columns cannot be read: a view over something that is gone
    };

    using Versions = std::pair<std::int64_t, std::int64_t>; ///< of the lasting and the temporary tables

    [[nodiscard]] Versions ReadVersions() const;
    void ReadTables() const;
    void ReadColumns(Entry& entry) const;
    void CheckDates(Entry& entry) const;

    sqlite3* mHandle;
    mutable std::map<std::string, Entry, std::less<>> mTables; ///< by folded name
    Versions mVersions{-1, -1};
};

} // namespace qbrpt::database
