#include "accounts/ledger.h"

#include "base/numbers.h"
#include "support/variant.h"

namespace qbrpt {

namespace ledger {

std::string NextNumber() {
    return "SELECT IIf(Max(accid) Is Null, 0, Max(accid)) + 1 As newid FROM account_src";
}

std::string NewAccount(std::int32_t accountId, const std::string& name) {
    return "INSERT INTO account_src(accid, name) VALUES(" + DecimalText(accountId) + ", '" + name + "')";
}

std::string NewName(std::int32_t accountId, const std::string& name) {
    return "UPDATE account_src SET name = '" + name + "' WHERE accid = " + DecimalText(accountId);
}

std::string Balance(std::int32_t accountId) {
    const std::string id = DecimalText(accountId);
    return "SELECT IIf(Sum(amount) Is Null, 0, Sum(amount))"
           "-(SELECT IIf(Sum(amount) Is Null, 0, Sum(amount)) FROM account_log WHERE acc_from = " +
           id + ") FROM account_log WHERE acc_to = " + id;
}

std::string Balances() {
    return "SELECT account_src.accid, account_src.name, "
           "IIf(Sum([amount]) Is Null,0,Sum([amount]))-(Select IIf(Sum(amount) "
           "Is Null, 0, Sum(amount)) FROM account_log WHERE acc_from = [account_log1].[acc_to]) AS total, "
           "account_log1.acc_to FROM account_log AS account_log1 RIGHT JOIN account_src ON "
           "account_log1.acc_to = account_src.accid\r"
           "GROUP BY account_src.accid, account_src.name, account_log1.acc_to;";
}

std::string Accounts() {
    return "SELECT * FROM account_src";
}

std::string NewEntry(const Entry& entry) {
    return "INSERT INTO account_log(acc_from, acc_to, amount, trans_date, descrip) VALUES(" +
           DecimalText(entry.from) + ", " + DecimalText(entry.to) + ", " + DecimalText(entry.amount) + ", " +
           DecimalText(entry.date) + ", '" + entry.description + "')";
}

} // namespace ledger

std::string AccountName(const Value& name) {
    return IsNull(name) ? std::string() : TextOf(name);
}

void GetAccountBalance(const Ref<DAO::Database>& db, std::int32_t nAccId, std::int32_t& nTotal) {
    const Ref<DAO::Recordset> records = db->OpenRecordset(ledger::Balance(nAccId));
    std::int32_t total = 0;
    if (!records->Eof()) total = RoundToLong(NumberOf(records->Fields(0)));
    records->Close();
    nTotal = total;
}

} // namespace qbrpt
