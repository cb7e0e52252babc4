#include "adapters/export/html.h"

#include "adapters/export/html_style.h"
#include "adapters/export/html_text.h"
#include "adapters/export/plain_text.h"
#include "adapters/export/table_walk.h"
#include "report/totals.h"
#include "report/value_text.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace qbrpt {

namespace {

using report::Align;
using report::Column;
using report::ValueFormat;

constexpr std::size_t PieceSize = std::size_t{1} << 16;
constexpr std::string_view Minus = "\u2212";

/// Collects bytes and hands them on in pieces.
class Page {
public:
    explicit Page(ByteSink& sink) : mSink(sink) {}
    std::string& Text() { return mText; }
    void PassOn() {
        if (mText.size() >= PieceSize) Flush();
    }
    void Flush() {
        mSink.Write(mText);
        mText.clear();
    }

private:
    ByteSink& mSink;
    std::string mText;
};

std::string AlignClassOf(const Column& column) {
    if (column.align == Align::Centre) return "c";
    if (column.align == Align::Left) return "l";
    const bool words = column.format == ValueFormat::Text || column.format == ValueFormat::YesNo;
    return words ? "" : "n";
}

class TablePage final : public TableVisitor {
public:
    TablePage(Page& page, const TablePlan& plan) : mPage(page), mPlan(plan) {
        for (const Column& column : plan.columns)
            mClasses.push_back(AlignClassOf(column) + (column.key ? " k" : ""));
    }

    void Heading(bool isReport) {
        std::string& html = mPage.Text();
        if (mPlan.heading.empty()) return;
        html += "<header>\n";
        for (const HeadingLine& line : mPlan.heading)
            AddHeadingLine(line, isReport);
        html += "</header>\n";
    }

    void Begin() {
        std::string& html = mPage.Text();
        html += "<table>\n";
        AddWidths();
        html += "<thead>\n";
        AddTiers();
        html += "<tr>";
        for (std::size_t i = 0; i < mPlan.columns.size(); ++i) {
            html += "<th scope=\"col\"" + ClassAttribute(AlignClassOf(mPlan.columns[i])) + ">";
            AppendCellText(html, mPlan.columns[i].caption);
            if (!mPlan.columns[i].unit.empty()) {
                html += " <small>";
                AppendCellText(html, mPlan.columns[i].unit);
                html += "</small>";
            }
            html += "</th>";
        }
        html += "</tr>\n</thead>\n<tbody>\n";
    }

    void End() { mPage.Text() += "</tbody>\n</table>\n"; }

    void BeginGroup(std::size_t, std::string_view heading) override {
        std::string& html = mPage.Text();
        if (heading.empty()) return;
        html += "<tr class=\"g\"><th scope=\"rowgroup\" colspan=\"" + std::to_string(mPlan.columns.size()) +
                "\">";
        AppendCellText(html, WithoutIsolates(heading));
        html += "</th></tr>\n";
    }

    void Row(const RowView& row) override {
        mPage.Text() += "<tr>";
        for (std::size_t i = 0; i < mPlan.columns.size(); ++i)
            AddCell(i, row[static_cast<std::size_t>(mPlan.columns[i].field)], Emphasis::Allowed);
        mPage.Text() += "</tr>\n";
        mPage.PassOn();
    }

    void Totals(const TotalsRow& totals) override {
        static constexpr std::array<const char*, 3> classes = {"s", "t", "a"};
        std::string& html = mPage.Text();
        const std::size_t words = std::max<std::size_t>(mPlan.WordColumns(), 1);
        html += std::string("<tr class=\"") + classes[static_cast<std::size_t>(totals.kind)] +
                "\"><th scope=\"row\" colspan=\"" + std::to_string(words) + "\">";
        AppendCellText(html, WithoutIsolates(totals.label));
        if (!totals.count.empty()) {
            html += " <small>";
            AppendCellText(html, WithoutIsolates(totals.count));
            html += "</small>";
        }
        html += "</th>";
        for (std::size_t i = words; i < mPlan.columns.size(); ++i)
            AddCell(i, totals.values[i], Emphasis::None);
        html += "</tr>\n";
    }

private:
    static std::string ClassAttribute(const std::string& classes) {
        const std::size_t first = classes.find_first_not_of(' ');
        return first == std::string::npos ? "" : " class=\"" + classes.substr(first) + "\"";
    }

    void AddHeadingLine(const HeadingLine& line, bool isReport) {
        std::string& html = mPage.Text();
        const std::string tag = !line.isTitle ? "p" : isReport ? "h1" : "h2";
        html += "<" + tag + (line.headingFace ? " class=\"kufi\"" : "") +
                " style=\"font-size:" + std::to_string(static_cast<int>(line.size)) + "." +
                std::to_string(static_cast<int>(line.size * 10) % 10) +
                "pt;font-weight:" + (line.bold ? "700" : "400") + ";color:" + HtmlColor(line.color) + "\">";
        AppendCellText(html, line.text);
        html += "</" + tag + ">\n";
    }

    void AddWidths() {
        std::int64_t whole = 0;
        for (const Column& column : mPlan.columns)
            whole += column.width;
        if (whole <= 0) return;
        mPage.Text() += "<colgroup>";
        for (const Column& column : mPlan.columns) {
            const std::int64_t tenths = column.width * std::int64_t{1000} / whole;
            mPage.Text() += "<col style=\"width:" + std::to_string(tenths / 10) + "." +
                            std::to_string(tenths % 10) + "%\">";
        }
        mPage.Text() += "</colgroup>\n";
    }

    void AddTiers() {
        const auto& tiers = mPlan.definition->tiers;
        if (tiers.empty()) return;
        std::string& html = mPage.Text();
        html += "<tr>";
        for (std::size_t tier = 0; tier < tiers.size(); ++tier) {
            const auto span =
                std::count_if(mPlan.columns.begin(), mPlan.columns.end(),
                              [tier](const Column& column) { return column.tier == static_cast<int>(tier); });
            html += "<th class=\"tier\" scope=\"colgroup\" colspan=\"" + std::to_string(span) + "\">";
            AppendCellText(html, tiers[tier]);
            html += "</th>";
        }
        html += "</tr>\n";
    }

    void AddEmphasis(const report::Emphasis& emphasis) {
        std::string& html = mPage.Text();
        html += " style=\"color:" + HtmlColor(emphasis.color);
        if (emphasis.ground) html += ";background:" + HtmlColor(*emphasis.ground);
        if (emphasis.bold) html += ";font-weight:700";
        html += '"';
    }

    /// Totals are not emphasized.
    enum class Emphasis : std::uint8_t { Allowed, None };

    void AddCell(std::size_t index, const CellView& cell, Emphasis emphasis) {
        const Column& column = mPlan.columns[index];
        const report::ValueText value = mWriter.Write(cell, column.format, column.picture);
        std::string& html = mPage.Text();
        html += "<td" + ClassAttribute(value.zero ? mClasses[index] + " z" : mClasses[index]);
        if (emphasis == Emphasis::Allowed && column.emphasis && report::Holds(column.emphasis->test, cell))
            AddEmphasis(*column.emphasis);
        html += ">";
        if (!value.figures) {
            AppendCellText(html, value.text);
        } else if (value.text.starts_with('-')) {
            html.append(Minus).append(value.text.substr(1));
        } else {
            html += value.text;
        }
        html += "</td>";
    }

    Page& mPage;
    const TablePlan& mPlan;
    std::vector<std::string> mClasses;
    report::ValueWriter mWriter;
};

PaperExtent SheetOf(const ExportJob& job) {
    PaperExtent sheet = job.ownSheet.value_or(ExtentOfPaper(job.paperSize));
    if (job.landscape) std::swap(sheet.width, sheet.height);
    return sheet;
}

void AddHead(std::string& html, const ExportJob& job, const TablePlan& plan) {
    html += "<!DOCTYPE html>\n<html lang=\"ar\" dir=\"rtl\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width\">\n<title>";
    AppendEscaped(html, plan.Title(job.title));
    html +=
        "</title>\n<style>" + HtmlStyle(plan.colors, SheetOf(job)) + "</style>\n</head>\n<body>\n<main>\n";
}

void AddFoot(std::string& html, const ExportJob& job) {
    CellView moment;
    moment.kind = ValueKind::Date;
    moment.number = job.printedAt;
    report::ValueWriter writer;
    html += "<footer>طُبع في <bdi dir=\"ltr\">";
    html += writer.Write(moment, ValueFormat::DateTime, {}).text;
    html += "</bdi></footer>\n</main>\n</body>\n</html>\n";
}

} // namespace

void WriteHtml(ByteSink& sink, const ExportJob& job, const RowProgress& onProgress) {
    Page page(sink);
    const std::vector<PlannedPart> parts = PlannedParts(job);
    AddHead(page.Text(), job, parts.front().plan);
    for (const auto& [part, plan] : parts) {
        TablePage table(page, plan);
        table.Heading(&plan == &parts.front().plan);
        table.Begin();
        WalkTable(plan, part, job.printedAt, table, onProgress);
        table.End();
    }
    AddFoot(page.Text(), job);
    page.Flush();
}

} // namespace qbrpt
