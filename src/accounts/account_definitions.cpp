// The first page of the accounts' window: accounts, and what they hold.
#include "accounts/frmAccount.h"
#include "accounts/ledger.h"
#include "base/leading_number.h"
#include "base/letters.h"
#include "base/numbers.h"
#include "base/pictures.h"
#include "support/error_trap.h"
#include "support/variant.h"

#include <array>

namespace qbrpt {

namespace {

std::string KeyOf(std::int32_t accountId) {
    return DecimalText(accountId) + "|";
}

std::int32_t AccountNumber(const Value& value) {
    return RoundToLong(NumberOf(value));
}

} // namespace

void frmAccount::LoadAccounts() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step([&] { Get<ListView>("AccList")->Clear(); });
    for (const char* combo : {"comboFrom", "comboTo", "comboAcc"})
        trap.Step([&] { Combo(combo)->Clear(); });
    trap.Step([&] { LoadList(); });
    trap.Step([&] { LoadCombos(); });
    trap.Step([&] { Text("txtTotal")->SetText("0.0"); });
}

void frmAccount::LoadList() {
    const Ref<ListView> list = Get<ListView>("AccList");
    const Ref<DAO::Recordset> records = mDb->OpenRecordset(ledger::Balances());
    for (; !records->Eof(); records->MoveNext()) {
        const std::int32_t accountId = AccountNumber(records->Fields("accid"));
        list->Add(KeyOf(accountId), AccountName(records->Fields("name")));
        list->SetSubItem(list->ItemCount(), 1, FormatNumber(NumberOf(records->Fields("total")), "#,#.#0"));
    }
    records->Close();
}

void frmAccount::LoadCombos() {
    const std::array combos = {Combo("comboFrom"), Combo("comboTo"), Combo("comboAcc")};
    const Ref<DAO::Recordset> records = mDb->OpenRecordset(ledger::Accounts());
    for (; !records->Eof(); records->MoveNext()) {
        for (const Ref<ListControl>& combo : combos)
            combo->AddItem(AccountName(records->Fields("name")));
        for (const Ref<ListControl>& combo : combos)
            combo->SetItemData(combo->ListCount() - 1, AccountNumber(records->Fields("accid")));
    }
    records->Close();
}

bool frmAccount::FindInList(const std::string& s) {
    const Ref<ListView> list = Get<ListView>("AccList");
    const std::int32_t count = list->ItemCount();
    for (std::int32_t item = 1; item <= count; ++item)
        if (SameFolded(list->ItemText(item), s)) return true;
    return false;
}

void frmAccount::AddAccount() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    std::int32_t accountId = 0;
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = mDb->OpenRecordset(ledger::NextNumber()); });
    trap.Step([&] { accountId = AccountNumber(records->Fields(0)); });
    trap.Step([&] { records->Close(); });
    trap.Step([&] { mDb->Execute(ledger::NewAccount(accountId, Text("txtAccount")->Text())); });
    const auto list = [this] { return Get<ListView>("AccList"); };
    trap.Step([&] { list()->Add(KeyOf(accountId), Text("txtAccount")->Text()); });
    trap.Step([&] { list()->SetSubItem(list()->ItemCount(), 1, "0.0"); });
    trap.Step([&] { AccountsChanged = true; });
    trap.Step([&] { Text("txtAccount")->SetText(""); });
    trap.Step([&] { FocusOn("txtAccount"); });
    trap.Step([&] { RefreshCommands(); });
}

// The other lists keep the old name until they are read again for another reason.
void frmAccount::RenameAccount() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    Ref<ListView> list;
    std::int32_t accountId = 0;
    trap.Step([&] { list = Get<ListView>("AccList"); });
    trap.Step([&] { accountId = RoundToLong(LeadingNumber(list->ItemKey(list->SelectedItem()))); });
    trap.Step([&] { mDb->Execute(ledger::NewName(accountId, Text("txtAccount")->Text())); });
    if (!trap.Test([&] { return mDb->RecordsAffected() != 0; })) return;
    trap.Step([&] { list->SetItemText(list->SelectedItem(), Text("txtAccount")->Text()); });
    trap.Step([&] { Text("txtAccount")->SetText(""); });
    trap.Step([&] { RefreshCommands(); });
    trap.Step([&] { FocusOn("txtAccount"); });
}

void frmAccount::TakeNameOfItem() {
    const Ref<ListView> list = Get<ListView>("AccList");
    Text("txtAccount")->SetText(list->ItemText(list->SelectedItem()));
    RefreshCommands();
}

} // namespace qbrpt
