// With whose application windows are shown, and what happens where there can be none.
#include "adapters/qt/application.h"
#include "heard_events.h"
#include "preview/print_server_table.h"
#include "window_platform.h"

#include <QtCore/QThread>
#include <QtTest/QTest>
#include <QtWidgets/QStyle>
#include <gmock/gmock.h>

namespace qbrpt::test {
namespace {

using ::testing::HasSubstr;

std::string LoadFault() {
    HeardEvents events;
    try {
        static_cast<void>(Platform::Current().forms->Load(PrintServerTable(), events));
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::Device);
        return failure.Description();
    }
    return {};
}

struct NoDisplayRow {
    const char* name;
    const char* platform; ///< QT_QPA_PLATFORM
    const char* display;
    const char* wayland;
    const char* words;
};

class NoDisplay : public ::testing::TestWithParam<NoDisplayRow> {};

TEST_P(NoDisplay, IsAFailureWithWords) {
    WindowPlatform platform(GetParam().platform);
    ::setenv("DISPLAY", GetParam().display, 1);
    ::setenv("WAYLAND_DISPLAY", GetParam().wayland, 1);
    EXPECT_THAT(LoadFault(), HasSubstr(GetParam().words));
    EXPECT_FALSE(qt::ApplicationIsThere());
    EXPECT_EQ(Platform::Current().messages->MsgBox("nothing to see", 16), BoxAnswer::Ok);
    EXPECT_EQ(platform.console.str(), "qbrpt: nothing to see\n");
    EXPECT_EQ(Platform::Current().windows->DoEvents(), 0);
    Platform::Current().windows->SleepEx(1);
    Platform::Current().screen->SetMousePointer(Pointer::Wait);
    Platform::Current().screen->Beep();
}

INSTANTIATE_TEST_SUITE_P(
    Displays, NoDisplay,
    ::testing::Values(NoDisplayRow{"None", "", "", "", "no display"},
                      NoDisplayRow{"DeadX", "", ":nonsense", "", "no display"},
                      NoDisplayRow{"DeadXAskedFor", "xcb", ":nonsense", "", "no display"},
                      NoDisplayRow{"DeadWayland", "", "", "wayland-7", "no display"},
                      NoDisplayRow{"UnknownPlatform", "fantasy", "", "", "\"fantasy\" is not installed"}),
    [](const auto& row) { return row.param.name; });

TEST(OwnApplication, IsMadeWhenAWindowNeedsIt) {
    const WindowPlatform platform;
    Platform::Current().screen->SetMousePointer(Pointer::Wait);
    EXPECT_EQ(Platform::Current().windows->DoEvents(), 0);
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    EXPECT_TRUE(qt::DisplayIsThere());
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    EXPECT_EQ(LoadFault(), "");
    EXPECT_TRUE(qt::ApplicationIsThere());
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
    EXPECT_EQ(LoadFault(), "");
}

TEST(OwnApplication, SpeaksArabicWhereQtBringsTheWords) {
    const WindowPlatform platform;
    qt::RequireApplication();
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "File &name:"), "اسم الملف:");
    EXPECT_EQ(QCoreApplication::translate("QLineEdit", "&Paste"), "لصق");
    EXPECT_EQ(QCoreApplication::translate("QLineEdit", "Of no dialog"), "Of no dialog");
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
}

TEST(OwnApplication, TakesTheFirstPlatformThatWorks) {
    const WindowPlatform platform("wayland;xcb;offscreen");
    ::unsetenv("DISPLAY");
    EXPECT_EQ(LoadFault(), "");
    EXPECT_EQ(QGuiApplication::platformName(), "offscreen");
}

/// A host with an application of its own.
class HostApplication : public ::testing::Test {
protected:
    WindowPlatform platform;
    int count = 1;
    char name[5] = "host";
    char* words[2] = {name, nullptr};
};

TEST_F(HostApplication, IsLeftAsItIs) {
    QApplication host(count, words);
    const QFont font("DejaVu Sans", 17);
    QApplication::setFont(font);
    const QString style = QApplication::style()->name();
    const QPalette palette = QApplication::palette();
    EXPECT_EQ(LoadFault(), "");
    EXPECT_EQ(QCoreApplication::instance(), &host);
    EXPECT_EQ(QApplication::font(), font);
    EXPECT_EQ(QApplication::style()->name(), style);
    EXPECT_EQ(QApplication::palette(), palette);
    EXPECT_TRUE(QGuiApplication::quitOnLastWindowClosed());
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(QCoreApplication::translate("QLineEdit", "&Paste"), "&Paste");
}

TEST_F(HostApplication, GoesOnWhenThePreviewWasItsOnlyVisibleWindow) {
    QApplication host(count, words);
    QWidget window;
    window.show();
    HeardEvents events;
    const Ref<Form> form = Platform::Current().forms->Load(PrintServerTable(), events);
    bool quit = false;
    QObject::connect(&host, &QCoreApplication::aboutToQuit, [&] { quit = true; });
    QTimer::singleShot(0, &host, [&] {
        window.hide();
        const Meanwhile meanwhile({[] { OpenForm()->close(); }});
        form->ShowModal();
        window.show();
        QTimer::singleShot(100, &host, [&] {
            EXPECT_FALSE(quit);
            QCoreApplication::exit(7);
        });
    });
    EXPECT_EQ(QCoreApplication::exec(), 7);
}

TEST_F(HostApplication, ThatEndsClosesThePreviewWithItsRules) {
    QApplication host(count, words);
    HeardEvents events;
    const Ref<Form> form = Platform::Current().forms->Load(PrintServerTable(), events);
    QTimer::singleShot(0, &host, [&] {
        const Meanwhile meanwhile({[] { QCoreApplication::exit(3); }});
        form->ShowModal();
        EXPECT_EQ(events.heard.back(), "unload");
        QCoreApplication::exit(3);
    });
    EXPECT_EQ(QCoreApplication::exec(), 3);
}

TEST_F(HostApplication, WithoutWidgetsIsAFailureWithWords) {
    const QCoreApplication host(count, words);
    EXPECT_FALSE(qt::DisplayIsThere());
    EXPECT_THAT(LoadFault(), HasSubstr("QApplication"));
    EXPECT_EQ(Platform::Current().messages->MsgBox("nothing to see", 16), BoxAnswer::Ok);
    EXPECT_THAT(platform.console.str(), HasSubstr("nothing to see"));
}

TEST_F(HostApplication, OfAnotherThreadIsAFailureWithWords) {
    const QApplication host(count, words);
    std::string fault;
    const std::unique_ptr<QThread> thread(QThread::create([&] { fault = LoadFault(); }));
    thread->start();
    thread->wait();
    EXPECT_THAT(fault, HasSubstr("thread"));
}

} // namespace
} // namespace qbrpt::test
