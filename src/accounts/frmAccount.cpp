#include "accounts/frmAccount.h"

#include "accounts/account_table.h"
#include "base/leading_number.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "platform/platform.h"
#include "support/control_reading.h"
#include "support/error_trap.h"
#include "support/key_filter.h"
#include "support/mirroring.h"

#include <algorithm>

namespace qbrpt {

namespace {

bool IsBlank(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c == ' '; });
}

} // namespace

frmAccount& frmAccount::Instance() {
    static frmAccount instance;
    return instance;
}

Form& frmAccount::Window() {
    if (mForm.Empty()) {
        mForm = Platform::Current().forms->Load(AccountTable(), *this);
        Load();
    }
    return *mForm;
}

void frmAccount::Load() {
    MirrorWindow(mForm->hWnd(), false, true);
    MirrorWindow(Get<TabStrip>("TabStrip1")->hWnd(), true, false);
    AccountsChanged = false;
    CurrentTab = 0;
    SelectTab(1);
    const double now = Platform::Current().clock->Now();
    for (const char* picker : {"rDate", "dtMin", "dtMax"})
        Get<DatePicker>(picker)->SetValue(now);
}

void frmAccount::Unload() {
    ErrorTrap trap(ErrorTrap::BoxThenGoOn);
    if (!mForm.Empty()) trap.Step([&] { mForm->Unload(); });
    mForm.Clear();
    mDb.Clear();
}

void frmAccount::EditAccount(const Ref<DAO::Database>& db) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    if (mOpen) {
        trap.Step([] {
            throw Failure(FailureNumber::InvalidArgument, "The window of the accounts is open already.");
        });
        return;
    }
    mOpen = true;
    mDb = db;
    trap.Step([&] { static_cast<void>(Window()); });
    if (!trap.Left()) LoadAccounts();
    trap.Step([&] { RefreshCommands(); });
    trap.Step([&] { Window().ShowModal(); });
    Unload();
    mOpen = false;
}

std::int32_t frmAccount::AccountIn(const char* combo) {
    return GetItemData(*Combo(combo));
}

void frmAccount::FocusOn(const char* name) {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    trap.Step([&] { Get<Control>(name)->SetFocus(); });
}

void frmAccount::OnTextFocus(TextBox& txt) {
    txt.SetSelStart(0);
    txt.SetSelLength(CheckedLong(static_cast<std::int64_t>(CharacterCount(txt.Text()))));
}

void frmAccount::RefreshCommands() {
    const std::string name = Text("txtAccount")->Text();
    const bool bFound = FindInList(name);
    const bool bCanAdd = !bFound && !IsBlank(name);
    const Ref<ListView> list = Get<ListView>("AccList");
    const bool bCanUpdate = list->ItemCount() > 0 && list->SelectedItem() != 0 && bCanAdd;
    const std::int32_t to = AccountIn("comboTo");
    const bool bCanPost = AccountIn("comboFrom") != to && to >= 1 &&
                          LeadingNumber(Text("txtTotal")->Text()) > 0 &&
                          LeadingNumber(Text("txtAmount")->Text()) > 0;
    Get<CommandButton>("cmdAdd")->SetEnabled(bCanAdd);
    Get<CommandButton>("cmdUpdate")->SetEnabled(bCanUpdate);
    Get<CommandButton>("cmdAddReg")->SetEnabled(bCanAdd); // has no lasting effect
    if (bCanAdd)
        Get<CommandButton>("cmdAdd")->SetDefault(true);
    else if (bCanUpdate)
        Get<CommandButton>("cmdUpdate")->SetDefault(true);
    Get<CommandButton>("cmdAddReg")->SetEnabled(bCanPost);
    constexpr std::int32_t newEntries = 2;
    if (bCanPost && CurrentTab == newEntries) Get<CommandButton>("cmdAddReg")->SetDefault(true);
}

void frmAccount::ChangeTab() {
    const std::int16_t tab = GetSelectedTab(*Get<TabStrip>("TabStrip1"));
    if (tab == CurrentTab) return;
    SelectTab(tab);
    if (AccountsChanged) LoadAccounts();
    AccountsChanged = false;
    RefreshCommands();
}

void frmAccount::SelectTab(std::int32_t nTab) {
    if (nTab == CurrentTab) return;
    CurrentTab = nTab;
    const auto panel = [this](std::int32_t number) {
        return Get<PictureBox>(("TabPic(" + std::to_string(number) + ")").c_str());
    };
    const Ref<TabStrip> tabs = Get<TabStrip>("TabStrip1");
    const std::int32_t count = tabs->TabCount();
    for (std::int32_t number = 0; number < count; ++number)
        if (number != nTab - 1) panel(number)->SetVisible(false);
    AlignTabClient(*tabs, *panel(nTab - 1));
}

// A mirrored strip tells its client area's left edge from the other side.
void frmAccount::AlignTabClient(TabStrip& tabs, PictureBox& pic) {
    const ControlPlace client = tabs.ClientPlace();
    const ControlPlace size = pic.Place();
    const std::int32_t nLeft =
        RoundToLong(client.width < client.left ? client.left - client.width : client.left);
    const double x = nLeft + (client.width - size.width) / 2;
    const double y = tabs.Style() == TabStyle::Buttons
                         ? tabs.Place().top + (tabs.TabTop(tabs.TabCount()) - size.height) / 2
                         : client.top + (client.height - size.height) / 2;
    pic.Move(x, y);
    pic.SetBorderStyle(0);
    pic.SetVisible(true);
    pic.ZOrder();
}

void frmAccount::Click(const std::string& name) {
    HandleEvent([&] {
        if (name == "TabStrip1") return ChangeTab();
        if (name == "cmdAdd") return AddAccount();
        if (name == "cmdUpdate") return RenameAccount();
        if (name == "comboFrom") return ShowBalance();
        if (name == "cmdAddReg") return AddEntry();
        if (name == "chkAll") return PeriodSwitched();
        if (name == "rptOpt(1)") return AccountReportChosen();
        if (name == "comboAcc") return Get<ToggleControl>("rptOpt(1)")->SetValue(true);
        if (name == "cmdPrint") return PrintReport();
    });
}

void frmAccount::DblClick(const std::string& name) {
    if (name == "AccList") FocusOn("txtAccount");
}

void frmAccount::ItemClick(const std::string& name) {
    if (name == "AccList") HandleEvent([&] { TakeNameOfItem(); });
}

bool frmAccount::BeforeLabelEdit(const std::string&) {
    return false;
}

void frmAccount::Change(const std::string& name) {
    if (name == "txtAccount" || name == "txtAmount") HandleEvent([&] { RefreshCommands(); });
    if (name == "dtMin") HandleEvent([&] { PeriodMoved(); });
}

std::int16_t frmAccount::KeyPress(const std::string& name, std::int16_t key) {
    if (name != "txtAmount") return key;
    std::int16_t taken = 0;
    constexpr double least = 0;
    HandleEvent([&] { taken = FilterNumericKey(*Text("txtAmount"), key, NoMaximum, least); });
    return taken;
}

void frmAccount::GotFocus(const std::string& name) {
    if (name == "txtAccount" || name == "txtAmount") HandleEvent([&] { OnTextFocus(*Text(name.c_str())); });
}

} // namespace qbrpt
