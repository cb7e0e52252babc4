#include "file_output.h"

#include "interrupt.h"
#include "progress_line.h"

namespace qbrpt::cli {

AtomicFile& FileOutput::Target::Open() {
    if (!file) file = std::make_unique<AtomicFile>(name);
    return *file;
}

FileOutput::FileOutput(const std::string& pdfFile, const std::string& csvFile)
    : mPdf{pdfFile, nullptr}, mCsv{csvFile, nullptr} {}

void FileOutput::Begin() {
    for (Target* target : {&mPdf, &mCsv})
        if (!target->name.empty()) target->Open();
}

void FileOutput::Print(ReportOutput& report, const PrintJob& job) {
    Write(report, job.pages);
}

void FileOutput::Write(ReportOutput& report, const PageRange& pages) {
    ProgressLine line;
    if (!mPdf.name.empty()) {
        InterruptibleSink sink(mPdf.Open());
        report.WritePdf(sink, pages, [&line](std::size_t done, std::size_t all) {
            line.Show("page " + std::to_string(done) + " of " + std::to_string(all));
        });
    }
    if (!mCsv.name.empty()) {
        line.Show("writing " + mCsv.name);
        InterruptibleSink sink(mCsv.Open());
        report.WriteCsv(sink);
    }
    for (Target* target : {&mPdf, &mCsv})
        if (target->file) target->file->Settle();
    for (Target* target : {&mPdf, &mCsv})
        if (target->file) std::exchange(target->file, nullptr)->Commit();
    mWritten = true;
}

CRViewer::Shown FileOutputViewer::DoViewReport(const Ref<CrystalRuntime::Report>& report, bool) {
    ReportOutput& output = OutputOf(report);
    mOutput->Write(output, {});
    return {output.Device(), output.PageCount()};
}

} // namespace qbrpt::cli
