// From a bound tree to the text that SQLite runs.
#pragma once

#include "dialect/binder.h"
#include "dialect/tree.h"

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::dialect {

class Emitter {
public:
    explicit Emitter(const Binder& binder) : mBinder(binder) {}

    [[nodiscard]] std::string Emit(const Statement& statement);

private:
    /// How tightly SQLite's operators bind, from the loosest to the tightest. Every Emit... of an expression
    /// is told the level that its place asks for, and puts parentheses around what is looser.
    enum Level : int { Or, And, Not, Equal, Relation, Bits, Sum, Product, Join, Collate, Unary, Primary };

    /// How the columns of a SELECT are named.
    enum class Naming { Output, Internal, None };

    void Put(std::string_view text);
    void PutName(std::string_view name);
    void PutText(std::string_view text);
    void PutReal(double value);
    void PutSnapped(double dayNumber, double shift);
    void PutColumn(const Binding& binding);
    [[nodiscard]] bool IsGroupedText(const Node& node) const;
    class Enclosed;
    class Deeper;

    // Statements.
    void EmitTotals(const Statement& statement);
    void EmitInsert(const Statement& statement);
    void EmitUpdate(const Statement& statement);
    void EmitDelete(const Statement& statement);
    void EmitStored(const Node& node, ValueKind kind);
    void EmitStoredQuery(const Statement& statement);

    // Queries.
    void EmitQuery(const Query& query, Naming naming);
    void EmitUnion(const Query& query, Naming naming);
    void PutBooleanOrder(const OrderTerm& term);
    void EmitTop(const Query& query, Naming naming);
    void EmitTopKeys(const Query& query, bool beside);
    void EmitSelect(const Select& select, const Query& query, Naming naming, bool combined);
    void EmitItem(const Select& select, std::size_t index, const Query& query, bool combined);
    void EmitItemName(const Query& query, std::size_t index, Naming naming);
    void EmitFromWhere(const Select& select);
    void EmitFrom(const JoinNode& join);
    void EmitSource(const Source& source);
    void EmitGroupBy(const Select& select);
    void EmitOrder(const Query& query);
    [[nodiscard]] bool EmitOrderKey(const Node& node);

    // Expressions.
    void EmitValue(const Node& node, Level level);
    void EmitCondition(const Node& node, Level level);
    void EmitBit(const Node& node, Level level);
    void EmitNumber(const Node& node, Level level);
    void EmitWhole(const Node& node, Level level);
    void EmitText(const Node& node, Level level);
    void EmitAs(const Node& node, ValueKind kind, Level level);
    void EmitLogic(const Node& node, Level level);
    void EmitChain(const Node& node, std::size_t begin, std::size_t end, Level level);
    void EmitBitwise(const Node& node, Level level);
    void EmitNot(const Node& node, Level level);
    void EmitArithmetic(const Node& node, Level level);
    void EmitOperands(const Node& node, std::string_view sign, Level level, bool wholes);
    void EmitNested(const Node& node, Level level);
    void EmitLookup(const Node& node);

    // Comparisons.
    void EmitCompare(const Node& node, Level level);
    void EmitComparison(Operator op, const Node& left, const Node& right, Level level);
    void EmitPlainCompare(Operator op, const Node& left, const Node& right, Level level);
    void EmitDateCompare(Operator op, const Node& date, const Node& other, Level level);
    [[nodiscard]] bool EmitDayCompare(Operator op, const Node& call, const Node& other, Level level);
    [[nodiscard]] static bool ComparesDays(const Node& call, const Node& other);
    void EmitDayBound(const Node& date, double day, bool lower, bool inside);
    void EmitDateBound(const Node& bound, int side);
    void EmitBetween(const Node& node, Level level);
    void EmitBetweenBounds(const Node& low, const Node& high, bool dates, bool texts);
    void EmitNumberOrValue(const Node& node, Level level);
    void EmitInList(const Node& node, Level level);
    void EmitNullTest(const Node& node, bool negated, Level level);

    // Calls.
    void EmitCall(const Node& node, Level level);
    void EmitFunction(const Node& node, std::string_view emitted);
    void EmitArgument(const Node& node, char how);
    void EmitAggregate(const Node& node);
    void EmitAggregateCall(const Node& node);
    void EmitFirst(const Node& node);
    void EmitIIf(const Node& node);
    void EmitSwitch(const Node& node);
    void EmitChoose(const Node& node);
    void EmitFormat(const Node& node);
    [[nodiscard]] bool EmitNativeText(const Node& node);
    void EmitRounded(const Node& node, std::string_view function);
    void EmitConversion(const Node& node, Level level);

    const Binder& mBinder;
    std::string mOut;
    int mDepth = 0;
    const Select* mSelect = nullptr; ///< that is being written
    bool mOfGroups = false;          ///< what is being written sees groups of its rows, not single ones
};

/// Parentheses around an expression that binds looser than its place asks for.
class Emitter::Enclosed {
public:
    Enclosed(Emitter& emitter, Level own, Level asked) : mEmitter(emitter), mNeeded(own < asked) {
        if (mNeeded) mEmitter.Put("(");
    }
    ~Enclosed() noexcept(false) {
        if (mNeeded) mEmitter.mOut.push_back(')');
    }
    Enclosed(const Enclosed&) = delete;
    Enclosed& operator=(const Enclosed&) = delete;

private:
    Emitter& mEmitter;
    bool mNeeded;
};

/// Half a millisecond in days: moments that are nearer than this are one.
constexpr double HalfMillisecond = 0.5 / 86'400'000;

} // namespace qbrpt::dialect
