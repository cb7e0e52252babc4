// The preview window: how it is built, shown, sized and closed.
#include "preview/print_server_table.h"
#include "preview_fixture.h"

#include <algorithm>
#include <array>

namespace qbrpt {
namespace {

using fakes::FakeForm;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(PreviewTest, HasItsMenuInItsOrder) {
    std::vector<std::string> rows;
    for (const ControlRow& row : PrintServerTable().controls) {
        if (row.kind == ControlKind::Menu || row.kind == ControlKind::MenuItem ||
            row.kind == ControlKind::MenuSeparator)
            rows.push_back(std::string(row.parent) + "/" + std::string(row.name) + " " +
                           std::string(row.caption) + "|" + std::string(row.shortcut));
    }
    EXPECT_THAT(rows, ElementsAre("/mnFile &ملف|", "mnFile/mnPrint &طباعة|Ctrl+P",
                                  "mnFile/mnPrintSetup إ&عدادت الطابعة|", "mnFile/mnSp1 |",
                                  "mnFile/mnClose إ&غلاق|", "/mnView &عرض|", "mnView/mnZoom الحجم|",
                                  "mnZoom/mnZoom400 400 %|", "mnZoom/mnZoom200 200 %|",
                                  "mnZoom/mnZoom100 100 %|", "mnZoom/mnZoom50 50 %|", "mnZoom/mnZoom25 25 %|",
                                  "mnView/mnSp2 |", "mnView/mnZoomIn تكبير|Ctrl+Z", "mnView/mnZoomOut تصغير|",
                                  "mnView/mnSp3 |", "mnView/mnPrevPage الصفحة السابقة|Ctrl+B",
                                  "mnView/mnNextPage الصفحة التالية|Ctrl+N",
                                  "mnView/mnFirstPage الصفحة الأولى|", "mnView/mnLastPage الصفحة الأخيرة|"));
}

TEST_F(PreviewTest, HasItsFifteenButtons) {
    Show([](FakeForm& form) {
        std::vector<std::string> keys;
        for (const auto& button : form.toolbars.at("Toolbar1")->buttons)
            keys.push_back(button->key + "|" + button->toolTip);
        EXPECT_THAT(keys, ElementsAre("close|إغلاق", "print|طباعة", "|", "first|الصفحة الأولى",
                                      "prev|الصفحة السابقة", "next|الصفحة التالية", "last|الصفحة الأخيرة",
                                      "|", "zoomin|تكبير  F3", "zoomout|تصغير", "zoom25|تحجيم إلى 25%",
                                      "zoom50|تحجيم إلى 50%", "zoom100|حجم طبيعي", "zoom200|تكبير 200%",
                                      "zoom400|تكبير 400%"));
        EXPECT_THAT(form.toolbars.at("Toolbar2")->buttons, IsEmpty());
        EXPECT_EQ(form.toolbars.at("Toolbar1")->imageList, "ImageList1");
        EXPECT_EQ(form.toolbars.at("Toolbar1")->Of("zoom100")->value, 1);
    });
}

TEST_F(PreviewTest, ShowsItsReportInTheStepsOfTheRun) {
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    EXPECT_TRUE(Show());
    EXPECT_THAT(
        log->LinesOf({"Screen.", "CRViewer.SetReportSource", "CRViewer.ViewReport", "RegistryStore.ReadValue",
                      "Form.ShowModal", "Form.Unload", "RegistryStore.WriteValue"}),
        ElementsAre("Screen.MousePointer(11)", "CRViewer.SetReportSource()", "CRViewer.ViewReport(true)",
                    "RegistryStore.ReadValue(2147483651, \".Default\\Software\\Tollmere\\Printing\", "
                    "\"Window Place\", 3)",
                    "Screen.MousePointer(0)", "Form.ShowModal()",
                    "RegistryStore.WriteValue(2147483651, "
                    "\".Default\\Software\\Tollmere\\Printing\", \"Window Place\", 3)",
                    "Screen.MousePointer(0)", "Form.Unload()"));
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(PreviewTest, WaitsForTheViewerBeforeAndBehindEachOfItsReadings) {
    platform.printers->printers[0].deviceName = "Other"; // so that the report is bound anew
    platform.viewer->busyFor = 1;
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    Show();
    std::vector<std::string> steps =
        log->LinesOf({"Screen.", "CRViewer.", "Windows.DoEvents", "Windows.SleepEx", "Printer.",
                      "CrystalRuntime.Report.", "RegistryStore.ReadValue", "Form.ShowModal"});
    steps.erase(std::find(steps.begin(), steps.end(), "Form.ShowModal()"), steps.end());
    const std::vector<std::string> expected = {
        "Screen.MousePointer(11)", "CRViewer.SetReportSource()",
        // The wait: busy once.
        "CRViewer.IsBusy()", "Windows.DoEvents()", "Windows.SleepEx(10)", "CRViewer.IsBusy()",
        "Windows.DoEvents()",
        // The bond with the printer.
        "Printer.Current()", "CrystalRuntime.Report.PrinterName()", "Printer.Current()",
        "CrystalRuntime.Report.SelectPrinter(\"lazer driver\", \"Other\", \"LPT1:\")",
        "Printer.Orientation()", "CrystalRuntime.Report.SetPaperOrientation(1)", "Printer.Current()",
        "CrystalRuntime.Report.SetPaperSize(9)",
        // The alignment, in a window that cannot be seen yet.
        "Screen.MousePointer(11)", "Printer.Current()", "CrystalRuntime.Report.SetLeftMargin(364)",
        "CRViewer.IsBusy()", "Windows.DoEvents()", "CRViewer.IsBusy()", "Windows.DoEvents()",
        "Screen.MousePointer(0)",
        // The reading, and what menu and buttons make of it.
        "CRViewer.ViewReport(true)", "CrystalRuntime.Report.NumberOfPages()", "CRViewer.IsBusy()",
        "Windows.DoEvents()", "CRViewer.IsBusy()", "CRViewer.GetCurrentPageNumber()",
        "CrystalRuntime.Report.NumberOfPages()",
        "RegistryStore.ReadValue(2147483651, \".Default\\Software\\Tollmere\\Printing\", \"Window Place\", "
        "3)",
        "Screen.MousePointer(0)"};
    EXPECT_EQ(steps, expected);
}

TEST_F(PreviewTest, InArabicIsMirroredAndHasItsToolbarAtTheRight) {
    Show([this](FakeForm& form) {
        EXPECT_EQ(platform.tree->windows[Me].extended, 0x3000U);
        EXPECT_EQ(form.toolbars.at("Toolbar1")->left, 9930 - 7000);
        EXPECT_EQ(form.toolbars.at("Toolbar1")->top, 2);
        EXPECT_EQ(form.menu.at("mnFile")->caption, "&ملف");
    });
}

TEST_F(PreviewTest, InEnglishHasItsOtherWordsAndPictures) {
    platform.tree->windows[Me].extended = 0x403000;
    Show(
        [this](FakeForm& form) {
            EXPECT_EQ(platform.tree->windows[Me].extended, 0U);
            EXPECT_FALSE(form.rightToLeft);
            EXPECT_EQ(form.toolbars.at("Toolbar1")->left, 0);
            EXPECT_EQ(form.toolbars.at("Toolbar1")->imageList, "ImageList2");
            for (const auto& button : form.toolbars.at("Toolbar1")->buttons)
                EXPECT_EQ(button->image > 0, button->style != ButtonStyle::Separator) << button->key;
            EXPECT_EQ(form.toolbars.at("Toolbar1")->Of("zoomin")->toolTip, "Zoom In(Ctrl+Z)");
            EXPECT_EQ(form.toolbars.at("Toolbar1")->Of("zoom100")->toolTip, "Normal Size");
            EXPECT_EQ(form.menu.at("mnPrintSetup")->caption, "Print &Setup");
            EXPECT_EQ(form.menu.at("mnZoom")->caption, "&Zoom");
            EXPECT_EQ(form.menu.at("mnZoom25")->caption, "25 %");
        },
        false);
    EXPECT_FALSE(platform.viewer->arabic);
}

TEST_F(PreviewTest, SetsTheEnglishWordsInTheirOrder) {
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    Show([](FakeForm&) {}, false);
    EXPECT_THAT(
        log->LinesOf({"MenuItem.SetCaption", "Toolbar.SetImageList", "ToolbarButton.SetToolTipText"}),
        ElementsAre(
            "MenuItem.SetCaption(\"&File\")", "MenuItem.SetCaption(\"&Print\")",
            "MenuItem.SetCaption(\"Print &Setup\")", "MenuItem.SetCaption(\"&Close\")",
            "MenuItem.SetCaption(\"&View\")", "MenuItem.SetCaption(\"&Zoom\")",
            "MenuItem.SetCaption(\"Zoom &In\")", "MenuItem.SetCaption(\"Zoom &Out\")",
            "MenuItem.SetCaption(\"Previous Page\")", "MenuItem.SetCaption(\"Next Page\")",
            "MenuItem.SetCaption(\"&First Page\")", "MenuItem.SetCaption(\"&Last Page\")",
            "Toolbar.SetImageList(\"ImageList2\")", "ToolbarButton.SetToolTipText(\"Print(Ctrl+P)\")",
            "ToolbarButton.SetToolTipText(\"Close\")", "ToolbarButton.SetToolTipText(\"First Page\")",
            "ToolbarButton.SetToolTipText(\"Last Page\")",
            "ToolbarButton.SetToolTipText(\"Previous Page(Ctrl+B)\")",
            "ToolbarButton.SetToolTipText(\"Next Page(Ctrl+N)\")",
            "ToolbarButton.SetToolTipText(\"Zoom In(Ctrl+Z)\")", "ToolbarButton.SetToolTipText(\"Zoom Out\")",
            "ToolbarButton.SetToolTipText(\"Zoom to 25%\")", "ToolbarButton.SetToolTipText(\"Zoom to 50%\")",
            "ToolbarButton.SetToolTipText(\"Normal Size\")", "ToolbarButton.SetToolTipText(\"Zoom to 200%\")",
            "ToolbarButton.SetToolTipText(\"Zoom to 400%\")",
            "ToolbarButton.SetToolTipText(\"Zoom to 200%\")"));
}

struct SizeRow {
    const char* name;
    std::int32_t width;
    std::int32_t height;
    std::array<std::int32_t, 4> viewer;
    std::int32_t toolbarLeft; ///< 1: not moved
};

class Sizes : public PreviewTest, public ::testing::WithParamInterface<SizeRow> {};

TEST_P(Sizes, FillTheWindow) {
    Show([](FakeForm& form) {
        form.scaleWidth = GetParam().width;
        form.scaleHeight = GetParam().height;
        form.toolbars.at("Toolbar1")->left = 1;
        form.events.Resize();
        EXPECT_EQ(form.viewer->place, GetParam().viewer);
        EXPECT_EQ(form.toolbars.at("Toolbar1")->left, GetParam().toolbarLeft);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Sizes,
    ::testing::Values(SizeRow{"Usual", 9000, 5000, {0, 600, 9000, 4400}, 2000},
                      SizeRow{"NarrowerThanTheToolbar", 3000, 5000, {0, 600, 3000, 4400}, -4000},
                      SizeRow{"Low", 9000, 700, {0, 600, 9000, 200}, 2000},
                      SizeRow{"Minimised", 0, 0, {0, 600, 0, 200}, 1}),
    [](const auto& row) { return row.param.name; });

TEST_F(PreviewTest, AResizePlacesTheToolbarBehindTheViewerAndInFront) {
    struct Row {
        bool arabic;
        const char* toolbar;
    };
    for (const Row& row : {Row{true, "Toolbar.Move(2000, 2)"}, Row{false, "Toolbar.Move(0, 2)"}}) {
        Show(
            [&](FakeForm& form) {
                form.scaleWidth = 9000;
                form.scaleHeight = 5000;
                const auto log = std::make_shared<fakes::CallLog>();
                fakes::FakePlatform::Observe(log);
                form.events.Resize();
                EXPECT_THAT(
                    log->LinesOf({"CRViewer.", "Toolbar.Move", "Toolbar.ZOrder"}),
                    ElementsAre("CRViewer.Move(0, 600, 9000, 4400)", row.toolbar, "Toolbar.ZOrder()"));
                EXPECT_GT(form.toolbars.at("Toolbar1")->broughtToFront, 0);
            },
            row.arabic);
        frmPrntServer::Drop();
    }
}

TEST_F(PreviewTest, WhatCannotBeSetAtLoadingIsPassedOver) {
    class Broken final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "SetEnabled") throw Failure(FailureNumber::Device, "broken");
        }
    };
    fakes::FakePlatform::Observe(std::make_shared<Broken>());
    EXPECT_TRUE(Show([](FakeForm& form) {
        EXPECT_EQ(form.toolbars.at("Toolbar1")->Of("zoom100")->value, 1) << "the last of its statements";
        EXPECT_TRUE(form.toolbars.at("Toolbar1")->Of("prev")->enabled);
    }));
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(PreviewTest, ASecondPreviewBeginsWithNothingOfTheFirst) {
    Show([this](FakeForm& form) {
        Choose(form, "mnZoom200");
        EXPECT_FALSE(form.menu.at("mnZoom200")->enabled);
    });
    frmPrntServer::Drop();
    Show([this](FakeForm& form) {
        EXPECT_TRUE(form.menu.at("mnZoom200")->enabled);
        EXPECT_FALSE(form.menu.at("mnZoom100")->enabled);
        Choose(form, "mnZoomIn");
        EXPECT_THAT(platform.viewer->zooms, ElementsAre(200, 200)) << "from 100 on";
    });
}

TEST_F(PreviewTest, ClosesOnceByItsMenuItsButtonAndItsFrame) {
    for (const bool byMenu : {true, false}) {
        Show([byMenu](FakeForm& form) { byMenu ? Choose(form, "mnClose") : Press(form, "close"); });
        frmPrntServer::Drop();
    }
    Show();
    EXPECT_EQ(platform.forms->built, 3);
    EXPECT_THAT(platform.registry->values, SizeIs(1));
}

TEST_F(PreviewTest, AnUnknownButtonDoesNothing) {
    Show([this](FakeForm& form) {
        const auto log = std::make_shared<fakes::CallLog>();
        fakes::FakePlatform::Observe(log);
        Press(form, "zoom75");
        EXPECT_THAT(log->Lines(), IsEmpty());
    });
}

TEST_F(PreviewTest, ASecondReportWhileOneIsOpenIsRefused) {
    Show([this](FakeForm& form) {
        EXPECT_FALSE(frmPrntServer::Instance().ShowpReport(report, true));
        EXPECT_THAT(platform.messages->Texts(),
                    ElementsAre("ShowpReport\rA report is open already. Close its window first."));
        frmPrntServer::Drop();
        EXPECT_TRUE(frmPrntServer::Exists());
        EXPECT_FALSE(form.gone);
    });
    EXPECT_EQ(platform.forms->built, 1);
}

TEST_F(PreviewTest, ReceiversOfAnotherReportWaitUntilTheOpenOneIsClosed) {
    Record().pages = 3;
    const auto other = std::make_shared<PayOutRpt>();
    for (const bool show : {true, false}) {
        platform.messages->boxes.clear();
        Show([&](FakeForm& form) {
            const auto log = std::make_shared<fakes::CallLog>();
            fakes::FakePlatform::Observe(log);
            frmPrntServer::Instance().ShowGuestInfo(other, ReceiverRows(2), 2, show, true);
            EXPECT_THAT(platform.messages->boxes,
                        ElementsAre(fakes::ShownBox{"A report is open already. Close its window first.", 21,
                                                    "qbrpt"}));
            EXPECT_THAT(log->Lines(), SizeIs(1)) << "nothing but the box";
            EXPECT_FALSE(form.gone);
            Choose(form, "mnNextPage");
            EXPECT_THAT(platform.viewer->pagesAsked.back(), 2) << "the open one goes on";
            platform.viewer->page = 1;
        });
        EXPECT_EQ(Record().printed, 0);
        frmPrntServer::Drop();
    }
}

TEST_F(PreviewTest, AReportForReceiversRefusesASecondOneToo) {
    platform.forms->shown = [this](FakeForm&) {
        EXPECT_FALSE(frmPrntServer::Instance().ShowpReport(report, true));
    };
    frmPrntServer::Instance().ShowGuestInfo(report, ReceiverRows(1), 1, true, true);
    EXPECT_THAT(platform.messages->Texts(),
                ElementsAre("ShowpReport\rA report is open already. Close its window first."));
    EXPECT_TRUE(Show()) << "closed, it stands in nobody's way";
}

TEST_F(PreviewTest, AFailureOnTheWayEndsInABoxAndAnAnswer) {
    platform.forms->prepare = [](FakeForm&) { throw Failure(FailureNumber::Device, "no display"); };
    EXPECT_FALSE(Show());
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(fakes::ShownBox{"ShowpReport\rno display", 21, "qbrpt"}));
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

TEST_F(PreviewTest, AHandlersFailureEndsInABoxWithOk) {
    Show([this](FakeForm& form) {
        form.toolbars.erase("Toolbar2");
        form.events.Resize();
        ASSERT_THAT(platform.messages->boxes, SizeIs(1));
        EXPECT_EQ(platform.messages->boxes[0].style, 16);
    });
}

} // namespace
} // namespace qbrpt
