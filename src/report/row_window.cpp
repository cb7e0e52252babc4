#include "report/row_window.h"

namespace qbrpt::report {

RowWindow::RowWindow(std::shared_ptr<const RowSource> rows, const Definition& definition)
    : mRows(std::move(rows)), mBinder(definition) {
    if (!mRows) return;
    mRowCount = mRows->RowCount();
    mCursor = mRows->Open();
    Seek(0);
}

void RowWindow::Seek(std::size_t index) {
    for (KeptRow& kept : mKept)
        kept.there = false;
    mNextIndex = index;
    if (!mCursor) return;
    mCursor->Seek(index > 0 ? index - 1 : 0);
    if (index > 0) Load(mKept[mOrder[1]]);
    Load(mKept[mOrder[2]]);
    // What stood before the first row to come is the row before, not a current one.
    std::swap(mOrder[0], mOrder[1]);
}

bool RowWindow::Advance() {
    if (mKept[mOrder[1]].there) std::swap(mOrder[0], mOrder[1]);
    mKept[mOrder[1]].there = false;
    if (!mKept[mOrder[2]].there) return false;
    std::swap(mOrder[1], mOrder[2]);
    Load(mKept[mOrder[2]]);
    ++mNextIndex;
    return true;
}

// Keeps a copy: the cursor's texts are gone when it moves.
void RowWindow::Load(KeptRow& kept) {
    kept.there = mCursor->Next(mRaw);
    if (!kept.there) return;
    mBinder.Bind(mRaw, kept.cells);
    std::size_t bytes = 0;
    for (const CellView& cell : kept.cells)
        bytes += cell.text.size();
    kept.texts.clear();
    kept.texts.reserve(bytes); // no view below may move
    for (CellView& cell : kept.cells) {
        if (cell.text.empty()) continue;
        const std::size_t start = kept.texts.size();
        kept.texts.append(cell.text);
        cell.text = std::string_view(kept.texts).substr(start, cell.text.size());
    }
}

} // namespace qbrpt::report
