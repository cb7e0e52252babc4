// The preview on a real screen with a window manager, over hosts of every kind.
#include "adapters/qt/application.h"
#include "adapters/qt/button_bar.h"
#include "adapters/runtime/runtime.h"
#include "adapters/text/text_engine.h"
#include "desktop_user.h"
#include "preview/frmPrntServer.h"
#include "samples/sample_rows.h"
#include "support/owner_window.h"
#include "templates/PayOutRpt.h"
#include "tools/x_desktop.h"
#include "window_platform.h"

#include <QtTest/QTest>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <gmock/gmock.h>

#include <cstring>

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
        report = std::make_shared<PayOutRpt>();
        constexpr std::size_t severalPages = 200;
        report->Report()->SetDataSource(
            std::make_shared<fakes::FakeRecordset>(samples::Payments(severalPages)), 3);
        report->Report()->ReadRecords();
        const PrinterInfo& printer = platform.printers->printers[0];
        report->Report()->SelectPrinter(printer.driverName, printer.deviceName, printer.port);
        report->Report()->SetPaperSize(printer.paperSize);
        report->Report()->SetPaperOrientation(printer.orientation);
        hOwnerWnd = 0;
    }
    ~Desktop() override {
        frmPrntServer::Drop();
        hOwnerWnd = 0;
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

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
    }));
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
