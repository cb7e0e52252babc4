// SQLite files as another program would make and use them.
#pragma once

#include "base/failure.h"
#include "base/rows.h"
#include "platform/DAO.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt::test {

/// A connection of somebody else's.
class Outsider {
public:
    explicit Outsider(const std::filesystem::path& file);
    ~Outsider();
    Outsider(const Outsider&) = delete;
    Outsider& operator=(const Outsider&) = delete;

    void Run(const std::string& sql);
    /// The first value that a query gives, as text; "null" for none.
    [[nodiscard]] std::string Ask(const std::string& sql);
    [[nodiscard]] sqlite3* Handle() const { return mHandle; }

private:
    sqlite3* mHandle = nullptr;
};

/// Makes `file` with the statements in `sql`.
void MakeFile(const std::filesystem::path& file, const std::string& sql);

/// Opens a file as the system does.
Ref<DAO::Database> OpenFile(const std::filesystem::path& file, bool exclusive = false,
                                          bool readOnly = false, const std::string& connect = "");

/// All rows as text: cells parted by "|", rows by a line end. Booleans are true/false, dates #number#.
[[nodiscard]] std::string RowsText(const RowSource& rows);
[[nodiscard]] std::string RowsText(const Ref<DAO::Recordset>& set);

/// Runs `work`, which must raise a Failure of this number, and returns its description.
[[nodiscard]] std::string FailureOf(FailureNumber number, const std::function<void()>& work);

/// Another user for as long as this lives, where the test runs as root; else the same user.
class OrdinaryUser {
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool mChanged = false;
};

} // namespace qbrpt::test
