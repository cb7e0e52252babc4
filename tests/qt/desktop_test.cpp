// The preview on a real screen with a window manager, over hosts of every kind.
#include "adapters/qt/application.h"
#include "adapters/qt/button_bar.h"
#include "adapters/qt/viewer/viewer_widget.h"
#include "adapters/runtime/runtime.h"
#include "adapters/text/text_engine.h"
#include "desktop_user.h"
#include "heard_events.h"
#include "preview/frmPrntServer.h"
#include "preview/print_server_table.h"
#include "samples/sample_rows.h"
#include "support/owner_window.h"
#include "templates/PayOutRpt.h"
#include "tools/x_desktop.h"
#include "window_platform.h"

#include <QtGui/QPixmapCache>
#include <QtTest/QTest>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace qbrpt::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct NoDelivery final : Delivery {
    void Print(ReportOutput&, const PrintJob&) override { ADD_FAILURE() << "nobody has asked for paper"; }
};

class Desktop : public ::testing::Test {
protected:
    Desktop() {
        desktop.StartManager();
        Platform::Current().messages = platform.messages; // a box that nobody expects would wait for ever
        Platform::Current().reports =
            MakeRuntime(ServicesOf(std::make_shared<text::TextEngine>(), std::make_shared<NoDelivery>()));
        constexpr std::size_t severalPages = 200;
        Fill(severalPages);
        hOwnerWnd = 0;
    }
    ~Desktop() override {
        frmPrntServer::Drop();
        hOwnerWnd = 0;
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    void Fill(std::size_t payments) {
        report = std::make_shared<PayOutRpt>();
        report->Report()->SetDataSource(std::make_shared<fakes::FakeRecordset>(samples::Payments(payments)),
                                        3);
        report->Report()->ReadRecords();
        const PrinterInfo& printer = platform.printers->printers[0];
        report->Report()->SelectPrinter(printer.driverName, printer.deviceName, printer.port);
        report->Report()->SetPaperSize(printer.paperSize);
        report->Report()->SetPaperOrientation(printer.orientation);
    }

    /// Shows the report, does `act` as soon as its window stands, and closes it.
    bool Show(const std::function<void()>& act = [] {}) {
        qt::RequireApplication();
        const Meanwhile meanwhile({[&] {
            EXPECT_TRUE(OpenForm()->isMinimized() || QTest::qWaitForWindowExposed(OpenForm()));
            act();
            if (OpenForm() != nullptr) OpenForm()->close();
        }});
        return frmPrntServer::Instance().ShowpReport(report, true);
    }
    [[nodiscard]] std::vector<std::int32_t> Normal(WindowHandle window) const {
        WindowPlace place;
        EXPECT_TRUE(Platform::Current().windows->GetWindowPlacement(window, place));
        return {place.left, place.top, place.right, place.bottom};
    }
    [[nodiscard]] std::int32_t Code(WindowHandle window) const {
        WindowPlace place;
        EXPECT_TRUE(Platform::Current().windows->GetWindowPlacement(window, place));
        return place.showCmd;
    }
    static qt::ViewerWidget& Viewer() {
        for (QWidget* part : OpenForm()->findChildren<QWidget*>())
            if (auto* viewer = dynamic_cast<qt::ViewerWidget*>(part)) return *viewer;
        throw Failure(FailureNumber::ObjectNotSet, "the form has no viewer");
    }
    static WindowHandle Me() { return qt::Handles::Table().HandleOf(OpenForm()); }

    XDesktop desktop;
    WindowPlatform platform{""};
    Ref<PayOutRpt> report;
};

TEST_F(Desktop, WithoutAHostThePreviewOpensCentred) {
    EXPECT_TRUE(Show([&] {
        EXPECT_EQ(OpenForm()->windowTitle(), "طباعة");
        const std::vector<std::int32_t> place = Normal(Me());
        EXPECT_NEAR((place[0] + place[2]) / 2, 512, 12);
        EXPECT_NEAR((place[1] + place[3]) / 2, 384, 24);
        EXPECT_TRUE(Waits([] { return OpenForm()->isActiveWindow(); }));
    }));
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

/// A host whose window no toolkit of ours knows.
class ForeignHost : public Desktop {
protected:
    ForeignHost() {
        host.SetText("_NET_WM_NAME", "UTF8_STRING", "مقهى نسمة");
        host.SetNumbers("_NET_WM_ICON", {1, 1, 0xFF336699});
        host.Show();
        EXPECT_TRUE(Soon([&] {
            host.Activate();
            return Platform::Current().windows->GetForegroundWindow() == host.Id();
        }));
        hOwnerWnd = host.Id();
    }
    XWindow host{desktop.Connection()};
};

TEST_F(ForeignHost, GivesItsPlaceTitleAndIconAndComesBack) {
    const std::vector<std::int32_t> place = Normal(host.Id());
    for (int turn = 1; turn <= 2; ++turn) {
        EXPECT_TRUE(Show([&] {
            EXPECT_EQ(OpenForm()->windowTitle(), "مقهى نسمة [Printing]");
            EXPECT_EQ(OpenForm()->windowIcon().pixmap(1, 1).toImage().pixel(0, 0), 0xFF336699U);
            EXPECT_TRUE(Waits([&] { return Normal(Me()) == place; }))
                << ::testing::PrintToString(Normal(Me())) << ::testing::PrintToString(place);
            EXPECT_FALSE(host.Viewable());
            EXPECT_TRUE(Waits([] { return OpenForm()->isActiveWindow(); }));
        })) << turn;
        EXPECT_TRUE(Soon([&] { return host.Viewable() && Normal(host.Id()) == place; })) << turn;
        EXPECT_TRUE(Soon([&] { return Platform::Current().windows->GetForegroundWindow() == host.Id(); }));
    }
}

TEST_F(ForeignHost, LeavesItsPlaceInTheRegistry) {
    const std::vector<std::int32_t> place = Normal(host.Id());
    EXPECT_TRUE(Show([&] { EXPECT_TRUE(Waits([&] { return Normal(Me()) == place; })); }));
    ASSERT_EQ(platform.registry->values.size(), 1U);
    const auto& bytes = platform.registry->values.begin()->second;
    WindowPlace saved;
    ASSERT_EQ(bytes.size(), sizeof saved);
    std::memcpy(&saved, bytes.data(), sizeof saved);
    EXPECT_EQ(saved.length, 44);
    EXPECT_EQ(saved.showCmd, PlaceCode::Normal);
    EXPECT_THAT(place, ElementsAre(saved.left, saved.top, saved.right, saved.bottom));
}

TEST_F(ForeignHost, MaximisedGetsAMaximisedPreview) {
    host.Maximise();
    ASSERT_TRUE(Soon([&] { return Code(host.Id()) == PlaceCode::Maximised; }));
    EXPECT_TRUE(Show([&] {
        EXPECT_TRUE(Waits([&] { return OpenForm()->width() == 1024; }));
        EXPECT_EQ(Code(Me()), PlaceCode::Maximised);
    }));
    EXPECT_TRUE(Soon([&] { return host.Viewable() && Code(host.Id()) == PlaceCode::Maximised; }));
}

TEST_F(ForeignHost, MinimisedGetsAMinimisedPreview) {
    host.Minimise();
    ASSERT_TRUE(Soon([&] { return Code(host.Id()) == PlaceCode::Minimised; }));
    EXPECT_TRUE(Show([&] {
        EXPECT_EQ(Code(Me()), PlaceCode::Minimised);
        QTest::qWait(200);
        EXPECT_EQ(Code(Me()), PlaceCode::Minimised) << "activation must not bring it back";
        OpenForm()->showNormal();
        EXPECT_TRUE(Waits([] { return OpenForm()->isActiveWindow(); }));
    }));
    EXPECT_TRUE(Soon([&] { return Code(host.Id()) == PlaceCode::Minimised; }));
}

TEST_F(ForeignHost, ThatIsGoneLeavesAWindowThatCanBeUsed) {
    static_cast<void>(Normal(host.Id()));
    host.Destroy();
    ASSERT_TRUE(Soon([&] { return !host.Viewable(); }));
    EXPECT_TRUE(Show([&] {
        EXPECT_EQ(OpenForm()->windowTitle(), "Printing");
        EXPECT_EQ(OpenForm()->size(), QSize(320, 240));
        ASSERT_TRUE(Waits([] { return OpenForm()->isActiveWindow(); }));
        const auto* close = OpenForm()->findChild<qt::BarButton*>("close");
        EXPECT_TRUE(OpenForm()->rect().contains(close->mapTo(OpenForm(), close->rect().center())));
        UserClicks(*close);
        EXPECT_TRUE(Waits([] { return OpenForm() == nullptr; }));
    }));
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(ForeignHost, ThatIsGoneTakesItsFrameWithIt) {
    static_cast<void>(Normal(host.Id()));
    ASSERT_NE(XSession().Numbers(host.Id(), "_NET_FRAME_EXTENTS", XCB_ATOM_CARDINAL, 4),
              (std::vector<std::uint32_t>{0, 0, 0, 0}));
    host.Destroy();
    ASSERT_TRUE(Soon([&] { return !host.Viewable(); }));
    WindowPlace place;
    EXPECT_FALSE(Platform::Current().windows->GetWindowPlacement(host.Id(), place));
    HeardEvents events;
    const Ref<Form> form = Platform::Current().forms->Load(PrintServerTable(), events);
    Platform::Current().windows->MoveWindow(form->hWnd(), 10, 20, 600, 400);
    EXPECT_EQ(qt::Handles::Table().Find(form->hWnd())->widget->geometry(), QRect(10, 20, 600, 400));
}

/// A screen of more pixels to the twip than the rules count with.
class SharpScreen : public ForeignHost {
protected:
    SharpScreen() { ::setenv("QT_SCALE_FACTOR", "2", 1); } // before Qt looks
    ~SharpScreen() override { ::unsetenv("QT_SCALE_FACTOR"); }
    SharpScreen(const SharpScreen&) = delete;
    SharpScreen& operator=(const SharpScreen&) = delete;
};

TEST_F(SharpScreen, TheFirstResizeMovesThePreviewAwayFromItsHost) {
    Platform::Current().windows->MoveWindow(host.Id(), 100, 60, 700, 520);
    ASSERT_TRUE(Soon([&] { return Normal(host.Id()) == std::vector<std::int32_t>{100, 60, 800, 580}; }));
    EXPECT_TRUE(Show([&] {
        // Twice as far from the corner, give or take its frame.
        const auto near = [](std::int32_t place, std::int32_t told) { return std::abs(place - told) < 30; };
        EXPECT_TRUE(Waits([&] { return near(Normal(Me())[0], 200) && near(Normal(Me())[1], 120); }))
            << ::testing::PrintToString(Normal(Me()));
        EXPECT_EQ(Normal(Me())[2] - Normal(Me())[0], 700) << "its size is the host's";
        EXPECT_EQ(Normal(Me())[3] - Normal(Me())[1], 520);
    }));
}

TEST_F(ForeignHost, HasBoxesStandOverIt) {
    qt::RequireApplication();
    std::uint32_t owner = 0;
    const Meanwhile meanwhile({[&] {
        QWidget* box = QApplication::activeModalWidget();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(box));
        owner = Platform::Current().windows->GetParent(static_cast<WindowHandle>(box->winId()));
        User({"key", "Escape"});
    }});
    static_cast<void>(qt::QtBoxes(platform.console, BoxAnswer::Cancel).MsgBox("لا توجد بيانات للطباعة.", 16));
    EXPECT_EQ(owner, host.Id());
    EXPECT_TRUE(Soon([&] { return host.Viewable(); }));
}

TEST_F(ForeignHost, UsersKeysAndClicksReachThePreview) {
    EXPECT_TRUE(Show([&] {
        ASSERT_TRUE(Waits([] { return OpenForm()->isActiveWindow(); }));
        const auto* back = OpenForm()->findChild<QAction*>("mnPrevPage");
        EXPECT_FALSE(back->isEnabled());
        User({"key", "ctrl+n"});
        EXPECT_TRUE(Waits([&] { return back->isEnabled(); }));
        const auto* close = OpenForm()->findChild<qt::BarButton*>("close");
        const QPoint middle = close->mapToGlobal(close->rect().center());
        User({"mousemove", "--sync", std::to_string(middle.x()), std::to_string(middle.y()), "click", "1"});
        EXPECT_TRUE(Waits([] { return OpenForm() == nullptr; }));
    }));
    EXPECT_TRUE(Soon([&] { return host.Viewable(); }));
}

TEST_F(Desktop, ThePagesTellMenuAndButtonsOfTheirMoves) {
    EXPECT_TRUE(Show([&] {
        ASSERT_TRUE(Waits([] { return OpenForm()->isActiveWindow(); }));
        const auto enabled = [](const char* item) {
            return OpenForm()->findChild<QAction*>(item)->isEnabled();
        };
        EXPECT_TRUE(enabled("mnLastPage"));
        User({"key", "ctrl+End"}); // a key of the viewer's own, which has the focus
        EXPECT_TRUE(Waits([&] { return !enabled("mnLastPage") && enabled("mnFirstPage"); }));
        EXPECT_FALSE(OpenForm()->findChild<qt::BarButton*>("last")->isEnabled());

        const QPoint pages = OpenForm()->mapToGlobal(OpenForm()->rect().center());
        User({"mousemove", "--sync", std::to_string(pages.x()), std::to_string(pages.y())});
        User({"keydown", "ctrl", "click", "4", "keyup", "ctrl"}); // the wheel away from the user
        EXPECT_TRUE(Waits([&] { return !enabled("mnZoom200") && enabled("mnZoom100"); }));
        Viewer().Run(viewer::ViewerCommand::FullSize);
        EXPECT_FALSE(enabled("mnZoom100"));
        EXPECT_TRUE(enabled("mnZoom200"));
        EXPECT_EQ(Viewer().Desk().Zoom(), 100);
    }));
}

TEST_F(Desktop, ACommandThatComesDuringAWaitIsDropped) {
    EXPECT_TRUE(Show([&] {
        auto* next = OpenForm()->findChild<QAction*>("mnNextPage");
        int nested = 0;
        QTimer::singleShot(0, next, [&] {
            ++nested;
            next->trigger();
        });
        next->trigger();
        EXPECT_EQ(nested, 1) << "a wait lets events through";
        EXPECT_EQ(Viewer().Desk().CurrentPage(), 1);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        next->trigger();
        EXPECT_EQ(Viewer().Desk().CurrentPage(), 2);
    }));
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

/// A host that Qt has made.
class QtHost : public Desktop {
protected:
    QtHost() {
        qt::RequireApplication();
        host = std::make_unique<QWidget>();
        host->setWindowTitle("مقهى الواحة");
        host->setGeometry(200, 150, 500, 330);
        host->show();
        host->activateWindow();
        EXPECT_TRUE(
            Waits([&] { return Platform::Current().windows->GetForegroundWindow() == host->winId(); }));
        hOwnerWnd = static_cast<WindowHandle>(host->winId());
    }
    std::unique_ptr<QWidget> host;
};

TEST_F(QtHost, IsHiddenAndComesBackWhereItStood) {
    const std::vector<std::int32_t> place = Normal(hOwnerWnd);
    for (int turn = 1; turn <= 3; ++turn) {
        EXPECT_TRUE(Show([&] {
            EXPECT_FALSE(host->isVisible());
            EXPECT_EQ(OpenForm()->windowTitle(), "مقهى الواحة [Printing]");
            EXPECT_TRUE(Waits([&] { return Normal(Me()) == place; }))
                << ::testing::PrintToString(Normal(Me())) << ::testing::PrintToString(place);
        }));
        EXPECT_TRUE(host->isVisible()) << turn;
        EXPECT_TRUE(Waits([&] { return Normal(hOwnerWnd) == place; }))
            << turn << ::testing::PrintToString(Normal(hOwnerWnd)) << ::testing::PrintToString(place);
        EXPECT_TRUE(Waits([&] { return host->isActiveWindow(); })) << turn;
    }
}

/// Of this process, in kilobytes.
long MemoryInUse() {
    std::ifstream memory("/proc/self/statm");
    long all = 0;
    long resident = 0;
    memory >> all >> resident;
    return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

TEST_F(QtHost, TwoHundredPreviewsLeaveNothingBehind) {
    Fill(3);
    const auto turns = [&](int count) {
        for (int turn = 0; turn < count; ++turn) {
            QTimer closing; // a wait before the window stands lets events through, too
            QObject::connect(&closing, &QTimer::timeout, qApp, [] {
                if (OpenForm() != nullptr) OpenForm()->close();
            });
            closing.start(1);
            EXPECT_TRUE(frmPrntServer::Instance().ShowpReport(report, true));
            frmPrntServer::Drop();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    QPixmapCache::setCacheLimit(0); // Qt keeps scaled icons, up to a limit of its own
    turns(40);                      // what is kept for good is there by now
    const auto widgets = QApplication::allWidgets().size();
    const auto windows = QGuiApplication::allWindows().size();
    const long before = MemoryInUse();
    turns(160);
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
    EXPECT_TRUE(qt::Handles::Table().Tops().empty());
    EXPECT_TRUE(host->isVisible());
#ifdef __SANITIZE_ADDRESS__ // which keeps what is freed for a while
    constexpr long most = 512L * 1024;
#else
    constexpr long most = 1024;
#endif
    EXPECT_LT(MemoryInUse() - before, most);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(QtHost, MaximisedGetsAMaximisedPreviewOfItsOwnNormalSize) {
    const std::vector<std::int32_t> place = Normal(hOwnerWnd);
    host->showMaximized();
    ASSERT_TRUE(Waits([&] { return host->width() == 1024; }));
    EXPECT_TRUE(Show([&] {
        EXPECT_TRUE(Waits([&] { return OpenForm()->width() == 1024; }));
        // Qt loses sight of a window that changes twice before the window manager has answered once: then the
        // user asks again.
        EXPECT_TRUE(Waits([] { return OpenForm()->isActiveWindow(); }));
        const auto taken = [&] { return Normal(Me())[2] - Normal(Me())[0] == place[2] - place[0]; };
        for (int turn = 0; turn < 5 && !taken(); ++turn) {
            OpenForm()->showMaximized();
            QTest::qWait(300);
            OpenForm()->showNormal();
            QTest::qWait(700);
        }
        EXPECT_TRUE(taken()) << ::testing::PrintToString(Normal(Me())) << ::testing::PrintToString(place);
    }));
    EXPECT_TRUE(Waits([&] { return host->isVisible() && host->isMaximized() && host->width() == 1024; }));
}

} // namespace
} // namespace qbrpt::test
