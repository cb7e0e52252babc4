// The statements of the general accounts: named accounts, and a journal of what moved between them. An
// account has no balance of its own; it is what the journal says that came in, less what went out.
#pragma once

#include "base/ref.h"
#include "platform/DAO.h"

#include <cstdint>
#include <string>

namespace qbrpt::ledger {

/// The number of the next account, as the only value of the only row; 1 for the first.
[[nodiscard]] std::string NextNumber();
/// Names go in as typed, so that one with an apostrophe is no statement any more.
[[nodiscard]] std::string NewAccount(std::int32_t accountId, const std::string& name);
[[nodiscard]] std::string NewName(std::int32_t accountId, const std::string& name);
/// What one account holds, as the only value of the only row.
[[nodiscard]] std::string Balance(std::int32_t accountId);
/// All accounts with what they hold: `accid`, `name`, `total`, `acc_to`. One that never received shows 0.
[[nodiscard]] std::string Balances();
/// All accounts in the table's own order.
[[nodiscard]] std::string Accounts();

/// One line of the journal.
struct Entry {
    std::int32_t from = 0;
    std::int32_t to = 0;
    double amount = 0;
    double date = 0; ///< day number, with its time of day
    std::string description;
};

[[nodiscard]] std::string NewEntry(const Entry& entry);

} // namespace qbrpt::ledger

namespace qbrpt {

/// The name in a row of accounts. Other programs may have written accounts without one; such a null reads as
/// an empty name, since one of these must not keep all others out of a list.
[[nodiscard]] std::string AccountName(const Value& name);

/// What an account holds in `nTotal`, as the nearest whole number, halves to the even neighbour. Has no trap:
/// a failure is the caller's statement, and leaves `nTotal` as it is.
void GetAccountBalance(const Ref<DAO::Database>& db, std::int32_t nAccId, std::int32_t& nTotal);

} // namespace qbrpt
