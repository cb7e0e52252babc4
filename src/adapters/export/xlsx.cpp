#include "adapters/export/xlsx.h"

#include "adapters/export/xlsx_table.h"

namespace qbrpt {

namespace {

constexpr const char* ReportSheet = "التقرير";
constexpr const char* FurtherSheet = "جدول";

std::string SheetNameOf(const TablePlan& plan, bool isReport) {
    if (isReport) return ReportSheet;
    return plan.heading.empty() ? FurtherSheet : plan.heading.back().text;
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
