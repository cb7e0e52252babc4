// The accounts with their balances: quick, and the rows of the statement as it is written.
#include "dialect/small_database.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace qbrpt::dialect {
namespace {

constexpr const char* Balances =
    "SELECT account_src.accid, account_src.name, IIf(Sum([amount]) Is Null,0,Sum([amount]))-(Select "
    "IIf(Sum(amount) Is Null, 0, Sum(amount)) FROM account_log WHERE acc_from = [account_log1].[acc_to]) AS "
    "total, account_log1.acc_to FROM account_log AS account_log1 RIGHT JOIN account_src ON "
    "account_log1.acc_to = account_src.accid\rGROUP BY account_src.accid, account_src.name, "
    "account_log1.acc_to;";
constexpr const char* AsTheEngineRunsIt =
    "SELECT s.accid, min(s.name COLLATE BINARY) AS name, coalesce(sum(l.amount), 0) - (SELECT "
    "coalesce(sum(amount), 0) FROM account_log WHERE acc_from = l.acc_to) AS total, l.acc_to FROM "
    "account_log "
    "l RIGHT JOIN account_src s ON l.acc_to = s.accid GROUP BY s.accid, s.name COLLATE QBRPT, l.acc_to";

/// Numbers that stand twice, with the same name and with others; accounts that nobody has; nulls. Amounts
/// are quarters, so that sums are exact in any order.
void FillLedger(SmallDatabase& database, unsigned seed) {
    std::mt19937 random(seed);
    const auto number = [&random](unsigned limit) {
        return random() % 9 == 0 ? std::string("NULL") : std::to_string(random() % limit);
    };
    std::string script = "CREATE TABLE account_src (accid INTEGER, name TEXT);"
                         "CREATE TABLE account_log (acc_from INTEGER, acc_to INTEGER, amount REAL, "
                         "trans_date DATETIME, descrip TEXT);";
    for (auto account = random() % 12; account > 0; --account)
        script += "INSERT INTO account_src VALUES (" + number(7) + ", " +
                  (random() % 2 == 0   ? "'Safe'"
                   : random() % 2 == 0 ? "'safe'"
                                       : "'صندوق'") +
                  ");";
    for (auto entry = random() % 40; entry > 0; --entry)
        script += "INSERT INTO account_log VALUES (" + number(9) + ", " + number(9) + ", " +
                  (random() % 9 == 0 ? "NULL" : std::to_string(0.25 * static_cast<int>(random() % 400))) +
                  ", 37780, NULL);";
    if (random() % 2 == 0) script += "CREATE INDEX given ON account_log (acc_from, amount);";
    if (random() % 2 == 0) script += "CREATE INDEX received ON account_log (acc_to);";
    if (random() % 2 == 0) script += "CREATE INDEX numbers ON account_src (accid);";
    database.Native(script);
}

TEST(Balances, AreThoseOfTheStatementAsItIsWritten) {
    const unsigned seed = std::random_device{}();
    for (unsigned turn = 0; turn < 400; ++turn) {
        SCOPED_TRACE("seed " + std::to_string(seed + turn));
        SmallDatabase database;
        FillLedger(database, seed + turn);
        std::vector<std::string> rows = database.Rows(Balances);
        database.Native(std::string("CREATE TABLE found AS ") + AsTheEngineRunsIt);
        std::vector<std::string> wanted = database.Rows("SELECT * FROM found");
        std::sort(rows.begin(), rows.end());
        std::sort(wanted.begin(), wanted.end());
        ASSERT_EQ(rows, wanted);
    }
}

// Two walks over the journal, whatever the number of accounts.
TEST(Balances, LookAtTheJournalTwice) {
    SmallDatabase database;
    FillLedger(database, 1);
    const std::string plan = database.Plan(Balances);
    std::size_t walks = 0;
    for (const char* walk :
         {"SCAN account_log\n", "SCAN account_log ", "SCAN account_log1\n", "SCAN account_log1 "})
        for (std::size_t at = 0; (at = plan.find(walk, at)) != std::string::npos; ++at)
            ++walks;
    EXPECT_EQ(walks, 2U) << plan;
    EXPECT_EQ(plan.find("CORRELATED"), std::string::npos) << plan;
    EXPECT_EQ(plan.find("SCAN qb totals"), std::string::npos) << plan;
}

} // namespace
} // namespace qbrpt::dialect
