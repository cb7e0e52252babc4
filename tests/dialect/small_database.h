// A database in memory, filled with plain SQL and asked in the dialect: what tests compare is rows.
#pragma once

#include "dialect/catalogue.h"
#include "dialect/functions.h"
#include "dialect/translate.h"

#include <sqlite3.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::dialect {

class SmallDatabase final : public Catalogue {
public:
    SmallDatabase();
    ~SmallDatabase() override;
    SmallDatabase(const SmallDatabase&) = delete;
    SmallDatabase& operator=(const SmallDatabase&) = delete;

    /// Runs SQLite's own SQL: tables and rows.
    void Native(const std::string& sql);
    void Save(const std::string& name, const std::string& text) { mSaved[name] = text; }
    void SetNow(double now) { mWorld.now = now; }

    /// The rows of a SELECT, the values of one joined by "|"; "NULL" for null, true or false for what the
    /// translator calls a boolean.
    [[nodiscard]] std::vector<std::string> Rows(const std::string& statement,
                                                const std::vector<Value>& parameters = {});
    /// The only value of a SELECT.
    [[nodiscard]] std::string Single(const std::string& expression);
    /// Rows that a writing statement changed.
    int Execute(const std::string& statement);
    /// The failure's words, or "no failure".
    [[nodiscard]] std::string Error(const std::string& statement);
    /// Lines of the engine's plan.
    [[nodiscard]] std::string Plan(const std::string& statement);
    /// Column names as the translator tells them.
    [[nodiscard]] std::vector<std::string> Names(const std::string& statement);

    [[nodiscard]] const Table* FindTable(std::string_view name) const override;
    [[nodiscard]] std::optional<std::string> SavedQuery(std::string_view name) const override;
    [[nodiscard]] sqlite3* Handle() { return mDatabase; }

private:
    void ReadSchema();
    [[nodiscard]] std::vector<std::string> Run(const std::string& sql,
                                               const std::vector<OutputColumn>& columns,
                                               const std::vector<Value>& parameters);

    sqlite3* mDatabase = nullptr;
    FunctionWorld mWorld;
    std::map<std::string, Table> mTables;
    std::map<std::string, std::string> mSaved;
};

} // namespace qbrpt::dialect
