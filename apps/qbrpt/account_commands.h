// The general accounts without their window: a list of them, and the reports on their journal.
#pragma once

#include "arguments.h"
#include "base/ref.h"
#include "platform/DAO.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qbrpt::cli {

/// `accounts`: all accounts with what they hold.
struct AccountsCall {
    std::string database;
    std::string connect;
    bool csv = false;
    std::string csvFile; ///< empty: to standard output
};

/// Adds `accounts`; what is typed goes into `call`.
void AddAccounts(CLI::App& application, AccountsCall& call);

/// Does it, and returns the exit status.
[[nodiscard]] int RunAccounts(const AccountsCall& call);

/// A report that the accounts' window prints, offered beside the public members. Its `member` cannot be
/// called; `print` takes its arguments.
struct LedgerReport {
    Member member;
    std::function<void(const Ref<DAO::Database>& db, std::span<const Argument> arguments)> print;
};

[[nodiscard]] const std::vector<LedgerReport>& LedgerReports();

} // namespace qbrpt::cli
