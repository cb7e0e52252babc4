// The third page of the accounts' window: what is to be printed.
#include "accounts/account_reports.h"
#include "accounts/frmAccount.h"
#include "support/extremes.h"
#include "support/variant.h"

#include <array>

namespace qbrpt {

namespace {

double DateIn(const DatePicker& picker) {
    return picker.Value().value_or(0);
}

} // namespace

void frmAccount::PeriodSwitched() {
    const bool bounded = !Get<ToggleControl>("chkAll")->Value();
    Get<DatePicker>("dtMin")->SetEnabled(bounded);
    Get<DatePicker>("dtMax")->SetEnabled(bounded);
}

// The end never lies before the start when the start moves.
void frmAccount::PeriodMoved() {
    const Ref<DatePicker> last = Get<DatePicker>("dtMax");
    const std::array<Value, 2> dates = {Date{DateIn(*Get<DatePicker>("dtMin"))}, Date{DateIn(*last)}};
    last->SetValue(NumberOf(MaxOf(dates)));
}

void frmAccount::AccountReportChosen() {
    const Ref<ListControl> accounts = Combo("comboAcc");
    if (accounts->ListCount() > 0 && accounts->ListIndex() < 0) accounts->SetListIndex(0);
}

void frmAccount::PrintReport() {
    double dFrom = 0;
    double dTo = 0;
    if (!Get<ToggleControl>("chkAll")->Value()) {
        dFrom = DateIn(*Get<DatePicker>("dtMin"));
        dTo = DateIn(*Get<DatePicker>("dtMax"));
    }
    if (Get<ToggleControl>("rptOpt(0)")->Value()) return PrintAllMoves(mDb, dFrom, dTo);
    PrintAccountMoves(mDb, AccountIn("comboAcc"), dFrom, dTo, [this] { return Combo("comboAcc")->Text(); });
}

} // namespace qbrpt
