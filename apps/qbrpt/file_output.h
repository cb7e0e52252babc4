// --pdf, --csv, --xlsx, --html: the report as files.
#pragma once

#include "adapters/files/atomic_file.h"
#include "adapters/output/report_output.h"
#include "output_files.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qbrpt::cli {

/// Writes a report to the files that were asked for, at the moment at which it would be shown or printed.
class FileOutput : public Delivery {
public:
    FileOutput(const OutputFiles& files, PageProgress pages, TableProgress rows);

    /// Begins the files before any work is done, so that a place that cannot be written shows at once. They
    /// appear only when all are complete.
    void Begin();

    void Print(ReportOutput& report, const PrintJob& job) override;
    void Write(ReportOutput& report, const PageRange& pages);

    [[nodiscard]] bool Written() const { return mWritten; }

private:
    struct Target {
        OutputKind kind;
        std::string name;
        std::unique_ptr<AtomicFile> file;
        /// The begun file, or a new one where a command makes several reports.
        AtomicFile& Open();
    };
    void Fill(Target& target, ReportOutput& report, const PageRange& pages) const;
    /// The tables of the reports inside, beside the report's own: NAME.rptFrom.csv for NAME.csv.
    [[nodiscard]] std::vector<std::unique_ptr<AtomicFile>> FillSubreports(ReportOutput& report) const;

    std::vector<Target> mTargets;
    PageProgress mPages;
    TableProgress mRows;
    bool mWritten = false;
};

} // namespace qbrpt::cli
