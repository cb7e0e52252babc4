#include "preview/frmPrinterSetup.h"

#include "base/numbers.h"
#include "platform/platform.h"
#include "preview/print_dialog_tables.h"
#include "preview/print_dialogs.h"
#include "support/DrawCls.h"
#include "support/control_reading.h"
#include "support/error_trap.h"
#include "support/picture_fit.h"
#include "support/words.h"

namespace qbrpt {

namespace {

Printers& SystemPrinters() {
    return *Platform::Current().printers;
}

void SetPointer(Pointer pointer) {
    Platform::Current().screen->SetMousePointer(pointer);
}

/// Makes it the current one.
void Take(const std::optional<PrinterInfo>& printer) {
    if (!printer) throw Failure(FailureNumber::ObjectNotSet, "Object variable not set.");
    SystemPrinters().SetCurrent(printer->deviceName);
}

} // namespace

bool GetPrinterSetup() {
    return frmPrinterSetup().GetPrinterSetup();
}

std::optional<PrinterInfo> FindPrinter(const std::string& name) {
    Printers& printers = SystemPrinters();
    const std::int32_t count = printers.Count();
    for (std::int32_t index = 0; index < count; ++index) {
        PrinterInfo printer = printers.Item(index);
        if (printer.deviceName == name) return printer;
    }
    return std::nullopt;
}

bool frmPrinterSetup::GetPrinterSetup() {
    ErrorTrap trap(ErrorTrap::BoxThenGoOn, {.prefix = "ShowPrinterSetup\r", .style = BoxStyle::Plain});
    bool accepted = false;
    mOk = false;
    trap.Step([] { SetPointer(Pointer::Wait); });
    trap.Step([&] { Window().ShowModal(); });
    if (mOk) {
        const auto data = [&](const std::string& combo) { return CheckedShort(GetItemData(*Combo(combo))); };
        trap.Step([&] { Take(FindPrinter(Combo("comboPrinter")->Text())); });
        if (trap.Test([&] { return Combo("comboPaper")->ListCount() > 0; }))
            trap.Step([&] { SystemPrinters().SetPaperSize(data("comboPaper")); });
        if (trap.Test([&] { return Combo("comboSource")->ListCount() > 0; }))
            trap.Step([&] { SystemPrinters().SetPaperBin(data("comboSource")); });
        trap.Step([&] {
            SystemPrinters().SetOrientation(IsUpright() ? OrientationPortrait : OrientationLandscape);
        });
        accepted = true;
    }
    if (!mForm.Empty()) trap.Step([&] { mForm->Unload(); });
    return accepted;
}

Form& frmPrinterSetup::Window() {
    if (mForm.Empty()) {
        mForm = Platform::Current().forms->Load(PrinterSetupTable(), *this);
        Load();
    }
    return *mForm;
}

// The current printer is selected while the list is still being filled, and its papers come in then.
void frmPrinterSetup::Load() {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    trap.Step([&] { Combo("comboPrinter")->Clear(); });
    std::int32_t count = 0;
    trap.Step([&] { count = SystemPrinters().Count(); });
    for (std::int32_t i = 0; i < count; ++i) {
        std::string name;
        trap.Step([&] {
            name = SystemPrinters().Item(i).deviceName;
            Combo("comboPrinter")->AddItem(name);
        });
        if (trap.Test([&] { return name == SystemPrinters().Current().deviceName; }))
            trap.Step([&] { Combo("comboPrinter")->SetListIndex(i); });
    }
}

void frmPrinterSetup::Activate() {
    HandleEvent([] { SetPointer(Pointer::Default); });
}

void frmPrinterSetup::Click(const std::string& name) {
    if (name == "comboPrinter") return comboPrinter_Click();
    HandleEvent([&] {
        if (name == "cmdOk") Close(true);
        if (name == "Cancel") Close(false);
        if (name == "OrignOpt(0)") OrignOpt_Click(0);
        if (name == "OrignOpt(1)") OrignOpt_Click(1);
    });
}

void frmPrinterSetup::Close(bool accepted) {
    mOk = accepted;
    Window().Hide();
}

void frmPrinterSetup::comboPrinter_Click() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.prefix = "comboPrinter\r", .style = BoxStyle::Plain});
    trap.Step([] { SetPointer(Pointer::Wait); });
    std::optional<PrinterInfo> p;
    trap.Step([&] { p = FindPrinter(Combo("comboPrinter")->Text()); });
    if (!p && !trap.Left()) return; // the pointer stays as it is
    trap.Step([&] {
        PrinterInfo current = SystemPrinters().Current();
        if (p->deviceName == current.deviceName) p = current;
    });
    CapabilityRows papers;
    CapabilityRows bins;
    bool hasPapers = false;
    bool hasBins = false;
    trap.Step([&] { hasPapers = GetPapersData(p->deviceName, p->port, papers) > 0; });
    trap.Step([&] { hasBins = GetBinsData(p->deviceName, p->port, bins) > 0; });
    trap.Step([&] { Combo("comboPaper")->Clear(); });
    trap.Step([&] { Combo("comboSource")->Clear(); });
    trap.Step([&] { Fill("comboPaper", papers, p->paperSize); });
    trap.Step([&] { Fill("comboSource", bins, p->paperBin); });
    trap.Step([&] { EnableFilled("comboPaper", hasPapers); });
    trap.Step([&] { EnableFilled("comboSource", hasBins); });
    std::string driver;
    std::string comment;
    std::int32_t status = 0;
    trap.Step([&] { GetPrinterInfo(p->deviceName, driver, comment, status); });
    trap.Step([&] { SetWords("driveLable", driver); });
    trap.Step([&] { SetWords("portLab", p->port); });
    trap.Step([&] { SetWords("labCommet", comment); });
    trap.Step([&] {
        const bool upright = p->orientation == OrientationPortrait;
        Window().Get<ToggleControl>(upright ? "OrignOpt(0)" : "OrignOpt(1)")->SetValue(true);
    });
    trap.Always([] { SetPointer(Pointer::Default); });
}

void frmPrinterSetup::Fill(const std::string& combo, const CapabilityRows& rows, std::int16_t current) {
    const Ref<ListControl> list = Combo(combo);
    std::int32_t i = 0;
    for (const CapabilityRow& row : rows) {
        list->AddItem(row.name);
        list->SetItemData(i, row.code);
        if (row.code == current) list->SetListIndex(i);
        ++i;
    }
}

void frmPrinterSetup::EnableFilled(const std::string& combo, bool filled) {
    const Ref<ListControl> list = Combo(combo);
    list->SetEnabled(filled);
    if (filled && list->ListIndex() < 0) list->SetListIndex(0);
}

void frmPrinterSetup::SetWords(const std::string& label, const std::string& words) {
    Window().Get<Label>(label)->SetCaption(words);
}

bool frmPrinterSetup::IsUpright() {
    return Window().Get<ToggleControl>("OrignOpt(0)")->Value();
}

void frmPrinterSetup::OrignOpt_Click(int index) {
    const Ref<PictureBox> drawn = Window().Get<PictureBox>("PicDrw");
    drawn->Move(Window().Get<PictureBox>(index != 0 ? "Pic1" : "Pic2")->Place());
    drawn->Refresh();
}

void frmPrinterSetup::Paint(const std::string& name) {
    if (name == "PicDrw") HandleEvent([&] { PaintSheet(); });
}

void frmPrinterSetup::PaintSheet() {
    constexpr ColorRef pureRed = 255;
    const PictureHandle sheet = Window().Get<PictureBox>(IsUpright() ? "Pic2" : "Pic1")->Picture();
    const std::int32_t size = GetPictureSize(sheet);
    DrawCls().PaintPic(Window().Get<PictureBox>("PicDrw")->hDC(), 0, 0, LoWord(size), HiWord(size), sheet, 0,
                       0, pureRed, 0);
}

} // namespace qbrpt
