#include "adapters/export/xlsx_table.h"

#include "adapters/export/plain_text.h"
#include "base/utf8.h"
#include "report/totals.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <utility>

namespace qbrpt {

namespace {

using report::ValueFormat;
using Rule = CellLook::Rule;

constexpr std::uint32_t Grey = 0x3C444B;
constexpr const char* Continued = " (تابع)";
constexpr double CaptionSize = 10;
constexpr std::size_t LeastWidth = 6;
constexpr double RowHeight = 18; ///< points; Arabic needs more than a spreadsheet gives by itself
constexpr double LineHeight = 15;
constexpr double MostHeight = 409;
constexpr std::size_t FilterArrow = 3;
// A page's figures stand on their points at 9; a screen's cells are larger.
constexpr double HeadingScale = 1.15;
constexpr double HeadingLineStep = 1.7;

bool IsWords(const report::Column& column) {
    return column.format == ValueFormat::Text;
}

CellLook::Align AlignOf(report::Align align) {
    switch (align) {
    case report::Align::Centre:
        return CellLook::Align::Centre;
    case report::Align::Left:
        return CellLook::Align::Left;
    default:
        return CellLook::Align::Right;
    }
}

/// How the rows of totals look.
CellLook TotalsLook(TotalsRow::Kind kind, const TableColors& colors) {
    CellLook look;
    look.ruleColor = colors.accent;
    if (kind == TotalsRow::Kind::Average) {
        look.color = Grey;
        return look;
    }
    look.bold = true;
    look.above = Rule::Thin;
    look.fill = kind == TotalsRow::Kind::Group ? colors.light : colors.tint;
    if (kind == TotalsRow::Kind::Report) look.below = Rule::Double;
    return look;
}

lxw_col_t Column(std::size_t index) {
    return static_cast<lxw_col_t>(index);
}

} // namespace

XlsxTable::XlsxTable(XlsxBook& book, const ExportJob& job, const TablePlan& plan, std::string sheetName,
                     std::uint32_t rowsPerSheet)
    : mBook(book), mJob(job), mPlan(plan), mSheetName(std::move(sheetName)), mRowLimit(rowsPerSheet),
      mWidths(plan.columns.size()), mReport(FreshScope()),
      mGroups(plan.definition->groups.size(), FreshScope()) {
    BeginSheet();
}

void XlsxTable::BeginSheet() {
    mSheet = mBook.AddSheet(mSheetName);
    mRow = 0;
    worksheet_set_default_row(mSheet, RowHeight, LXW_FALSE);
    worksheet_gridlines(mSheet, LXW_HIDE_ALL_GRIDLINES);
    worksheet_outline_settings(mSheet, LXW_TRUE, LXW_TRUE, LXW_FALSE, LXW_FALSE);
    WriteHeading();
    const std::uint32_t firstCaptionRow = mRow;
    WriteTiers();
    WriteCaptions();
    worksheet_freeze_panes(mSheet, mRow, 0);
    CheckXlsx(worksheet_repeat_rows(mSheet, firstCaptionRow, mCaptionRow));
    SetUpPrinting();
}

void XlsxTable::SetUpPrinting() {
    if (mJob.landscape)
        worksheet_set_landscape(mSheet);
    else
        worksheet_set_portrait(mSheet);
    // Spreadsheets know the usual numbers only; for any other paper the reader's printer chooses.
    const bool usual = mJob.paperSize < FirstOwnPaper;
    worksheet_set_paper(mSheet, usual ? static_cast<std::uint8_t>(mJob.paperSize) : std::uint8_t{0});
    worksheet_set_margins(mSheet, 0.35, 0.35, 0.5, 0.6);
    worksheet_fit_to_pages(mSheet, 1, 0);
    worksheet_center_horizontally(mSheet);
    CellView moment;
    moment.kind = ValueKind::Date;
    moment.number = mJob.printedAt;
    report::ValueWriter writer;
    const std::string footer =
        "&Lطُبع في " + std::string(writer.Write(moment, ValueFormat::DateTime, {}).text) + "&Rصفحة &P من &N";
    CheckXlsx(worksheet_set_footer(mSheet, footer.c_str()));
}

void XlsxTable::WriteHeading() {
    for (const HeadingLine& line : mPlan.heading) {
        CellLook look;
        look.size = line.size * HeadingScale;
        look.bold = line.bold;
        look.color = line.color;
        CheckXlsx(worksheet_set_row(mSheet, mRow, look.size * HeadingLineStep, nullptr));
        WriteText(0, line.text, look);
        ++mRow;
    }
    if (!mPlan.heading.empty()) ++mRow;
}

void XlsxTable::WriteTiers() {
    const auto& tiers = mPlan.definition->tiers;
    if (tiers.empty()) return;
    CellLook look;
    look.align = CellLook::Align::Centre;
    look.size = CaptionSize;
    look.bold = true;
    look.color = mPlan.colors.accent;
    look.ruleColor = mPlan.colors.accent;
    look.fill = mPlan.colors.tint;
    look.below = Rule::Thin;
    for (std::size_t first = 0; first < mPlan.columns.size();) {
        std::size_t end = first + 1;
        while (end < mPlan.columns.size() && mPlan.columns[end].tier == mPlan.columns[first].tier)
            ++end;
        const int tier = mPlan.columns[first].tier;
        const std::string caption = tier < 0 ? "" : SheetText(tiers[static_cast<std::size_t>(tier)]);
        if (end == first + 1)
            WriteText(first, caption, look);
        else
            CheckXlsx(worksheet_merge_range(mSheet, mRow, Column(first), mRow, Column(end - 1),
                                            caption.c_str(), mBook.Format(look)));
        first = end;
    }
    ++mRow;
}

void XlsxTable::WriteCaptions() {
    for (std::size_t i = 0; i < mPlan.columns.size(); ++i) {
        const report::Column& column = mPlan.columns[i];
        CellLook look;
        look.align = AlignOf(column.align);
        look.size = CaptionSize;
        look.bold = true;
        look.wrap = true;
        look.fill = mPlan.colors.tint;
        const std::string caption =
            column.unit.empty() ? column.caption : column.caption + " (" + column.unit + ")";
        WriteText(i, caption, look);
        NoteWidth(i, CharacterCount(caption) + FilterArrow);
    }
    mCaptionRow = mRow++;
}

void XlsxTable::FinishSheet() {
    for (std::size_t i = 0; i < mWidths.size(); ++i) {
        const auto width = static_cast<double>(std::clamp(mWidths[i], LeastWidth, WidestColumn)) + 1.5;
        CheckXlsx(worksheet_set_column(mSheet, Column(i), Column(i), width, nullptr));
    }
    FilterRows();
}

/// Puts the buttons of a filter on the captions. The library takes it only before the next row is written.
/// Not over groups: it would sort their headings among the rows.
void XlsxTable::FilterRows() {
    if (!mGroups.empty() || mReport.rows.empty()) return;
    const Stretch& rows = mReport.rows.back();
    if (rows.sheet != XlsxBook::NameOf(*mSheet) || rows.last + 1 != mRow) return;
    CheckXlsx(worksheet_autofilter(mSheet, mCaptionRow, 0, rows.last, Column(mPlan.columns.size() - 1)));
}

bool XlsxTable::MakeRoom() {
    if (mRow < mRowLimit) return false;
    FinishSheet();
    BeginSheet();
    return true;
}

void XlsxTable::NoteWidth(std::size_t column, std::size_t characters) {
    mWidths[column] = std::max(mWidths[column], characters);
}

CellLook XlsxTable::LookOf(std::size_t column, const CellView& cell) const {
    const report::Column& source = mPlan.columns[column];
    CellLook look;
    look.align = AlignOf(source.align);
    look.wrap = IsWords(source);
    look.bold = source.key;
    look.fill = source.key ? mPlan.colors.light : CellLook::White;
    look.below = Rule::Hair;
    if (source.emphasis && report::Holds(source.emphasis->test, cell)) {
        look.color = source.emphasis->color;
        look.fill = source.emphasis->ground.value_or(look.fill);
        look.bold = look.bold || source.emphasis->bold;
    }
    return look;
}

void XlsxTable::WriteText(std::size_t column, std::string_view text, const CellLook& look) {
    const std::string plain = SheetText(text);
    if (plain.empty())
        CheckXlsx(worksheet_write_blank(mSheet, mRow, Column(column), mBook.Format(look)));
    else
        CheckXlsx(worksheet_write_string(mSheet, mRow, Column(column), plain.c_str(), mBook.Format(look)));
}

/// Writes a value; false where a number had to become a text.
bool XlsxTable::WriteValue(std::size_t column, const CellView& cell, CellLook look) {
    const SheetValue value = mValues.Of(cell, mPlan.columns[column]);
    NoteWidth(column, value.characters);
    mLines = std::max(mLines, value.lines);
    switch (value.kind) {
    case SheetValue::Kind::Number:
        look.numberFormat = value.numberFormat;
        CheckXlsx(worksheet_write_number(mSheet, mRow, Column(column), value.number, mBook.Format(look)));
        return true;
    case SheetValue::Kind::Text:
        CheckXlsx(
            worksheet_write_string(mSheet, mRow, Column(column), value.text.c_str(), mBook.Format(look)));
        return cell.kind == ValueKind::Text;
    default:
        CheckXlsx(worksheet_write_blank(mSheet, mRow, Column(column), mBook.Format(look)));
        return true;
    }
}

void XlsxTable::BeginGroup(std::size_t group, std::string_view heading) {
    std::fill(mGroups.begin() + static_cast<std::ptrdiff_t>(group), mGroups.end(), FreshScope());
    mGroups[group].heading = SheetText(WithoutIsolates(heading));
    if (heading.empty()) return;
    MakeRoom();
    WriteGroupHeading(mGroups[group].heading);
}

void XlsxTable::WriteGroupHeading(const std::string& heading) {
    CellLook look;
    look.bold = true;
    look.color = mPlan.colors.accent;
    look.ruleColor = mPlan.colors.accent;
    look.below = Rule::Thin;
    WriteText(0, heading, look);
    for (std::size_t i = 1; i < mPlan.columns.size(); ++i)
        WriteText(i, "", look);
    ++mRow;
}

void XlsxTable::Row(const RowView& row) {
    if (MakeRoom())
        for (const Scope& group : mGroups)
            if (!group.rows.empty() && !group.heading.empty()) WriteGroupHeading(group.heading + Continued);
    std::vector<bool> inexact(mPlan.columns.size());
    mLines = 1;
    for (std::size_t i = 0; i < mPlan.columns.size(); ++i) {
        const CellView& cell = row[static_cast<std::size_t>(mPlan.columns[i].field)];
        inexact[i] = !WriteValue(i, cell, LookOf(i, cell));
    }
    SetUpRow();
    Take(mReport, inexact);
    for (Scope& group : mGroups)
        Take(group, inexact);
    ++mRow;
}

/// Rows of groups can be folded; one with broken lines says its height, since not every program works it out.
void XlsxTable::SetUpRow() {
    if (mGroups.empty() && mLines == 1) return;
    lxw_row_col_options outline{};
    outline.level = static_cast<std::uint8_t>(std::min<std::size_t>(mGroups.size(), 7));
    const double height = std::min(RowHeight + static_cast<double>(mLines - 1) * LineHeight, MostHeight);
    CheckXlsx(worksheet_set_row_opt(mSheet, mRow, height, nullptr, &outline));
}

void XlsxTable::Take(Scope& scope, const std::vector<bool>& inexact) {
    const std::string sheet = XlsxBook::NameOf(*mSheet);
    if (scope.rows.empty() || scope.rows.back().sheet != sheet) scope.rows.push_back({sheet, mRow, mRow});
    scope.rows.back().last = mRow;
    for (std::size_t i = 0; i < inexact.size(); ++i)
        if (inexact[i]) scope.inexact[i] = true;
}

XlsxTable::Scope& XlsxTable::ScopeOf(const TotalsRow& totals) {
    return totals.kind == TotalsRow::Kind::Group ? mGroups[totals.group] : mReport;
}

void XlsxTable::Totals(const TotalsRow& totals) {
    FilterRows();
    MakeRoom();
    const CellLook look = TotalsLook(totals.kind, mPlan.colors);
    // The number of rows stands beside the label, where there is a column for it.
    const bool apart = mPlan.WordColumns() > 1;
    std::string label = WithoutIsolates(totals.label);
    const std::string count = WithoutIsolates(totals.count);
    if (!apart && !count.empty()) label += " (" + count + ")";
    WriteText(0, label, look);
    NoteWidth(0, CharacterCount(label));
    for (std::size_t i = 1; i < mPlan.columns.size(); ++i) {
        CellLook cell = look;
        cell.align = AlignOf(mPlan.columns[i].align);
        if (i == 1 && apart && !count.empty()) {
            cell.bold = false;
            cell.color = Grey;
            WriteText(i, count, cell);
            NoteWidth(i, CharacterCount(count));
        } else {
            WriteTotal(i, totals, cell);
        }
    }
    ++mRow;
}

void XlsxTable::WriteTotal(std::size_t column, const TotalsRow& totals, const CellLook& look) {
    const SheetValue value = mValues.Of(totals.values[column], mPlan.columns[column]);
    const Scope& scope = ScopeOf(totals);
    if (value.kind != SheetValue::Kind::Number || scope.rows.empty() || scope.inexact[column]) {
        WriteValue(column, totals.values[column], look);
        return;
    }
    const std::string sheet = XlsxBook::NameOf(*mSheet);
    const std::string formula = totals.kind == TotalsRow::Kind::Average
                                    ? AverageFormula(scope.rows, column, sheet)
                                    : SumFormula(scope.rows, column, sheet);
    CellLook withFormat = look;
    withFormat.numberFormat = value.numberFormat;
    NoteWidth(column, value.characters);
    CheckXlsx(worksheet_write_formula_num(mSheet, mRow, Column(column), ("=" + formula).c_str(),
                                          mBook.Format(withFormat), value.number));
}

} // namespace qbrpt
