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
        EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Wait, Pointer::Default, Pointer::Default))
            << "before the dialog, over it, behind it; printing adds nothing";
        platform.screen->pointers.clear();
        Choose(form, "mnPrintSetup");
        EXPECT_THAT(platform.screen->pointers,
                    ElementsAre(Pointer::Wait, Pointer::Wait, Pointer::Default, Pointer::Default))
            << "the printer that is selected waits and is done before the dialog is";
        EXPECT_EQ(Record().printed, 0);
        EXPECT_EQ(platform.forms->built, 3) << "the preview and both dialogs";
    });
}

/// With a second printer, and what the user does in each window.
class PrintingByMenu : public PreviewTest {
protected:
    PrintingByMenu() {
        platform.printers->printers.push_back(
            {"Plotter", "plotter driver", "LPT2:", OrientationLandscape, 8, 2, 23'811});
    }

    static void SelectPlotter(FakeForm& form) {
        form.controls.Of<fakes::FakeList>("comboPrinter")->SetListIndex(1);
        Choose(form, "cmdOk");
    }
    static void CheckAll(FakeForm& form) {
        form.controls.Of<fakes::FakeToggle>("printAllChk")->SetValue(true);
    }
    /// `preview` in the preview window, `options` and `setup` in the dialogs that come over it.
    void ShowWith(
        const std::function<void(FakeForm&)>& preview,
        std::function<void(FakeForm&)> options = [](FakeForm&) {},
        std::function<void(FakeForm&)> setup = SelectPlotter) {
        mOptions = std::move(options);
        Show([this, preview, setup](FakeForm& form) {
            if (form.formName == "frmPrntServer") return preview(form);
            if (form.formName == "frmPrint") return mOptions(form);
            setup(form);
        });
        EXPECT_THAT(platform.messages->boxes, IsEmpty());
    }

    std::function<void(FakeForm&)> mOptions;
};

TEST_F(PrintingByMenu, APrinterChosenInACancelledDialogIsBoundNextTime) {
    ShowWith(
        [this](FakeForm& form) {
            Choose(form, "mnPrint");
            EXPECT_EQ(Record().printed, 0);
            EXPECT_EQ(platform.printers->Current().deviceName, "Plotter") << "it stays the current one";
            EXPECT_EQ(Record().device, "Lazer") << "the report does not know of it yet";
            mOptions = [](FakeForm& options) { Choose(options, "cmdOk"); };
            Choose(form, "mnPrint");
            EXPECT_EQ(Record().device, "Plotter");
            EXPECT_EQ(Record().paperSize, 8);
            EXPECT_EQ(Record().printed, 1);
        },
        [](FakeForm& options) {
            Choose(options, "cmdPrntSetup");
            Choose(options, "Cancel");
        });
}

TEST_F(PrintingByMenu, AConfirmedSetupBindsTheReportForTheButton) {
    const auto log = std::make_shared<fakes::CallLog>();
    ShowWith([&](FakeForm& form) {
        platform.viewer->refreshed = 0;
        Choose(form, "mnPrintSetup");
        EXPECT_EQ(Record().device, "Plotter");
        EXPECT_EQ(Record().driver, "plotter driver");
        EXPECT_EQ(Record().port, "LPT2:");
        EXPECT_EQ(Record().paperSize, 8);
        EXPECT_EQ(Record().orientation, OrientationLandscape);
        EXPECT_EQ(Record().leftMargin, 6316) << "centred on the wider paper";
        EXPECT_EQ(platform.viewer->refreshed, 1);
        EXPECT_EQ(Record().printed, 0);
        Record().pages = 4;
        fakes::FakePlatform::Observe(log);
        Press(form, "print");
        EXPECT_EQ(Record().printed, 1);
        EXPECT_EQ(Record().ranges[0].stopPage, 4);
    });
    EXPECT_THAT(log->LinesOf({"CrystalRuntime.Report.SelectPrinter"}), IsEmpty()) << "it is bound already";
}

TEST_F(PrintingByMenu, ACancelledSetupBindsNothing) {
    ShowWith([this](FakeForm& form) { Choose(form, "mnPrintSetup"); }, [](FakeForm&) {},
             [](FakeForm& setup) {
                 setup.controls.Of<fakes::FakeList>("comboPrinter")->SetListIndex(1);
                 Choose(setup, "Cancel");
             });
    EXPECT_EQ(Record().device, "Lazer");
    EXPECT_EQ(Record().leftMargin, std::nullopt);
}

// The pages are counted anew for "all", but before the report goes over to the printer of the dialog.
TEST_F(PrintingByMenu, AllPagesAreThoseUnderThePrinterOfBefore) {
    class Relaid final : public PortObserver {
    public:
        explicit Relaid(fakes::ReportRecord& record) : mRecord(record) {}
        void Called(const PortCall& call) override {
            if (call.operation == "SelectPrinter") mRecord.pages = 3;
        }

    private:
        fakes::ReportRecord& mRecord;
    };
    const auto log = std::make_shared<fakes::CallLog>();
    Record().pages = 7;
    ShowWith(
        [&](FakeForm& form) {
            platform.screen->pointers.clear();
            fakes::FakePlatform::Observe(log);
            fakes::FakePlatform::Observe(std::make_shared<Relaid>(Record()));
            Choose(form, "mnPrint");
            EXPECT_EQ(platform.screen->pointers[platform.screen->pointers.size() - 2],
                      Pointer::ArrowHourglass);
            EXPECT_EQ(platform.screen->Current(), Pointer::Default);
            const std::vector<std::string> printing = log->LinesOf(
                {"Forms.Load", "CrystalRuntime.Report.NumberOfPages", "CrystalRuntime.Report.SelectPrinter",
                 "CrystalRuntime.Report.PrintOut", "Screen.MousePointer(13)"});
            EXPECT_THAT(printing,
                        ::testing::ElementsAre(
                            "CrystalRuntime.Report.NumberOfPages()", "Forms.Load(\"frmPrint\")",
                            "Forms.Load(\"frmPrinterSetup\")", "CrystalRuntime.Report.NumberOfPages()",
                            "CrystalRuntime.Report.SelectPrinter(\"plotter driver\", \"Plotter\", \"LPT2:\")",
                            "Screen.MousePointer(13)",
                            ::testing::StartsWith("CrystalRuntime.Report.PrintOut(false")));
        },
        [this](FakeForm& options) {
            Choose(options, "cmdPrntSetup");
            CheckAll(options);
            options.controls.Of<fakes::FakeTextBox>("copyCount")->SetText("2");
            Record().pages = 9; // it has grown since
            Choose(options, "cmdOk");
        });
    ASSERT_THAT(Record().ranges, SizeIs(1));
    EXPECT_EQ(Record().ranges[0].startPage, 1);
    EXPECT_EQ(Record().ranges[0].stopPage, 9);
    EXPECT_EQ(Record().ranges[0].copies, 2);
    EXPECT_EQ(Record().ranges[0].collated, std::nullopt);
    EXPECT_EQ(Record().device, "Plotter");
}

TEST_F(PrintingByMenu, MorePagesThanTheDialogCountsPrintNothingInSilence) {
    Record().pages = 32'768;
    ShowWith([this](FakeForm& form) {
        platform.screen->pointers.clear();
        Choose(form, "mnPrint");
        EXPECT_EQ(platform.forms->built, 1) << "the preview alone";
        EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Wait, Pointer::Default));
    });
    EXPECT_EQ(Record().printed, 0);
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

TEST_F(PreviewTest, AnAlignmentDuringAWaitLeavesThePointerAndTheViewer) {
    Show([this](FakeForm& form) {
        bool asked = false;
        platform.viewer->whenAsked = [&] {
            if (std::exchange(asked, true)) return;
            frmPrntServer::Instance().AlignToPrinter();
            EXPECT_EQ(platform.screen->Current(), Pointer::Wait);
        };
        Choose(form, "mnFirstPage");
        platform.viewer->whenAsked = [] {};
        EXPECT_TRUE(asked);
        EXPECT_EQ(Record().leftMargin, 364);
        EXPECT_EQ(platform.viewer->refreshed, 0);
        EXPECT_THAT(platform.messages->boxes, IsEmpty());
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

TEST_F(PreviewTest, WithoutReceiversAReportForThemIsPrintedAsItIs) {
    const auto receiver = std::make_shared<SecurRpt>();
    Bind();
    platform.forms->shown = [this](FakeForm& form) {
        if (form.formName != "frmPrntServer") return Choose(form, "cmdOk");
        Press(form, "print");
        Choose(form, "mnPrint");
        EXPECT_EQ(Record().printed, 2);
    };
    frmPrntServer::Instance().ShowpReport(receiver, true);
    EXPECT_EQ(Record().printed, 2);
    EXPECT_THAT(receiver->given, IsEmpty());
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

/// Printing that fails the `number`th time.
class FailingOnce final : public PortObserver {
public:
    explicit FailingOnce(int number) : mNumber(number) {}
    void Called(const PortCall& call) override {
        if (call.operation == "PrintOut" && --mNumber == 0)
            throw Failure(FailureNumber::Device, "out of paper");
    }

private:
    int mNumber;
};

TEST_F(PreviewTest, TheFirstReceiverThatFailsEndsTheRun) {
    const auto receiver = std::make_shared<SecurRpt>();
    Bind();
    platform.forms->shown = [&](FakeForm& form) {
        fakes::FakePlatform::Observe(std::make_shared<FailingOnce>(2));
        receiver->given.clear();
        Press(form, "print");
        EXPECT_THAT(platform.messages->Texts(), ElementsAre("PrintData\rout of paper"));
        EXPECT_EQ(Record().printed, 1) << "the rows behind are not printed";
        ASSERT_THAT(receiver->given, SizeIs(2));
        EXPECT_EQ(receiver->given.back().front(), Value{std::string("r1")});
        EXPECT_EQ(frmPrntServer::Instance().ReceiverIndex(), 1) << "it stays at the row that failed";
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);

        Press(form, "print");
        EXPECT_EQ(Record().printed, 4) << "all three";
        EXPECT_EQ(frmPrntServer::Instance().ReceiverIndex(), 1) << "a good run puts it back";
    };
    frmPrntServer::Instance().ShowGuestInfo(receiver, Receivers(3), 3, true, true);
    EXPECT_THAT(platform.messages->boxes, SizeIs(1));
}

TEST_F(PreviewTest, ReportsOfOtherClassesTakeNoReceivers) {
    frmPrntServer::Instance().ShowGuestInfo(report, Receivers(2), 2, false, true);
    EXPECT_EQ(Record().printed, 2);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(PreviewTest, AWindowThatCannotBeMadeForReceiversIsTold) {
    for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Retry}) {
        const auto receiver = std::make_shared<SecurRpt>();
        Bind();
        platform.messages->boxes.clear();
        platform.messages->usual = answer;
        bool broken = false;
        platform.forms->prepare = [&](FakeForm&) {
            if (!std::exchange(broken, true)) throw Failure(FailureNumber::Device, "no display");
        };
        frmPrntServer::Instance().ShowGuestInfo(receiver, Receivers(3), 3, false, true);
        EXPECT_THAT(platform.messages->boxes, ElementsAre(fakes::ShownBox{"no display", 21, "qbrpt"}));
        // Whoever goes on has the window made by the next statement, and its load step forgets the receivers.
        EXPECT_EQ(Record().printed, answer == BoxAnswer::Retry ? 1 : 0);
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
        EXPECT_TRUE(platform.forms->latest.expired()) << "unloaded";
        EXPECT_EQ(receiver.use_count(), 1) << "let go";
        EXPECT_TRUE(Show()) << "nothing stays open";
        frmPrntServer::Drop();
    }
}

TEST_F(PreviewTest, AMissingReceiverIsTold) {
    const auto receiver = std::make_shared<SecurRpt>();
    Bind();
    frmPrntServer::Instance().ShowGuestInfo(receiver, Receivers(1), 2, false, true);
    ASSERT_THAT(platform.messages->boxes, SizeIs(1));
    EXPECT_EQ(platform.messages->boxes[0].text, "UpdateInfoData cose Error No.9\rSubscript out of range.");
}

} // namespace
} // namespace qbrpt
