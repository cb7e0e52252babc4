// The window that asks which subscriptions are to be printed, and what becomes of its answers.
#include "service/frmMembersPrint.h"
#include "service_fixture.h"

#include <algorithm>
#include <optional>

namespace qbrpt {
namespace {

using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What a user does in the window.
struct Answers {
    int option = 0;
    std::optional<double> start = std::nullopt, end = std::nullopt;
    bool group = false;
    std::string button = "cmdOk"; ///< empty: the window's frame
};

class MembersPrint : public ServiceTest {
protected:
    /// Answers the first window that opens; a preview behind it is only looked at.
    void Answer(const Answers& answers) const {
        platform.forms->shown = [=, forms = platform.forms.get()](fakes::FakeForm& form) {
            if (form.caption != "خيارات طباعة بيانات المشتركين") return;
            const auto option = "Option1(" + std::to_string(answers.option) + ")";
            if (answers.option > 0) form.controls.Of<fakes::FakeToggle>("Option1(0)")->on = false;
            form.controls.Of<fakes::FakeToggle>(option)->on = true;
            form.controls.Of<fakes::FakeDatePicker>("dtStart")->value = answers.start;
            form.controls.Of<fakes::FakeDatePicker>("dtEnd")->value = answers.end;
            form.controls.Of<fakes::FakeToggle>("chkGroup")->on = answers.group;
            if (!answers.button.empty()) form.events.Click(answers.button);
        };
    }
    void Print(const Answers& answers) {
        GiveDatabase();
        Answer(answers);
        cls.PrintMembersInfo();
    }
};

const std::string From = "\r From members AS mm INNER JOIN members_info AS mi ON mm.id = mi.member_id ";

std::string Single(const std::string& where) {
    return "SELECT mm.name, mi.accountname, mi.begindate, mi.totaltime, IIf(mi.ended,0,mi.membertime - "
           "mi.totaltime) AS remintime, mi.paid, mi.remin, mm.id" +
           From + where + "\rORDER BY mm.id, mi.begindate, mi.accountname, mi.ended;";
}
std::string Grouped(const std::string& where) {
    return "SELECT mm.name, mi.accountname, First(mi.begindate), Sum(mi.totaltime), "
           "Sum(IIf(mi.ended,0,mi.membertime - mi.totaltime)) AS remintime, Sum(mi.paid), Sum(mi.remin), "
           "mm.id" +
           From + where + "\rGROUP BY mm.name, mi.accountname, mm.id\rORDER BY mm.id;";
}

struct ChoiceRow {
    const char* name;
    Answers answers;
    std::string statement;
    std::string title{}; ///< empty: the template's own
};

class Choices : public MembersPrint, public ::testing::WithParamInterface<ChoiceRow> {};

TEST_P(Choices, BecomeTheStatementAndTheTitle) {
    const ChoiceRow& row = GetParam();
    Print(row.answers);
    EXPECT_THAT(Statements(), ElementsAre(row.statement));
    EXPECT_EQ(db->opened.at(0).type, std::nullopt);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
    ASSERT_EQ(platform.runtime->made.size(), 1U);
    EXPECT_EQ(platform.runtime->made[0]->templateName, "MembersInfo");
    EXPECT_TRUE(platform.runtime->made[0]->rowsRead);
    EXPECT_EQ(platform.runtime->made[0]->texts["MembersTitleText"], row.title);
    EXPECT_EQ(platform.viewer->views, 2) << "the question and the preview";
}

const std::string Running = "تقرير بالمشتركين المستمرين";
const std::string Owing = "تقرير بالمبالغ الغير مسددة من المشتركين";

const ChoiceRow ChoiceRows[] = {
    {"All", {}, Single("")},
    {"AllGrouped", {.group = true}, Grouped("")},
    {"Running", {.option = 1}, Single("WHERE Not mi.ended"), Running},
    {"RunningGrouped", {.option = 1, .group = true}, Grouped("WHERE Not mi.ended"), Running},
    {"Owing", {.option = 2}, Single("WHERE mi.remin <> 0"), Owing},
    {"OwingGrouped", {.option = 2, .group = true}, Grouped("WHERE mi.remin <> 0"), Owing},
    {"FirstDay", {.start = 37'780}, Single("WHERE CLng(mi.begindate) = 37780")},
    {"FirstDayGrouped", {.start = 37'780, .group = true}, Grouped("WHERE CLng(mi.begindate) = 37780")},
    {"LastDayAlone", {.end = 37'790}, Single("")},
    {"LastDayAloneOfTheRunning", {.option = 1, .end = 37'790}, Single("WHERE Not mi.ended"), Running},
    {"Days", {.start = 37'780, .end = 37'790}, Single("WHERE CLng(mi.begindate) BETWEEN 37780 AND 37790")},
    {"DaysReversed",
     {.start = 37'790, .end = 37'780},
     Single("WHERE CLng(mi.begindate) BETWEEN 37790 AND 37780")},
    {"SameDay", {.start = 37'780, .end = 37'780}, Single("WHERE CLng(mi.begindate) = 37780")},
    {"SameAfternoonIsTheNextDay", {.start = 37'780.75}, Single("WHERE CLng(mi.begindate) = 37781")},
    {"NoonOfAnOddDayIsTheNextDay", {.start = 37'781.5}, Single("WHERE CLng(mi.begindate) = 37782")},
    {"TwoHoursOfADay",
     {.start = 37'780.125, .end = 37'780.25},
     Single("WHERE CLng(mi.begindate) BETWEEN 37780 AND 37780")},
    {"AMorningOfDayZeroIsNone", {.start = 0.25, .end = 37'790}, Single("")},
    {"AnEndThatRoundsToNone", {.start = 37'780, .end = 0.25}, Single("WHERE CLng(mi.begindate) = 37780")},
    {"RunningInDays",
     {.option = 1, .start = 37'780, .end = 37'790},
     Single("WHERE Not mi.ended AND CLng(mi.begindate) BETWEEN 37780 AND 37790"),
     Running},
    {"OwingOnADayGrouped",
     {.option = 2, .start = 37'780, .group = true},
     Grouped("WHERE mi.remin <> 0 AND CLng(mi.begindate) = 37780"),
     Owing},
};
INSTANTIATE_TEST_SUITE_P(Rows, Choices, ::testing::ValuesIn(ChoiceRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(MembersPrint, RefusingEndsInSilence) {
    for (const char* button : {"Cancel", ""}) {
        Print({.option = 1, .button = button});
        EXPECT_THAT(db->opened, IsEmpty());
        EXPECT_THAT(platform.messages->boxes, IsEmpty());
        EXPECT_THAT(platform.screen->pointers, IsEmpty());
    }
}

TEST_F(MembersPrint, NoRowsAreSaid) {
    GiveDatabase();
    db->Answer("From members AS mm", {});
    Answer({.option = 2});
    cls.PrintMembersInfo();
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"لا توجد بيانات للطباعة.", 1573120, "qbrpt"}));
    EXPECT_THAT(platform.runtime->made, IsEmpty());
}

TEST_F(MembersPrint, TheTextOfAHostShowsNoWindow) {
    GiveDatabase();
    Answer({.option = 2, .group = true});
    cls.PrintMembersInfo("WHERE members_info.ended");
    EXPECT_THAT(Statements(), ElementsAre(Single("WHERE mi.ended")));
    EXPECT_EQ(platform.viewer->views, 1);
}

TEST_F(MembersPrint, OpensTheSameEachTime) {
    frmMembersPrint& window = frmMembersPrint::Instance();
    Answer({.option = 2, .start = 37'780, .end = 37'790, .group = true});
    EXPECT_EQ(window.GetPrintType(), frmMembersPrint::Owing);
    EXPECT_EQ(window.dStartDate, 37'780);
    EXPECT_EQ(window.dEndDate, 37'790);
    EXPECT_TRUE(window.bGroupPrint);
    platform.forms->shown = [](fakes::FakeForm& form) {
        EXPECT_TRUE(form.controls.Of<fakes::FakeToggle>("Option1(0)")->on);
        EXPECT_FALSE(form.controls.Of<fakes::FakeToggle>("Option1(2)")->on);
        EXPECT_FALSE(form.controls.Of<fakes::FakeToggle>("chkGroup")->on);
        EXPECT_EQ(form.controls.Of<fakes::FakeDatePicker>("dtStart")->value, std::nullopt);
    };
    EXPECT_EQ(window.GetPrintType(), frmMembersPrint::Refused);
    EXPECT_EQ(window.dStartDate, 0);
    EXPECT_EQ(window.dEndDate, 0);
    EXPECT_FALSE(window.bGroupPrint);
}

TEST_F(MembersPrint, ARefusalAfterAnAcceptanceCounts) {
    platform.forms->shown = [](fakes::FakeForm& form) {
        form.events.Click("cmdOk");
        form.events.Click("Cancel");
    };
    EXPECT_EQ(frmMembersPrint::Instance().GetPrintType(), frmMembersPrint::Refused);
}

TEST_F(MembersPrint, ASecondOneWhileItIsOpenIsRefusedAndTheFirstGoesOn) {
    GiveDatabase();
    platform.forms->shown = [this](fakes::FakeForm& form) {
        if (form.caption != "خيارات طباعة بيانات المشتركين") return;
        form.controls.Of<fakes::FakeDatePicker>("dtStart")->value = 37'780;
        cls.PrintMembersInfo();
        EXPECT_THAT(db->opened, IsEmpty());
        form.events.Click("cmdOk");
    };
    cls.PrintMembersInfo();
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"The window that asks which subscriptions are meant is open already.",
                                     21, "qbrpt"}));
    EXPECT_THAT(Statements(), ElementsAre(Single("WHERE CLng(mi.begindate) = 37780")));
    EXPECT_EQ(platform.forms->built, 2) << "the question and the preview";
}

TEST_F(MembersPrint, OneThatCouldNotBeShownDoesNotStandInTheWayOfTheNext) {
    GiveDatabase();
    platform.forms->shown = [](fakes::FakeForm&) { throw Failure(FailureNumber::Device, "no screen"); };
    cls.PrintMembersInfo();
    EXPECT_TRUE(platform.forms->latest.expired());
    Answer({.option = 1});
    cls.PrintMembersInfo();
    EXPECT_THAT(Statements(), ElementsAre(Single("WHERE Not mi.ended")));
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"no screen", 21, "qbrpt"}));
}

struct CaptionRow {
    const char* control;
    ControlKind kind;
    const char* caption;
};

TEST(MembersPrintTable, HasItsControls) {
    const CaptionRow rows[] = {
        {"Frame1", ControlKind::Frame, "نوع بيانات المشتركين المطلوبة"},
        {"Option1(0)", ControlKind::OptionButton, "طباعة بيانات كل المشتركين بلا استثناء"},
        {"Option1(1)", ControlKind::OptionButton, "بيانات المشتركين المستمرين (اشتراكات فعالة)"},
        {"Option1(2)", ControlKind::OptionButton, "المشتركين المتبقية عليهم مبالغ غير مسددة"},
        {"Frame2", ControlKind::Frame, "الفترة الزمنية للبيانات حسب بدء استخدام الاشتراك"},
        {"Label1(0)", ControlKind::Label, "من"},
        {"dtStart", ControlKind::DatePicker, ""},
        {"Label1(1)", ControlKind::Label, "إلى"},
        {"dtEnd", ControlKind::DatePicker, ""},
        {"chkGroup", ControlKind::CheckBox, "طباعة بيانات مجمعة"},
        {"cmdOk", ControlKind::CommandButton, "موافق"},
        {"Cancel", ControlKind::CommandButton, "إلغاء الأمر"},
    };
    const FormTable& table = MembersPrintTable();
    EXPECT_EQ(table.caption, "خيارات طباعة بيانات المشتركين");
    EXPECT_TRUE(table.designedRightToLeft);
    ASSERT_EQ(table.controls.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(table.controls[i].name, rows[i].control);
        EXPECT_EQ(table.controls[i].kind, rows[i].kind) << rows[i].control;
        EXPECT_EQ(table.controls[i].caption, rows[i].caption);
    }
    const auto of = [&](std::string_view name) {
        return *std::find_if(table.controls.begin(), table.controls.end(),
                             [&](const ControlRow& row) { return row.name == name; });
    };
    EXPECT_TRUE(of("Option1(0)").on);
    EXPECT_TRUE(of("cmdOk").isDefault);
    EXPECT_TRUE(of("Cancel").isCancel);
    for (const char* picker : {"dtStart", "dtEnd"}) {
        EXPECT_EQ(of(picker).format, "dd/MM/yyyy");
        EXPECT_TRUE(of(picker).canBeEmpty);
    }
}

// Every port call fails in its turn.
TEST(MembersPrintFaults, EndInBoxesAndLeaveNothingOpen) {
    class Case : public MembersPrint {
    public:
        std::size_t Do(std::size_t position, fakes::FaultObserver::Reach reach, BoxAnswer answer) {
            GiveDatabase();
            Answer({.option = 1, .start = 37'780});
            platform.messages->usual = answer;
            const auto fault = std::make_shared<fakes::FaultObserver>(position, reach);
            fakes::FakePlatform::Observe(fault);
            cls.PrintMembersInfo();
            Platform::Current().observers = {};
            EXPECT_EQ(fault->Failed() == 0, position == 0);
            EXPECT_TRUE(platform.forms->latest.expired());
            for (const auto& report : platform.runtime->made)
                EXPECT_FALSE(report->alive);
            return fault->Calls();
        }

    private:
        void TestBody() override {}
    };
    using Reach = fakes::FaultObserver::Reach;
    Case().Do(0, Reach::Once, Cancel);
    const std::size_t calls = Case().Do(0, Reach::Once, Cancel);
    ASSERT_GT(calls, 40U);
    for (std::size_t position = 1; position <= calls; ++position) {
        SCOPED_TRACE(position);
        for (const Reach reach : {Reach::Once, Reach::FromThenOn})
            for (const BoxAnswer answer : {Cancel, Retry})
                Case().Do(position, reach, answer);
    }
}

} // namespace
} // namespace qbrpt
