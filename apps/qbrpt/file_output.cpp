#include "file_output.h"

#include "interrupt.h"

#include <utility>

namespace qbrpt::cli {

AtomicFile& FileOutput::Target::Open() {
    if (!file) file = std::make_unique<AtomicFile>(name);
    return *file;
}

FileOutput::FileOutput(const std::string& pdfFile, const std::string& csvFile, PageProgress progress)
    : mPdf{pdfFile, nullptr}, mCsv{csvFile, nullptr}, mProgress(std::move(progress)) {}

void FileOutput::Begin() {
    for (Target* target : {&mPdf, &mCsv})
        if (!target->name.empty()) target->Open();
}

void FileOutput::Print(ReportOutput& report, const PrintJob& job) {
    Write(report, job.pages);
}

void FileOutput::Write(ReportOutput& report, const PageRange& pages) {
    if (!mPdf.name.empty()) {
        InterruptibleSink sink(mPdf.Open());
        report.WritePdf(sink, pages, mProgress);
    }
    if (!mCsv.name.empty()) {
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
