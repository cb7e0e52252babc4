// Rows held in memory.
#pragma once

#include "base/rows.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt {

using Row = std::vector<Value>;

/// The value seen as a cell; its text lives as long as the value.
[[nodiscard]] inline CellView CellOf(const Value& value) {
    CellView cell;
    cell.kind = KindOf(value);
    if (const auto* flag = std::get_if<bool>(&value)) cell.whole = *flag ? 1 : 0;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        cell.whole = *whole;
        cell.number = static_cast<double>(*whole);
    }
    if (const auto* number = std::get_if<double>(&value)) cell.number = *number;
    if (const auto* date = std::get_if<Date>(&value)) cell.number = date->number;
    if (const auto* text = std::get_if<std::string>(&value)) cell.text = *text;
    return cell;
}

/// A row source of rows that are at hand; must be held by a shared pointer.
class MemoryRows final : public RowSource, public std::enable_shared_from_this<MemoryRows> {
public:
    explicit MemoryRows(std::vector<Row> rows, std::vector<ColumnInfo> columns = {})
        : mRows(std::move(rows)), mColumns(std::move(columns)) {
        if (!mColumns.empty() || mRows.empty()) return;
        for (std::size_t column = 0; column < mRows.front().size(); ++column)
            mColumns.push_back({"column" + std::to_string(column + 1), KindOf(mRows.front()[column])});
    }

    [[nodiscard]] std::size_t RowCount() const override { return mRows.size(); }
    [[nodiscard]] const std::vector<ColumnInfo>& Columns() const override { return mColumns; }
    [[nodiscard]] std::unique_ptr<RowCursor> Open() const override {
        return std::make_unique<Cursor>(shared_from_this());
    }
    [[nodiscard]] const Row& At(std::size_t index) const { return mRows.at(index); }

private:
    class Cursor final : public RowCursor {
    public:
        explicit Cursor(std::shared_ptr<const MemoryRows> rows) : mSource(std::move(rows)) {}
        void Seek(std::size_t index) override { mNext = index; }
        bool Next(RowView& row) override {
            if (mNext >= mSource->RowCount()) return false;
            row.clear();
            for (const Value& value : mSource->At(mNext))
                row.push_back(CellOf(value));
            ++mNext;
            return true;
        }

    private:
        std::shared_ptr<const MemoryRows> mSource;
        std::size_t mNext = 0;
    };

    std::vector<Row> mRows;
    std::vector<ColumnInfo> mColumns;
};

} // namespace qbrpt
