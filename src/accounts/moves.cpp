// The statements behind the reports on the journal.
#include "accounts/account_reports.h"
#include "base/numbers.h"

#include <string_view>

namespace qbrpt::ledger {

namespace {

/// The words of a period, before its bounds and before its one day.
struct PeriodWords {
    std::string_view range;
    std::string_view day;
};

std::string PeriodClause(const PeriodWords& words, double dFrom, double dTo) {
    if (dFrom <= 0) return {};
    if (dFrom == dTo) return std::string(words.day) + DecimalText(RoundToLong(dFrom)) + ")";
    return std::string(words.range) + DecimalText(dFrom) + " AND " + DecimalText(dTo) + ")";
}

std::string OfAccount(std::int32_t accountId, double dFrom, double dTo) {
    constexpr PeriodWords words = {" AND (CDbl(trans_date) BETWEEN ", " AND (CLng(trans_date)="};
    return DecimalText(accountId) + PeriodClause(words, dFrom, dTo) + "\rORDER BY account_log.trans_date";
}

} // namespace

std::string IncomingMoves(std::int32_t accountId, double dFrom, double dTo) {
    const std::string condition = OfAccount(accountId, dFrom, dTo);
    if (accountId == 0)
        return "SELECT account_src.name, account_log.amount, account_log.descrip, account_log.trans_date\r"
               "FROM account_log INNER JOIN account_src ON account_log.acc_from = account_src.accid\r"
               "WHERE account_log.acc_to = " +
               condition;
    // The picture of the date shows the month behind the hour, as it always has.
    return "SELECT IIf(name Is Null, 'صافي الإيراد ليوم '  & Format(trans_date,'dd-mm-yyyy "
           "hh:MM'),account_src.name) AS accname, account_log.amount, account_log.descrip, "
           "account_log.trans_date\r"
           "FROM account_log LEFT JOIN account_src ON account_log.acc_from = account_src.accid\r"
           "WHERE account_log.acc_to = " +
           condition;
}

std::string OutgoingMoves(std::int32_t accountId, double dFrom, double dTo) {
    return "SELECT account_src.name, account_log.amount, account_log.descrip, account_log.trans_date \r"
           "FROM account_log INNER JOIN account_src ON account_log.acc_to = account_src.accid\r"
           "WHERE account_log.acc_from = " +
           OfAccount(accountId, dFrom, dTo);
}

std::string AllMoves(double dFrom, double dTo) {
    constexpr PeriodWords words = {" Where (trans_date BETWEEN ", " Where (CLng(trans_date)="};
    return "SELECT IIf([account_src].[name] Is Null,'صافي الإيراد ليوم ' & "
           "Format([trans_date],'dd-mm-yyyy'),[account_src].[name]) AS accfrom, account_src_1.name AS accto, "
           "account_log.amount, account_log.descrip, account_log.trans_date\r"
           " FROM (account_log LEFT JOIN account_src ON account_log.acc_from = account_src.accid) INNER JOIN "
           "account_src AS account_src_1 ON account_log.acc_to = account_src_1.accid\r" +
           PeriodClause(words, dFrom, dTo) + "\rORDER BY account_log.trans_date, account_src.accid;";
}

} // namespace qbrpt::ledger
