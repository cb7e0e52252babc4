// From the print command to the printer, and the bond between report and printer.
#include "preview_fixture.h"

namespace qbrpt {
namespace {

using fakes::FakeForm;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(PreviewTest, TheButtonPrintsTheWholeReportOnce) {
    Record().pages = 7;
    Show([this](FakeForm& form) {
        platform.screen->pointers.clear();
        Press(form, "print");
        ASSERT_THAT(Record().ranges, SizeIs(1));
        EXPECT_EQ(Record().ranges[0].startPage, 1);
        EXPECT_EQ(Record().ranges[0].stopPage, 7);
        EXPECT_EQ(Record().ranges[0].copies, 1);
        EXPECT_EQ(Record().ranges[0].collated, std::nullopt);
        EXPECT_FALSE(Record().promptUser);
        EXPECT_EQ(Record().application, "qbrpt");
        EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::ArrowHourglass, Pointer::Default));
    });
}

TEST_F(PreviewTest, TheMenuPrintsNothingWhereTheDialogWasCancelled) {
    Show([this](FakeForm& form) {
        if (form.formName != "frmPrntServer") return Choose(form, "Cancel");
        platform.screen->pointers.clear();
        Choose(form, "mnPrint");
        Choose(form, "mnPrintSetup");
        EXPECT_EQ(Record().printed, 0);
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
        EXPECT_EQ(platform.forms->built, 3) << "the preview and both dialogs";
    });
}

TEST_F(PreviewTest, AFailingPrinterSaysSoAndThePreviewStays) {
    class Broken final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "PrintOut") throw Failure(FailureNumber::Device, "out of paper");
        }
    };
    Show([this](FakeForm& form) {
        fakes::FakePlatform::Observe(std::make_shared<Broken>());
        Press(form, "print");
        EXPECT_THAT(platform.messages->boxes,
                    ElementsAre(fakes::ShownBox{"PrintData\rout of paper", 16, "qbrpt"}));
        EXPECT_FALSE(form.gone);
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    });
}

TEST_F(PreviewTest, ABoundReportKeepsTheMarginOfItsTemplate) {
    Show();
    EXPECT_EQ(Record().leftMargin, std::nullopt);
}

struct BondRow {
    const char* name;
    void (*change)(PrinterInfo& printer);
    std::int32_t margin;
};

class Bonds : public PreviewTest, public ::testing::WithParamInterface<BondRow> {};

TEST_P(Bonds, AreMadeAnewWhereThePrinterIsAnother) {
    PrinterInfo& printer = platform.printers->printers[0];
    GetParam().change(printer);
    Show();
    EXPECT_EQ(Record().device, printer.deviceName);
    EXPECT_EQ(Record().driver, printer.driverName);
    EXPECT_EQ(Record().port, printer.port);
    EXPECT_EQ(Record().paperSize, printer.paperSize);
    EXPECT_EQ(Record().orientation, printer.orientation);
    EXPECT_EQ(Record().leftMargin, GetParam().margin);
    EXPECT_EQ(platform.viewer->refreshed, 0); // the window is not there yet
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Bonds,
    ::testing::Values(BondRow{"Device", [](PrinterInfo& p) { p.deviceName = "Other"; }, 364},
                      BondRow{"Driver", [](PrinterInfo& p) { p.driverName = "other"; }, 364},
                      BondRow{"Port", [](PrinterInfo& p) { p.port = "LPT2:"; }, 364},
                      BondRow{"Paper",
                              [](PrinterInfo& p) {
                                  p.paperSize = 11;
                                  p.width = 8391;
                              },
                              0},
                      BondRow{"Orientation",
                              [](PrinterInfo& p) {
                                  p.orientation = OrientationLandscape;
                                  p.width = 16838;
                              },
                              2830},
                      BondRow{"AsWideAsThePaper",
                              [](PrinterInfo& p) {
                                  p.port = "LPT2:";
                                  p.width = 11178;
                              },
                              0},
                      BondRow{"HalfTwipsGoToTheEvenNumber",
                              [](PrinterInfo& p) {
                                  p.port = "LPT2:";
                                  p.width = 11181;
                              },
                              2}),
    [](const auto& row) { return row.param.name; });

TEST_F(PreviewTest, AligningAVisibleReportRendersItAnew) {
    Show([this](FakeForm&) {
        frmPrntServer::Instance().AlignToPrinter();
        EXPECT_EQ(platform.viewer->refreshed, 1);
        EXPECT_EQ(Record().leftMargin, 364);
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    });
}

TEST_F(PreviewTest, AFailingAlignmentBearsItsNameInTheTitle) {
    Show([this](FakeForm&) {
        platform.printers->printers.clear();
        frmPrntServer::Instance().AlignToPrinter();
        EXPECT_THAT(platform.messages->boxes,
                    ElementsAre(fakes::ShownBox{"No printer is installed.", 16, "AlignToPrinter"}));
    });
}

TEST_F(PreviewTest, AFailingBondIsTold) {
    platform.printers->printers.clear();
    Show();
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(fakes::ShownBox{"RefreshReportprinter\rNo printer is installed.", 16, "qbrpt"}));
}

/// A report for receivers.
class SecurRpt final : public ReportTemplate, public ReceiverReport {
public:
    SecurRpt() : ReportTemplate("PayOutRpt") {}
    void SetInfoData(const std::vector<Value>& values) override { given.push_back(values); }
    [[nodiscard]] std::string_view Name() const override { return "SecurRpt"; }
    std::vector<std::vector<Value>> given;
};

ReceiverRows Receivers(std::size_t rows) {
    ReceiverRows receivers;
    for (std::size_t row = 0; row < rows; ++row)
        receivers.push_back({std::string("r") + std::to_string(row), Null{}, Null{}, Null{}, Null{}, true});
    return receivers;
}

TEST_F(PreviewTest, ReceiversEachGetTheReport) {
    const auto receiver = std::make_shared<SecurRpt>();
    Bind();
    frmPrntServer::Instance().ShowGuestInfo(receiver, Receivers(3), 3, false, true);
    EXPECT_THAT(receiver->given, SizeIs(4)); // the first one when it began, then each in turn
    EXPECT_EQ(receiver->given.back().front(), Value{std::string("r2")});
    EXPECT_EQ(Record().printed, 3);
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(PreviewTest, ReceiversAreShownAndPrintedByTheButton) {
    const auto receiver = std::make_shared<SecurRpt>();
    Bind();
    platform.forms->shown = [](FakeForm& form) { Press(form, "print"); };
    frmPrntServer::Instance().ShowGuestInfo(receiver, Receivers(2), 2, true, true);
    EXPECT_EQ(platform.viewer->views, 1);
    EXPECT_EQ(Record().printed, 2);
}

TEST_F(PreviewTest, ReportsOfOtherClassesTakeNoReceivers) {
    frmPrntServer::Instance().ShowGuestInfo(report, Receivers(2), 2, false, true);
    EXPECT_EQ(Record().printed, 2);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(PreviewTest, AMissingReceiverIsTold) {
    const auto receiver = std::make_shared<SecurRpt>();
    Bind();
    frmPrntServer::Instance().ShowGuestInfo(receiver, Receivers(1), 2, false, true);
    ASSERT_THAT(platform.messages->boxes, SizeIs(1));
    EXPECT_EQ(platform.messages->boxes[0].text, "UpdateInfoData cose Error No.3265\rThere is no receiver 2.");
}

} // namespace
} // namespace qbrpt
