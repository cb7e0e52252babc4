#include "adapters/database/recordset.h"

#include "adapters/database/names.h"
#include "base/numbers.h"

#include <string>
#include <utility>

namespace qbrpt::database {

namespace {

Value ValueOf(const CellView& cell) {
    switch (cell.kind) {
    case ValueKind::Null:
        return Null{};
    case ValueKind::Boolean:
        return cell.whole != 0;
    case ValueKind::Whole:
        return cell.whole;
    case ValueKind::Number:
        return cell.number;
    case ValueKind::Date:
        return Date{cell.number};
    case ValueKind::Text:
        break;
    }
    return std::string(cell.text);
}

class StoredRecordset final : public DAO::Recordset {
public:
    explicit StoredRecordset(std::shared_ptr<const RowSource> rows) : mRows(std::move(rows)) { GoTo(0); }

private:
    std::int32_t DoRecordCount() override {
        return CheckedLong(static_cast<std::int64_t>(Rows().RowCount()));
    }

    bool DoEof() override { return mIndex >= Rows().RowCount(); }

    void DoMoveFirst() override {
        NeedRows();
        GoTo(0);
    }

    void DoMoveLast() override {
        NeedRows();
        GoTo(Rows().RowCount() - 1);
    }

    void DoMoveNext() override {
        NeedRow();
        ++mIndex;
        if (mIndex < Rows().RowCount()) mCursor->Next(mRow);
    }

    Value DoFields(int index) override {
        const std::size_t columns = Rows().Columns().size();
        if (index < 0 || static_cast<std::size_t>(index) >= columns)
            throw Failure(FailureNumber::NotInCollection,
                          "The record set has no column " + std::to_string(index) + "; it has " +
                              std::to_string(columns) + " columns, counted from 0.");
        NeedRow();
        return ValueOf(mRow[static_cast<std::size_t>(index)]);
    }

    Value DoFields(const std::string& name) override {
        const auto& columns = Rows().Columns();
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (SameName(columns[i].name, name)) return DoFields(static_cast<int>(i));
        throw Failure(FailureNumber::NotInCollection, "The record set has no column \"" + name + "\".");
    }

    void DoClose() override {
        static_cast<void>(Rows());
        mCursor.reset();
        mRows.reset();
        mRow.clear();
    }

    std::shared_ptr<const RowSource> DoRows() override {
        static_cast<void>(Rows());
        return mRows;
    }

    [[nodiscard]] const RowSource& Rows() const {
        if (!mRows) throw Failure(FailureNumber::ObjectNotSet, "The record set is closed.");
        return *mRows;
    }

    void NeedRows() const {
        if (Rows().RowCount() == 0) throw Failure(FailureNumber::NoCurrentRow, "The record set has no rows.");
    }

    void NeedRow() const {
        if (mIndex >= Rows().RowCount())
            throw Failure(FailureNumber::NoCurrentRow, "There is no row under the cursor of the record set.");
    }

    void GoTo(std::size_t index) {
        if (!mCursor) mCursor = mRows->Open();
        mCursor->Seek(index);
        mIndex = index;
        mCursor->Next(mRow);
    }

    std::shared_ptr<const RowSource> mRows;
    std::unique_ptr<RowCursor> mCursor;
    RowView mRow; ///< the row under the cursor
    std::size_t mIndex = 0;
};

} // namespace

Ref<DAO::Recordset> MakeRecordset(std::shared_ptr<const RowSource> rows) {
    return std::make_shared<StoredRecordset>(std::move(rows));
}

} // namespace qbrpt::database
