// The second page of the accounts' window: an amount moves from one account to another.
#include "accounts/frmAccount.h"
#include "accounts/ledger.h"
#include "base/leading_number.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "support/control_reading.h"
#include "support/error_trap.h"
#include "support/variant.h"

#include <optional>

namespace qbrpt {

// Shown as the database gives it, without a picture.
void frmAccount::ShowBalance() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = mDb->OpenRecordset(ledger::Balance(AccountIn("comboFrom"))); });
    if (trap.Test([&] { return !records->Eof(); }))
        trap.Step([&] { Text("txtTotal")->SetText(TextOf(records->Fields(0))); });
    trap.Step([&] { records->Close(); });
}

void frmAccount::RefuseEntry(const char* words, const char* control) {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    trap.Step(
        [&] { Platform::Current().messages->MsgBox(words, BoxStyle::Critical | BoxStyle::TextAtRight); });
    FocusOn(control);
}

// Whatever fails is passed over, and an entry that the database refuses is lost without a word. Between the
// balance and the entry nobody else may spend the same money: both are one transaction, which has ended
// before anything waits for the user. Without it, or where the page cannot be read, nothing is written: 0
// would be nobody's account.
void frmAccount::AddEntry() {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    if (trap.Test([&] { return AccountIn("comboFrom") == AccountIn("comboTo"); }))
        return RefuseEntry("لا يمكن التحويل إلى نفس الحساب مصدر التحويل.", "comboTo");
    Ref<DAO::Transaction> transaction;
    trap.Step([&] { transaction = mDb->BeginTrans(); });
    std::optional<std::int32_t> from;
    trap.Step([&] { from = SelectedItemData(*Combo("comboFrom")); });
    std::int32_t nTotal = 0;
    trap.Step([&] { GetAccountBalance(mDb, from.value(), nTotal); });
    const bool refused = trap.Test([&] {
        const double amount = LeadingNumber(Text("txtAmount")->Text());
        return amount == 0 || amount > nTotal;
    });
    if (refused) {
        transaction.Clear();
        return RefuseEntry("مبلغ التحويل غير صحيح", "txtAmount");
    }
    ledger::Entry entry;
    trap.Step([&] {
        entry.from = from.value();
        entry.to = SelectedItemData(*Combo("comboTo"));
        entry.amount = LeadingNumber(Text("txtAmount")->Text());
        entry.date = Get<DatePicker>("rDate")->Value().value_or(0);
        entry.description = Text("txtDescrip")->Text();
        if (transaction.Empty()) return;
        mDb->Execute(ledger::NewEntry(entry));
        transaction->Commit();
    });
    transaction.Clear();
    trap.Step([&] { Text("txtAmount")->SetText("0"); });
    trap.Step([&] { Text("txtDescrip")->SetText(""); });
    trap.Step([&] { ShowBalance(); });
    trap.Step([&] { AccountsChanged = true; });
    FocusOn("comboFrom");
    trap.Step([&] { RefreshCommands(); });
}

} // namespace qbrpt
