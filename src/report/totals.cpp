#include "report/totals.h"

#include <cmath>

namespace qbrpt::report {

namespace {

constexpr double UnitsInOne = 10'000;
// Up to here a value's ten-thousandths are whole numbers that a double tells apart.
constexpr double LargestDecimal = 1e11;
constexpr std::int64_t UnitsLimit = std::int64_t{1} << 62U;

bool NumberOf(const CellView& value, double& number) {
    switch (value.kind) {
    case ValueKind::Whole:
    case ValueKind::Boolean:
        number = static_cast<double>(value.whole);
        return true;
    case ValueKind::Number:
    case ValueKind::Date:
        number = value.number;
        return std::isfinite(number);
    default:
        return false;
    }
}

} // namespace

void ExactSum::Add(double value) {
    const double units = value * UnitsInOne;
    // Added to it, a number below 2^51 loses its fraction to the rounding of the sum.
    constexpr double roundsWhole = 6755399441055744.0;
    const double whole = (units + roundsWhole) - roundsWhole;
    // The double nearest to a decimal lies within a rounding error of it; 1/3 lies far from every one.
    if (std::fabs(value) < LargestDecimal && whole / UnitsInOne == value) {
        const std::int64_t sum = mUnits + static_cast<std::int64_t>(whole);
        if (sum < UnitsLimit && sum > -UnitsLimit) {
            mUnits = sum;
            return;
        }
    }
    const double sum = mRest + value;
    mCarried += std::fabs(mRest) >= std::fabs(value) ? (mRest - sum) + value : (value - sum) + mRest;
    mRest = sum;
}

double ExactSum::Result() const {
    const double decimals = static_cast<double>(mUnits) / UnitsInOne;
    if (mRest == 0 && mCarried == 0) return decimals;
    const double rest = std::isfinite(mCarried) ? mRest + mCarried : mRest;
    return decimals + rest;
}

bool Holds(Condition::Test test, const CellView& value) {
    const bool filled =
        value.kind != ValueKind::Null && (value.kind != ValueKind::Text || !value.text.empty());
    if (test == Condition::Test::Filled) return filled;
    if (test == Condition::Test::Empty) return !filled;
    double number = 0;
    if (!NumberOf(value, number)) return false;
    switch (test) {
    case Condition::Test::Positive:
        return number > 0;
    case Condition::Test::Negative:
        return number < 0;
    case Condition::Test::Zero:
        return number == 0;
    default:
        return number != 0;
    }
}

bool Holds(const Condition& condition, const RowView& row) {
    return Holds(condition.test, row[static_cast<std::size_t>(condition.field)]) != condition.unless;
}

void Accumulator::Add(Aggregate aggregate, const CellView& value) {
    if (value.kind == ValueKind::Null) return;
    if (aggregate == Aggregate::Count) {
        ++mCount;
        return;
    }
    double number = 0;
    if (!NumberOf(value, number)) return;
    mKind = value.kind == ValueKind::Date ? ValueKind::Date : ValueKind::Number;
    AddNumber(aggregate, number);
    ++mCount;
}

void Accumulator::AddNumber(Aggregate aggregate, double number) {
    switch (aggregate) {
    case Aggregate::Minimum:
        mExtreme = mCount == 0 ? number : std::fmin(mExtreme, number);
        break;
    case Aggregate::Maximum:
        mExtreme = mCount == 0 ? number : std::fmax(mExtreme, number);
        break;
    default:
        mSum.Add(number);
    }
}

CellView Accumulator::Result(Aggregate aggregate) const {
    CellView result;
    if (aggregate == Aggregate::Count) {
        result.kind = ValueKind::Whole;
        result.whole = static_cast<std::int64_t>(mCount);
        result.number = static_cast<double>(mCount);
        return result;
    }
    if (mCount == 0) return result;
    result.kind = mKind;
    switch (aggregate) {
    case Aggregate::Average:
        result.number = mSum.Result() / static_cast<double>(mCount);
        break;
    case Aggregate::Minimum:
    case Aggregate::Maximum:
        result.number = mExtreme;
        break;
    default:
        result.number = mSum.Result();
        result.kind = ValueKind::Number; // days do not add up to a day
    }
    return result;
}

TotalsBook::TotalsBook(std::span<const Total> totals) : mTotals(totals), mAccumulators(totals.size()) {}

void TotalsBook::Take(std::size_t total, const RowView& row) {
    const Total& wanted = mTotals[total];
    if (wanted.when && !Holds(*wanted.when, row)) return;
    mAccumulators[total].Add(wanted.aggregate, row[static_cast<std::size_t>(wanted.field)]);
}

void TotalsBook::AddRow(const RowView& row) {
    for (std::size_t total = 0; total < mTotals.size(); ++total) {
        if (mTotals[total].scope != Scope::Page) Take(total, row);
    }
}

void TotalsBook::AddRowToPage(const RowView& row) {
    for (std::size_t total = 0; total < mTotals.size(); ++total) {
        if (mTotals[total].scope == Scope::Page) Take(total, row);
    }
}

void TotalsBook::ClearGroups(int outermost) {
    for (std::size_t total = 0; total < mTotals.size(); ++total) {
        if (mTotals[total].scope == Scope::Group && mTotals[total].group >= outermost)
            mAccumulators[total] = {};
    }
}

void TotalsBook::ClearPage() {
    for (std::size_t total = 0; total < mTotals.size(); ++total) {
        if (mTotals[total].scope == Scope::Page) mAccumulators[total] = {};
    }
}

void TotalsBook::TakeReportTotals(const TotalsBook& whole) {
    for (std::size_t total = 0; total < mTotals.size(); ++total) {
        if (mTotals[total].scope == Scope::Report) mAccumulators[total] = whole.mAccumulators[total];
    }
}

CellView TotalsBook::Result(std::size_t total) const {
    return mAccumulators[total].Result(mTotals[total].aggregate);
}

} // namespace qbrpt::report
