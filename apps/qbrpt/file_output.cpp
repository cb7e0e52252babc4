#include "file_output.h"

#include "interrupt.h"

#include <filesystem>
#include <utility>

namespace qbrpt::cli {

namespace {

namespace fs = std::filesystem;

std::string BesideOf(const std::string& table, const std::string& subreport) {
    constexpr std::string_view ending = ".csv";
    const std::size_t stem = table.ends_with(ending) ? table.size() - ending.size() : table.size();
    return table.substr(0, stem) + "." + subreport + std::string(ending);
}

/// Beside a pipe or a device there is no place for further files.
bool IsFile(const std::string& name) {
    std::error_code none;
    const fs::file_status status = fs::status(name, none);
    return !fs::exists(status) || fs::is_regular_file(status);
}

} // namespace

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

std::vector<std::unique_ptr<AtomicFile>> FileOutput::FillSubreports(ReportOutput& report) const {
    std::vector<std::unique_ptr<AtomicFile>> files;
    for (const Target& target : mTargets) {
        if (target.kind != OutputKind::Csv || !IsFile(target.name)) continue;
        for (const std::string& name : report.Subreports()) {
            files.push_back(std::make_unique<AtomicFile>(BesideOf(target.name, name)));
            InterruptibleSink sink(*files.back());
            report.WriteSubreport(name, sink, mRows);
        }
    }
    return files;
}

void FileOutput::Write(ReportOutput& report, const PageRange& pages) {
    for (Target& target : mTargets)
        Fill(target, report, pages);
    const auto inside = FillSubreports(report);
    for (Target& target : mTargets)
        target.file->Settle();
    for (const auto& file : inside)
        file->Settle();
    for (Target& target : mTargets)
        std::exchange(target.file, nullptr)->Commit();
    for (const auto& file : inside)
        file->Commit();
    mWritten = true;
}

} // namespace qbrpt::cli
