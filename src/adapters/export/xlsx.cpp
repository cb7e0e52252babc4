#include "adapters/export/xlsx.h"

#include "adapters/export/xlsx_table.h"

namespace qbrpt {

namespace {

constexpr const char* ReportSheet = "التقرير";
constexpr const char* FurtherSheet = "جدول";

std::string SheetNameOf(const TablePlan& plan, bool isReport) {
    if (isReport) return ReportSheet;
    if (!plan.heading.empty()) return plan.Title({});
    // A list bears its heading as that of one group of all rows.
    const auto& groups = plan.definition->groups;
    const bool isList = !groups.empty() && groups.front().field < 0 && !groups.front().heading.empty();
    return isList ? groups.front().heading : FurtherSheet;
}

} // namespace

void WriteXlsx(ByteSink& sink, const ExportJob& job, const RowProgress& onProgress,
               std::uint32_t rowsPerSheet) {
    const std::vector<PlannedPart> parts = PlannedParts(job);
    XlsxBook book({parts.front().plan.Title(job.title), job.printedAt});
    for (const auto& [part, plan] : parts) {
        XlsxTable table(book, job, plan, SheetNameOf(plan, &plan == &parts.front().plan), rowsPerSheet);
        WalkTable(plan, part, job.printedAt, table, onProgress);
        table.Finish();
    }
    book.Finish(sink);
}

} // namespace qbrpt
