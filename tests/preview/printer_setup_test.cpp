// The dialog in which printer, paper and orientation are chosen.
#include "dialog_fixture.h"
#include "fakes/fault_observer.h"
#include "preview/print_dialog_tables.h"

#include <set>

namespace qbrpt {
namespace {

using fakes::FakeForm;
using fakes::FakeLabel;
using fakes::FakePictureBox;
using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr PictureHandle Upright = 501;
constexpr PictureHandle Turned = 502;

class PrinterSetup : public DialogTest {
protected:
    PrinterSetup() {
        fakes::SpooledPrinter& lazer = platform.spooler->printers["Lazer"];
        lazer.papers = {.names = {"A4", "A5", "رسالة"}, .codes = {9, 11, 1}};
        lazer.bins = {.names = {"تلقائي", "الدرج الأول"}, .codes = {7, 1}};
        lazer.record.description = "Lazer,Lazer PCL,hall";
        lazer.record.comment = "بجوار الصندوق";
        fakes::SpooledPrinter& plotter = platform.spooler->printers["Plotter"];
        plotter.papers = {.names = {"A3", "A4"}, .codes = {8, 9}};
        plotter.record.description = "Plotter";
        platform.forms->prepare = [](FakeForm& form) {
            if (form.formName != "frmPrinterSetup") return;
            form.controls.Of<FakePictureBox>("Pic2")->picture = Upright;
            form.controls.Of<FakePictureBox>("Pic1")->picture = Turned;
            form.controls.Of<FakePictureBox>("PicDrw")->dc = 55;
        };
        for (const auto& [handle, width, height] :
             {std::tuple{Upright, 26, 32}, std::tuple{Turned, 31, 23}}) {
            platform.gdi->types[handle] = GdiObject::Bitmap;
            platform.gdi->bitmaps[handle] = {.bmWidth = width, .bmHeight = height};
        }
    }

    bool Choose(const std::function<void(FakeForm&)>& act) {
        While("frmPrinterSetup", act);
        return GetPrinterSetup();
    }
    static std::string Caption(const FakeForm& form, const std::string& name) {
        return form.controls.Of<FakeLabel>(name)->caption;
    }
    static void Accept(FakeForm& form) { Press(form, "cmdOk"); }

    PrinterInfo Current() { return platform.printers->Current(); }
    std::vector<std::string> Boxes() { return platform.messages->Texts(); }
};

TEST_F(PrinterSetup, OpensWithTheCurrentPrinterAndWhatItOffers) {
    platform.printers->printers[0].paperSize = 11;
    EXPECT_FALSE(Choose([this](FakeForm& form) {
        EXPECT_EQ(form.caption, "إعداد الطابعة");
        EXPECT_THAT(List(form, "comboPrinter").items, ElementsAre("Lazer", "Plotter"));
        EXPECT_EQ(List(form, "comboPrinter").listIndex, 0);
        EXPECT_THAT(List(form, "comboPaper").items, ElementsAre("A4", "A5", "رسالة"));
        EXPECT_THAT(List(form, "comboPaper").itemData, ElementsAre(9, 11, 1));
        EXPECT_EQ(List(form, "comboPaper").listIndex, 1);
        EXPECT_THAT(List(form, "comboSource").items, ElementsAre("تلقائي", "الدرج الأول"));
        EXPECT_EQ(List(form, "comboSource").listIndex, 0);
        EXPECT_EQ(Caption(form, "driveLable"), "Lazer PCL");
        EXPECT_EQ(Caption(form, "portLab"), "LPT1:");
        EXPECT_EQ(Caption(form, "labCommet"), "بجوار الصندوق");
        EXPECT_TRUE(Toggle(form, "OrignOpt(0)").on);
        EXPECT_THAT(platform.screen->pointers,
                    ElementsAre(Pointer::Wait, Pointer::Wait, Pointer::Default, Pointer::Default));
        Press(form, "Cancel");
    }));
    EXPECT_EQ(Current().paperSize, 11);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PrinterSetup, AnotherPrinterBringsItsOwn) {
    EXPECT_TRUE(Choose([](FakeForm& form) {
        List(form, "comboPrinter").SetListIndex(1);
        EXPECT_THAT(List(form, "comboPaper").items, ElementsAre("A3", "A4"));
        EXPECT_EQ(List(form, "comboPaper").listIndex, 0);
        EXPECT_FALSE(List(form, "comboSource").enabled);
        EXPECT_THAT(List(form, "comboSource").items, IsEmpty());
        EXPECT_EQ(Caption(form, "driveLable"), "Plotter") << "a description without commas";
        EXPECT_EQ(Caption(form, "labCommet"), "");
        EXPECT_TRUE(Toggle(form, "OrignOpt(1)").on);
        EXPECT_FALSE(Toggle(form, "OrignOpt(0)").on);
        EXPECT_EQ(form.controls.Of<FakePictureBox>("PicDrw")->place.width, 465) << "the sheet follows";
        List(form, "comboPrinter").SetListIndex(0);
        EXPECT_TRUE(List(form, "comboSource").enabled);
        EXPECT_TRUE(Toggle(form, "OrignOpt(0)").on);
        List(form, "comboPrinter").SetListIndex(1);
        List(form, "comboPaper").SetListIndex(1);
        Press(form, "cmdOk");
    }));
    EXPECT_EQ(Current().deviceName, "Plotter");
    EXPECT_EQ(Current().paperSize, 9);
    EXPECT_EQ(Current().paperBin, 2) << "its own: it has none to choose from";
    EXPECT_EQ(Current().orientation, OrientationLandscape);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PrinterSetup, TheChoiceGoesIntoTheCurrentPrinter) {
    EXPECT_TRUE(Choose([](FakeForm& form) {
        List(form, "comboPaper").SetListIndex(2);
        List(form, "comboSource").SetListIndex(1);
        Toggle(form, "OrignOpt(1)").SetValue(true);
        Press(form, "cmdOk");
    }));
    EXPECT_EQ(Current().deviceName, "Lazer");
    EXPECT_EQ(Current().paperSize, 1);
    EXPECT_EQ(Current().paperBin, 1);
    EXPECT_EQ(Current().orientation, OrientationLandscape);

    // It shows when the dialog opens again, and again after a look at another printer.
    Choose([](FakeForm& form) {
        EXPECT_EQ(List(form, "comboPaper").listIndex, 2);
        List(form, "comboPrinter").SetListIndex(1);
        List(form, "comboPrinter").SetListIndex(0);
        EXPECT_EQ(List(form, "comboPaper").listIndex, 2);
        EXPECT_EQ(List(form, "comboSource").listIndex, 1);
        EXPECT_TRUE(Toggle(form, "OrignOpt(1)").on);
    });
}

TEST_F(PrinterSetup, TheChoiceIsWrittenInItsOrder) {
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    EXPECT_TRUE(Choose(Accept));
    EXPECT_THAT(log->LinesOf({"Printer.Set", "Form.Unload"}),
                ElementsAre("Printer.SetCurrent(\"Lazer\")", "Printer.SetPaperSize(9)",
                            "Printer.SetPaperBin(7)", "Printer.SetOrientation(1)", "Form.Unload()"));
}

TEST_F(PrinterSetup, APaperThatThePrinterLacksBecomesItsFirst) {
    platform.printers->printers[0].paperSize = 66;
    platform.printers->printers[0].paperBin = 66;
    EXPECT_TRUE(Choose([](FakeForm& form) {
        EXPECT_EQ(List(form, "comboPaper").listIndex, 0);
        EXPECT_EQ(List(form, "comboSource").listIndex, 0);
        Press(form, "cmdOk");
    }));
    EXPECT_EQ(Current().paperSize, 9);
    EXPECT_EQ(Current().paperBin, 7);
}

TEST_F(PrinterSetup, APrinterThatTellsNothing) {
    platform.spooler->printers.clear();
    EXPECT_TRUE(Choose([](FakeForm& form) {
        EXPECT_FALSE(List(form, "comboPaper").enabled);
        EXPECT_FALSE(List(form, "comboSource").enabled);
        EXPECT_EQ(Caption(form, "driveLable"), "");
        EXPECT_EQ(Caption(form, "portLab"), "LPT1:") << "known without the spooler";
        EXPECT_EQ(Caption(form, "labCommet"), "");
        Press(form, "cmdOk");
    }));
    EXPECT_EQ(Current().paperSize, 9);
    EXPECT_EQ(Current().paperBin, 7);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PrinterSetup, SixHundredPapersAreTooMany) {
    auto& papers = platform.spooler->printers["Plotter"].papers;
    papers.names.assign(600, "ورقة");
    papers.codes.assign(600, 9);
    EXPECT_FALSE(Choose([this](FakeForm& form) {
        List(form, "comboPrinter").SetListIndex(1);
        EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"comboPrinter\rOverflow.", 0, "qbrpt"}));
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
        EXPECT_THAT(List(form, "comboPaper").items, ElementsAre("A4", "A5", "رسالة")) << "as they were";
        EXPECT_EQ(Caption(form, "portLab"), "LPT1:");
    }));
}

TEST_F(PrinterSetup, WithoutPrintersOkEndsInABoxForEachStep) {
    platform.printers->printers.clear();
    EXPECT_TRUE(Choose([this](FakeForm& form) {
        EXPECT_THAT(List(form, "comboPrinter").items, IsEmpty());
        EXPECT_THAT(List(form, "comboPaper").items, IsEmpty());
        EXPECT_THAT(Boxes(), IsEmpty()) << "loading passes failures over";
        Press(form, "cmdOk");
    })) << "the routine goes on, whatever failed";
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"ShowPrinterSetup\rObject variable not set.", 0, "qbrpt"},
                            ShownBox{"ShowPrinterSetup\rNo printer is installed.", 0, "qbrpt"}));
}

TEST_F(PrinterSetup, ACurrentPrinterThatIsInNoListIsNotSelected) {
    platform.printers->chosen = PrinterInfo{.deviceName = "Gone", .driverName = "", .port = ""};
    EXPECT_TRUE(Choose([](FakeForm& form) {
        EXPECT_EQ(List(form, "comboPrinter").listIndex, -1);
        EXPECT_THAT(List(form, "comboPaper").items, IsEmpty());
        EXPECT_EQ(Caption(form, "driveLable"), "");
        Toggle(form, "OrignOpt(1)").SetValue(true);
        Press(form, "cmdOk");
    }));
    EXPECT_THAT(Boxes(), ElementsAre("ShowPrinterSetup\rObject variable not set."));
    EXPECT_EQ(Current().deviceName, "Gone");
    EXPECT_EQ(Current().orientation, OrientationLandscape) << "the steps behind go on";
}

TEST_F(PrinterSetup, APrinterThatVanishedLeavesThePointerAsItIs) {
    Choose([this](FakeForm& form) {
        platform.printers->printers.pop_back();
        List(form, "comboPrinter").SetListIndex(1);
        EXPECT_EQ(platform.screen->Current(), Pointer::Wait);
        EXPECT_EQ(Caption(form, "portLab"), "LPT1:");
        EXPECT_THAT(Boxes(), IsEmpty());
    });
}

TEST_F(PrinterSetup, ARefusedPaperLeavesTheRestOfTheChoice) {
    class Refusing final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "SetPaperSize") throw Failure(FailureNumber::Device, "no such paper");
        }
    };
    fakes::FakePlatform::Observe(std::make_shared<Refusing>());
    EXPECT_TRUE(Choose([](FakeForm& form) {
        List(form, "comboSource").SetListIndex(1);
        Toggle(form, "OrignOpt(1)").SetValue(true);
        Press(form, "cmdOk");
    }));
    EXPECT_THAT(Boxes(), ElementsAre("ShowPrinterSetup\rno such paper"));
    EXPECT_EQ(Current().paperBin, 1);
    EXPECT_EQ(Current().orientation, OrientationLandscape);
}

TEST_F(PrinterSetup, FindPrinterLooksForTheWholeName) {
    EXPECT_EQ(FindPrinter("Plotter")->port, "LPT2:");
    EXPECT_FALSE(FindPrinter("plotter").has_value());
    EXPECT_FALSE(FindPrinter("").has_value());
    platform.printers->printers.push_back({.deviceName = "Plotter", .driverName = "", .port = "LPT3:"});
    EXPECT_EQ(FindPrinter("Plotter")->port, "LPT2:") << "the first of two";
}

struct SheetRow {
    const char* name;
    const char* option;
    PictureHandle picture;
    ControlPlace place;
    const char* painted;
};

class SheetTest : public PrinterSetup, public ::testing::WithParamInterface<SheetRow> {};

TEST_P(SheetTest, IsPaintedWhereItsPictureLies) {
    const SheetRow& row = GetParam();
    Choose([&](FakeForm& form) {
        for (const char* other : {"OrignOpt(1)", "OrignOpt(0)"})
            if (std::string(other) != row.option) Toggle(form, other).SetValue(true);
        const auto log = std::make_shared<fakes::CallLog>();
        fakes::FakePlatform::Observe(log);
        Toggle(form, row.option).SetValue(true);
        const ControlPlace place = form.controls.Of<FakePictureBox>("PicDrw")->place;
        EXPECT_EQ(place.left, row.place.left);
        EXPECT_EQ(place.top, row.place.top);
        EXPECT_EQ(place.width, row.place.width);
        EXPECT_EQ(place.height, row.place.height);
        const auto refreshed = log->LinesOf({"PictureBox.Refresh", "PictureBox.Move", "Control.Move"});
        EXPECT_FALSE(refreshed.empty());
        // The last copy of the painting is the one onto the box.
        ASSERT_FALSE(log->LinesOf({"GDI.BitBlt"}).empty());
        EXPECT_THAT(log->LinesOf({"GDI.BitBlt"}).back(), ::testing::StartsWith(row.painted));
        EXPECT_THAT(log->LinesOf({"GDI.GetObjectA"}),
                    ElementsAre("GDI.GetObjectA(" + std::to_string(row.picture) + ")"));
        // The background that is left out is pure red.
        EXPECT_THAT(log->LinesOf({"GDI.SetBkColor"}), ::testing::Contains(::testing::HasSubstr(", 255)")));
    });
    EXPECT_THAT(platform.gdi->live, IsEmpty()) << "the drawing object is dropped after the paint";
    EXPECT_THAT(Boxes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SheetTest,
    ::testing::Values(
        SheetRow{"Upright", "OrignOpt(0)", Upright, {570, 420, 390, 480}, "GDI.BitBlt(55, 0, 0, 26, 32,"},
        SheetRow{"Turned", "OrignOpt(1)", Turned, {533, 488, 465, 345}, "GDI.BitBlt(55, 0, 0, 31, 23,"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(PrinterSetup, TheFramesCrossIsACancel) {
    EXPECT_FALSE(Choose([](FakeForm& form) {
        List(form, "comboPaper").SetListIndex(2);
        form.Close();
    }));
    EXPECT_EQ(Current().paperSize, 9);
}

// Each call fails once: boxes are plain ones with a routine's name, or a handler's own, and the answer is
// that of the button.
TEST_F(PrinterSetup, EachFailureIsTold) {
    const auto act = [this](FakeForm& form) {
        List(form, "comboPrinter").SetListIndex(1);
        Toggle(form, "OrignOpt(0)").SetValue(true);
        Press(form, "cmdOk");
    };
    bool whole = false;
    std::set<std::string> prefixes;
    for (std::size_t position = 1; !whole; ++position) {
        const auto fault =
            std::make_shared<fakes::FaultObserver>(position, fakes::FaultObserver::Reach::Once);
        Platform::Current().observers = {};
        platform.messages->boxes.clear();
        platform.printers->chosen.reset();
        fakes::FakePlatform::Observe(fault);
        bool shown = false;
        bool closed = false;
        const bool accepted = Choose([&](FakeForm& form) {
            if (closed) return;
            shown = true;
            act(form);
            closed = !form.visible;
        });
        whole = fault->Failed() == 0;
        // OK that could not hide the window was OK all the same.
        const bool pressed = closed || fault->LastFailed() == "Form.Hide";
        EXPECT_EQ(accepted, shown && pressed) << position << " " << fault->LastFailed();
        for (const ShownBox& box : platform.messages->boxes) {
            prefixes.insert(box.text.substr(0, box.text.find("fault in ")));
            EXPECT_EQ(box.style, box.text.starts_with("fault in ") ? 16 : 0) << box.text;
        }
        EXPECT_LE(platform.messages->boxes.size(), 2U) << fault->LastFailed();
    }
    EXPECT_THAT(prefixes, ::testing::IsSupersetOf({"", "comboPrinter\r", "ShowPrinterSetup\r"}));
}

TEST(PrinterSetupTable, HasItsControlsAndCaptions) {
    const FormTable& table = PrinterSetupTable();
    EXPECT_EQ(table.clientWidth, 6615);
    EXPECT_EQ(table.clientHeight, 4290);
    EXPECT_TRUE(table.isDialog);
    EXPECT_TRUE(table.designedRightToLeft);
    std::vector<std::string> rows;
    for (const ControlRow& row : table.controls)
        rows.push_back(std::string(row.parent) + "/" + std::string(row.name) + " " +
                       std::string(row.caption));
    EXPECT_THAT(rows, ::testing::UnorderedElementsAre(
                          "/Frame1 الطابعة", "Frame1/Label1 الاسم", "Frame1/comboPrinter ",
                          "Frame1/Label2(0) النوع", "Frame1/driveLable ", "Frame1/Label2(1) المنفذ",
                          "Frame1/portLab ", "Frame1/Label2(2) تعليق", "Frame1/labCommet ", "/Frame2 الورق",
                          "Frame2/Label3(0) الحجم", "Frame2/comboPaper ", "Frame2/Label3(1) المصدر",
                          "Frame2/comboSource ", "/Frame3 اتجاه الطباعة", "Frame3/OrignOpt(0) عمودي",
                          "Frame3/OrignOpt(1) أفقي", "Frame3/Pic2 ", "Frame3/Pic1 ", "Frame3/PicDrw ",
                          "/cmdOk موافق", "/Cancel إلغاء الأمر"));
}

} // namespace
} // namespace qbrpt
