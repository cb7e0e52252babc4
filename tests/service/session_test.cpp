#include "service_fixture.h"
#include "support/owner_window.h"

#include <fstream>
#include <functional>
#include <iterator>
#include <type_traits>

namespace qbrpt {
namespace {

using fakes::FaultObserver;
using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Long = std::int32_t;
using Short = std::int16_t;
using Text = const std::string&;

// The published interface: every member with the types of its arguments.
template <class Result, class... Arguments>
using Member = Result (VantlowCls::*)(Arguments...);
template <class Result, class... Arguments>
using ReadingMember = Result (VantlowCls::*)(Arguments...) const;

static_assert(std::is_same_v<decltype(&VantlowCls::IsDbValid), ReadingMember<bool>>);
static_assert(std::is_same_v<decltype(&VantlowCls::SetDatabase),
                             Member<std::any, const std::shared_ptr<DAO::Database>&>>);
static_assert(std::is_same_v<decltype(&VantlowCls::SetDbInfo), Member<Short, Text, Text>>);
static_assert(std::is_same_v<decltype(&VantlowCls::CanPrint), ReadingMember<Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::SetMainTitle), Member<void, Text, Text, Text>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintBill), Member<void, Long>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintIncome), Member<void, Long, Long, Short, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintMemberUsage), Member<void, Long, Long, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintPPUsage), Member<void, Long, Long, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintPCUsage), Member<void, double, double, Long, Short>>);
static_assert(
    std::is_same_v<decltype(&VantlowCls::PrintInternetUsage), Member<void, Long, Long, Short, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintMembersIncom), Member<void, Long, Long, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintPayout), Member<void, Long, Long, Short>>);
static_assert(
    std::is_same_v<decltype(&VantlowCls::PrintUsage), Member<void, Long, Long, Long, Short, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintOtherIncome), Member<void, Long, Long, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintServicesIncome), Member<void, Long, Long, Short>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintMembersInfo), Member<void, Text>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintUsersIncome), Member<void, Long, Long>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintPPCards), Member<void, Text>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintPPInfo), Member<void, Text, Text>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintAudit), Member<void>>);
static_assert(std::is_same_v<decltype(&VantlowCls::PrintPrintLog), Member<void, Long, Long>>);
static_assert(std::is_same_v<decltype(&VantlowCls::EditAccount), Member<void>>);

static_assert(SHOW_BILL_DATE == 1 && SHOW_BILL_NO == 2 && SHOW_LOGO == 4);
static_assert(!std::is_copy_constructible_v<VantlowCls>);

// The order of the members is part of the interface, and a header keeps it only by care.
TEST(PublicHeader, DeclaresTheMembersInTheirOrder) {
    std::ifstream file(QBRPT_SOURCE_DIR "/src/service/VantlowCls.h");
    const std::string header{std::istreambuf_iterator<char>(file), {}};
    std::size_t position = header.find("class QBRPT_API VantlowCls");
    for (const char* member :
         {"IsDbValid",           "SetDatabase",       "SetDbInfo",        "CanPrint",     "SetMainTitle",
          "PrintBill",           "PrintIncome",       "PrintMemberUsage", "PrintPPUsage", "PrintPCUsage",
          "PrintInternetUsage",  "PrintMembersIncom", "PrintPayout",      "PrintUsage",   "PrintOtherIncome",
          "PrintServicesIncome", "PrintMembersInfo",  "PrintUsersIncome", "PrintPPCards", "PrintPPInfo",
          "PrintAudit",          "PrintPrintLog",     "EditAccount"}) {
        position = header.find(" " + std::string(member) + "(", position);
        ASSERT_NE(position, std::string::npos) << member;
    }
}

TEST_F(ServiceTest, ANewObjectHoldsNoDatabase) {
    EXPECT_FALSE(cls.IsDbValid());
    EXPECT_EQ(cls.CanPrint(), 1);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(ServiceTest, SetDatabaseTakesAndGivesBack) {
    EXPECT_FALSE(cls.SetDatabase(db).has_value());
    EXPECT_TRUE(cls.IsDbValid());
    EXPECT_EQ(db.use_count(), 2);
    const auto other = std::make_shared<fakes::FakeDatabase>();
    cls.SetDatabase(other);
    EXPECT_EQ(db.use_count(), 1);
    EXPECT_FALSE(cls.SetDatabase(nullptr).has_value());
    EXPECT_FALSE(cls.IsDbValid());
    EXPECT_EQ(other.use_count(), 1);
}

TEST_F(ServiceTest, TheDatabaseGoesWithTheObject) {
    {
        VantlowCls passing;
        passing.SetDatabase(db);
        EXPECT_EQ(db.use_count(), 2);
    }
    EXPECT_EQ(db.use_count(), 1);
}

TEST_F(ServiceTest, SetDbInfoOpensByNameAndConnectText) {
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    platform.engine->files["cafe.db"] = db;
    EXPECT_EQ(cls.SetDbInfo("cafe.db", ";PWD=x"), 1);
    EXPECT_TRUE(cls.IsDbValid());
    EXPECT_THAT(log->Lines(), ElementsAre("DAO.DBEngine.OpenDatabase(\"cafe.db\", false, false, \";PWD=x\")",
                                          "Windows.GetForegroundWindow()", "Windows.GetParent(0)"));
}

struct BadFileRow {
    const char* name;
    bool held;
    BoxAnswer answer;
    std::int16_t result;
    bool ownerSought;
};

class BadFile : public ServiceTest, public ::testing::WithParamInterface<BadFileRow> {};

TEST_P(BadFile, EndsAsTheUserSays) {
    const BadFileRow& row = GetParam();
    if (row.held) cls.SetDatabase(db);
    platform.windows->foreground = 77;
    platform.messages->answers = {row.answer};
    hOwnerWnd = 1;
    EXPECT_EQ(cls.SetDbInfo("nowhere.db", ""), row.result);
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"bad file nowhere.db", 21, "qbrpt"}));
    EXPECT_EQ(cls.IsDbValid(), row.held);
    EXPECT_EQ(db.use_count(), row.held ? 2 : 1);
    EXPECT_EQ(hOwnerWnd, row.ownerSought ? 77U : 1U);
}

INSTANTIATE_TEST_SUITE_P(Rows, BadFile,
                         ::testing::Values(BadFileRow{"CancelWithNone", false, Cancel, 0, false},
                                           BadFileRow{"CancelKeepsTheEarlier", true, Cancel, 0, false},
                                           BadFileRow{"RetryWithNone", false, Retry, 1, true},
                                           BadFileRow{"RetryKeepsTheEarlier", true, Retry, 1, true}),
                         [](const auto& row) { return row.param.name; });

TEST_F(ServiceTest, AFailingOwnerSearchIsAStatementOfSetDbInfo) {
    platform.engine->files["cafe.db"] = db;
    fakes::FakePlatform::Observe(std::make_shared<FaultObserver>(2, FaultObserver::Reach::Once));
    EXPECT_EQ(cls.SetDbInfo("cafe.db", ""), 1);
    EXPECT_TRUE(cls.IsDbValid());
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"fault in Windows.GetForegroundWindow", 21, "qbrpt"}));
}

TEST_F(ServiceTest, MembersWithoutATrapEndAFailureInOneBoxWithOk) {
    fakes::FakePlatform::Observe(std::make_shared<FaultObserver>(1, FaultObserver::Reach::Once));
    cls.SetDatabase(db);
    EXPECT_TRUE(cls.IsDbValid());
    platform.printers->count = 32'768;
    EXPECT_EQ(cls.CanPrint(), 0);
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"fault in Windows.GetForegroundWindow", 16, "qbrpt"},
                            ShownBox{"Overflow.", 16, "qbrpt"}));
}

TEST_F(ServiceTest, CanPrintCountsThePrinters) {
    for (const std::int16_t count : {std::int16_t{0}, std::int16_t{3}, std::int16_t{INT16_MAX}}) {
        platform.printers->count = count;
        EXPECT_EQ(cls.CanPrint(), count);
    }
}

struct OwnerRow {
    const char* name;
    WindowHandle foreground;
    std::map<WindowHandle, WindowHandle> parents;
    WindowHandle owner;
    std::vector<WindowHandle> asked;
};

class OwnerWindow : public ServiceTest, public ::testing::WithParamInterface<OwnerRow> {};

TEST_P(OwnerWindow, IsFoundWhenTheDatabaseComes) {
    const OwnerRow& row = GetParam();
    hOwnerWnd = 99;
    platform.windows->foreground = row.foreground;
    platform.windows->parents = row.parents;
    cls.SetDatabase(db);
    EXPECT_EQ(hOwnerWnd, row.owner);
    EXPECT_EQ(platform.windows->asked, row.asked);
}

INSTANTIATE_TEST_SUITE_P(Rows, OwnerWindow,
                         ::testing::Values(OwnerRow{"NoWindow", 0, {}, 0, {0}},
                                           OwnerRow{"ATopWindow", 10, {}, 10, {10}},
                                           OwnerRow{"AChildWindow", 10, {{10, 20}}, 20, {10, 10}},
                                           OwnerRow{"OneLevelOnly", 10, {{10, 20}, {20, 30}}, 20, {10, 10}}),
                         [](const auto& row) { return row.param.name; });

TEST_F(ServiceTest, PrintBillDoesNothingForAnyNumber) {
    const auto log = std::make_shared<fakes::CallLog>();
    for (const bool held : {false, true}) {
        if (held) {
            cls.SetDatabase(db);
            fakes::FakePlatform::Observe(log);
        }
        for (const Long use : {0, -7, INT32_MIN, INT32_MAX})
            cls.PrintBill(use);
    }
    EXPECT_THAT(log->Lines(), IsEmpty());
    EXPECT_THAT(db->opened, IsEmpty());
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(ServiceTest, EditAccountWithoutADatabaseDoesNothing) {
    cls.EditAccount();
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(ServiceTest, EditAccountShowsTheAccountsOfItsDatabase) {
    GiveDatabase();
    db->Answer("AS total", {});
    db->Answer("SELECT * FROM account_src", {});
    cls.EditAccount();
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
    EXPECT_EQ(platform.forms->built, 1);
    EXPECT_THAT(Statements(),
                ElementsAre(testing::HasSubstr("RIGHT JOIN account_src"), "SELECT * FROM account_src"));
}

} // namespace
} // namespace qbrpt
