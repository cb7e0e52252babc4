// Connection time of the internet devices.
#include "base/numbers.h"
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/report_run.h"
#include "support/error_trap.h"
#include "support/period_text.h"
#include "templates/InternetTimerpt.h"

namespace qbrpt {

namespace {

constexpr std::string_view ByDevice = "SELECT device_name, (Count([id]) & '  يوم/أيام') AS days, "
                                      "Sum(second_count/60) AS sc_count FROM internet_usage ";
constexpr std::string_view ByDay = "SELECT device_name, Format(use_date, 'ddd, dd MMM yyyy') AS d, "
                                   "(second_count/60) AS t FROM internet_usage";

// A day beyond the last, so that the whole last day is in it.
std::string PeriodOf(std::int32_t d1, std::int32_t d2) {
    if (d1 == 0) return {};
    const std::int32_t last = d2 != 0 ? d2 : d1;
    return " WHERE (use_date BETWEEN " + DecimalText(d1) + " AND " +
           DecimalText(CheckedLong(std::int64_t{last} + 1)) + ")";
}

} // namespace

void VantlowCls::PrintInternetUsage(std::int32_t d1, std::int32_t d2, std::int16_t bGroup,
                                    std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    std::string statement(bGroup != 0 ? ByDevice : ByDay);
    trap.Step([&] { statement += PeriodOf(d1, d2); });
    trap.Step([&] {
        if (bGroup != 0) statement += " GROUP BY device_name";
    });
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(statement); });
    if (!trap.Test([&] { return records->RecordCount() != 0; })) return;

    Ref<InternetTimerpt> report;
    trap.Step([&] { report = std::make_shared<InternetTimerpt>(); });
    trap.Step(
        [&] { report->SetOtherTitels("أوقات استهلاك الإنترنت  " + GetPeriodText(d1, d2, true, false)); });
    trap.Step([&] { report->SetGroup(bGroup != 0); });
    trap.Step([&] { RunReport(report, records, true, bShow != 0, {mName1, mAddr1, mAddr2}); });
}

} // namespace qbrpt
