// The reports on the journal of the general accounts. They do not go through the run of all other reports,
// but end in the same preview.
#pragma once

#include "base/ref.h"
#include "platform/DAO.h"

#include <cstdint>
#include <functional>
#include <string>

namespace qbrpt {

/// What came into one account and what went out. `dFrom`, `dTo`: day numbers with their time of day; both
/// alike for the day that they round to, `dFrom` 0 or below for all time. `accountName` is asked for the name
/// in the title. A failure ends in a box; nothing is thrown.
void PrintAccountMoves(const Ref<DAO::Database>& db, std::int32_t nAccId, double dFrom, double dTo,
                       const std::function<std::string()>& accountName);

/// All entries of the journal, `dFrom` and `dTo` as above.
void PrintAllMoves(const Ref<DAO::Database>& db, double dFrom, double dTo);

namespace ledger {

/// What came into an account. For 0, which is none, without the words for a day's takings.
[[nodiscard]] std::string IncomingMoves(std::int32_t accountId, double dFrom, double dTo);
/// What went out of an account.
[[nodiscard]] std::string OutgoingMoves(std::int32_t accountId, double dFrom, double dTo);
/// All entries.
[[nodiscard]] std::string AllMoves(double dFrom, double dTo);

} // namespace ledger

} // namespace qbrpt
