// The viewer as its window and its reader use it.
#include "many_rows.h"
#include "viewer_fixture.h"

#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <gmock/gmock.h>

#include <array>

namespace qbrpt {
namespace {

using testing::HasSubstr;

constexpr std::size_t RowsOfSomePages = 400;

class ViewerTests : public Viewers {
protected:
    void ViewPayments(std::size_t rows = RowsOfSomePages, bool arabic = true) {
        View(Filled("PayOutRpt", NamedPayments(rows)), arabic);
    }
    /// A report whose rows must all be measured, which takes a while.
    Ref<CrystalRuntime::Report> LongReport(std::size_t payments = 1'200'000) {
        const auto report = NewReport("PayOutRpt");
        const auto data = std::make_shared<fakes::FakeRecordset>(std::vector<fakes::Row>{});
        manyRows = std::make_shared<RepeatedRows>(NamedPayments(500), payments);
        data->rows = manyRows;
        report->SetDataSource(data, 3);
        report->ReadRecords();
        return report;
    }
    [[nodiscard]] std::int32_t Pages() const { return Desk().PageCount(); }
    [[nodiscard]] std::int32_t Page() const { return port->GetCurrentPageNumber(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(&viewer->Desk(), key, modifiers);
    }
    void Turn(int notches, Qt::KeyboardModifiers modifiers) const {
        const QPointF place(300, 300);
        QWheelEvent event(place, Viewport()->mapToGlobal(place), {}, {0, notches * 120}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Viewport(), &event);
    }
    void Drag(QPoint from, QPoint to, Qt::MouseButton button) const {
        QTest::mousePress(Viewport(), button, {}, from);
        const QPoint middle = (from + to) / 2;
        for (const QPoint place : {middle, to}) {
            QMouseEvent event(QEvent::MouseMove, place, Viewport()->mapToGlobal(place), Qt::NoButton, button,
                              Qt::NoModifier);
            QApplication::sendEvent(Viewport(), &event);
        }
        QTest::mouseRelease(Viewport(), button, {}, to);
    }
    /// The user presses escape as soon as the report is read.
    void WillEscape() const {
        QApplication::postEvent(viewer.get(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    }

    std::shared_ptr<RepeatedRows> manyRows; ///< of the long report
};

TEST_F(ViewerTests, TellsPrinterAndPagesAndIsReadyAtOnce) {
    const auto report = Filled("PayOutRpt", NamedPayments(RowsOfSomePages));
    ViewPayments();
    EXPECT_EQ(Pages(), report->NumberOfPages());
    EXPECT_GT(Pages(), 5);
    EXPECT_FALSE(port->IsBusy());
    EXPECT_EQ(Page(), 1);
}

TEST_F(ViewerTests, PagesThatAreAskedForAreShown) {
    ViewPayments();
    struct Row {
        const char* name;
        int asked;
        int shown; ///< 0: the last
    };
    const Row rows[] = {{"second", 2, 2},
                        {"first", 1, 1},
                        {"last", Pages(), 0},
                        {"none", 0, 1},
                        {"before the first", -7, 1},
                        {"behind the last", 32000, 0}};
    constexpr std::array<std::int16_t, 4> zooms = {100, 25, 400, 50};
    for (const std::int16_t zoom : zooms)
        for (const Row& row : rows) {
            port->Zoom(zoom);
            port->ShowNthPage(static_cast<std::int16_t>(row.asked));
            EXPECT_EQ(Page(), row.shown == 0 ? Pages() : row.shown) << row.name << " at " << zoom;
        }
    EXPECT_EQ(pageChanges, 0) << "the window knows what it asked for";
}

TEST_F(ViewerTests, AZoomKeepsTheMiddleOfTheView) {
    ViewPayments();
    port->ShowNthPage(4);
    const auto middle = [this] {
        return Desk().Layout().PointAt(Desk().Left() + Desk().Layout().ViewWidth() / 2,
                                       Desk().Top() + Desk().Layout().ViewHeight() / 2);
    };
    const viewer::PagePoint before = middle();
    constexpr std::array<std::int16_t, 5> levels = {200, 400, 100, 50, 100};
    for (const std::int16_t level : levels) {
        port->Zoom(level);
        EXPECT_EQ(Desk().Zoom(), level);
        EXPECT_EQ(middle().page, before.page) << level;
        EXPECT_NEAR(middle().down, before.down, 0.01) << level;
        EXPECT_NEAR(middle().across, before.across, 0.01) << level;
    }
}

TEST_F(ViewerTests, KeysGoThroughTheReport) {
    ViewPayments();
    Press(Qt::Key_PageDown);
    Wait();
    const viewer::Pixels screen = Desk().Top();
    EXPECT_NEAR(static_cast<double>(screen), Viewport()->height(), 100);
    Press(Qt::Key_PageUp);
    Wait();
    EXPECT_EQ(Desk().Top(), 0);
    Press(Qt::Key_Down);
    Wait();
    EXPECT_GT(Desk().Top(), 0);
    EXPECT_LT(Desk().Top(), screen);
    Press(Qt::Key_End);
    EXPECT_EQ(Page(), Pages());
    EXPECT_GT(pageChanges, 0);
    pageChanges = 0;
    Press(Qt::Key_Home);
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(pageChanges, 1);
    Press(Qt::Key_PageDown); // two at once add up
    Press(Qt::Key_PageDown);
    Wait();
    EXPECT_EQ(Desk().Top(), 2 * screen);
}

TEST_F(ViewerTests, TheWheelScrollsAndWithCtrlAsksForAnotherZoom) {
    ViewPayments();
    std::vector<bool> steps;
    viewer->zoomStep = [&](bool in) { steps.push_back(in); };
    Turn(-3, Qt::NoModifier);
    Wait();
    EXPECT_GT(Desk().Top(), 200);
    const viewer::Pixels top = Desk().Top();
    Turn(1, Qt::ControlModifier);
    Turn(-2, Qt::ControlModifier);
    EXPECT_EQ(steps, (std::vector<bool>{true, false, false}));
    EXPECT_EQ(Desk().Top(), top);
    EXPECT_EQ(Desk().Zoom(), 100) << "the window's levels hold";
}

TEST_F(ViewerTests, TheMiddleButtonPans) {
    ViewPayments();
    port->Zoom(400);
    const viewer::Pixels top = Desk().Top();
    const viewer::Pixels left = Desk().Left();
    Drag({500, 500}, {450, 420}, Qt::MiddleButton);
    EXPECT_EQ(Desk().Top() - top, 80);
    EXPECT_EQ(Desk().Left() - left, 50);
}

TEST_F(ViewerTests, TheScrollBarStandsWhereReadingEnds) {
    ViewPayments(RowsOfSomePages, true);
    EXPECT_EQ(viewer->layoutDirection(), Qt::RightToLeft);
    EXPECT_LT(Desk().verticalScrollBar()->mapTo(viewer.get(), QPoint()).x(), 10);
    ViewPayments(RowsOfSomePages, false);
    EXPECT_GT(Desk().verticalScrollBar()->mapTo(viewer.get(), QPoint()).x(), 900);
    Desk().verticalScrollBar()->setValue(Desk().verticalScrollBar()->maximum());
    EXPECT_EQ(Page(), Pages());
    EXPECT_EQ(pageChanges, 1);
}

TEST_F(ViewerTests, SelectedWordsAreCopiedLetterForLetter) {
    ViewPayments(12);
    const auto& layout = Desk().Layout();
    viewer::PageStore store(Filled("PayOutRpt", NamedPayments(12)));
    const auto page = store.At(0);
    const auto placeOf = [&](std::string_view text, bool atRight) {
        for (const viewer::PageWord& word : page->Reading().Words()) {
            if (word.text != text) continue;
            const viewer::DeskRect sheet = layout.PageRect(0);
            const double x = (atRight ? word.box.right - 20 : word.box.left + 20) * layout.PixelsPerTwip();
            const double y = word.item->y * layout.PixelsPerTwip() - 3;
            return QPoint(static_cast<int>(static_cast<double>(sheet.x - Desk().Left()) + x),
                          static_cast<int>(static_cast<double>(sheet.y - Desk().Top()) + y));
        }
        ADD_FAILURE() << text << " is not on the page";
        return QPoint();
    };
    QApplication::clipboard()->clear();
    viewer->Run(viewer::ViewerCommand::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "") << "nothing selected";
    Drag(placeOf("فاتورة", true), placeOf("123.00", false), Qt::LeftButton);
    viewer->Run(viewer::ViewerCommand::Copy);
    const std::string copied = "فاتورة كهرباء أحمد\t337.00\n01/03/2025 08:52\tورق طباعة 1\t123.00";
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), copied);
    Drag(placeOf("123.00", false), placeOf("فاتورة", true), Qt::LeftButton);
    EXPECT_EQ(Desk().SelectedText().toStdString(), copied) << "drawn backwards";
    QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, placeOf("كهرباء", true));
    EXPECT_EQ(Desk().SelectedText().toStdString(), "كهرباء");
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, placeOf("كهرباء", true));
    EXPECT_FALSE(Desk().HasSelection()) << "a click selects nothing";
}

TEST_F(ViewerTests, TheMenuSpeaksTheLanguageOfTheWindow) {
    struct Row {
        const char* name;
        bool arabic;
        std::vector<std::string> texts;
    };
    const Row rows[] = {
        {"Arabic",
         true,
         {"بحث…", "نسخ", "", "ملاءمة عرض الصفحة", "ملاءمة الصفحة كاملة", "الحجم الطبيعي \u2066100 %\u2069",
          "", "الانتقال إلى صفحة…", "", "حفظ باسم"}},
        {"English",
         false,
         {"Find…", "Copy", "", "Fit Width", "Fit Page", "Normal Size 100 %", "", "Go to Page…", "",
          "Save As"}},
    };
    for (const Row& row : rows) {
        ViewPayments(5, row.arabic);
        std::vector<std::string> texts;
        int dressed = 0;
        viewer->dressMenu = [&](QMenu& menu) {
            if (++dressed > 1) return;
            EXPECT_EQ(menu.layoutDirection(), row.arabic ? Qt::RightToLeft : Qt::LeftToRight);
            for (const QAction* action : menu.actions())
                texts.push_back(action->text().toStdString());
            EXPECT_FALSE(menu.actions().at(1)->isEnabled()) << "nothing is selected";
            QTimer::singleShot(0, [] { QApplication::activePopupWidget()->close(); });
        };
        QContextMenuEvent event(QContextMenuEvent::Mouse, {300, 300},
                                Viewport()->mapToGlobal(QPoint(300, 300)));
        QApplication::sendEvent(Viewport(), &event);
        EXPECT_EQ(texts, row.texts) << row.name;
        EXPECT_EQ(dressed, 2) << "the menu and the one inside it";
    }
}

TEST_F(ViewerTests, ThePageNumberShowsForAMomentWhilePagesPassBy) {
    ViewPayments();
    const auto* tip = Viewport()->findChild<QLabel*>();
    EXPECT_FALSE(tip->isVisible());
    Desk().verticalScrollBar()->setValue(Desk().verticalScrollBar()->maximum());
    EXPECT_TRUE(tip->isVisible());
    EXPECT_EQ(tip->text(), QString("صفحة %1 من %1").arg(Pages()));
    EXPECT_LT(tip->x(), 20) << "beside the scroll bar";
    EXPECT_GT(tip->y(), Viewport()->height() / 2);
    Turn(1000, Qt::NoModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tip->text() == QString("صفحة 1 من %1").arg(Pages()); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tip->y() < 20; })) << "it goes with the view";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !tip->isVisible(); }, 3000));
    Turn(-1, Qt::NoModifier);
    EXPECT_TRUE(tip->isVisible());
    ViewPayments(3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !tip->isVisible(); }, 3000));
    Turn(-1, Qt::NoModifier);
    EXPECT_FALSE(tip->isVisible()) << "there is no other page";
}

TEST_F(ViewerTests, AFitThatTakesAnotherPageTellsSo) {
    ViewPayments();
    port->Zoom(25); // the first page, and the next below it in the middle of the view
    ASSERT_EQ(Page(), 1);
    viewer->Run(viewer::ViewerCommand::FitWidth);
    EXPECT_EQ(Page(), 2);
    EXPECT_EQ(pageChanges, 1);
    viewer->Run(viewer::ViewerCommand::FitPage);
    EXPECT_EQ(Page(), 2);
    EXPECT_EQ(pageChanges, 1);
}

TEST_F(ViewerTests, AFullSizeIsTheWindowsToGive) {
    ViewPayments();
    int asked = 0;
    viewer->fullSize = [&] { ++asked; };
    port->Zoom(200);
    viewer->Run(viewer::ViewerCommand::FullSize);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Desk().Zoom(), 200);
}

TEST_F(ViewerTests, AsksForThePageToGoTo) {
    ViewPayments();
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->okButtonText(), "موافق");
        dialog->setIntValue(7);
        dialog->accept();
    });
    viewer->Run(viewer::ViewerCommand::GoToPage);
    EXPECT_EQ(Page(), 7);
    EXPECT_EQ(pageChanges, 1);
}

TEST_F(ViewerTests, TellsScreenReadersWhereTheReaderIs) {
    ViewPayments();
    EXPECT_EQ(Desk().accessibleName(), "صفحات التقرير");
    port->ShowNthPage(2);
    EXPECT_EQ(Desk().accessibleDescription(), QString("صفحة 2 من %1").arg(Pages()));
}

TEST_F(ViewerTests, FitsFollowTheView) {
    ViewPayments();
    viewer->fullSize = [this] { port->Zoom(100); };
    viewer->Run(viewer::ViewerCommand::FitWidth);
    EXPECT_EQ(Desk().Layout().Width(), Viewport()->width());
    viewer->resize(700, 800);
    QApplication::processEvents();
    EXPECT_EQ(Desk().Layout().Width(), Viewport()->width());
    viewer->Run(viewer::ViewerCommand::FitPage);
    EXPECT_LE(Desk().Layout().PageRect(0).height, Viewport()->height());
    EXPECT_LE(Desk().Layout().Width(), Viewport()->width());
    viewer->Run(viewer::ViewerCommand::FullSize);
    EXPECT_EQ(Desk().Zoom(), 100);
    viewer->resize(900, 800);
    QApplication::processEvents();
    EXPECT_EQ(Desk().Zoom(), 100);
}

TEST_F(ViewerTests, ARefreshShowsWhatChangedAndKeepsThePage) {
    const auto report = Filled("PayOutRpt", NamedPayments(RowsOfSomePages));
    View(report);
    bool busy = false;
    viewer->pageChanged = [&] {
        ++pageChanges;
        busy = busy || port->IsBusy();
    };
    port->ShowNthPage(3);
    const std::int32_t upright = Pages();
    port->Refresh();
    EXPECT_EQ(pageChanges, 0) << "as it was";
    report->SetPaperOrientation(2);
    port->Refresh();
    EXPECT_GT(Pages(), upright);
    EXPECT_EQ(Page(), 3);
    EXPECT_EQ(pageChanges, 1) << "of more pages now";
    EXPECT_GT(Desk().Layout().PageRect(0).width, Desk().Layout().PageRect(0).height);
    port->ShowNthPage(static_cast<std::int16_t>(Pages()));
    report->SetPaperOrientation(1);
    port->Refresh();
    EXPECT_EQ(Page(), Pages()) << "a page that is gone gives way to the last";
    EXPECT_EQ(Pages(), upright);
    EXPECT_EQ(pageChanges, 2);
    EXPECT_FALSE(busy) << "whoever is told may ask";
}

TEST_F(ViewerTests, IsMovedInTwips) {
    port->Move(150, 600, 15000, 7500);
    EXPECT_EQ(viewer->geometry(), QRect(10, 40, 1000, 500));
}

TEST_F(ViewerTests, CallsAfterTheWindowIsGoneAreFailures) {
    ViewPayments(5);
    viewer.reset();
    EXPECT_EQ(FailureOf([&] { static_cast<void>(port->GetCurrentPageNumber()); }).Number(),
              FailureNumber::ObjectNotSet);
}

TEST_F(ViewerTests, AReportWithoutFacesIsAFailure) {
    RuntimeServices services;
    services.text = std::make_shared<fakes::FakeTextPort>();
    Use(std::move(services));
    port->SetReportSource(Filled("PayOutRpt", NamedPayments(5)));
    EXPECT_THAT(FailureOf([&] { port->ViewReport(true); }).Description(), HasSubstr("no fonts"));
}

TEST_F(ViewerTests, AnEmptyReportHasAPage) {
    ViewPayments(0);
    EXPECT_EQ(Pages(), 1);
    Press(Qt::Key_End);
    EXPECT_EQ(Page(), 1);
}

TEST_F(ViewerTests, EscapeStopsTheReadingOfALongReport) {
    viewer->show();
    port->SetReportSource(LongReport());
    WillEscape();
    const Failure stopped = FailureOf([&] { port->ViewReport(true); });
    EXPECT_EQ(stopped.Number(), FailureNumber::Cancelled);
    EXPECT_FALSE(port->IsBusy());
    port->ViewReport(true); // as if it had never been begun
    EXPECT_GT(Pages(), 27'000);
    Press(Qt::Key_End);
    EXPECT_EQ(Page(), Pages());
}

TEST_F(ViewerTests, EscapeDuringARefreshLeavesAnEmptyDeskUntilTheNext) {
    const auto report = LongReport();
    View(report);
    const std::int32_t upright = Pages();
    port->ShowNthPage(3);
    report->SetPaperOrientation(2);
    WillEscape();
    EXPECT_EQ(FailureOf([&] { port->Refresh(); }).Number(), FailureNumber::Cancelled);
    EXPECT_FALSE(port->IsBusy());
    EXPECT_EQ(Pages(), 0);
    const int opened = manyRows->Opened();
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_PageDown, Qt::Key_Home})
        Press(key);
    Turn(-3, Qt::NoModifier);
    Drag({300, 300}, {500, 500}, Qt::LeftButton);
    for (const auto command : {viewer::ViewerCommand::FitWidth, viewer::ViewerCommand::Copy})
        viewer->Run(command);
    viewer->resize(900, 700);
    Wait();
    Viewport()->repaint();
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(manyRows->Opened(), opened) << "nothing reads on behind the user's back";
    port->Refresh();
    EXPECT_GT(Pages(), upright);
    Press(Qt::Key_End);
    EXPECT_EQ(Page(), Pages());
}

TEST_F(ViewerTests, WhatCannotBeReadIsNotCopied) {
    View(LongReport(2000));
    port->Zoom(50);
    QApplication::clipboard()->setText("before");
    QTest::mousePress(Viewport(), Qt::LeftButton, {}, {500, 300});
    port->ShowNthPage(40); // more pages away than are kept
    const QPoint to(500, 200);
    QMouseEvent event(QEvent::MouseMove, to, Viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(Viewport(), &event);
    QTest::mouseRelease(Viewport(), Qt::LeftButton, {}, to);
    ASSERT_TRUE(Desk().HasSelection());
    manyRows->Tear();
    EXPECT_THROW(static_cast<void>(Desk().SelectedText()), Failure);
    viewer->Run(viewer::ViewerCommand::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "before");
    // Where the page is drawn its failure is told.
    int red = 0;
    port->ShowNthPage(20);
    const QImage seen = Viewport()->grab().toImage();
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x)
            red += qRed(seen.pixel(x, y)) > qBlue(seen.pixel(x, y)) + 60 ? 1 : 0;
    EXPECT_GT(red, 50);
}

TEST_F(ViewerTests, AReportThatIsReadHearsNoOtherKeyAndNoClick) {
    View(Filled("PayOutRpt", NamedPayments(RowsOfSomePages)));
    port->SetReportSource(LongReport());
    bool closing = false;
    bool busy = false;
    QTimer::singleShot(0, viewer.get(), [&] {
        busy = port->IsBusy();
        closing = viewer->close();
        QTest::keyClick(Viewport(), Qt::Key_End);
        QTest::keyClick(viewer.get(), Qt::Key_F, Qt::ControlModifier);
    });
    port->ViewReport(true);
    EXPECT_TRUE(busy);
    EXPECT_FALSE(closing);
    EXPECT_EQ(Page(), 1);
    EXPECT_FALSE(viewer->Find().isVisible());
}

TEST_F(ViewerTests, ManyPagesStayWithinTheMemoryForPictures) {
    View(LongReport());
    ASSERT_GT(Pages(), 27'000);
    std::size_t most = 0;
    constexpr std::array<std::int16_t, 4> zooms = {100, 400, 25, 200};
    for (const std::int16_t zoom : zooms)
        for (int i = 0; i < 12; ++i) {
            if (i == 0) port->Zoom(zoom);
            Desk().ShowPage(i % 2 == 0 ? Pages() - 1 - i : i * 2000);
            QApplication::processEvents();
            Viewport()->repaint();
            most = std::max(most, Desk().PictureBytes());
        }
    EXPECT_GT(most, 0U);
    EXPECT_LE(most, viewer::PictureBudget);
    Desk().ShowPage(Pages() - 1);
    EXPECT_EQ(Desk().CurrentPage(), Pages() - 1);
    EXPECT_EQ(Page(), Pages());
}

} // namespace
} // namespace qbrpt
