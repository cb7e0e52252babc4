#include "file_output.h"

#include "interrupt.h"

#include <utility>

namespace qbrpt::cli {

AtomicFile& FileOutput::Target::Open() {
    if (!file) file = std::make_unique<AtomicFile>(name);
    return *file;
}

FileOutput::FileOutput(const OutputFiles& files, PageProgress pages, TableProgress rows)
    : mPages(std::move(pages)), mRows(std::move(rows)) {
    for (const auto& [kind, name] : files)
        mTargets.push_back({kind, name, nullptr});
}

void FileOutput::Begin() {
    for (Target& target : mTargets)
        target.Open();
}

void FileOutput::Print(ReportOutput& report, const PrintJob& job) {
    Write(report, job.pages);
}

void FileOutput::Fill(Target& target, ReportOutput& report, const PageRange& pages) const {
    InterruptibleSink sink(target.Open());
    switch (target.kind) {
    case OutputKind::Pdf:
        return report.WritePdf(sink, pages, mPages);
    case OutputKind::Csv:
        return report.WriteTable(TableKind::Csv, sink, mRows);
    case OutputKind::Xlsx:
        return report.WriteTable(TableKind::Xlsx, sink, mRows);
    case OutputKind::Html:
        return report.WriteTable(TableKind::Html, sink, mRows);
    }
}

void FileOutput::Write(ReportOutput& report, const PageRange& pages) {
    for (Target& target : mTargets)
        Fill(target, report, pages);
    for (Target& target : mTargets)
        target.file->Settle();
    for (Target& target : mTargets)
        std::exchange(target.file, nullptr)->Commit();
    mWritten = true;
}

} // namespace qbrpt::cli
