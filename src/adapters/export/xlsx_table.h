// One table of a report on the sheets of a spreadsheet.
#pragma once

#include "adapters/export/export_job.h"
#include "adapters/export/table_walk.h"
#include "adapters/export/xlsx_book.h"
#include "adapters/export/xlsx_values.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qbrpt {

/// Rows without a gap on one sheet.
struct Stretch {
    std::string sheet;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};

class XlsxTable final : public TableVisitor {
public:
    /// All of these must outlive the table.
    XlsxTable(XlsxBook& book, const ExportJob& job, const TablePlan& plan, std::string sheetName,
              std::uint32_t rowsPerSheet);

    void BeginGroup(std::size_t group, std::string_view heading) override;
    void Row(const RowView& row) override;
    void Totals(const TotalsRow& totals) override;
    /// Call it after the walk.
    void Finish() { FinishSheet(); }

private:
    /// The rows that a total adds up.
    struct Scope {
        std::vector<Stretch> rows;
        std::vector<bool> inexact; ///< by column: some values are texts, which no formula adds up
        std::string heading{};     ///< of a group
    };

    void BeginSheet();
    void FinishSheet();
    void FilterRows();
    void SetUpPrinting();
    void WriteHeading();
    void WriteTiers();
    void WriteCaptions();
    /// Goes on on a further sheet where this one is full, and says whether it did.
    bool MakeRoom();
    void WriteGroupHeading(const std::string& heading);
    void SetUpRow();
    void NoteWidth(std::size_t column, std::size_t characters);
    [[nodiscard]] CellLook LookOf(std::size_t column, const CellView& cell) const;
    bool WriteValue(std::size_t column, const CellView& cell, CellLook look);
    void WriteText(std::size_t column, std::string_view text, const CellLook& look);
    void WriteTotal(std::size_t column, const TotalsRow& totals, const CellLook& look);
    [[nodiscard]] Scope& ScopeOf(const TotalsRow& totals);
    void Take(Scope& scope, const std::vector<bool>& inexact);
    [[nodiscard]] Scope FreshScope() const { return {{}, std::vector<bool>(mPlan.columns.size()), {}}; }

    XlsxBook& mBook;
    const ExportJob& mJob;
    const TablePlan& mPlan;
    std::string mSheetName;
    std::uint32_t mRowLimit;

    SheetValues mValues;
    lxw_worksheet* mSheet = nullptr;
    std::uint32_t mRow = 0;
    std::uint32_t mCaptionRow = 0;
    std::size_t mLines = 1;           ///< of the row that is being written
    std::vector<std::size_t> mWidths; ///< characters, by column
    Scope mReport;
    std::vector<Scope> mGroups;
};

/// "SUBTOTAL(9,F5:F20)" and the like over the cells of a column; other sheets are named. Subtotals among
/// the cells do not count twice, filtered rows do not count.
[[nodiscard]] std::string SumFormula(const std::vector<Stretch>& rows, std::size_t column,
                                     const std::string& sheet);
[[nodiscard]] std::string AverageFormula(const std::vector<Stretch>& rows, std::size_t column,
                                         const std::string& sheet);

} // namespace qbrpt
