// The output side of a live report.
#include "adapters/export/csv.h"
#include "adapters/export/html.h"
#include "adapters/export/xlsx.h"
#include "adapters/pdf/writer.h"
#include "adapters/runtime/live_report.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/paper.h"
#include "report/page.h"

#include <algorithm>
#include <cstdio>

namespace qbrpt {

// A title may be written while its section is formatted: whoever asks before the pages gets that one, too.
std::string LiveReport::Title() {
    const std::string& name = mState->definition.titleObject;
    for (const report::Section& section : mState->definition.sections)
        for (const report::Object& object : section.objects) {
            if (object.name != name) continue;
            if (section.formatEvent && mState->formattingPage == 0) RunFormatHandler(section, 1);
            return object.text;
        }
    return {};
}

std::int32_t LiveReport::PageCount() {
    return CheckedLong(static_cast<std::int64_t>(Document().PageCount()));
}

std::int32_t LiveReport::CountPages(const PageProgress& progress) {
    mProgress = &progress;
    const std::shared_ptr<void> progressEnds(nullptr, [this](void*) { mProgress = nullptr; });
    return PageCount();
}

PaperExtent LiveReport::Paper() const {
    return mServices->printers ? mServices->printers->SheetOf(mDevice, mPaperSize)
                               : ExtentOfPaper(mPaperSize);
}

report::Sheet LiveReport::SheetSize() {
    const PaperExtent paper = Paper();
    if (Landscape()) return {paper.height, paper.width};
    return {paper.width, paper.height};
}

void LiveReport::BuildPage(std::int32_t index, report::Page& page) {
    Document().Build(static_cast<std::size_t>(std::max(index, 0)), page);
    WarnOfMissingGlyphs();
}

const text::FontBook& LiveReport::Fonts() {
    if (!mServices->fonts)
        throw Failure(FailureNumber::Output, "The report's text has no fonts to draw its pages with.");
    return *mServices->fonts;
}

void LiveReport::WritePdf(ByteSink& sink, const PageRange& range, const PageProgress& progress) {
    const text::FontBook& fonts = Fonts();
    mProgress = &progress;
    const std::shared_ptr<void> progressEnds(nullptr, [this](void*) { mProgress = nullptr; });

    const std::int32_t pageCount = PageCount();
    const std::int32_t first = std::max(range.first.value_or(1), 1);
    const std::int32_t last = std::min(range.last.value_or(pageCount), pageCount);
    if (first > last)
        throw Failure(FailureNumber::InvalidArgument,
                      "The pages asked for, " + std::to_string(range.first.value_or(1)) + " to " +
                          std::to_string(range.last.value_or(pageCount)) +
                          ", are not in the report; it has " + std::to_string(pageCount) + ".");
    pdf::Writer writer(sink, fonts, {Title(), PrintedAt()});
    report::Page page;
    const auto all = static_cast<std::size_t>(last - first + 1);
    for (std::size_t done = 0; done < all; ++done) {
        if (progress) progress(done, all);
        Document().Build(static_cast<std::size_t>(first - 1) + done, page);
        writer.AddPage(page);
    }
    writer.Finish();
    if (progress) progress(all, all);
    WarnOfMissingGlyphs();
}

ExportJob LiveReport::Job() {
    ExportJob job{Title(), PrintedAt(), mPaperSize, Landscape(), {}, {}};
    if (mPaperSize >= FirstOwnPaper) job.ownSheet = Paper();
    job.parts.push_back({&mState->definition, OrderedRows()});
    for (const auto& [name, subreport] : mSubreports)
        if (subreport->mRows) job.parts.push_back({&subreport->mState->definition, subreport->OrderedRows()});
    return job;
}

void LiveReport::WriteTable(TableKind kind, ByteSink& sink, const TableProgress& progress) {
    switch (kind) {
    case TableKind::Xlsx:
        WriteXlsx(sink, Job(), progress);
        break;
    case TableKind::Html:
        WriteHtml(sink, Job(), progress);
        break;
    default:
        WriteCsv(sink, mState->definition, *Rows(), progress);
    }
}

std::vector<std::string> LiveReport::Subreports() {
    std::vector<std::string> names;
    for (const auto& [name, definition] : mState->definition.subreports)
        names.push_back(name);
    return names;
}

void LiveReport::WriteSubreport(const std::string& name, ByteSink& sink, const TableProgress& progress) {
    static_cast<void>(OpenSubreport(name));
    mSubreports.at(name)->WriteTable(TableKind::Csv, sink, progress);
}

void LiveReport::WarnOfMissingGlyphs() const {
    if (!mServices->missingGlyphs) return;
    const std::vector<std::string> missing = mServices->missingGlyphs();
    if (missing.empty()) return;
    std::string warning = "no font has these characters, a box stands for each: ";
    for (std::size_t i = 0; i < missing.size(); ++i)
        warning += (i == 0 ? "" : ", ") + missing[i];
    if (mServices->warn)
        mServices->warn(warning);
    else
        std::fprintf(stderr, "qbrpt: %s\n", warning.c_str());
}

} // namespace qbrpt
