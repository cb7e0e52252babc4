#include "adapters/export/xlsx.h"

#include "adapters/export/xlsx_table.h"

namespace qbrpt {

namespace {

constexpr const char* ReportSheet = "التقرير";
constexpr const char* FurtherSheet = "جدول";

std::string SheetNameOf(const TablePlan& plan, bool isReport) {
    if (isReport) return ReportSheet;
    if (!plan.heading.empty()) return plan.heading.back().text;
    // A list bears its heading as that of one group of all rows.
    const auto& groups = plan.definition->groups;
    const bool isList = !groups.empty() && groups.front().field < 0 && !groups.front().heading.empty();
    return isList ? groups.front().heading : FurtherSheet;
}

} // namespace

void WriteXlsx(ByteSink& sink, const ExportJob& job, const RowProgress& onProgress,
               std::uint32_t rowsPerSheet) {
    XlsxBook book({PlanOf(*job.parts.front().definition).Title(job.title), job.printedAt});
    for (const ExportPart& part : job.parts) {
        const TablePlan plan = PlanOf(*part.definition);
        XlsxTable table(book, job, plan, SheetNameOf(plan, &part == &job.parts.front()), rowsPerSheet);
        WalkTable(plan, part, job.printedAt, table, onProgress);
        table.Finish();
    }
    book.Finish(sink);
}

} // namespace qbrpt
