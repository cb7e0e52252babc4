// Aggregates over a table, worked out in one walk over it.
#pragma once

#include "dialect/tree.h"

#include <memory>
#include <string>
#include <vector>

namespace qbrpt::dialect {

/// Conditions that must all be true.
using Conditions = std::vector<NodePtr>;

/// One walk over a table, with a row of totals for each value of a key column that occurs there.
class TotalsPass {
public:
    TotalsPass(std::string name, std::unique_ptr<Source> source, std::size_t key);

    [[nodiscard]] const std::string& Name() const { return mName; }
    [[nodiscard]] Source& Over() { return *mSource; }
    [[nodiscard]] bool IsOver(const Source& source, std::size_t key) const;

    /// The place, counted from 0, of the column with `aggregate` over those rows that pass `conditions`;
    /// the key is column 0. Both must be bound to `Over()`.
    std::size_t ColumnOf(NodePtr aggregate, const Conditions& conditions);
    [[nodiscard]] Totals Build();

private:
    struct Value {
        NodePtr aggregate;
        Conditions conditions;
    };

    [[nodiscard]] Conditions CommonConditions() const;
    [[nodiscard]] bool LiesInAnIndex(const Select& select) const;

    std::string mName;
    std::unique_ptr<Source> mSource;
    std::size_t mKey; ///< column of the source
    std::vector<Value> mValues;
};

/// All passes of a statement.
class TotalsPasses {
public:
    /// The pass over the table of `source` by column `key`. Where there is none yet, a new one takes the
    /// source.
    TotalsPass& For(std::unique_ptr<Source>& source, std::size_t key);
    [[nodiscard]] std::vector<Totals> Build();

private:
    std::vector<std::unique_ptr<TotalsPass>> mPasses;
};

/// Whether all columns in the expression are those of `source`, and no other query stands in it.
[[nodiscard]] bool LooksOnlyAt(const Node& expression, const Source& source);

/// Makes names of columns of `from` ones of `to`, which has the same columns.
void Rebind(Node& node, const Source& from, Source& to);

[[nodiscard]] NodePtr ColumnNode(Source& source, std::size_t column);

} // namespace qbrpt::dialect
