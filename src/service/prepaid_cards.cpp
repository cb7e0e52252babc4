// Prepaid cards from queries that the host writes.
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/report_run.h"
#include "support/error_trap.h"
#include "templates/rptPPCards.h"
#include "templates/rptPPIncome.h"

namespace qbrpt {

namespace {

/// Runs the host's query on a template whose own texts `fill` sets; in silence where there are no rows.
template <class Template, class Fill>
void RunHostQuery(const Ref<DAO::Database>& db, const std::string& szSQL, const Fill& fill,
                  const MainTitle& heading) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(szSQL); });
    if (!trap.Test([&] { return !records->Eof(); })) return;
    Ref<Template> report;
    trap.Step([&] { report = std::make_shared<Template>(); });
    trap.Step([&] { fill(*report); });
    trap.Step([&] { RunReport(report, records, true, true, heading); });
}

} // namespace

void VantlowCls::PrintPPCards(const std::string& szSQL) {
    const auto fill = [this](rptPPCards& report) { report.SetCafeName(mName1); };
    RunHostQuery<rptPPCards>(mDb, szSQL, fill, {mName1, mAddr1, mAddr2});
}

void VantlowCls::PrintPPInfo(const std::string& szSQL, const std::string& szCaption) {
    const auto fill = [&szCaption](rptPPIncome& report) { report.SetTitle(szCaption); };
    RunHostQuery<rptPPIncome>(mDb, szSQL, fill, {mName1, mAddr1, mAddr2});
}

} // namespace qbrpt
