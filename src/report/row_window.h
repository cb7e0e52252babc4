// The bound rows around the current one.
#pragma once

#include "base/rows.h"
#include "report/binder.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>

namespace qbrpt::report {

/// A walk over rows that shows the row before and the row behind the current one as well, so that groups
/// and repeated values are known when a row is placed.
class RowWindow {
public:
    RowWindow(std::shared_ptr<const RowSource> rows, const Definition& definition);

    /// Puts the window before row `index`: nothing is current, Next() is that row, Previous() the one before.
    void Seek(std::size_t index);
    /// Makes the next row current; false at the end, where the last row stays Previous().
    bool Advance();

    /// Null where there is none.
    [[nodiscard]] const RowView* Previous() const { return View(0); }
    [[nodiscard]] const RowView* Current() const { return View(1); }
    [[nodiscard]] const RowView* Next() const { return View(2); }

    /// Of the row that Advance() makes current.
    [[nodiscard]] std::size_t NextIndex() const { return mNextIndex; }
    [[nodiscard]] std::size_t RowCount() const { return mRowCount; }

private:
    struct KeptRow {
        RowView cells;
        std::string texts;
        bool there = false;
    };

    [[nodiscard]] const RowView* View(std::size_t place) const {
        return mKept[mOrder[place]].there ? &mKept[mOrder[place]].cells : nullptr;
    }
    void Load(KeptRow& kept);

    std::shared_ptr<const RowSource> mRows;
    std::unique_ptr<RowCursor> mCursor;
    Binder mBinder;
    RowView mRaw;
    std::array<KeptRow, 3> mKept;
    std::array<std::size_t, 3> mOrder{0, 1, 2}; ///< previous, current, next
    std::size_t mRowCount = 0;
    std::size_t mNextIndex = 0;
};

} // namespace qbrpt::report
