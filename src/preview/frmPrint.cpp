#include "preview/frmPrint.h"

#include "base/leading_number.h"
#include "base/numbers.h"
#include "platform/platform.h"
#include "preview/print_dialog_tables.h"
#include "preview/print_dialogs.h"
#include "support/error_trap.h"
#include "support/key_filter.h"
#include "support/mirroring.h"

#include <algorithm>

namespace qbrpt {

namespace {

constexpr double Least = 1; // page, and copy
constexpr double MostCopies = 32'767;

std::string CurrentDevice() {
    return Platform::Current().printers->Current().deviceName;
}

} // namespace

bool ShowPrintDlg(std::int32_t pCount, std::int32_t& pFrom, std::int32_t& pTo, std::int32_t& pCopies,
                  bool& pPrintAll, bool&) {
    return frmPrint().ShowPrintDlg(pCount, pFrom, pTo, pCopies, pPrintAll);
}

Form& frmPrint::Window() {
    if (mForm.Empty()) {
        mForm = Platform::Current().forms->Load(PrintOptionsTable(), *this);
        MirrorWindow(mForm->hWnd(), false, false);
    }
    return *mForm;
}

double frmPrint::Val(const std::string& box) {
    return LeadingNumber(Window().Get<TextBox>(box)->Text());
}

// After a failure the dialog is not unloaded: that statement stands before the trap.
bool frmPrint::ShowPrintDlg(std::int32_t pCount, std::int32_t& pFrom, std::int32_t& pTo,
                            std::int32_t& pCopies, bool& pPrintAll) {
    bool accepted = false;
    ErrorTrap trap(ErrorTrap::SilentLeave);
    trap.Step([] { Platform::Current().screen->SetMousePointer(Pointer::Wait); });
    trap.Step([&] { mPageCount = CheckedShort(pCount); });
    trap.Step([&] { Window().Get<TextBox>("prName")->SetText(CurrentDevice()); });
    mOk = false;
    trap.Step([&] { Window().ShowModal(); });
    if (mOk) {
        const auto page = [&](const std::string& box) {
            return RoundToLong(std::min<double>(pCount, std::max(Val(box), Least)));
        };
        trap.Step([&] { pFrom = page("printFrom"); });
        trap.Step([&] { pTo = page("printTo"); });
        trap.Step([&] { pPrintAll = Window().Get<ToggleControl>("printAllChk")->Value(); });
        trap.Step([&] { pCopies = RoundToLong(std::max(Val("copyCount"), Least)); });
        trap.Step([&] { accepted = true; });
    }
    trap.Step([&] { Window().Unload(); });
    trap.Always([] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
    return accepted;
}

void frmPrint::Activate() {
    HandleEvent([] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
}

void frmPrint::Click(const std::string& name) {
    HandleEvent([&] {
        if (name == "cmdOk") Close(true);
        if (name == "Cancel") Close(false);
        if (name == "cmdPrntSetup") ChoosePrinter();
        if (name == "printAllChk") EnableRange();
    });
}

void frmPrint::Close(bool accepted) {
    mOk = accepted;
    Window().Hide();
}

// The page count stays that of the printer before.
void frmPrint::ChoosePrinter() {
    if (GetPrinterSetup()) Window().Get<TextBox>("prName")->SetText(CurrentDevice());
}

// Both boxes are there for the taking while "all" is on, and from the start; switching it off locks them.
void frmPrint::EnableRange() {
    const bool all = Window().Get<ToggleControl>("printAllChk")->Value();
    Window().Get<TextBox>("printFrom")->SetEnabled(all);
    Window().Get<TextBox>("printTo")->SetEnabled(all);
}

std::int16_t frmPrint::KeyPress(const std::string& name, std::int16_t key) {
    std::int16_t taken = 0;
    HandleEvent([&] {
        const double most = name == "copyCount" ? MostCopies : mPageCount;
        taken = FilterNumericKey(*Window().Get<TextBox>(name), key, most, Least);
    });
    return taken;
}

// Box and scroll bar follow each other; the one that holds its value already ends it.
void frmPrint::Change(const std::string& name) {
    HandleEvent([&] {
        if (name == "copyCount") CountTyped();
        if (name == "VScroll1") CountScrolled();
    });
}

void frmPrint::CountTyped() {
    const Ref<ScrollBar> bar = Window().Get<ScrollBar>("VScroll1");
    const double count = std::max(Least, std::min<double>(Val("copyCount"), bar->Max()));
    bar->SetValue(CheckedShort(RoundToLong(count)));
}

void frmPrint::CountScrolled() {
    const std::int32_t count = Window().Get<ScrollBar>("VScroll1")->Value();
    Window().Get<TextBox>("copyCount")->SetText(DecimalText(count));
}

} // namespace qbrpt
