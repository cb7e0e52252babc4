// What mirroring does to real widgets.
#include "adapters/qt/button_bar.h"
#include "adapters/qt/style_words.h"
#include "heard_events.h"
#include "preview/print_server_table.h"
#include "support/mirroring.h"
#include "window_platform.h"

#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollBar>
#include <gmock/gmock.h>

namespace qbrpt::test {
namespace {

class Mirroring : public ::testing::Test {
protected:
    Mirroring() {
        form = Platform::Current().forms->Load(PrintServerTable(), events);
        window = dynamic_cast<qt::FormWindow*>(qt::Handles::Table().Find(form->hWnd())->widget.data());
        bar = window->findChild<qt::ButtonBar*>("buttonBar");
        // It has no meta-object of its own: Qt would take any widget for it.
        for (QWidget* below : window->findChildren<QWidget*>()) {
            if (auto* found = dynamic_cast<qt::ViewerWidget*>(below)) viewer = found;
        }
    }
    [[nodiscard]] int LeftOf(const char* button) const {
        const QWidget* widget = bar->findChild<QWidget*>(button);
        return widget->mapTo(window, QPoint(0, 0)).x();
    }
    void Show() {
        window->setWindowModality(Qt::NonModal);
        window->show();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] int LeftOfMenu(int position) const {
        return window->MenuBar().actionGeometry(window->MenuBar().actions()[position]).x();
    }

    WindowPlatform platform;
    HeardEvents events;
    Ref<Form> form;
    qt::FormWindow* window = nullptr;
    qt::ButtonBar* bar = nullptr;
    QWidget* viewer = nullptr;
};

TEST_F(Mirroring, AFormIsBuiltLeftToRight) {
    Show();
    EXPECT_EQ(bar->layoutDirection(), Qt::LeftToRight);
    EXPECT_LT(LeftOf("close"), LeftOf("print"));
    EXPECT_LT(LeftOfMenu(0), LeftOfMenu(1));
}

TEST_F(Mirroring, TurnsBarsViewerAndMenuOfAForm) {
    MirrorWindow(form->hWnd(), false, false);
    Show();
    EXPECT_EQ(bar->layoutDirection(), Qt::RightToLeft);
    EXPECT_GT(LeftOf("close"), LeftOf("print"));
    EXPECT_EQ(viewer->layoutDirection(), Qt::RightToLeft) << "and so its scroll bar stands at the left";
    EXPECT_GT(LeftOfMenu(0), LeftOfMenu(1));
    const QRect first = window->MenuBar().actionGeometry(window->MenuBar().actions()[0]);
    EXPECT_LT(window->MenuBar().width() - first.right(), 20) << "the menu begins at the right edge";
    EXPECT_EQ(window->MenuBar().actions()[1]->menu()->layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(window->layoutDirection(), Qt::RightToLeft);
}

TEST_F(Mirroring, KeepsCaptionsOfTheMenu) {
    MirrorWindow(form->hWnd(), false, false);
    MirrorWindow(form->hWnd(), false, false);
    EXPECT_EQ(window->MenuBar().actions()[0]->text(), "&ملف");
}

TEST_F(Mirroring, CanLeaveToolBarsAsTheyAre) {
    MirrorWindow(form->hWnd(), false, true);
    EXPECT_EQ(bar->layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(viewer->layoutDirection(), Qt::RightToLeft);
}

TEST_F(Mirroring, IsUndoneWhole) {
    MirrorWindow(form->hWnd(), false, false);
    UnmirrorWindow(form->hWnd());
    Show();
    for (const QWidget* widget : std::initializer_list<QWidget*>{window, bar, viewer, &window->MenuBar()})
        EXPECT_EQ(widget->layoutDirection(), Qt::LeftToRight) << widget->objectName().toStdString();
    EXPECT_LT(LeftOf("close"), LeftOf("print"));
    EXPECT_LT(LeftOfMenu(0), LeftOfMenu(1));
    EXPECT_EQ(window->MenuBar().actions()[1]->menu()->layoutDirection(), Qt::LeftToRight);
}

TEST_F(Mirroring, TheTreeHoldsFormBarsAndViewer) {
    WindowTree& tree = *Platform::Current().tree;
    std::string classes = tree.GetClassName(form->hWnd()).value();
    for (WindowHandle child = tree.GetWindow(form->hWnd(), WindowRelation::Child); child != 0;
         child = tree.GetWindow(child, WindowRelation::Next))
        classes += " " + tree.GetClassName(child).value();
    EXPECT_EQ(classes, "ThunderForm msvb_lib_toolbar msvb_lib_toolbar CRViewer");
    EXPECT_EQ(tree.GetWindow(form->hWnd(), WindowRelation::Owner), 0U);
    EXPECT_EQ(tree.GetClassName(12345), std::nullopt);
    EXPECT_EQ(tree.GetWindow(0, WindowRelation::Next), 0U);
    EXPECT_FALSE(tree.LibraryLoads("vbame"));
    EXPECT_TRUE(tree.LibraryLoads("c.so.6"));
}

/// A check of one plain widget after its style words were set.
class StyleWords : public ::testing::Test {
protected:
    WindowPlatform platform;
    void SetUp() override { static_cast<void>(Platform::Current().forms->Load(FormTable{}, events)); }
    HeardEvents events;
};

constexpr std::uint32_t TextWords = qt::StyleBit::Right | qt::StyleBit::RightReading;

TEST_F(StyleWords, TextStandsAtTheRightAndIsReadFromThere) {
    QLineEdit edit;
    QLabel label;
    for (QWidget* widget : std::initializer_list<QWidget*>{&edit, &label})
        qt::ApplyStyles(*widget, 0, TextWords);
    EXPECT_TRUE(edit.alignment().testFlag(Qt::AlignRight));
    EXPECT_TRUE(label.alignment().testFlag(Qt::AlignRight));
    EXPECT_TRUE(label.alignment().testFlag(Qt::AlignAbsolute));
    EXPECT_EQ(label.layoutDirection(), Qt::RightToLeft);
    qt::ApplyStyles(edit, 0, 0);
    EXPECT_TRUE(edit.alignment().testFlag(Qt::AlignLeft));
    EXPECT_EQ(edit.layoutDirection(), Qt::LeftToRight);
}

TEST_F(StyleWords, AListGetsItsScrollBarAtTheLeft) {
    struct Row {
        const char* name;
        std::uint32_t words;
        bool barAtLeft;
    };
    for (const Row& row :
         {Row{"plain", 0, false}, Row{"left scroll bar alone", qt::StyleBit::LeftScrollBar, true},
          Row{"all three", TextWords | qt::StyleBit::LeftScrollBar, true},
          Row{"mirrored", qt::StyleBit::RightLayout, true}}) {
        QListWidget list;
        for (int i = 0; i < 50; ++i)
            list.addItem(QString::number(i));
        qt::ApplyStyles(list, 0, row.words);
        list.show();
        QCoreApplication::processEvents();
        const int left = list.verticalScrollBar()->mapTo(&list, QPoint(0, 0)).x();
        EXPECT_EQ(left < list.width() / 2, row.barAtLeft) << row.name;
    }
}

TEST_F(StyleWords, ACheckBoxHasItsBoxAtTheRight) {
    QCheckBox box("نعم");
    qt::ApplyStyles(box, WindowStyle::BS_LEFTTEXT | WindowStyle::BS_RIGHT, 0);
    EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
    qt::ApplyStyles(box, 0, 0);
    EXPECT_EQ(box.layoutDirection(), Qt::LeftToRight);
}

} // namespace
} // namespace qbrpt::test
