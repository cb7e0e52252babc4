#include "adapters/output/report_output.h"

#include "base/failure.h"

namespace qbrpt {

ReportOutput& OutputOf(const Ref<CrystalRuntime::Report>& report) {
    auto* output = dynamic_cast<ReportOutput*>(&*report);
    if (output == nullptr)
        throw Failure(FailureNumber::Report, "This report has no pages that could be written out.");
    return *output;
}

void ReportOutput::WriteSubreport(const std::string& name, ByteSink&, const TableProgress&) {
    throw Failure(FailureNumber::NotInCollection, "There is no report \"" + name + "\" inside this one.");
}

} // namespace qbrpt
