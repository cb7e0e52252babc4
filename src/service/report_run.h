// The one run of all reports, and the small look-ups around it.
#pragma once

#include "base/ref.h"
#include "platform/DAO.h"
#include "templates/report_template.h"

#include <cstdint>
#include <string>
#include <utility>

namespace qbrpt {

/// The three lines of the café's heading.
struct MainTitle {
    const std::string& name1;
    const std::string& addr1;
    const std::string& addr2;
};

/// Writes the heading into `report`, whatever its template.
void ApplyMainTitle(const Ref<ReportTemplate>& report, const MainTitle& title);

/// RunReport on a report that the caller has let go; the last reference is dropped inside.
void RunOwnedReport(Ref<ReportTemplate> report, const Ref<DAO::Recordset>& records, bool bSetData, bool bShow,
                    const MainTitle& title);

/// Takes a report with its own titles set from its rows to the preview (`bShow`) or to the current printer.
/// `bSetData`: bind and read `records`. Has its own error trap, so it raises nothing; on every way out the
/// caller's reference is empty, the preview window is gone and the mouse pointer is the default one. While
/// another report is open it is refused, printed or shown, and nothing else is touched.
template <class Template>
void RunReport(Ref<Template>& report, const Ref<DAO::Recordset>& records, bool bSetData, bool bShow,
               const MainTitle& title) {
    Ref<ReportTemplate> owned = report;
    report.Clear();
    RunOwnedReport(std::move(owned), records, bSetData, bShow, title);
}

/// The date number of a work identifier, 0 for one that is not in `host_log_time`. Has no trap: a failure
/// is the caller's statement. A day without a date is a failure too.
[[nodiscard]] double GetWorkDate(const Ref<DAO::Database>& db, std::int32_t id);

/// The name of a host. Any failure ends it in silence with what it has: empty text.
[[nodiscard]] std::string GetHostName(const Ref<DAO::Database>& db, std::int32_t id);

} // namespace qbrpt
