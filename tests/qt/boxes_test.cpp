// Message boxes of every style, answered by keyboard.
#include "adapters/qt/application.h"
#include "heard_events.h"
#include "preview/print_server_table.h"
#include "window_platform.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <gmock/gmock.h>

namespace qbrpt::test {
namespace {

constexpr int NoData = 1573120; // right to left, second button, as the system's "no rows" box has it

QMessageBox* OpenBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

struct BoxRow {
    const char* name;
    int style;
    std::vector<Qt::Key> keys; ///< pressed one after the other
    BoxAnswer answer;
    const char* buttons; ///< from the right
    const char* chosen;  ///< answers to the enter key
    bool icon;
};

class Boxes : public ::testing::TestWithParam<BoxRow> {};

TEST_P(Boxes, LookAndAnswerAsTheirStyleSays) {
    const BoxRow& row = GetParam();
    const WindowPlatform platform;
    QStringList buttons;
    QString chosen;
    QString title;
    bool icon = false;
    std::vector<Meanwhile::Step> steps = {[&] {
        QMessageBox& box = *OpenBox();
        QList<QPushButton*> shown = box.findChildren<QPushButton*>();
        std::sort(shown.begin(), shown.end(), [&](auto* a, auto* b) { return a->x() > b->x(); });
        for (const QPushButton* button : shown)
            buttons += button->text();
        chosen = box.defaultButton()->text();
        icon = !box.iconPixmap().isNull();
        title = box.windowTitle();
        EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
        EXPECT_TRUE(box.isModal());
    }};
    for (const Qt::Key key : row.keys)
        steps.push_back([key] { QTest::keyClick(OpenBox()->focusWidget(), key); });
    qt::RequireApplication();
    const Meanwhile meanwhile(std::move(steps));
    EXPECT_EQ(Platform::Current().messages->MsgBox("لا توجد بيانات", row.style), row.answer);
    EXPECT_EQ(buttons.join(" | "), row.buttons);
    EXPECT_EQ(chosen, row.chosen);
    EXPECT_EQ(icon, row.icon);
    EXPECT_EQ(title, "qbrpt");
}

INSTANTIATE_TEST_SUITE_P(
    Styles, Boxes,
    ::testing::Values(
        BoxRow{"Plain", 0, {Qt::Key_Return}, BoxAnswer::Ok, "موافق", "موافق", false},
        BoxRow{"PlainLeft", 0, {Qt::Key_Escape}, BoxAnswer::Ok, "موافق", "موافق", false},
        BoxRow{"Critical", 16, {Qt::Key_Space}, BoxAnswer::Ok, "موافق", "موافق", true},
        BoxRow{"Retried",
               21,
               {Qt::Key_Return},
               BoxAnswer::Retry,
               "إعادة المحاولة | إلغاء الأمر",
               "إعادة المحاولة",
               true},
        BoxRow{"Cancelled",
               21,
               {Qt::Key_Escape},
               BoxAnswer::Cancel,
               "إعادة المحاولة | إلغاء الأمر",
               "إعادة المحاولة",
               true},
        BoxRow{"CancelledByTab",
               21,
               {Qt::Key_Tab, Qt::Key_Return},
               BoxAnswer::Cancel,
               "إعادة المحاولة | إلغاء الأمر",
               "إعادة المحاولة",
               true},
        BoxRow{"SecondButtonOfOne", NoData, {Qt::Key_Return}, BoxAnswer::Ok, "موافق", "موافق", false},
        BoxRow{"SecondButton", 0x104 + 0x20, {Qt::Key_Return}, BoxAnswer::No, "نعم | لا", "لا", true},
        BoxRow{"OkOrCancel", 1, {Qt::Key_Escape}, BoxAnswer::Cancel, "موافق | إلغاء الأمر", "موافق", false},
        BoxRow{"ThirdButton",
               0x203 + 0x30,
               {Qt::Key_Return},
               BoxAnswer::Cancel,
               "نعم | لا | إلغاء الأمر",
               "إلغاء الأمر",
               true},
        BoxRow{"Ignored",
               2,
               {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return},
               BoxAnswer::Ignore,
               "إحباط | إعادة المحاولة | تجاهل",
               "إحباط",
               false}),
    [](const auto& row) { return row.param.name; });

class Box : public ::testing::Test {
protected:
    Box() { qt::RequireApplication(); }
    WindowPlatform platform;
};

TEST_F(Box, ShowsItsLinesAndTitleInTheirOwnOrder) {
    QString text;
    QString title;
    const Meanwhile meanwhile({[&] {
        text = OpenBox()->text();
        title = OpenBox()->windowTitle();
        OpenBox()->reject();
    }});
    EXPECT_EQ(Platform::Current().messages->MsgBox("LoadLastPos\r\nno place\rلا مكان", 16, "AlignToPrinter"),
              BoxAnswer::Ok);
    text.remove(QChar(0x2066)).remove(QChar(0x2069));
    EXPECT_EQ(text, "LoadLastPos\nno place\nلا مكان");
    EXPECT_EQ(title, "AlignToPrinter");
}

TEST_F(Box, ShowsALongTextWhole) {
    const std::string path = "/home/cafe/reports/2025/march/income-of-the-month-of-march-final-version-2.pdf";
    const Meanwhile meanwhile({[&] {
        const auto* words = OpenBox()->findChild<QLabel*>("qt_msgbox_label");
        EXPECT_LE(words->heightForWidth(words->width()), words->height());
        EXPECT_LE(words->minimumSizeHint().width(), words->width());
        EXPECT_TRUE(OpenBox()->rect().contains(words->geometry()));
        QTest::keyClick(OpenBox(), Qt::Key_Escape);
    }});
    static_cast<void>(Platform::Current().messages->MsgBox(
        "The file " + path +
            " could not be written because the disk is full; make room and try once more.\n" + path + path +
            path,
        16));
}

TEST_F(Box, StandsOverTheOpenForm) {
    HeardEvents events;
    const Ref<Form> form = Platform::Current().forms->Load(PrintServerTable(), events);
    events.then = [](const std::string& what) {
        if (what == "click mnPrint") static_cast<void>(Platform::Current().messages->MsgBox("box", 16));
    };
    const QWidget* parent = nullptr;
    const Meanwhile meanwhile({[] { OpenForm()->findChild<QAction*>("mnPrint")->trigger(); },
                               [&] {
                                   parent = OpenBox()->parentWidget();
                                   OpenBox()->reject();
                               },
                               [] { OpenForm()->close(); }});
    form->ShowModal();
    EXPECT_NE(dynamic_cast<const qt::FormWindow*>(parent), nullptr);
}

TEST_F(Box, HasTheUsualPointerWhileSomethingIsWaitedFor) {
    Screen& screen = *Platform::Current().screen;
    screen.SetMousePointer(Pointer::Wait);
    Qt::CursorShape over = Qt::BlankCursor;
    const Meanwhile meanwhile({[&] {
        over = QGuiApplication::overrideCursor()->shape();
        OpenBox()->reject();
    }});
    static_cast<void>(Platform::Current().messages->MsgBox("box", 16));
    EXPECT_EQ(over, Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    screen.SetMousePointer(Pointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Box, PointersNeverPileUp) {
    Screen& screen = *Platform::Current().screen;
    screen.SetMousePointer(Pointer::Wait);
    screen.SetMousePointer(Pointer::Wait);
    screen.SetMousePointer(Pointer::ArrowHourglass);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
    screen.SetMousePointer(Pointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    screen.SetMousePointer(Pointer::Default);
    screen.Beep();
}

TEST_F(Box, AHostsOwnPointerComesBack) {
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    Screen& screen = *Platform::Current().screen;
    screen.SetMousePointer(Pointer::Default); // which was not ours to take away
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    screen.SetMousePointer(Pointer::Wait);
    screen.SetMousePointer(Pointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
}

} // namespace
} // namespace qbrpt::test
