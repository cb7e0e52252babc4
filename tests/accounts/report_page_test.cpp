// The third page: which report, of which account, over which time.
#include "accounts/account_report_fake.h"
#include "accounts/window_fixture.h"

namespace qbrpt {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ReportPage : public AccountWindowTest {
protected:
    [[nodiscard]] bool On(const std::string& option) const { return Of<fakes::FakeToggle>(option)->on; }
    void Switch(const std::string& option, bool on = true) const {
        Of<fakes::FakeToggle>(option)->SetValue(on);
    }
    [[nodiscard]] auto Picker(const std::string& name) const { return Of<fakes::FakeDatePicker>(name); }
    /// The first statement that Print asks, and how many reports it makes.
    std::string Print() const {
        const auto log = std::make_shared<fakes::CallLog>();
        fakes::FakePlatform::Observe(log);
        platform.forms->shown = [](fakes::FakeForm&) {};
        form->events.Click("cmdPrint");
        const auto lines = log->LinesOf({"DAO.Database.OpenRecordset"});
        return lines.empty() ? "" : lines.front();
    }
};

TEST_F(ReportPage, TheWholeTimeNeedsNoBounds) {
    Show([&] {
        EXPECT_TRUE(Picker("dtMin")->enabled);
        Switch("chkAll");
        EXPECT_FALSE(Picker("dtMin")->enabled);
        EXPECT_FALSE(Picker("dtMax")->enabled);
        Switch("chkAll", false);
        EXPECT_TRUE(Picker("dtMin")->enabled);
        EXPECT_TRUE(Picker("dtMax")->enabled);
    });
}

TEST_F(ReportPage, TheEndFollowsTheStartButNotTheOtherWay) {
    Show([&] {
        Picker("dtMin")->value = 38'010.5;
        form->events.Change("dtMin");
        EXPECT_EQ(Picker("dtMax")->value, 38'010.5);
        Picker("dtMin")->value = 37'000;
        form->events.Change("dtMin");
        EXPECT_EQ(Picker("dtMax")->value, 38'010.5);
        Picker("dtMax")->value = 36'000;
        form->events.Change("dtMax");
        EXPECT_EQ(Picker("dtMax")->value, 36'000);
        EXPECT_EQ(Picker("dtMin")->value, 37'000);
    });
}

TEST_F(ReportPage, OneAccountChoosesTheFirstWhereNoneIs) {
    FillLedger();
    Show([&] {
        EXPECT_TRUE(On("rptOpt(0)"));
        Switch("rptOpt(1)");
        EXPECT_EQ(Combo("comboAcc")->listIndex, 0);
        EXPECT_FALSE(On("rptOpt(0)"));
        Switch("rptOpt(0)");
        Choose("comboAcc", 2);
        EXPECT_TRUE(On("rptOpt(1)")) << "an account chosen is a report of it";
        Switch("rptOpt(0)");
        Switch("rptOpt(1)");
        EXPECT_EQ(Combo("comboAcc")->listIndex, 2);
    });
}

TEST_F(ReportPage, OneAccountOfNoneChoosesNothing) {
    Show([&] {
        Switch("rptOpt(1)");
        EXPECT_EQ(Combo("comboAcc")->listIndex, -1);
        EXPECT_THAT(Print(), AllOf(HasSubstr("INNER JOIN"), HasSubstr("acc_to = 0")));
    });
    EXPECT_THAT(Boxes(), ElementsAre("لا توجد بيانات للطباعة في الوقت الحاضر."));
}

struct PrintRow {
    const char* name;
    std::int32_t account; ///< entry of comboAcc; -1: all
    bool always;
    double from, to;
    std::string statement; ///< a part of the first one
    std::string title;
    std::string period;
};

class PrintRows : public ReportPage, public ::testing::WithParamInterface<PrintRow> {};

TEST_P(PrintRows, GoFromThePageToTheReport) {
    const PrintRow& row = GetParam();
    FillLedger();
    platform.runtime->prepare = [](fakes::FakeReport& report) {
        GiveAccountParts(report, std::make_shared<fakes::ReportRecord>());
    };
    Show([&] {
        ChooseTab(3);
        if (row.account >= 0) Choose("comboAcc", row.account);
        Picker("dtMin")->value = row.from;
        Picker("dtMax")->value = row.to;
        Switch("chkAll", row.always);
        EXPECT_THAT(Print(), HasSubstr(row.statement));
    });
    EXPECT_THAT(Boxes(), IsEmpty());
    ASSERT_EQ(platform.runtime->made.size(), 1U);
    EXPECT_EQ(platform.runtime->made[0]->texts["HeadTitleText"], row.title);
    EXPECT_EQ(platform.runtime->made[0]->texts["AccountSubTitleText"], row.period);
}

const PrintRow PrintedRows[] = {
    {"AllOfAllTime", -1, true, 37'780, 37'790, "\r\rORDER BY", "حركة القيد الكلية", ""},
    {"AllOfATime", -1, false, 37'781.25, 37'790.5, " Where (trans_date BETWEEN 37781.25 AND 37790.5)",
     "حركة القيد من الاثنين 09 يونيو إلى الأربعاء 18 يونيو 2003", ""},
    {"OneOfAllTime", 0, true, 37'780, 37'790, "acc_to = 1\rORDER BY", "حركة القيد الخاصة بحساب Till", ""},
    {"OneOfADay", 1, false, 37'782.25, 37'782.25, "acc_to = 2 AND (CLng(trans_date)=37782)",
     "حركة القيد الخاصة بحساب البنك", "ليوم الثلاثاء 10 يونيو 2003"},
};
INSTANTIATE_TEST_SUITE_P(Rows, PrintRows, ::testing::ValuesIn(PrintedRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
