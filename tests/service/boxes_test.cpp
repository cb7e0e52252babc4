// The exact series of boxes of a command that meets failures.
#include "service_fixture.h"

#include <functional>

namespace qbrpt {
namespace {

using fakes::ShownBox;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string Unset = "Object variable not set.";

struct SeriesRow {
    const char* name;
    std::function<void(fakes::FakePlatform&, fakes::FakeDatabase&)> spoil;
    bool withDatabase;
    std::function<void(VantlowCls&)> command;
    std::vector<std::string> boxes; ///< with Retry at every box
    std::size_t reports;            ///< made with Retry at every box
};

class BoxSeries : public ServiceTest, public ::testing::WithParamInterface<SeriesRow> {
protected:
    void RunWithCancelAt(std::size_t position) {
        const SeriesRow& row = GetParam();
        platform.messages->boxes.clear();
        platform.runtime->made.clear();
        platform.messages->usual = Retry;
        platform.messages->answers.assign(position, Retry);
        if (position > 0) platform.messages->answers.back() = Cancel;
        row.command(cls);
    }

    void ExpectBoxes(std::size_t count) {
        std::vector<ShownBox> expected;
        for (std::size_t index = 0; index < count; ++index)
            expected.push_back({GetParam().boxes[index], 21, "qbrpt"});
        EXPECT_EQ(platform.messages->boxes, expected);
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
        EXPECT_EQ(platform.printers->printers[0].orientation, OrientationPortrait);
        for (const auto& report : platform.runtime->made)
            EXPECT_FALSE(report->alive);
    }

    void SetUp() override {
        if (GetParam().withDatabase) GiveDatabase();
        GetParam().spoil(platform, *db);
    }
};

TEST_P(BoxSeries, WithRetryAtEveryBox) {
    RunWithCancelAt(0);
    ExpectBoxes(GetParam().boxes.size());
    EXPECT_THAT(platform.runtime->made, SizeIs(GetParam().reports));
}

// Cancel leaves the routine that failed; a failure inside the run of the report leaves only that run.
TEST_P(BoxSeries, WithCancelAtEachBox) {
    for (std::size_t position = 1; position <= GetParam().boxes.size(); ++position) {
        SCOPED_TRACE(position);
        RunWithCancelAt(position);
        ExpectBoxes(position);
    }
}

void RemoveQueries(fakes::FakePlatform&, fakes::FakeDatabase& db) {
    db.queryDefs.clear();
}

/// A display, a printer and a report engine that refuse.
class RefusingForms final : public Forms {
    Ref<Form> DoLoad(const FormTable&, FormEvents&) override {
        throw Failure(FailureNumber::Device, "no screen");
    }
};

void Nothing(fakes::FakePlatform&, fakes::FakeDatabase&) {}
void BreakIncomeQuery(fakes::FakePlatform&, fakes::FakeDatabase& db) {
    db.Fail("From daily_sheet", "no such table: daily_sheet");
}
void BreakDateQuery(fakes::FakePlatform&, fakes::FakeDatabase& db) {
    db.Fail("FROM host_log_time WHERE id = ", "no such table: host_log_time");
}
void BreakPayoutQuery(fakes::FakePlatform&, fakes::FakeDatabase& db) {
    db.Fail("FROM pay_out", "no such table: pay_out");
}
void BreakViewer(fakes::FakePlatform&, fakes::FakeDatabase&) {
    Platform::Current().forms = std::make_shared<RefusingForms>();
}
void RemovePrinters(fakes::FakePlatform& platform, fakes::FakeDatabase&) {
    platform.printers->count = 1; // it was there when it was counted
    Platform::Current().printers = nullptr;
}

const std::string NoRows = "the report has no rows to read";

INSTANTIATE_TEST_SUITE_P(
    Rows, BoxSeries,
    ::testing::Values(
        // Both dates, the query and the row test fail; Retry then enters the branch.
        SeriesRow{"NoDatabaseRange",
                  Nothing,
                  false,
                  [](VantlowCls& c) { c.PrintPayout(5, 9, 0); },
                  {Unset, Unset, Unset, Unset, Unset, NoRows},
                  1},
        SeriesRow{"NoDatabaseSingleDay",
                  Nothing,
                  false,
                  [](VantlowCls& c) { c.PrintPayout(5, 5, 1); },
                  {Unset, Unset, Unset, Unset, NoRows},
                  1},
        SeriesRow{"FailingQuery",
                  BreakPayoutQuery,
                  true,
                  [](VantlowCls& c) { c.PrintPayout(5, 9, 0); },
                  {"no such table: pay_out", Unset, Unset, NoRows},
                  1},
        SeriesRow{"FailingDates",
                  BreakDateQuery,
                  true,
                  [](VantlowCls& c) { c.PrintPayout(5, 9, 0); },
                  {"no such table: host_log_time", "no such table: host_log_time"},
                  1},
        SeriesRow{"FailingIncomeQuery",
                  BreakIncomeQuery,
                  true,
                  [](VantlowCls& c) { c.PrintIncome(5, 9, 0, 0); },
                  // The query; the row test; to the last row and back; the second row test; in
                  // the run the binding and the reading.
                  {"no such table: daily_sheet", Unset, Unset, Unset, Unset, Unset, NoRows},
                  1},
        // With neither saved query each parameter fails in its turn, then the
        // opening, the row test, and in the run the binding and the reading.
        SeriesRow{"NoSavedQuery",
                  RemoveQueries,
                  true,
                  [](VantlowCls& c) { c.PrintUsersIncome(5, 9); },
                  {"There is no query \"users_income\".", Unset, Unset, Unset, Unset, Unset, NoRows},
                  1},
        SeriesRow{"FailingPreview",
                  BreakViewer,
                  true,
                  [](VantlowCls& c) { c.PrintIncome(5, 9, 0, 1); },
                  // The window, its report, both waits, the view, the showing.
                  {"ShowpReport\rno screen", "ShowpReport\rno screen", "ShowpReport\rno screen",
                   "ShowpReport\rno screen", "ShowpReport\rno screen", "ShowpReport\rno screen"},
                  1}),
    [](const auto& row) { return row.param.name; });

struct UnsetRow {
    const char* name;
    std::size_t lookUps; ///< of dates
    std::function<void(VantlowCls&)> command;
};

class WithoutADatabase : public ServiceTest, public ::testing::WithParamInterface<UnsetRow> {};

// The look-ups, the query and the row test fail; Retry then enters the branch, where the run fails to bind
// and to read.
TEST_P(WithoutADatabase, HasItsSeriesOfBoxes) {
    platform.messages->usual = Retry;
    GetParam().command(cls);
    std::vector<std::string> boxes(GetParam().lookUps + 3, Unset);
    boxes.push_back(NoRows);
    EXPECT_EQ(platform.messages->Texts(), boxes);
    EXPECT_THAT(platform.runtime->made, SizeIs(1));
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    EXPECT_EQ(platform.printers->printers[0].orientation, OrientationPortrait);

    platform.messages->usual = Cancel;
    platform.messages->boxes.clear();
    GetParam().command(cls);
    EXPECT_EQ(platform.messages->Texts(), std::vector<std::string>{Unset});
    EXPECT_THAT(platform.runtime->made, SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WithoutADatabase,
    ::testing::Values(UnsetRow{"PrintMemberUsage", 0, [](VantlowCls& c) { c.PrintMemberUsage(1, 2); }},
                      UnsetRow{"PrintPPUsage", 0, [](VantlowCls& c) { c.PrintPPUsage(1, 2); }},
                      UnsetRow{"PrintPCUsage", 0, [](VantlowCls& c) { c.PrintPCUsage(1, 2, 3); }},
                      UnsetRow{"PrintInternetUsage", 0, [](VantlowCls& c) { c.PrintInternetUsage(1, 2); }},
                      UnsetRow{"PrintMembersIncom", 2, [](VantlowCls& c) { c.PrintMembersIncom(1, 2); }},
                      UnsetRow{"PrintUsage", 2, [](VantlowCls& c) { c.PrintUsage(1, 2, 3); }},
                      UnsetRow{"PrintUsageOfADay", 1, [](VantlowCls& c) { c.PrintUsage(1, 1, 3); }},
                      UnsetRow{"PrintOtherIncome", 2, [](VantlowCls& c) { c.PrintOtherIncome(1, 2); }},
                      UnsetRow{"PrintServicesIncome", 1, [](VantlowCls& c) { c.PrintServicesIncome(1, 0); }},
                      UnsetRow{"PrintMembersInfo", 0, [](VantlowCls& c) { c.PrintMembersInfo("WHERE 1"); }},
                      UnsetRow{"PrintPPCards", 0, [](VantlowCls& c) { c.PrintPPCards("SELECT 1"); }},
                      UnsetRow{"PrintPPInfo", 0, [](VantlowCls& c) { c.PrintPPInfo("SELECT 1", ""); }},
                      UnsetRow{"PrintAudit", 0, [](VantlowCls& c) { c.PrintAudit(); }},
                      UnsetRow{"PrintPrintLog", 2, [](VantlowCls& c) { c.PrintPrintLog(1, 2); }},
                      UnsetRow{"PrintPrintLogOfAll", 0, [](VantlowCls& c) { c.PrintPrintLog(0, 2); }}),
    [](const auto& row) { return row.param.name; });

TEST_F(ServiceTest, AFailingRowTestEntersTheBranchAfterRetry) {
    GiveDatabase();
    class BrokenCount final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "RecordCount") throw Failure(FailureNumber::DatabaseEngine, "no count");
        }
    };
    fakes::FakePlatform::Observe(std::make_shared<BrokenCount>());
    platform.messages->answers = {Retry};
    cls.PrintPayout(5, 9, 0);
    EXPECT_THAT(platform.messages->boxes, ::testing::ElementsAre(ShownBox{"no count", 21, "qbrpt"}));
    EXPECT_THAT(platform.runtime->made, SizeIs(1));
    EXPECT_EQ(platform.runtime->made[0]->printed, 1);

    platform.messages->boxes.clear();
    platform.messages->answers = {Cancel};
    cls.PrintPayout(5, 9, 0);
    EXPECT_THAT(platform.messages->boxes, ::testing::ElementsAre(ShownBox{"no count", 21, "qbrpt"}));
    EXPECT_THAT(platform.runtime->made, SizeIs(1));
}

// The box of a report without rows is a statement like any other.
TEST_F(ServiceTest, ABoxThatCannotBeShownIsToldInTheNext) {
    GiveDatabase();
    db->Answer("FROM (members_payment", {});
    db->Answer("From members AS mm", {});
    class BrokenBox final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "MsgBox" && ++mBoxes % 2 == 1)
                throw Failure(FailureNumber::Device, "no box");
        }
        int mBoxes = 0;
    };
    fakes::FakePlatform::Observe(std::make_shared<BrokenBox>());
    cls.PrintMembersIncom(5, 9);
    cls.PrintMembersInfo("WHERE 1");
    EXPECT_THAT(platform.messages->boxes,
                ::testing::ElementsAre(ShownBox{"no box", 21, "qbrpt"}, ShownBox{"no box", 21, "qbrpt"}));
    EXPECT_THAT(platform.runtime->made, IsEmpty());
}

TEST_F(ServiceTest, AFailingGuardGoesOnAfterRetryAndLeavesAfterCancel) {
    GiveDatabase();
    platform.printers->count = 40'000;
    platform.messages->answers = {Cancel};
    cls.PrintIncome(5, 9, 0, 0);
    EXPECT_THAT(platform.runtime->made, IsEmpty());
    platform.messages->answers = {Retry};
    cls.PrintIncome(5, 9, 0, 0);
    EXPECT_THAT(platform.runtime->made, SizeIs(1));
    EXPECT_EQ(platform.messages->Texts(), (std::vector<std::string>{"Overflow.", "Overflow."}));
}

TEST_F(ServiceTest, APlatformWithoutPrintersEndsInBoxesAndGoesNowhere) {
    GiveDatabase();
    RemovePrinters(platform, *db);
    platform.messages->usual = Retry;
    cls.PrintIncome(5, 9, 0, 0);
    EXPECT_EQ(platform.messages->Texts(), std::vector<std::string>(7, Unset));
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

} // namespace
} // namespace qbrpt
