#include "dialect/functions.h"

#include "dialect/function_groups.h"

#include <array>
#include <limits>
#include <vector>

namespace qbrpt::dialect {

namespace {

// First and Last: the value of the row whose numbers (one a table, in the order of the arguments) are the
// least or the greatest. A table that has no row there counts as behind, or before, all others.
template <bool WantFirst>
class EndRow final : public Accumulator {
public:
    void Step(std::span<const Value> arguments) override {
        mRow.clear();
        for (const Value& number : arguments.subspan(1)) {
            const auto* whole = std::get_if<std::int64_t>(&number);
            constexpr auto Missing = WantFirst ? std::numeric_limits<std::int64_t>::max()
                                               : std::numeric_limits<std::int64_t>::min();
            mRow.push_back(whole != nullptr ? *whole : Missing);
        }
        if (mAny && (WantFirst ? mRow >= mBest : mRow < mBest)) return;
        mAny = true;
        mBest.swap(mRow);
        mValue = arguments[0];
    }
    [[nodiscard]] Value Result() const override { return mValue; }

private:
    bool mAny = false;
    std::vector<std::int64_t> mBest;
    std::vector<std::int64_t> mRow;
    Value mValue;
};

template <class Kind>
std::unique_ptr<Accumulator> Begin() {
    return std::make_unique<Kind>();
}

constexpr std::array<AggregateFunction, 2> Aggregates = {
    {{"qb_first", Begin<EndRow<true>>}, {"qb_last", Begin<EndRow<false>>}}};

std::vector<ScalarFunction> CollectScalars() {
    std::vector<ScalarFunction> all;
    for (const auto group : {TextFunctions(), NumberFunctions(), DateFunctions(), FormatFunctions()})
        all.insert(all.end(), group.begin(), group.end());
    return all;
}

} // namespace

std::span<const ScalarFunction> ScalarFunctions() {
    static const std::vector<ScalarFunction> all = CollectScalars();
    return all;
}

std::span<const AggregateFunction> AggregateFunctions() {
    return Aggregates;
}

} // namespace qbrpt::dialect
