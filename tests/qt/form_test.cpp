// The preview window as it is built of real widgets.
#include "adapters/qt/button_bar.h"
#include "adapters/qt/menus.h"
#include "heard_events.h"
#include "preview/print_server_table.h"
#include "window_platform.h"

#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <gmock/gmock.h>

namespace qbrpt::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

class BuiltForm : public ::testing::Test {
protected:
    BuiltForm() { form = Platform::Current().forms->Load(PrintServerTable(), events); }

    [[nodiscard]] qt::FormWindow& Window() const {
        return *dynamic_cast<qt::FormWindow*>(qt::Handles::Table().Find(form->hWnd())->widget.data());
    }
    template <class Widget>
    [[nodiscard]] Widget& Find(const char* name) const {
        return *Window().findChild<Widget*>(name);
    }
    /// Shows the window and closes it when the steps are done.
    void ShowAndDo(std::vector<Meanwhile::Step> steps) {
        steps.push_back([this] { Window().close(); });
        const Meanwhile meanwhile(std::move(steps));
        form->ShowModal();
    }
    [[nodiscard]] std::vector<std::string> HeardWithoutResizes() const {
        std::vector<std::string> rest;
        for (const std::string& what : events.heard) {
            if (what != "resize") rest.push_back(what);
        }
        return rest;
    }

    WindowPlatform platform;
    HeardEvents events;
    Ref<Form> form;
};

/// "mnFile(mnPrint ...)" for a menu and what stands in it.
QString Outline(const QWidget& menu) {
    QStringList names;
    for (const QAction* item : menu.actions()) {
        QString name = item->objectName();
        if (item->menu() != nullptr) name += "(" + Outline(*item->menu()) + ")";
        names += name;
    }
    return names.join(' ');
}

/// The largest difference of opacity between two pictures.
int Difference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            largest = std::max(largest, std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y))));
    }
    return largest;
}

TEST_F(BuiltForm, HasTheMenuInItsOrder) {
    EXPECT_EQ(Outline(Window().MenuBar()),
              "mnFile(mnPrint mnPrintSetup mnSp1 mnClose) "
              "mnView(mnZoom(mnZoom400 mnZoom200 mnZoom100 mnZoom50 mnZoom25) mnSp2 mnZoomIn mnZoomOut mnSp3 "
              "mnPrevPage mnNextPage mnFirstPage mnLastPage)");
}

TEST_F(BuiltForm, HasCaptionsTitleAndShortcuts) {
    EXPECT_EQ(Window().windowTitle(), "طباعة");
    EXPECT_EQ(qt::CaptionOf(Find<QAction>("mnPrintSetup")), "إ&عدادت الطابعة");
    EXPECT_EQ(qt::CaptionOf(Find<QAction>("mnZoom400")), "400 %");
    struct {
        const char* item;
        const char* keys;
    } const shortcuts[] = {{"mnPrint", "Ctrl+P"},
                           {"mnZoomIn", "Ctrl+Z"},
                           {"mnPrevPage", "Ctrl+B"},
                           {"mnNextPage", "Ctrl+N"},
                           {"mnZoomOut", ""}};
    for (const auto& row : shortcuts)
        EXPECT_EQ(Find<QAction>(row.item).shortcut().toString(), row.keys) << row.item;
}

TEST_F(BuiltForm, HasTheButtonsInTheirOrderWithTipsAndPictures) {
    const Ref<Toolbar> bar = form->ToolbarOf("Toolbar1");
    ASSERT_EQ(bar->ButtonCount(), 15);
    std::string keys;
    for (std::int16_t i = 1; i <= 15; ++i) {
        const Ref<ToolbarButton> button = bar->Buttons(i);
        keys += button->Style() == ButtonStyle::Separator ? "| " : button->Key() + " ";
    }
    EXPECT_EQ(keys,
              "close print | first prev next last | zoomin zoomout zoom25 zoom50 zoom100 zoom200 zoom400 ");
    EXPECT_EQ(Find<qt::BarButton>("zoomin").toolTip(), "تكبير  F3");
    EXPECT_EQ(Find<qt::BarButton>("zoomin").accessibleName(), "تكبير  F3");
    EXPECT_EQ(bar->ButtonOf("zoom400")->Image(), 13);
    EXPECT_FALSE(Find<qt::BarButton>("zoom400").icon().isNull());
    EXPECT_THROW(static_cast<void>(bar->ButtonOf("zoom800")), Failure);
    EXPECT_THROW(static_cast<void>(bar->Buttons(16)), Failure);
    EXPECT_THROW(static_cast<void>(form->Menu("mnHelp")), Failure);
}

TEST_F(BuiltForm, StandsCentredInItsSize) {
    EXPECT_EQ(form->ScaleWidth(), 9930);
    EXPECT_EQ(form->ScaleHeight(), 3645);
    const QPoint off = Window().geometry().center() - Window().screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    EXPECT_FALSE(form->Visible());
}

TEST_F(BuiltForm, AnotherListTakesThePicturesAndTurnsThoseWithADirection) {
    const auto picture = [&](const char* key) {
        return Find<qt::BarButton>(key).icon().pixmap(24, 24).toImage();
    };
    const Ref<Toolbar> bar = form->ToolbarOf("Toolbar1");
    const QImage next = picture("next");
    const QImage print = picture("print");
    bar->SetImageList("ImageList2");
    EXPECT_TRUE(Find<qt::BarButton>("next").icon().isNull());
    bar->ButtonOf("next")->SetImage(5);
    bar->ButtonOf("print")->SetImage(2);
    EXPECT_GT(Difference(picture("next"), next), 100);
    EXPECT_LT(Difference(picture("next"), next.mirrored(true, false)), 10);
    EXPECT_EQ(picture("print"), print);
    bar->ButtonOf("print")->SetImage(99);
    EXPECT_TRUE(Find<qt::BarButton>("print").icon().isNull());
}

TEST_F(BuiltForm, APressedButtonStaysPressedWhateverIsClicked) {
    form->ToolbarOf("Toolbar1")->ButtonOf("zoom100")->SetValue(1);
    ShowAndDo({[&] { QTest::mouseClick(&Find<qt::BarButton>("zoom100"), Qt::LeftButton); },
               [&] { QTest::mouseClick(&Find<qt::BarButton>("zoom50"), Qt::LeftButton); },
               [&] {
                   EXPECT_TRUE(Find<qt::BarButton>("zoom100").isChecked());
                   EXPECT_FALSE(Find<qt::BarButton>("zoom50").isChecked());
               }});
    EXPECT_THAT(HeardWithoutResizes(), ElementsAre("button zoom100", "button zoom50", "unload"));
}

TEST_F(BuiltForm, ShortcutsAndMenuKeysReachTheRules) {
    ShowAndDo({[&] { QTest::keyClick(&Window(), Qt::Key_P, Qt::ControlModifier); },
               [&] { QTest::keyClick(&Window(), Qt::Key_Z, Qt::ControlModifier); },
               [&] { QTest::keyClick(&Window(), Qt::Key_B, Qt::ControlModifier); },
               [&] { QTest::keyClick(&Window(), Qt::Key_N, Qt::ControlModifier); },
               [&] { form->Menu("mnNextPage")->SetEnabled(false); },
               [&] { QTest::keyClick(&Window(), Qt::Key_N, Qt::ControlModifier); },
               [&] { Window().MenuBar().setActiveAction(Window().MenuBar().actions()[0]); },
               [&] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down); },
               [&] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down); },
               [&] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return); }});
    EXPECT_THAT(HeardWithoutResizes(), ElementsAre("click mnPrint", "click mnZoomIn", "click mnPrevPage",
                                                   "click mnNextPage", "click mnPrintSetup", "unload"));
}

TEST_F(BuiltForm, TheTenthFunctionKeyOpensTheMenuBar) {
    ShowAndDo({[&] { QTest::keyClick(Window().focusWidget(), Qt::Key_F10); },
               [&] {
                   EXPECT_EQ(Window().MenuBar().activeAction(), Window().MenuBar().actions()[0]);
                   QTest::keyClick(&Window().MenuBar(), Qt::Key_Escape);
               }});
}

TEST_F(BuiltForm, ADisabledButtonIsSilent) {
    form->ToolbarOf("Toolbar1")->ButtonOf("prev")->SetEnabled(false);
    ShowAndDo({[&] { QTest::mouseClick(&Find<qt::BarButton>("prev"), Qt::LeftButton); }});
    EXPECT_THAT(HeardWithoutResizes(), ElementsAre("unload"));
}

TEST_F(BuiltForm, ClosesOnceWhetherByItsFrameOrByTheRules) {
    events.then = [&](const std::string& what) {
        if (what == "click mnClose") form->Unload();
    };
    const Meanwhile meanwhile(
        {[&] { EXPECT_TRUE(form->Visible()); }, [&] { Find<QAction>("mnClose").trigger(); }});
    form->ShowModal();
    EXPECT_FALSE(form->Visible());
    form->Unload();
    form->ShowModal(); // gone for good
    EXPECT_THAT(HeardWithoutResizes(), ElementsAre("click mnClose", "unload"));
}

TEST_F(BuiltForm, EachResizeIsHeardAndTheStripKeepsTheWholeWidth) {
    const auto resizes = [&] { return std::count(events.heard.begin(), events.heard.end(), "resize"); };
    ShowAndDo({[&] {
                   EXPECT_GE(resizes(), 1);
                   events.heard.clear();
                   Window().resize(100, 50); // less than there must be, and that narrower than the tool bar
               },
               [&] {
                   EXPECT_GE(resizes(), 1);
                   EXPECT_EQ(form->ScaleWidth(), 4800);
                   EXPECT_EQ(Window().height(), 240);
                   EXPECT_EQ(form->ToolbarOf("Toolbar2")->Width(), 4800);
                   const Ref<Toolbar> bar = form->ToolbarOf("Toolbar1");
                   EXPECT_GT(bar->Width(), 4800);
                   bar->Move(4800 - bar->Width(), 2);
                   EXPECT_LT(Find<QWidget>("buttonBar").x(), 0);
               }});
}

TEST_F(BuiltForm, ATitleIsShownLetterForLetter) {
    Windows& windows = *Platform::Current().windows;
    for (const char* title :
         {"مقهى الواحة [Printing]", "قائمة [*] [Printing]", "[*][*]", "a[*]b[*][*]c [*", ""}) {
        form->SetCaption(title);
        Window().winId(); // so that there is a window to bear it
        EXPECT_EQ(Window().windowHandle()->title().toStdString(), title);
        EXPECT_EQ(windows.GetWindowText(form->hWnd(), 100), title);
        EXPECT_EQ(windows.GetWindowTextLength(form->hWnd()), std::string_view(title).size());
    }
    form->SetCaption("مقهى");
    EXPECT_EQ(windows.GetWindowText(form->hWnd(), 8), "مقه") << "letters stay whole";
}

TEST_F(BuiltForm, AMinimisedWindowHasNoInnerSize) {
    ShowAndDo({[&] { form->SetState(WindowState::Minimized); },
               [&] {
                   EXPECT_EQ(form->State(), WindowState::Minimized);
                   EXPECT_EQ(form->ScaleWidth(), 0);
                   EXPECT_EQ(form->ScaleHeight(), 0);
                   form->SetState(WindowState::Maximized);
               },
               [&] {
                   EXPECT_EQ(form->State(), WindowState::Maximized);
                   EXPECT_GT(form->ScaleWidth(), 0);
               }});
}

TEST_F(BuiltForm, WhatARuleThrowsComesOutWhereTheWindowWasShown) {
    events.then = [](const std::string& what) {
        if (what == "click mnPrint") throw Failure(FailureNumber::Report, "no paper");
    };
    const Meanwhile meanwhile({[&] { Find<QAction>("mnPrint").trigger(); }, [&] { Window().close(); }});
    EXPECT_THROW(form->ShowModal(), Failure);
    EXPECT_THAT(HeardWithoutResizes(), ElementsAre("click mnPrint", "unload"));
}

TEST_F(BuiltForm, AWindowThatIsDroppedRunsNoRules) {
    EXPECT_NE(qt::Handles::Table().Find(form->hWnd()), nullptr);
    const WindowHandle handle = form->hWnd();
    form.Clear();
    EXPECT_EQ(qt::Handles::Table().Find(handle), nullptr);
    EXPECT_THAT(events.heard, Not(Contains("unload")));
}

TEST_F(BuiltForm, TwoHundredLeaveNothingBehind) {
    form.Clear();
    const auto before = QApplication::allWidgets().size();
    for (int turn = 1; turn <= 200; ++turn) {
        form = Platform::Current().forms->Load(PrintServerTable(), events);
        QTimer::singleShot(0, [this] { Window().close(); });
        form->ShowModal();
        form.Clear();
    }
    EXPECT_EQ(QApplication::allWidgets().size(), before);
    EXPECT_TRUE(qt::Handles::Table().Tops().empty());
    EXPECT_EQ(std::count(events.heard.begin(), events.heard.end(), "unload"), 200);
}

TEST_F(BuiltForm, CountsAsOpenUntilItIsClosed) {
    Windows& windows = *Platform::Current().windows;
    EXPECT_EQ(windows.DoEvents(), 1);
    form->Unload();
    EXPECT_EQ(windows.DoEvents(), 0);
}

} // namespace
} // namespace qbrpt::test
