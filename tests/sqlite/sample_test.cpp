// The sample database: whole or not at all, the same for the same options, and its figures agree.
#include "adapters/database/cancel.h"
#include "fakes/fake_platform.h"
#include "sample/sample.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <atomic>

namespace qbrpt::sample {
namespace {

using test::FailureOf;
using test::MakeFile;
using test::OpenFile;
using test::Outsider;
using test::RowsText;

class Sample : public testing::Test {
protected:
    std::filesystem::path Make(int days, int sessions, std::uint64_t seed = 1,
                               const std::string& name = "cafe.db") {
        MakeSampleDatabase({(mFolder / name).string(), days, sessions, seed});
        return mFolder / name;
    }

    fakes::FakePlatform mPlatform;
    test::TempFolder mFolder;
};

TEST_F(Sample, HasAllTablesWithRowsAndIsSound) {
    Outsider file(Make(60, 120));
    EXPECT_EQ(file.Ask("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(file.Ask("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(file.Ask("SELECT count(*) FROM local_log"), "7200");
    for (const char* table :
         {"host_log_time", "daily_sheet",     "total_use_count", "local_log",  "local_log_delete",
          "host_src",      "internet_usage",  "members",         "membership", "members_time",
          "members_info",  "members_payment", "pp_dat",          "pay_out",    "other_income",
          "cafe_orders",   "users",           "print_log",       "user_audit", "audit_temp",
          "aud_tag",       "account_src",     "account_log",     "saved_query"})
        EXPECT_NE(file.Ask(std::string("SELECT count(*) FROM ") + table), "0") << table;
}

TEST_F(Sample, HoldsDataOfAllKinds) {
    Outsider file(Make(60, 120));
    const std::pair<const char*, const char*> kinds[] = {
        {"running sessions", "SELECT count(*) FROM local_log WHERE end_time IS NULL"},
        {"general users", "SELECT count(*) FROM local_log WHERE utype = 0 AND member_id IS NULL"},
        {"prepaid uses", "SELECT count(*) FROM local_log WHERE utype = 1"},
        {"subscribers", "SELECT count(*) FROM local_log WHERE utype = 2"},
        {"deleted subscribers",
         "SELECT count(*) FROM local_log WHERE member_id NOT IN (SELECT id FROM members)"},
        {"deleted supervisors", "SELECT count(*) FROM local_log WHERE user_id NOT IN (SELECT id FROM users)"},
        {"deleted kinds",
         "SELECT count(*) FROM members_payment WHERE membership_id NOT IN (SELECT id FROM membership)"},
        {"money owed", "SELECT count(*) FROM members_info WHERE remin > 0"},
        {"ended subscriptions", "SELECT count(*) FROM members_info WHERE ended"},
        {"cards not sold", "SELECT count(*) FROM pp_dat WHERE use_date IS NULL"},
        {"print jobs without a use", "SELECT count(*) FROM print_log WHERE use_id IS NULL"},
        {"print jobs without a supervisor",
         "SELECT count(*) FROM print_log WHERE user_id NOT IN (SELECT id FROM users)"},
        {"discounts", "SELECT count(*) FROM local_log WHERE discount > 0"},
        {"Latin names", "SELECT count(*) FROM members WHERE name GLOB '[A-Z]*'"},
        {"apostrophes", "SELECT count(*) FROM pay_out WHERE instr(details, '''')"},
        {"long texts", "SELECT count(*) FROM pay_out WHERE length(details) > 100"},
        {"day's takings",
         "SELECT count(*) FROM account_log WHERE acc_from NOT IN (SELECT accid FROM account_src)"},
        {"transfers", "SELECT count(*) FROM account_log WHERE acc_from IN (SELECT accid FROM account_src)"}};
    for (const auto& [what, question] : kinds)
        EXPECT_NE(file.Ask(question), "0") << what;
    EXPECT_EQ(file.Ask("SELECT group_concat(name) FROM (SELECT name FROM saved_query ORDER BY name)"),
              "users_income,users_income2");
}

TEST_F(Sample, TheSheetsAreTheSumsOfTheSessions) {
    Outsider file(Make(40, 90, 7));
    const std::string sessions = " FROM local_log l WHERE l.work_id = d.work_id AND l.end_time IS NOT NULL";
    const std::pair<const char*, std::string> rules[] = {
        {"income",
         "abs(d.net_income + d.print_income - (SELECT total(paid + discount)" + sessions + ")) > 0.001"},
        {"print income",
         "abs(d.print_income - (SELECT total(print_count * print_cost)" + sessions + ")) > 0.001"},
        {"discount", "abs(d.total_discount - (SELECT total(discount)" + sessions + ")) > 0.001"},
        {"first begin", "d.min_log_time <> (SELECT min(log_time)" + sessions + ")"},
        {"last begin", "d.max_log_time <> (SELECT max(log_time)" + sessions + ")"},
        {"payments", "abs(d.members_income - (SELECT total(amount) FROM members_payment p WHERE p.work_id = "
                     "d.work_id)) > 0.001"},
        {"income from outside", "abs(d.other_Income - (SELECT total(amount) FROM other_income p WHERE "
                                "p.work_id = d.work_id)) > 0.001"},
        {"total", "abs(d.total_income - (d.net_income + d.print_income + d.members_income + d.pp_income + "
                  "d.other_Income - d.total_discount)) > 0.001"},
        {"takings", "abs(d.total_income - (SELECT total(amount) FROM account_log a WHERE a.acc_from = 0 AND "
                    "a.trans_date > d.date + 1 AND a.trans_date < d.date + 2)) > 0.001"},
        {"uses", "(SELECT general + member + pp FROM total_use_count t WHERE t.work_id = d.work_id) <> "
                 "(SELECT count(*)" +
                     sessions + ")"},
        {"prints", "(SELECT prints FROM total_use_count t WHERE t.work_id = d.work_id) <> "
                   "(SELECT total(print_count)" +
                       sessions + ")"},
        {"use time", "(SELECT total_time FROM total_use_count t WHERE t.work_id = d.work_id) <> "
                     "(SELECT total(use_time)" +
                         sessions + ")"},
        {"supervisors",
         "abs((SELECT total(main_income + print_income) FROM supervisor_day s WHERE s.work_id = "
         "d.work_id) - d.net_income - d.print_income) > 0.001"}};
    for (const auto& [what, rule] : rules)
        EXPECT_EQ(file.Ask("SELECT count(*) FROM daily_sheet d WHERE " + rule), "0") << what;
    EXPECT_EQ(
        file.Ask(
            "SELECT count(*) FROM local_log l WHERE abs(other_cost - (SELECT total(item_count * price) FROM "
            "cafe_orders c WHERE c.useid = l.id)) > 0.001"),
        "0");
    EXPECT_EQ(file.Ask("SELECT count(*) FROM members_info WHERE totaltime > membertime"), "0");
    EXPECT_EQ(file.Ask("SELECT total(totaltime) = (SELECT total(use_time) FROM local_log WHERE utype = 2) "
                       "FROM members_info"),
              "1");
}

TEST_F(Sample, DaysAreUnlikeAndPaymentsSpreadOverThem) {
    Outsider file(Make(60, 120));
    for (const char* figure : {"pc_count", "work_time"})
        EXPECT_NE(file.Ask(std::string("SELECT count(DISTINCT ") + figure + ") FROM daily_sheet"), "1")
            << figure;
    EXPECT_NE(file.Ask("SELECT count(DISTINCT general + pp + member) FROM total_use_count"), "1");
    // Each third of the days has a fair part of the payments.
    for (const char* days : {"1 AND 20", "21 AND 40", "41 AND 60"})
        EXPECT_EQ(file.Ask(std::string("SELECT count(*) * 5 > (SELECT count(*) FROM members_payment) FROM "
                                       "members_payment WHERE work_id BETWEEN ") +
                           days),
                  "1")
            << days;
}

TEST_F(Sample, DatesAreDayNumbersExactToTheSecond) {
    Outsider file(Make(20, 50));
    for (const char* column : {"log_time", "end_time"})
        EXPECT_EQ(file.Ask(std::string("SELECT count(*) FROM local_log WHERE ") + column + " <> round(" +
                           column + " * 86400) / 86400"),
                  "0");
    EXPECT_EQ(
        file.Ask("SELECT count(*) FROM local_log a JOIN local_log b ON a.host_id = b.host_id AND a.id < b.id "
                 "WHERE b.log_time < a.end_time"),
        "0")
        << "two sessions of one host overlap";
}

TEST_F(Sample, TheSameOptionsGiveTheSameFile) {
    const std::string first = test::ContentOf(Make(10, 60, 5, "a.db"));
    EXPECT_EQ(test::ContentOf(Make(10, 60, 5, "b.db")), first);
    EXPECT_NE(test::ContentOf(Make(10, 60, 6, "c.db")), first);
}

TEST_F(Sample, BothSavedQueriesAgree) {
    const auto database = OpenFile(Make(15, 80));
    const std::pair<Value, Value> periods[] = {
        {Null{}, Null{}}, {std::int64_t{3}, std::int64_t{7}}, {std::int64_t{9}, std::int64_t{9}}};
    for (const auto& [first, last] : periods) {
        std::string rows[2];
        for (std::size_t i = 0; i < 2; ++i) {
            const auto query = database->QueryDefs(i == 0 ? "users_income2" : "users_income");
            query->SetParameter(0, first);
            query->SetParameter(1, last);
            const auto set = query->OpenRecordset();
            EXPECT_EQ(set->Rows()->Columns().size(), 13U);
            rows[i] = RowsText(set);
        }
        EXPECT_NE(rows[0], "");
        EXPECT_EQ(rows[0], rows[1]);
    }
}

TEST_F(Sample, SmallAndEmptyCafes) {
    EXPECT_EQ(Outsider(Make(1, 0, 1, "none.db")).Ask("SELECT count(*) FROM local_log"), "0");
    Outsider one(Make(1, 1, 1, "one.db"));
    EXPECT_EQ(one.Ask("SELECT count(*) FROM local_log WHERE end_time IS NULL"), "1");
    EXPECT_EQ(one.Ask("SELECT count(*) FROM daily_sheet WHERE min_log_time IS NULL"), "1");
}

TEST_F(Sample, OptionsThatMakeNoSense) {
    for (const auto& [days, sessions] : {std::pair{0, 10}, {-1, 10}, {1, -1}, {100000, 1}, {1, 1000000}})
        EXPECT_NE(FailureOf(FailureNumber::InvalidArgument, [d = days, s = sessions, this] { Make(d, s); }),
                  "");
    EXPECT_TRUE(mFolder.Names().empty());
}

TEST_F(Sample, TakesThePlaceOfAnEarlierDatabaseWithItsLog) {
    const auto file = mFolder / "cafe.db";
    {
        Outsider earlier(file);
        earlier.Run("PRAGMA application_id=0x51425250; PRAGMA journal_mode=wal; CREATE TABLE old(x); INSERT "
                    "INTO old VALUES(1)");
        // Leaves the log behind, as a killed program does.
        std::filesystem::copy_file(mFolder / "cafe.db-wal", mFolder / "kept");
        earlier.Run("PRAGMA wal_checkpoint");
    }
    std::filesystem::rename(mFolder / "kept", mFolder / "cafe.db-wal");
    Make(2, 5);
    EXPECT_EQ(mFolder.Names(), std::vector<std::string>{"cafe.db"});
    Outsider now(file);
    EXPECT_EQ(now.Ask("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(now.Ask("SELECT count(*) FROM sqlite_schema WHERE name = 'old'"), "0");
}

TEST_F(Sample, LeavesTheBooksOfACafeAlone) {
    MakeFile(mFolder / "cafe.db", "CREATE TABLE books(x)");
    EXPECT_THAT(FailureOf(FailureNumber::FileAccess, [&] { Make(1, 1); }), testing::HasSubstr("--overwrite"));
    EXPECT_EQ(Outsider(mFolder / "cafe.db").Ask("SELECT count(*) FROM books"), "0");
    MakeSampleDatabase(
        {.file = (mFolder / "cafe.db").string(), .days = 1, .sessionsPerDay = 1, .overwrite = true});
    EXPECT_EQ(Outsider(mFolder / "cafe.db").Ask("SELECT count(*) FROM sqlite_schema WHERE name = 'books'"),
              "0");
}

TEST_F(Sample, TakesTheNameOfAnEmptyFile) {
    test::WriteContent(mFolder / "cafe.db", "");
    Make(1, 1);
    EXPECT_EQ(Outsider(mFolder / "cafe.db").Ask("PRAGMA integrity_check"), "ok");
}

TEST_F(Sample, LeavesAloneWhatItMayNotReplace) {
    test::WriteContent(mFolder / "photo.jpg", "not a database");
    EXPECT_NE(FailureOf(FailureNumber::NotADatabase, [&] { Make(1, 1, 1, "photo.jpg"); }), "");
    EXPECT_EQ(test::ContentOf(mFolder / "photo.jpg"), "not a database");
    EXPECT_NE(FailureOf(FailureNumber::FileAccess, [&] { Make(1, 1, 1, "."); }), "");
    EXPECT_NE(FailureOf(FailureNumber::FileNotFound, [&] { Make(1, 1, 1, "none/cafe.db"); }), "");
    EXPECT_NE(FailureOf(FailureNumber::InvalidArgument, [] { MakeSampleDatabase({}); }), "");
    {
        Outsider busy(mFolder / "busy.db");
        busy.Run("PRAGMA application_id=0x51425250; CREATE TABLE t(x); BEGIN IMMEDIATE");
        EXPECT_NE(FailureOf(FailureNumber::Locked, [&] { Make(1, 1, 1, "busy.db"); }), "");
        busy.Run("ROLLBACK");
    }
    EXPECT_EQ(mFolder.Names(), (std::vector<std::string>{"busy.db", "photo.jpg"}));
}

TEST_F(Sample, StoppingHalfWayLeavesNothingBehind) {
    std::atomic<bool> flag{false};
    database::SetCancelFlag(&flag);
    MakeFile(mFolder / "cafe.db", "PRAGMA application_id=0x51425250; CREATE TABLE old(x)");
    const auto stop = [&](double share) { flag = share > 0.3; };
    EXPECT_NE(FailureOf(FailureNumber::Cancelled,
                        [&] {
                            MakeSampleDatabase({.file = (mFolder / "cafe.db").string(),
                                                .days = 50,
                                                .sessionsPerDay = 20,
                                                .progress = stop});
                        }),
              "");
    database::SetCancelFlag(nullptr);
    EXPECT_EQ(mFolder.Names(), std::vector<std::string>{"cafe.db"});
    EXPECT_EQ(Outsider(mFolder / "cafe.db").Ask("SELECT count(*) FROM sqlite_schema WHERE name = 'old'"),
              "1");
}

TEST_F(Sample, TellsItsProgress) {
    std::vector<double> told;
    MakeSampleDatabase({.file = (mFolder / "cafe.db").string(),
                        .days = 20,
                        .sessionsPerDay = 5,
                        .progress = [&](double share) { told.push_back(share); }});
    EXPECT_GE(told.size(), 10U);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 1);
}

} // namespace
} // namespace qbrpt::sample
