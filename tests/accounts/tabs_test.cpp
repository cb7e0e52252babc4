// The tab strip and its panels, and what the window is made of.
#include "accounts/account_table.h"
#include "accounts/window_fixture.h"
#include "support/mirroring.h"

#include <algorithm>
#include <set>

namespace qbrpt {
namespace {

struct PlaceRow {
    const char* name;
    ControlPlace client;
    TabStyle style;
    double stripTop, lastTabTop;
    double x, y;
};

class AlignTabClient : public AccountWindowTest, public ::testing::WithParamInterface<PlaceRow> {};

TEST_P(AlignTabClient, CentresThePanel) {
    const PlaceRow& row = GetParam();
    Show([&] {
        Tabs()->client = row.client;
        Tabs()->style = row.style;
        Tabs()->place.top = row.stripTop;
        Tabs()->tabTop = row.lastTabTop;
        Panel(1)->place = {.left = 7, .top = 7, .width = 1000, .height = 600};
        const int raised = Panel(1)->broughtToFront;
        ChooseTab(2);
        EXPECT_EQ(Panel(1)->place.left, row.x);
        EXPECT_EQ(Panel(1)->place.top, row.y);
        EXPECT_EQ(Panel(1)->place.width, 1000);
        EXPECT_EQ(Panel(1)->place.height, 600);
        EXPECT_EQ(Panel(1)->borderStyle, 0);
        EXPECT_TRUE(Panel(1)->visible);
        EXPECT_EQ(Panel(1)->broughtToFront, raised + 1);
    });
    EXPECT_THAT(Boxes(), ::testing::IsEmpty());
}

constexpr ControlPlace Client = {.left = 60, .top = 400, .width = 2000, .height = 1000};
const PlaceRow Places[] = {
    {"Tabs", Client, TabStyle::Tabs, 100, 5000, 560, 600},
    {"Buttons", Client, TabStyle::Buttons, 100, 5000, 560, 2300},
    {"MirroredTabs", {2060, 400, 2000, 1000}, TabStyle::Tabs, 100, 5000, 560, 600},
    {"LeftEdgeRoundsToTheEven", {60.5, 400, 2000, 1000}, TabStyle::Tabs, 100, 5000, 560, 600},
    {"LeftEdgeRoundsUp", {61.5, 400, 2000, 1000}, TabStyle::Tabs, 100, 5000, 562, 600},
    {"HalvesOfTwips", {60, 400, 2001, 1003}, TabStyle::Tabs, 100, 5000, 560.5, 601.5},
    {"AsWideAsItsLeftEdge", {2000, 400, 2000, 1000}, TabStyle::Tabs, 100, 5000, 2500, 600},
    {"PanelLargerThanTheStrip", {60, 400, 500, 300}, TabStyle::Tabs, 100, 5000, -190, 250},
};
INSTANTIATE_TEST_SUITE_P(Rows, AlignTabClient, ::testing::ValuesIn(Places),
                         [](const auto& row) { return row.param.name; });

TEST_F(AccountWindowTest, ShowsThePanelOfTheCurrentTabAlone) {
    const auto visible = [&] {
        std::string panels;
        for (const int number : {0, 1, 2})
            if (Panel(number)->visible) panels += std::to_string(number);
        return panels;
    };
    Show([&] {
        EXPECT_EQ(visible(), "0");
        EXPECT_EQ(Panel(0)->broughtToFront, 1);
        for (const std::int16_t tab : std::initializer_list<std::int16_t>{2, 3, 1}) {
            ChooseTab(tab);
            EXPECT_EQ(visible(), std::to_string(tab - 1));
        }
    });
}

TEST_F(AccountWindowTest, TheCurrentTabClickedAgainDoesNothing) {
    FillLedger();
    Show([&] {
        const auto log = std::make_shared<fakes::CallLog>();
        fakes::FakePlatform::Observe(log);
        ChooseTab(1);
        EXPECT_THAT(log->LinesOf({"Control.", "DAO.", "PictureBox."}), ::testing::IsEmpty());
    });
}

TEST_F(AccountWindowTest, NoTabAtAllEndsInABox) {
    Show([&] {
        ChooseTab(0);
        EXPECT_FALSE(Panel(0)->visible);
    });
    EXPECT_THAT(Boxes(), ::testing::SizeIs(1));
}

TEST_F(AccountWindowTest, IsMirroredAndHoldsTheTimeWhenItLoads) {
    platform.clock->now = 38'001.75;
    std::vector<WindowHandle> mirrored;
    Show([&] {
        mirrored = platform.tree->visited;
        for (const char* picker : {"rDate", "dtMin", "dtMax"})
            EXPECT_EQ(Of<fakes::FakeDatePicker>(picker)->value, 38'001.75);
        EXPECT_THAT(mirrored, ::testing::Contains(form->handle));
    });
}

TEST_F(AccountWindowTest, IsTurnedFirstAndItsTabStripAloneAfterIt) {
    constexpr WindowHandle toolbar = 500;
    constexpr WindowHandle withinStrip = 600;
    WindowHandle window = 0;
    WindowHandle strip = 0;
    auto& windows = platform.tree->windows;
    platform.forms->prepare = [&](fakes::FakeForm& built) {
        window = built.handle;
        strip = built.controls.Of<fakes::FakeTabs>("TabStrip1")->handle;
        windows[window] = {.className = "ThunderRT6FormDC", .children = {strip, toolbar}};
        windows[strip] = {.className = "TabStripWndClass", .children = {withinStrip}};
        windows[withinStrip] = {.className = "Edit"};
        windows[toolbar] = {.className = "msvb_lib_toolbar"};
    };
    Show();
    using namespace WindowStyle;
    EXPECT_EQ(windows[window].extended, WS_EX_RIGHT | WS_EX_RTLREADING);
    EXPECT_EQ(windows[toolbar].extended, 0U) << "a tool bar keeps its styles";
    EXPECT_EQ(windows[strip].extended, WS_EX_LAYOUTRTL | WS_EX_NOINHERITLAYOUT)
        << "the last that it was told";
    const auto visits = [&](WindowHandle asked) {
        return std::count(platform.tree->visited.begin(), platform.tree->visited.end(), asked);
    };
    EXPECT_EQ(visits(window), 1);
    EXPECT_EQ(visits(strip), 1) << "by the walk through the window";
    EXPECT_EQ(visits(withinStrip), 1);
}

TEST_F(AccountWindowTest, LoadsInItsOrder) {
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    Show();
    EXPECT_THAT(
        log->LinesOf({"Forms.", "Form.hWnd", "Form.Show", "Form.Unload", "PictureBox.", "Clock.",
                      "DatePicker.Set", "DAO.Database", "ListView.Clear", "ListControl.Clear",
                      "CommandButton."}),
        ::testing::ElementsAre("Forms.Load(\"frmAccount\")", "Form.hWnd()", "PictureBox.SetBorderStyle(0)",
                               "Clock.Now()", "DatePicker.SetValue(38000.5)", "DatePicker.SetValue(38000.5)",
                               "DatePicker.SetValue(38000.5)", "ListView.Clear()", "ListControl.Clear()",
                               "ListControl.Clear()", "ListControl.Clear()", ::testing::HasSubstr("AS total"),
                               "DAO.Database.OpenRecordset(\"SELECT * FROM account_src\", null)",
                               "Form.ShowModal()", "Form.Unload()"));
}

struct CaptionRow {
    const char* control;
    ControlKind kind;
    const char* parent;
    const char* caption;
};

const CaptionRow Captions[] = {
    {"AccList", ControlKind::ListView, "TabPic(0)", ""},
    {"Label1", ControlKind::Label, "TabPic(0)", "تعريف الحساب"},
    {"txtAccount", ControlKind::TextBox, "TabPic(0)", ""},
    {"cmdAdd", ControlKind::CommandButton, "TabPic(0)", "إضافة"},
    {"cmdUpdate", ControlKind::CommandButton, "TabPic(0)", "تعديل"},
    {"comboFrom", ControlKind::ComboBox, "TabPic(1)", ""},
    {"comboTo", ControlKind::ComboBox, "TabPic(1)", ""},
    {"txtTotal", ControlKind::TextBox, "TabPic(1)", ""},
    {"txtAmount", ControlKind::TextBox, "TabPic(1)", ""},
    {"rDate", ControlKind::DatePicker, "TabPic(1)", ""},
    {"txtDescrip", ControlKind::TextBox, "TabPic(1)", ""},
    {"cmdAddReg", ControlKind::CommandButton, "TabPic(1)", "إضافة"},
    {"Frame1", ControlKind::Frame, "TabPic(2)", "محتويات التقرير"},
    {"rptOpt(0)", ControlKind::OptionButton, "Frame1", "كل حركات القيود"},
    {"rptOpt(1)", ControlKind::OptionButton, "Frame1", "فقط الخاصة بحساب"},
    {"comboAcc", ControlKind::ComboBox, "Frame1", ""},
    {"Frame2", ControlKind::Frame, "TabPic(2)", "الفترة الزمنية للتقرير"},
    {"chkAll", ControlKind::CheckBox, "Frame2", "الكل"},
    {"dtMin", ControlKind::DatePicker, "Frame2", ""},
    {"dtMax", ControlKind::DatePicker, "Frame2", ""},
    {"cmdPrint", ControlKind::CommandButton, "TabPic(2)", "طباعة"},
};

const ControlRow& RowOf(std::string_view name) {
    const auto rows = AccountTable().controls;
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.name == name; });
    if (found == rows.end()) throw std::runtime_error(std::string(name));
    return *found;
}

std::vector<std::string> CaptionsOf(ControlKind kind) {
    std::vector<std::string> captions;
    for (const ControlRow& row : AccountTable().controls)
        if (row.kind == kind) captions.emplace_back(row.caption);
    return captions;
}

TEST(AccountTable, HasItsControls) {
    for (const CaptionRow& row : Captions) {
        SCOPED_TRACE(row.control);
        const ControlRow& control = RowOf(row.control);
        EXPECT_EQ(control.kind, row.kind);
        EXPECT_EQ(control.parent, row.parent);
        EXPECT_EQ(control.caption, row.caption);
    }
    EXPECT_TRUE(AccountTable().designedRightToLeft);
    EXPECT_THAT(CaptionsOf(ControlKind::Tab),
                ::testing::ElementsAre("تعريف الحسابات", "إدراج قيد جديد", "تقارير البيانات"));
    EXPECT_THAT(CaptionsOf(ControlKind::ListColumn),
                ::testing::ElementsAre("تعريف الحساب", "موجودات الحساب"));
    EXPECT_THAT(CaptionsOf(ControlKind::Label),
                ::testing::ElementsAre("تعريف الحساب", "من حساب", "الرصيد", "إلى حساب", "المبلغ", "التاريخ",
                                       "البيان", "من", "إلى"));
    EXPECT_EQ(RowOf("rDate").format, "dd/MM/yyyy hh:mmtt");
    EXPECT_EQ(RowOf("dtMin").format, "dd/MM/yyyy hh:MMtt");
    EXPECT_EQ(RowOf("dtMax").format, "dd/MM/yyyy hh:MMtt");
    EXPECT_TRUE(RowOf("rptOpt(0)").on);
    EXPECT_FALSE(RowOf("rptOpt(1)").on);
    EXPECT_FALSE(RowOf("chkAll").on);
    EXPECT_TRUE(RowOf("txtTotal").locked);
    EXPECT_TRUE(RowOf("txtDescrip").multiLine);
}

TEST(AccountTable, NamesNothingTwice) {
    std::set<std::string_view> names;
    std::set<std::int16_t> stops;
    for (const ControlRow& row : AccountTable().controls) {
        EXPECT_TRUE(row.name.empty() || names.insert(row.name).second) << row.name;
        EXPECT_TRUE(row.tabIndex == 0 || stops.insert(row.tabIndex).second) << row.name;
        EXPECT_TRUE(row.parent.empty() || names.contains(row.parent)) << row.parent << " comes later";
    }
}

} // namespace
} // namespace qbrpt
