// Totals as a chain of small accumulators: each takes rows as they come and is cleared when its scope ends.
#pragma once

#include "base/rows.h"
#include "report/definition.h"

#include <cstdint>
#include <span>
#include <vector>

namespace qbrpt::report {

/// A sum in which money is exact. Values of up to four decimals are added as whole ten-thousandths; what
/// does not fit there is summed with its rounding error carried along.
class ExactSum {
public:
    void Add(double value);
    [[nodiscard]] double Result() const;

private:
    std::int64_t mUnits = 0;
    double mRest = 0;
    double mCarried = 0;
};

/// Whether `test` holds of `value`. Text counts as filled unless it is empty; it is neither positive nor
/// zero.
[[nodiscard]] bool Holds(Condition::Test test, const CellView& value);
/// Whether `condition` holds of `row`.
[[nodiscard]] bool Holds(const Condition& condition, const RowView& row);

/// One total while its rows pass by. Copied whole into checkpoints, hence small.
class Accumulator {
public:
    void Add(Aggregate aggregate, const CellView& value);
    /// Null where nothing was added up; a count is 0 then.
    [[nodiscard]] CellView Result(Aggregate aggregate) const;

private:
    void AddNumber(Aggregate aggregate, double number);

    ExactSum mSum;
    double mExtreme = 0;
    std::uint64_t mCount = 0;
    ValueKind mKind = ValueKind::Number; ///< Date, where the values are dates
};

/// All totals of one definition over one walk of its rows.
class TotalsBook {
public:
    /// `totals` must outlive the book.
    explicit TotalsBook(std::span<const Total> totals);

    /// Takes a row into the totals of reports and groups, or into those of pages.
    void AddRow(const RowView& row);
    void AddRowToPage(const RowView& row);
    /// Groups `outermost` and those inside it begin anew.
    void ClearGroups(int outermost);
    void ClearPage();
    /// Makes the totals of report scope those of `whole`, a book of the same totals.
    void TakeReportTotals(const TotalsBook& whole);

    [[nodiscard]] CellView Result(std::size_t total) const;

private:
    void Take(std::size_t total, const RowView& row);

    std::span<const Total> mTotals;
    std::vector<Accumulator> mAccumulators;
};

} // namespace qbrpt::report
