#include "samples/template_rows.h"

#include "samples/list_rows.h"
#include "samples/report_rows.h"
#include "samples/sample_rows.h"

#include <array>

namespace qbrpt::samples {

namespace {

struct Maker {
    std::string_view name;
    std::vector<Row> (*make)(std::size_t count);
};

constexpr auto Makers = std::to_array<Maker>({
    {"IncomeGrpRpt", IncomeDays},    {"IncomeRpt", UseDays},
    {"pcIncomeRpt", HostUse},        {"UsageRpt", Sessions},
    {"InternetTimerpt", DeviceDays}, {"SPVIncome", SupervisorDays},
    {"MembersInfo", Subscriptions},  {"MemberUseRpt", CustomerSessions},
    {"MembersPay", MemberPayments},  {"PayOutRpt", Payments},
    {"OutIncome", Payments},         {"ServicesRpt", Orders},
    {"rptAudit", AuditEvents},       {"rptPrintLog", PrintJobs},
    {"rptPPIncome", CardList},       {"rptPPCards", Cards},
    {"rptPPCardsCov", Cards},        {"AccountRpt", Entries},
    {"SngAccountRpt", Moves},        {"rptFrom", Moves},
});

} // namespace

std::vector<Row> RowsFor(std::string_view templateName, std::size_t count) {
    for (const Maker& maker : Makers)
        if (maker.name == templateName) return maker.make(count);
    return {};
}

} // namespace qbrpt::samples
