// Drop-down lists, list views and tabs.
#include "adapters/qt/dialog/combo_box.h"
#include "adapters/qt/dialog/list_view.h"
#include "adapters/qt/dialog/tab_strip.h"
#include "dialog_fixture.h"

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int Many = 10'000;

class Lists : public DialogTest {
protected:
    Lists() {
        for (const char* paper : {"A4", "A5", "ظرف & بطاقة"})
            Papers()->AddItem(paper);
        for (int account = 1; account <= 3; ++account)
            Accounts()->Add(std::to_string(account) + "|", "حساب " + std::to_string(account));
    }
    [[nodiscard]] Ref<ListControl> Papers() const { return Get<ListControl>("paper"); }
    [[nodiscard]] Ref<ListView> Accounts() const { return Get<ListView>("list"); }
    [[nodiscard]] qt::ReportList& AccountList() const { return Find<qt::ReportList>("list"); }
    void ClickItem(int row) {
        const QModelIndex item = AccountList().model()->index(row, 0);
        ClickOn(*AccountList().viewport(), AccountList().visualRect(item).center());
    }
};

TEST_F(Lists, NothingIsSelectedUntilSomebodyDoes) {
    EXPECT_EQ(Papers()->ListCount(), 3);
    EXPECT_EQ(Papers()->ListIndex(), -1);
    EXPECT_EQ(Papers()->Text(), "");
    EXPECT_EQ(Accounts()->SelectedItem(), 0);
    EXPECT_THAT(events.Of("click"), IsEmpty());
}

TEST_F(Lists, ASelectionByRulesIsHeardAlsoWhenItWasThatOne) {
    Papers()->SetListIndex(2);
    Papers()->SetListIndex(2);
    EXPECT_EQ(Papers()->Text(), "ظرف & بطاقة");
    Papers()->SetListIndex(-1);
    EXPECT_THAT(events.Of("click"), ElementsAre("click paper", "click paper"));
    EXPECT_THROW(Papers()->SetListIndex(3), Failure);
    EXPECT_THROW(Papers()->SetListIndex(-2), Failure);
    Papers()->SetListIndex(1);
    Papers()->Clear();
    EXPECT_EQ(Papers()->ListIndex(), -1);
    EXPECT_EQ(Papers()->ListCount(), 0);
}

TEST_F(Lists, EntriesHaveANumberEach) {
    EXPECT_EQ(Papers()->ItemData(1), 0);
    Papers()->SetItemData(1, 11);
    Papers()->AddItem("B5");
    EXPECT_EQ(Papers()->ItemData(1), 11);
    EXPECT_EQ(Papers()->ItemData(3), 0);
    EXPECT_THROW(static_cast<void>(Papers()->ItemData(4)), Failure);
    EXPECT_THROW(Papers()->SetItemData(-1, 1), Failure);
}

TEST_F(Lists, AComboIsChosenFromByKeysAndByMouse) {
    auto& combo = Find<qt::DropDown>("paper");
    WhileOpen([&] {
        combo.setFocus();
        Press(Qt::Key_Down);
        EXPECT_EQ(Papers()->Text(), "A4");
        Press(Qt::Key_Down);
        EXPECT_EQ(Papers()->Text(), "A5");
        Press(Qt::Key_F4);
        QAbstractItemView& list = *combo.view();
        EXPECT_TRUE(QTest::qWaitFor([&] { return list.isVisible(); }));
        ClickOn(*list.viewport(), list.visualRect(list.model()->index(2, 0)).center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return Papers()->ListIndex() == 2; }));
    });
    EXPECT_THAT(events.Of("click"), ElementsAre("click paper", "click paper", "click paper"));
}

TEST_F(Lists, AWheelThatPassesOverAComboChoosesNothing) {
    auto& combo = Find<qt::DropDown>("paper");
    WhileOpen([&] {
        QWheelEvent wheel(QPointF(5, 5), combo.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&combo, &wheel);
    });
    EXPECT_EQ(Papers()->ListIndex(), -1);
}

TEST_F(Lists, AnEmptyComboDoesNotDropDown) {
    auto& combo = Find<qt::DropDown>("paper");
    Papers()->Clear();
    WhileOpen([&] {
        combo.showPopup();
        EXPECT_FALSE(combo.view()->isVisible());
    });
}

TEST_F(Lists, ItemsHaveKeysAndColumns) {
    Accounts()->SetSubItem(2, 1, "-150.50");
    EXPECT_EQ(Accounts()->SubItem(2, 1), "-150.50");
    EXPECT_EQ(Accounts()->SubItem(1, 1), "");
    EXPECT_EQ(Accounts()->ItemKey(3), "3|");
    Accounts()->SetItemText(3, "الصندوق");
    EXPECT_EQ(Accounts()->ItemText(3), "الصندوق");
    EXPECT_THROW(Accounts()->Add("3|", "مرة أخرى"), Failure);
    EXPECT_EQ(Accounts()->ItemCount(), 3);
    EXPECT_THROW(static_cast<void>(Accounts()->ItemText(4)), Failure);
    EXPECT_THROW(static_cast<void>(Accounts()->ItemText(0)), Failure);
    Accounts()->Clear();
    EXPECT_EQ(Accounts()->ItemCount(), 0);
    Accounts()->Add("3|", "مرة أخرى"); // the key is free again
}

TEST_F(Lists, ItemsAreClickedAndWalkedThrough) {
    WhileOpen([&] {
        ClickItem(1);
        EXPECT_EQ(Accounts()->SelectedItem(), 2);
        ClickItem(1);
        EXPECT_EQ(events.Of("item").size(), 2U) << "also the one that was selected";
        Press(Qt::Key_Down);
        EXPECT_EQ(Accounts()->SelectedItem(), 3);
        EXPECT_EQ(events.Of("item").size(), 3U);
        QTest::mouseDClick(AccountList().viewport(), Qt::LeftButton, {}, QPoint(30, 12));
    });
    EXPECT_THAT(events.Of("double"), ElementsAre("double list"));
    EXPECT_THAT(events.Of("focus list"), ElementsAre("focus list"));
}

TEST_F(Lists, TheTabKeySelectsNothing) {
    WhileOpen([&] {
        AccountList().setFocus(Qt::TabFocusReason);
        EXPECT_EQ(Accounts()->SelectedItem(), 0);
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focused(), "note");
    });
    EXPECT_THAT(events.Of("item"), IsEmpty());
}

TEST_F(Lists, TextsAreEditedInPlaceOnlyWithLeave) {
    WhileOpen([&] {
        ClickItem(0);
        Press(Qt::Key_F2);
        EXPECT_EQ(AccountList().findChild<QLineEdit*>(), nullptr);
        EXPECT_FALSE(events.Of("edit list").empty());
        events.mayEdit = true;
        Press(Qt::Key_F2);
        auto* edit = AccountList().findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->setText("البنك");
        QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_EQ(Accounts()->ItemText(1), "البنك");
}

TEST_F(Lists, ColumnsAreOfOneWidth) {
    MirrorWindow(form->hWnd(), false, false);
    WhileOpen([&] {
        const QHeaderView& header = *AccountList().header();
        EXPECT_NEAR(header.sectionSize(0), header.sectionSize(1), 1);
        EXPECT_EQ(header.sectionSize(0) + header.sectionSize(1), AccountList().viewport()->width());
        EXPECT_GT(header.sectionViewportPosition(0), header.sectionViewportPosition(1))
            << "the first at the right";
    });
}

TEST_F(Lists, TenThousandEntriesStayQuick) {
    QElapsedTimer clock;
    clock.start();
    for (int i = 4; i <= Many; ++i) {
        Papers()->AddItem("ورق " + std::to_string(i));
        Accounts()->Add(std::to_string(i) + "|", "حساب " + std::to_string(i));
        Accounts()->SetSubItem(i, 1, "1,234.50");
    }
    WhileOpen([&] {
        EXPECT_EQ(AccountList().verticalScrollBar()->maximum() > 0, true);
        ClickItem(0);
        Press(Qt::Key_End);
        EXPECT_EQ(Accounts()->SelectedItem(), Many);
        Find<qt::DropDown>("paper").showPopup();
        QCoreApplication::processEvents();
        Find<qt::DropDown>("paper").hidePopup();
    });
    Accounts()->Clear();
    Papers()->Clear();
    EXPECT_LT(clock.elapsed(), 5000) << "milliseconds, most of them this test's own waits";
}

class Tabs : public DialogTest {
protected:
    Tabs() : DialogTest(SampleTabs()) {}
    [[nodiscard]] Ref<TabStrip> Strip() const { return Get<TabStrip>("tabs"); }
    [[nodiscard]] qt::TabRow& Row() const { return Find<qt::TabBox>("tabs").Tabs(); }
    void Mirror() {
        MirrorWindow(form->hWnd(), false, true);
        MirrorWindow(Strip()->hWnd(), true, false);
    }
};

TEST_F(Tabs, TheFirstIsSelectedAndNobodyHears) {
    EXPECT_EQ(Strip()->TabCount(), 3);
    EXPECT_TRUE(Strip()->TabSelected(1));
    EXPECT_FALSE(Strip()->TabSelected(2));
    EXPECT_EQ(Strip()->Style(), TabStyle::Tabs);
    EXPECT_THAT(events.Of("click"), IsEmpty());
    for (int tab = 0; tab < 3; ++tab)
        EXPECT_FALSE(Row().tabIcon(tab).isNull());
}

TEST_F(Tabs, AreClickedAndWalkedThrough) {
    WhileOpen([&] {
        ClickOn(Row(), Row().tabRect(2).center());
        EXPECT_TRUE(Strip()->TabSelected(3));
        ClickOn(Row(), Row().tabRect(2).center());
        Row().setFocus();
        Press(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_TRUE(Strip()->TabSelected(1)) << "behind the last comes the first";
        Press(Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_TRUE(Strip()->TabSelected(3));
    });
    EXPECT_EQ(events.Of("click tabs").size(), 4U);
}

TEST_F(Tabs, MirroredTheFirstStandsAtTheRightAndTheEdgeIsCountedFromThere) {
    const ControlPlace plain = Strip()->ClientPlace();
    EXPECT_LT(plain.left, plain.width);
    EXPECT_LT(Row().tabRect(0).x(), Row().tabRect(1).x());
    Mirror();
    const ControlPlace mirrored = Strip()->ClientPlace();
    EXPECT_EQ(mirrored.left, plain.left + plain.width);
    EXPECT_EQ(mirrored.top, plain.top);
    WhileOpen([&] {
        EXPECT_GT(Row().tabRect(0).x(), Row().tabRect(1).x());
        Window().resize(Window().size() + QSize(100, 0));
        EXPECT_GT(Row().x(), 90) << "the row hugs the right edge";
    });
}

TEST_F(Tabs, APanelWithoutAPlaceFillsTheClientArea) {
    Mirror();
    const ControlPlace client = Strip()->ClientPlace();
    const ControlPlace panel = Get<PictureBox>("Panel(0)")->Place();
    EXPECT_EQ(panel.width, client.width);
    EXPECT_EQ(panel.height, client.height);
    EXPECT_EQ(panel.left, client.left - client.width);
    EXPECT_EQ(Get<PictureBox>("Panel(1)")->Place().width, 4500) << "one with a place keeps its size";
    WhileOpen([&] {
        Window().resize(Window().size() + QSize(60, 40));
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return Get<PictureBox>("Panel(0)")->Place().width == client.width + 60 * 15; }));
        Get<PictureBox>("Panel(0)")->SetVisible(true);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QWidget>("list").width() > 400; }));
    });
}

} // namespace
} // namespace qbrpt::test
