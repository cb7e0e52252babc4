// A dialog on a real screen with a window manager: by keyboard alone, and by mouse alone.
#include "adapters/qt/dialog/arrow_pair.h"
#include "adapters/qt/dialog/combo_box.h"
#include "adapters/qt/dialog/date_field.h"
#include "adapters/qt/dialog/list_view.h"
#include "adapters/qt/dialog/month_view.h"
#include "adapters/qt/dialog/tab_strip.h"
#include "desktop_user.h"
#include "dialog_fixture.h"

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;

/// The screen stands before the windows that come onto it.
struct Screened {
    Screened() { desktop.StartManager(); }
    XDesktop desktop;
};

class DialogDesktop : private Screened, public DialogTest {
protected:
    explicit DialogDesktop(const FormTable& table = SampleDialog()) : DialogTest(table, "") {
        MirrorWindow(form->hWnd(), false, false);
        events.then = [this](const std::string& what) {
            if (what == "click ok" || what == "click cancel") form->Hide();
        };
        if (table.name != "sample") return;
        for (const char* paper : {"A4", "A5", "B5"})
            Get<ListControl>("paper")->AddItem(paper);
        for (int item = 1; item <= 3; ++item)
            Get<ListView>("list")->Add(std::to_string(item), "حساب " + std::to_string(item));
        Get<DatePicker>("since")->SetValue(45731);
        Get<DatePicker>("until")->SetValue(45731);
    }
    /// Until the dialog is closed by what is done.
    void UserDoes(const std::function<void()>& act) {
        const Meanwhile meanwhile({[this, act] {
            EXPECT_TRUE(Waits([&] { return Window().isActiveWindow(); }));
            act();
            EXPECT_TRUE(Waits([&] { return !form->Visible(); }));
            if (form->Visible()) form->Hide();
        }});
        form->ShowModal();
    }
    void ExpectAllDone() {
        EXPECT_EQ(Get<TextBox>("from")->Text(), "25");
        EXPECT_TRUE(Get<ToggleControl>("Way(1)")->Value());
        EXPECT_TRUE(Get<ToggleControl>("all")->Value());
        EXPECT_EQ(Get<ScrollBar>("arrows")->Value(), 3);
        EXPECT_EQ(Get<ListControl>("paper")->Text(), "A5");
        EXPECT_EQ(*Get<DatePicker>("since")->Value(), 45733);
        EXPECT_FALSE(Get<DatePicker>("until")->Value().has_value());
        EXPECT_EQ(Get<ListView>("list")->SelectedItem(), 2);
    }
};

TEST_F(DialogDesktop, IsFilledInByKeyboardAlone) {
    UserDoes([&] {
        EXPECT_TRUE(Waits([&] { return Focused() == "from"; }));
        User({"key", "2", "5", "Tab", "Left", "Tab", "space", "Tab", "Tab", "Tab", "Down", "Down", "Tab"});
        User({"key", "Down", "Down", "Tab", "Up", "Up", "Tab", "space", "Tab", "Down", "Down"});
        EXPECT_TRUE(Waits([&] { return Get<ListView>("list")->SelectedItem() == 2; }));
        User({"key", "Return"});
    });
    ExpectAllDone();
    EXPECT_THAT(events.Of("click ok"), ElementsAre("click ok"));
}

TEST_F(DialogDesktop, IsFilledInByMouseAlone) {
    Get<TextBox>("from")->SetText("25");
    UserDoes([&] {
        auto& arrows = Find<qt::ArrowPair>("arrows");
        UserClicks(Find<QWidget>("Way(1)"));
        UserClicks(Find<QWidget>("all"));
        UserClicks(arrows, {arrows.width() / 2, arrows.height() - 5});
        EXPECT_TRUE(Waits([&] { return Get<ScrollBar>("arrows")->Value() == 2; }));
        UserClicks(arrows, {arrows.width() / 2, arrows.height() - 5});
        QAbstractItemView& papers = *Find<qt::DropDown>("paper").view();
        UserClicks(Find<QWidget>("paper"));
        EXPECT_TRUE(Waits([&] { return papers.isVisible(); }));
        QTest::qWait(300); // a list that has just dropped down takes no click
        UserClicks(*papers.viewport(), papers.visualRect(papers.model()->index(1, 0)).center());
        EXPECT_TRUE(Waits([&] { return !papers.isVisible(); }));
        auto& since = Find<qt::DateField>("since");
        UserClicks(since, since.DropRect().center());
        EXPECT_TRUE(Waits([&] { return since.Month().isVisible(); }));
        UserClicks(since.Month(), since.Month().CellOf({2025, 3, 17}).center());
        EXPECT_TRUE(Waits([&] { return !since.Month().isVisible(); }));
        auto& until = Find<qt::DateField>("until");
        UserClicks(until, until.CheckRect().center());
        auto& list = Find<qt::ReportList>("list");
        UserClicks(*list.viewport(), list.visualRect(list.model()->index(1, 0)).center());
        EXPECT_TRUE(Waits([&] { return Get<ListView>("list")->SelectedItem() == 2; }));
        UserClicks(Find<QWidget>("ok"));
    });
    ExpectAllDone();
}

TEST_F(DialogDesktop, IsRefusedByEscape) {
    UserDoes([&] { User({"key", "Escape"}); });
    EXPECT_THAT(events.Of("click"), ElementsAre("click cancel"));
}

TEST_F(DialogDesktop, IsClosedByItsFrame) {
    UserDoes([&] { UserClosesWindow(); });
    EXPECT_THAT(events.Of("unload"), ElementsAre("unload"));
    EXPECT_THAT(events.Of("activate"), ElementsAre("activate"));
}

TEST_F(DialogDesktop, KeepsItsSizeWhateverTheWindowManagerIsAsked) {
    UserDoes([&] {
        const QSize size = Window().size();
        User({"windowsize", std::to_string(Window().winId()), "900", "700"});
        QTest::qWait(300);
        EXPECT_EQ(Window().size(), size);
        EXPECT_NEAR(Window().frameGeometry().center().x(), 512, 3);
        EXPECT_NEAR(Window().frameGeometry().center().y(), 384, 16);
        User({"key", "Escape"});
    });
}

} // namespace
} // namespace qbrpt::test
