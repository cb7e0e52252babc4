// The window of the subscribers' options as a real one.
#include "accounts_fixture.h"
#include "adapters/qt/dialog/date_field.h"
#include "adapters/qt/dialog/month_view.h"
#include "service/frmMembersPrint.h"

namespace qbrpt::test {
namespace {

class MembersWindow : public ::testing::Test {
protected:
    explicit MembersWindow(const char* qtPlatform = "offscreen") : platform(qtPlatform) {}
    std::int32_t Ask(const std::function<void()>& act) {
        std::int32_t type = 0;
        OnceOpen(act, [&] { type = options.GetPrintType(); });
        return type;
    }
    WindowPlatform platform;
    frmMembersPrint& options = frmMembersPrint::Instance();
};

TEST_F(MembersWindow, OpensWithAllAndNoPeriod) {
    EXPECT_EQ(Ask([] {
                  EXPECT_EQ(OpenForm()->windowTitle(), "خيارات طباعة بيانات المشتركين");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
              }),
              frmMembersPrint::All);
    EXPECT_EQ(options.dStartDate, 0);
    EXPECT_EQ(options.dEndDate, 0);
    EXPECT_FALSE(options.bGroupPrint);
}

TEST_F(MembersWindow, EndsAsFarBelowItsButtonsAsBesideThem) {
    Ask([] {
        const QRect button = In<QWidget>("Cancel").geometry();
        EXPECT_NEAR(OpenForm()->rect().bottom() - button.bottom(), button.left(), 2);
    });
}

TEST_F(MembersWindow, GivesWhatIsChosenByKeys) {
    EXPECT_EQ(Ask([] {
                  const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
                  press(Qt::Key_Down);
                  press(Qt::Key_Down);
                  press(Qt::Key_Tab);
                  press(Qt::Key_Space); // takes a date
                  QTest::keyClicks(QApplication::focusWidget(), "15032025");
                  press(Qt::Key_Tab);
                  press(Qt::Key_Tab);
                  press(Qt::Key_Space);
                  press(Qt::Key_Return);
              }),
              frmMembersPrint::Owing);
    EXPECT_EQ(options.dStartDate, 45731);
    EXPECT_EQ(options.dEndDate, 0);
    EXPECT_TRUE(options.bGroupPrint);
}

TEST_F(MembersWindow, RefusesByEscapeByItsButtonAndByItsFrame) {
    EXPECT_EQ(Ask([] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }),
              frmMembersPrint::Refused);
    EXPECT_EQ(Ask([] { QTest::mouseClick(&In<QWidget>("Cancel"), Qt::LeftButton); }),
              frmMembersPrint::Refused);
    EXPECT_EQ(Ask([] { OpenForm()->close(); }), frmMembersPrint::Refused);
}

class MembersDesktop : private Screened, public MembersWindow {
protected:
    MembersDesktop() : MembersWindow("") {}
};

TEST_F(MembersDesktop, GivesWhatIsChosenByMouseAlone) {
    const std::int32_t type = Ask([] {
        UserClicks(In<QWidget>("Option1(1)"));
        auto& start = In<qt::DateField>("dtStart");
        UserClicks(start, start.CheckRect().center());
        EXPECT_TRUE(Waits([&] { return start.Value().has_value(); }));
        UserClicks(start, start.DropRect().center());
        EXPECT_TRUE(Waits([&] { return start.Month().isVisible(); }));
        const Moment now = MomentOf(*start.Value());
        UserClicks(start.Month(), start.Month().CellOf({now.year, now.month, 9}).center());
        EXPECT_TRUE(Waits([&] { return MomentOf(*start.Value()).day == 9; }));
        UserClicks(In<QWidget>("chkGroup"));
        UserClicks(In<QWidget>("cmdOk"));
        EXPECT_TRUE(Waits([] { return OpenForm() == nullptr; }));
    });
    EXPECT_EQ(type, frmMembersPrint::Running);
    EXPECT_EQ(MomentOf(options.dStartDate).day, 9);
    EXPECT_TRUE(options.bGroupPrint);
}

} // namespace
} // namespace qbrpt::test
