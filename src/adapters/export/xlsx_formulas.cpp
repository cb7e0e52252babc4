#include "adapters/export/xlsx_table.h"

#include <xlsxwriter.h>

#include <array>

namespace qbrpt {

namespace {

// Functions of SUBTOTAL.
constexpr int Average = 1;
constexpr int Count = 2;
constexpr int Sum = 9;

std::string RangeOf(const Stretch& rows, std::size_t column, const std::string& sheet) {
    std::array<char, LXW_MAX_CELL_RANGE_LENGTH> range{};
    const auto at = static_cast<lxw_col_t>(column);
    lxw_rowcol_to_range(range.data(), rows.first, at, rows.last, at);
    return rows.sheet == sheet ? range.data() : "'" + rows.sheet + "'!" + range.data();
}

/// One SUBTOTAL for each sheet, added up.
std::string Subtotals(int function, const std::vector<Stretch>& rows, std::size_t column,
                      const std::string& sheet) {
    std::string formula;
    for (const Stretch& stretch : rows)
        formula += (formula.empty() ? "SUBTOTAL(" : "+SUBTOTAL(") + std::to_string(function) + "," +
                   RangeOf(stretch, column, sheet) + ")";
    return formula;
}

} // namespace

std::string SumFormula(const std::vector<Stretch>& rows, std::size_t column, const std::string& sheet) {
    return Subtotals(Sum, rows, column, sheet);
}

std::string AverageFormula(const std::vector<Stretch>& rows, std::size_t column, const std::string& sheet) {
    if (rows.size() == 1) return Subtotals(Average, rows, column, sheet);
    return "(" + Subtotals(Sum, rows, column, sheet) + ")/(" + Subtotals(Count, rows, column, sheet) + ")";
}

} // namespace qbrpt
