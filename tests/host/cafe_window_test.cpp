// The café host's window: every member to be chosen, run and come back from.
#include "host_stage.h"

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;

using CafeHost = HostStage;

TEST_F(CafeHost, ListsTheTwentyThreeMembersInTheirOrder) {
    const auto* list = window->findChild<cafe::MemberList*>();
    ASSERT_EQ(list->count(), 23);
    for (int row = 0; row < list->count(); ++row)
        EXPECT_EQ(list->item(row)->text().toStdString(), cafe::Members()[static_cast<std::size_t>(row)].name);
    EXPECT_EQ(list->item(0)->text(), "IsDbValid");
    EXPECT_EQ(list->item(1)->text(), "SetDatabase");
    EXPECT_EQ(list->item(22)->text(), "EditAccount");
    EXPECT_EQ(window->layoutDirection(), Qt::RightToLeft);
}

TEST_F(CafeHost, FieldsBeginWithTheDefaultsOfTheInterface) {
    using Values = std::vector<cafe::Argument>;
    const auto shortly = [](int value) { return cafe::Argument{static_cast<std::int16_t>(value)}; };
    const cafe::Argument none{std::int32_t{0}};
    const cafe::Argument empty{std::string{}};
    const std::vector<std::pair<std::string, Values>> rows = {
        {"IsDbValid", {}},
        {"SetDatabase", {std::shared_ptr<DAO::Database>{}}},
        {"SetDbInfo", {empty, empty}},
        {"PrintBill", {none}},
        {"PrintIncome", {none, none, shortly(0), shortly(1)}},
        {"PrintPCUsage", {0.0, 0.0, none, shortly(1)}},
        {"PrintInternetUsage", {none, none, shortly(1), shortly(1)}},
        {"PrintUsage", {none, none, none, shortly(1), shortly(0)}},
        {"PrintMembersInfo", {empty}},
        {"PrintUsersIncome", {none, none}},
        {"PrintPPInfo", {empty, empty}},
        {"EditAccount", {}}};
    for (const auto& [member, values] : rows) {
        Choose(member);
        EXPECT_TRUE(Form().Arguments() == values) << member;
    }
}

TEST_F(CafeHost, NumbersReachTheEndsOfTheirTypes) {
    Choose("PrintIncome");
    auto* work = Part<QSpinBox>("date1");
    auto* show = Part<QSpinBox>("bShow");
    EXPECT_THAT((std::vector{work->minimum(), work->maximum(), show->minimum(), show->maximum()}),
                ElementsAre(-2147483647 - 1, 2147483647, -32768, 32767));
}

TEST_F(CafeHost, SaysWhatTheComponentAnswers) {
    EXPECT_THAT(Chips(), ElementsAre("لا قاعدة بيانات", "الطابعات: 1"));
    ClickRun();
    EXPECT_EQ(Status(), "أعاد الأمر IsDbValid القيمة false.");
    const Cafe cafe;
    Open(cafe.Database());
    EXPECT_EQ(Status(), "أعاد الأمر SetDbInfo القيمة 1.");
    EXPECT_THAT(Chips(), ElementsAre("القاعدة جاهزة", "الطابعات: 1"));
    ClickRun();
    EXPECT_EQ(Status(), "أعاد الأمر IsDbValid القيمة true.");
    Choose("CanPrint");
    ClickRun();
    EXPECT_EQ(Status(), "أعاد الأمر CanPrint القيمة 1.");
}

TEST_F(CafeHost, HandsADatabaseOverThatItHasOpenedItself) {
    const Cafe cafe;
    Choose("SetDatabase");
    auto* file = Part<QWidget>("db")->findChild<QLineEdit*>();
    file->setText(QString::fromStdString(cafe.Database()));
    ClickRun();
    EXPECT_EQ(Status(), "انتهى الأمر SetDatabase.");
    EXPECT_EQ(Chips().front(), "القاعدة جاهزة");
    file->clear();
    ClickRun();
    EXPECT_EQ(Chips().front(), "لا قاعدة بيانات");
    file->setText(QString::fromStdString(cafe.File("none.db")));
    ClickRun();
    EXPECT_TRUE(Status().startsWith("SetDatabase: ")) << Status().toStdString();
    EXPECT_FALSE(cafe.Has("none.db"));
}

TEST_F(CafeHost, AFileThatIsNoneIsAnErrorOfTheComponent) {
    QString text;
    const Meanwhile meanwhile([] { return OpenBox() != nullptr && OpenBox()->isActiveWindow(); },
                              [&] {
                                  text = OpenBox()->text();
                                  EXPECT_FALSE(Part<QPushButton>("run")->isEnabled())
                                      << "no second member while one is at work";
                                  EXPECT_FALSE(window->close());
                                  User({"key", "Escape"});
                              });
    Open((folder / "no such folder/none.db").string());
    EXPECT_FALSE(text.isEmpty());
    EXPECT_EQ(Status(), "أعاد الأمر SetDbInfo القيمة 0.");
    EXPECT_EQ(Chips().front(), "لا قاعدة بيانات");
}

TEST_F(CafeHost, TheHeadingIsTheOneAtTheTop) {
    Choose("SetMainTitle");
    Part<QLineEdit>("Name1")->setText("مقهى نسمة");
    Part<QLineEdit>("addr2")->setText("هاتف 55");
    ClickRun();
    EXPECT_EQ(Part<QLineEdit>("heading0")->text(), "مقهى نسمة");
    EXPECT_EQ(Part<QLineEdit>("heading1")->text(), "");
    EXPECT_EQ(Part<QLineEdit>("heading2")->text(), "هاتف 55");
}

TEST_F(CafeHost, ABillIsNothing) {
    Choose("PrintBill");
    ClickRun();
    EXPECT_EQ(Status(), "انتهى الأمر PrintBill.");
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(std::filesystem::exists(folder / "pages"));
}

TEST_F(CafeHost, StandsBehindThePreviewAndComesBackWhereItWas) {
    const Cafe cafe;
    Open(cafe.Database());
    const QRect place = window->frameGeometry();
    Choose("PrintIncome");
    for (int turn = 1; turn <= 3; ++turn) {
        const Meanwhile meanwhile([&] { return Preview() != nullptr && Preview()->isActiveWindow(); },
                                  [&] {
                                      EXPECT_EQ(Preview()->windowTitle(), "مقهى الواحة [Printing]");
                                      EXPECT_FALSE(window->isVisible());
                                      EXPECT_TRUE(Waits([&] { return Preview()->frameGeometry() == place; }));
                                      UserClosesWindow();
                                  });
        User({"key", "ctrl+Return"});
        EXPECT_TRUE(Waits([&] { return Status() == "انتهى الأمر PrintIncome."; })) << turn;
        EXPECT_TRUE(Waits([&] { return window->isActiveWindow() && window->frameGeometry() == place; }))
            << turn;
        EXPECT_TRUE(meanwhile.Done());
        EXPECT_EQ(Preview(), nullptr);
        window->statusBar()->clearMessage();
    }
}

} // namespace
} // namespace qbrpt::test
