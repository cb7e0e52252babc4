// The statements of the general accounts, letter by letter, and what an account holds.
#include "accounts/ledger.h"
#include "base/failure.h"
#include "fakes/fake_platform.h"

#include <gtest/gtest.h>

#include <limits>

namespace qbrpt {
namespace {

struct TextRow {
    const char* name;
    std::string made;
    const char* text;
};

class LedgerText : public ::testing::TestWithParam<TextRow> {};

TEST_P(LedgerText, IsTheOneThatDatabasesKnow) {
    EXPECT_EQ(GetParam().made, GetParam().text);
}

constexpr const char* BalanceOf12 =
    "SELECT IIf(Sum(amount) Is Null, 0, Sum(amount))-(SELECT IIf(Sum(amount) Is Null, 0, Sum(amount)) FROM "
    "account_log WHERE acc_from = 12) FROM account_log WHERE acc_to = 12";

const TextRow Texts[] = {
    {"NextNumber", ledger::NextNumber(),
     "SELECT IIf(Max(accid) Is Null, 0, Max(accid)) + 1 As newid FROM account_src"},
    {"NewAccount", ledger::NewAccount(7, " الصندوق "),
     "INSERT INTO account_src(accid, name) VALUES(7, ' الصندوق ')"},
    {"NewAccountWithAnApostrophe", ledger::NewAccount(1, "O'Brien"),
     "INSERT INTO account_src(accid, name) VALUES(1, 'O'Brien')"},
    {"NewName", ledger::NewName(-3, "Safe"), "UPDATE account_src SET name = 'Safe' WHERE accid = -3"},
    {"Balance", ledger::Balance(12), BalanceOf12},
    {"Balances", ledger::Balances(),
     "SELECT account_src.accid, account_src.name, IIf(Sum([amount]) Is Null,0,Sum([amount]))-(Select "
     "IIf(Sum(amount) Is Null, 0, Sum(amount)) FROM account_log WHERE acc_from = [account_log1].[acc_to]) AS "
     "total, account_log1.acc_to FROM account_log AS account_log1 RIGHT JOIN account_src ON "
     "account_log1.acc_to = account_src.accid\rGROUP BY account_src.accid, account_src.name, "
     "account_log1.acc_to;"},
    {"Accounts", ledger::Accounts(), "SELECT * FROM account_src"},
    {"NewEntry", ledger::NewEntry({1, 2, 12.5, 37787.4166666667, "نقل"}),
     "INSERT INTO account_log(acc_from, acc_to, amount, trans_date, descrip) VALUES(1, 2, 12.5, "
     "37787.4166666667, 'نقل')"},
    {"NewEntryOfWholeNumbers", ledger::NewEntry({10, 3, 1500, 37787, ""}),
     "INSERT INTO account_log(acc_from, acc_to, amount, trans_date, descrip) VALUES(10, 3, 1500, 37787, '')"},
    {"NewEntryOfFifteenDigits", ledger::NewEntry({1, 2, 0.1 + 0.2, 37787 + 1.0 / 3, "it's"}),
     "INSERT INTO account_log(acc_from, acc_to, amount, trans_date, descrip) VALUES(1, 2, 0.3, "
     "37787.3333333333, 'it's')"},
};
INSTANTIATE_TEST_SUITE_P(Statements, LedgerText, ::testing::ValuesIn(Texts),
                         [](const auto& row) { return row.param.name; });

class Balance : public ::testing::Test {
protected:
    std::int32_t Of(const Value& total) {
        db->Answer("acc_to = 12", {{total}});
        std::int32_t balance = 99;
        GetAccountBalance(db, 12, balance);
        return balance;
    }
    fakes::FakePlatform platform;
    std::shared_ptr<fakes::FakeDatabase> db = std::make_shared<fakes::FakeDatabase>();
};

TEST_F(Balance, IsTheNearestWholeNumberAndHalvesAreEven) {
    const std::pair<double, std::int32_t> rows[] = {{100.25, 100}, {100.5, 100},    {101.5, 102}, {-0.5, 0},
                                                    {-1.5, -2},    {100.5001, 101}, {0, 0}};
    for (const auto& [total, rounded] : rows)
        EXPECT_EQ(Of(total), rounded) << total;
    EXPECT_EQ(Of(std::int64_t{7}), 7);
}

TEST_F(Balance, AsksOnceAndCloses) {
    EXPECT_EQ(Of(1.0), 1);
    ASSERT_EQ(db->opened.size(), 1U);
    EXPECT_EQ(db->opened[0].text, BalanceOf12);
    EXPECT_EQ(db->opened[0].type, std::nullopt);
    EXPECT_EQ(db->recordsets[0]->closed, 1);
}

TEST_F(Balance, IsZeroWithoutARow) {
    db->Answer("acc_to = 12", {});
    std::int32_t balance = 99;
    GetAccountBalance(db, 12, balance);
    EXPECT_EQ(balance, 0);
}

TEST_F(Balance, StaysWhatItWasWhenItCannotBeHad) {
    for (const Value& total : {Value{3e9}, Value{Null{}}, Value{std::string("much")}}) {
        db->Answer("acc_to = 12", {{total}});
        std::int32_t balance = 99;
        EXPECT_THROW(GetAccountBalance(db, 12, balance), Failure);
        EXPECT_EQ(balance, 99);
    }
    std::int32_t balance = 99;
    EXPECT_THROW(GetAccountBalance(nullptr, 12, balance), Failure);
}

} // namespace
} // namespace qbrpt
