// A report of very many rows that takes no memory.
#pragma once

#include "base/failure.h"
#include "fakes/memory_rows.h"
#include "platform/DAO.h"

#include <memory>
#include <utility>
#include <vector>

namespace qbrpt {

/// The same rows over and over.
class RepeatedRows final : public RowSource, public std::enable_shared_from_this<RepeatedRows> {
public:
    RepeatedRows(std::vector<fakes::Row> rows, std::size_t count)
        : mRows(std::make_shared<fakes::MemoryRows>(std::move(rows))), mCount(count) {}

    [[nodiscard]] std::size_t RowCount() const override { return mCount; }
    [[nodiscard]] const std::vector<ColumnInfo>& Columns() const override { return mRows->Columns(); }
    [[nodiscard]] std::unique_ptr<RowCursor> Open() const override {
        ++mOpened;
        return std::make_unique<Cursor>(shared_from_this());
    }
    [[nodiscard]] int Opened() const { return mOpened; }
    /// From now on they cannot be read.
    void Tear() { mTorn = true; }

private:
    class Cursor final : public RowCursor {
    public:
        explicit Cursor(std::shared_ptr<const RepeatedRows> source)
            : mSource(std::move(source)), mInner(mSource->mRows->Open()) {}
        void Seek(std::size_t index) override {
            mNext = index;
            mInner->Seek(index % mSource->mRows->RowCount());
        }
        bool Next(RowView& row) override {
            if (mSource->mTorn) throw Failure(FailureNumber::Report, "The rows are torn.");
            if (mNext >= mSource->mCount) return false;
            if (mNext % mSource->mRows->RowCount() == 0) mInner->Seek(0);
            ++mNext;
            return mInner->Next(row);
        }

    private:
        std::shared_ptr<const RepeatedRows> mSource;
        std::unique_ptr<RowCursor> mInner;
        std::size_t mNext = 0;
    };
    std::shared_ptr<fakes::MemoryRows> mRows;
    std::size_t mCount;
    mutable int mOpened = 0;
    bool mTorn = false;
};

} // namespace qbrpt
