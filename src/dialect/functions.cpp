#include "dialect/functions.h"

#include "base/failure.h"
#include "dialect/builtins.h"
#include "dialect/convert.h"
#include "dialect/diagnostics.h"
#include "dialect/function_groups.h"

#include <algorithm>
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

/// How a call is told that stands in no statement under its own name.
struct CallWords {
    std::string_view emitted;
    std::string_view before;
    std::string_view between;
    std::string_view after;
};

constexpr auto OwnWords = std::to_array<CallWords>({
    {"qb_like", "", " Like ", ""},
    {"qb_power", "", " ^ ", ""},
    {"qb_xor", "", " Xor ", ""},
    {"qb_implies", "", " Imp ", ""},
    {"qb_cday", "CLng(", "", ")"},
    {"qb_whole", "the whole number of ", "", ""},
    {"qb_snap", "the date ", "", ""},
    {"qb_date_text", "the text of the date ", "", ""},
    {"qb_cstr_date", "the text of the date ", "", ""},
    {"qb_boolname", "the text of the truth of ", "", ""},
});

std::string CallText(const ScalarFunction& function, std::span<const Value> arguments) {
    const auto* own = std::find_if(OwnWords.begin(), OwnWords.end(), [&function](const CallWords& words) {
        return words.emitted == function.emittedName;
    });
    const bool named = own == OwnWords.end();
    const Builtin* builtin = named ? FindEmitted(function.emittedName) : nullptr;
    const std::string_view name = builtin != nullptr ? builtin->name : function.emittedName;
    std::string text = named ? std::string(name) + "(" : std::string(own->before);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0) text += named ? ", " : own->between;
        const Value& value = arguments[i];
        text += IsNull(value)                      ? "Null"
                : KindOf(value) == ValueKind::Text ? QuotedWord(std::get<std::string>(value))
                                                   : TextOf(value);
    }
    return text.append(named ? ")" : own->after);
}

} // namespace

std::span<const ScalarFunction> ScalarFunctions() {
    static const std::vector<ScalarFunction> all = CollectScalars();
    return all;
}

Value Evaluate(const ScalarFunction& function, std::span<const Value> arguments, const FunctionWorld& world) {
    try {
        return function.evaluate(arguments, world);
    } catch (const Failure& failure) {
        throw Failure(failure.Number(), CallText(function, arguments) + ": " + failure.Description());
    }
}

std::span<const AggregateFunction> AggregateFunctions() {
    return Aggregates;
}

} // namespace qbrpt::dialect
