#include "adapters/export/table_walk.h"

#include "report/group_breaks.h"
#include "report/placeholder_text.h"
#include "report/row_window.h"
#include "report/totals.h"

#include <optional>
#include <string>

namespace qbrpt {

namespace {

using report::Aggregate;
using report::Scope;
using report::Total;

constexpr std::size_t RowsBetweenProgress = 4096;

/// The totals of one kind of row, one for each column that has one.
using ColumnSlots = std::vector<std::optional<std::size_t>>;

class Walk {
public:
    Walk(const TablePlan& plan, const ExportPart& part, double printedAt, TableVisitor& visitor)
        : mPlan(plan), mDefinition(*plan.definition), mVisitor(visitor), mRows(part.rows, mDefinition),
          mGroupSlots(mDefinition.groups.size()), mGroupRows(mDefinition.groups.size()) {
        AddSlots(mSumSlots, &report::Column::sum, {Aggregate::Sum});
        AddSlots(mAverageSlots, &report::Column::average, {Aggregate::Average});
        for (std::size_t group = 0; group < mGroupSlots.size(); ++group)
            AddSlots(mGroupSlots[group], &report::Column::sum,
                     {Aggregate::Sum, 0, Scope::Group, static_cast<int>(group)});
        mBook.emplace(mTotals);
        mWords.emplace(mDefinition, mTotals, printedAt);
    }

    void Run(const RowProgress& onProgress) {
        for (std::size_t done = 0; mRows.Advance(); ++done) {
            const RowView& row = *mRows.Current();
            BeginGroups(done == 0);
            for (std::size_t& rows : mGroupRows)
                ++rows;
            ++mRowCount;
            mBook->AddRow(row);
            mVisitor.Row(row);
            EndGroups();
            if (onProgress && done % RowsBetweenProgress == 0) onProgress(done, mRows.RowCount());
        }
        const RowView none(mDefinition.fields.size() + mDefinition.computed.size());
        const RowView& last = mRows.Previous() ? *mRows.Previous() : none;
        if (mDefinition.total) Tell(TotalsRow::Kind::Report, -1, *mDefinition.total, mSumSlots, last);
        if (mDefinition.average)
            Tell(TotalsRow::Kind::Average, -1, *mDefinition.average, mAverageSlots, last);
    }

private:
    void AddSlots(ColumnSlots& slots, bool report::Column::*wanted, Total total) {
        for (const report::Column& column : mPlan.columns) {
            slots.emplace_back();
            if (!(column.*wanted)) continue;
            total.field = column.field;
            slots.back() = mTotals.size();
            mTotals.push_back(total);
        }
    }

    void BeginGroups(bool first) {
        const auto& groups = mDefinition.groups;
        const std::size_t opens =
            first ? 0 : report::FirstDifference(groups, *mRows.Previous(), *mRows.Current());
        if (opens == groups.size()) return;
        mBook->ClearGroups(static_cast<int>(opens));
        for (std::size_t group = opens; group < groups.size(); ++group) {
            mGroupRows[group] = 0;
            const report::FormatScope scope{.row = mRows.Current()};
            mVisitor.BeginGroup(group, mWords->Of(groups[group].heading, static_cast<int>(group), scope));
        }
    }

    void EndGroups() {
        const auto& groups = mDefinition.groups;
        const std::size_t closes =
            mRows.Next() ? report::FirstDifference(groups, *mRows.Current(), *mRows.Next()) : 0;
        for (std::size_t group = groups.size(); group > closes; --group) {
            const std::size_t ended = group - 1;
            const bool alone = mGroupRows[ended] == 1;
            if (groups[ended].total && !(alone && groups[ended].total->skipAlone))
                Tell(TotalsRow::Kind::Group, static_cast<int>(ended), *groups[ended].total,
                     mGroupSlots[ended], *mRows.Current());
        }
    }

    void Tell(TotalsRow::Kind kind, int group, const report::TotalWords& words, const ColumnSlots& slots,
              const RowView& row) {
        report::FormatScope scope{.row = &row, .totals = &*mBook};
        scope.rows = group < 0 ? mRowCount : mGroupRows[static_cast<std::size_t>(group)];
        const std::string label(mWords->Of(words.label, group, scope));
        const std::string count(words.noun.empty() ? ""
                                                   : mWords->Of("{rows:" + words.noun + "}", group, scope));
        TotalsRow totals{kind, group < 0 ? 0 : static_cast<std::size_t>(group), label, count, {}};
        for (const auto& slot : slots)
            totals.values.push_back(slot ? mBook->Result(*slot) : CellView{});
        mVisitor.Totals(totals);
    }

    const TablePlan& mPlan;
    const report::Definition& mDefinition;
    TableVisitor& mVisitor;
    report::RowWindow mRows;
    std::vector<Total> mTotals;
    ColumnSlots mSumSlots;
    ColumnSlots mAverageSlots;
    std::vector<ColumnSlots> mGroupSlots;
    std::vector<std::size_t> mGroupRows;
    std::size_t mRowCount = 0;
    std::optional<report::TotalsBook> mBook;
    std::optional<report::PlaceholderText> mWords;
};

} // namespace

void WalkTable(const TablePlan& plan, const ExportPart& part, double printedAt, TableVisitor& visitor,
               const RowProgress& onProgress) {
    Walk(plan, part, printedAt, visitor).Run(onProgress);
}

} // namespace qbrpt
