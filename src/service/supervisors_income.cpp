// Income by supervisor.
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/period_clause.h"
#include "service/report_run.h"
#include "templates/SPVIncome.h"

namespace qbrpt {

namespace {

/// The newer of the two saved queries; empty where the database does not hold it.
Ref<DAO::QueryDef> NewerQuery(const Ref<DAO::Database>& db) {
    Ref<DAO::QueryDef> query;
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    trap.Step([&] { query = db->QueryDefs("users_income2"); });
    return query;
}

} // namespace

void VantlowCls::PrintUsersIncome(std::int32_t d1, std::int32_t d2) {
    const Ref<DAO::Database> db = mDb;
    Ref<DAO::QueryDef> query = NewerQuery(db);
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    if (query.Empty()) trap.Step([&] { query = db->QueryDefs("users_income"); });

    const PeriodForm form = FormOfPeriod(d1, d2);
    const auto bound = [form](std::int32_t work) {
        return form == PeriodForm::All ? Value{Null{}} : Value{std::int64_t{work}};
    };
    trap.Step([&] { query->SetParameter(0, bound(d1)); });
    trap.Step([&] { query->SetParameter(1, bound(form == PeriodForm::Range ? d2 : d1)); });
    const PeriodDates dates = FetchPeriodDates(trap, db, d1, d2);
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = query->OpenRecordset(); });
    if (!trap.Test([&] { return !records->Eof(); })) return;

    Ref<SPVIncome> report;
    trap.Step([&] { report = std::make_shared<SPVIncome>(); });
    trap.Step([&] {
        const std::string title = "تقرير بالإيراد حسب المشرفين";
        report->SetOtherTitels(d1 > 0 ? title + " " + PeriodWords(dates) : title);
    });
    trap.Step([&] { RunReport(report, records, true, true, {mName1, mAddr1, mAddr2}); });
}

} // namespace qbrpt
