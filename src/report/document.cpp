#include "report/document.h"

#include "base/failure.h"
#include "report/paginator.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

// Far enough apart for a report of tens of thousands of pages to keep a megabyte or two, near enough for a
// page in the middle to be there at once.
constexpr std::size_t PagesACheckpoint = 64;

void RequireText(const DocumentContext& context) {
    if (!context.text) throw Failure(FailureNumber::Report, "The report engine has no text port.");
}

} // namespace

class Document::Impl {
public:
    Impl(const Definition& definition, std::shared_ptr<const RowSource> rows, DocumentContext context)
        : mContext(std::move(context)),
          mPaginator(definition, std::move(rows), (RequireText(mContext), mContext)) {}

    std::size_t PageCount() {
        if (mPageCount == 0) Measure();
        return mPageCount;
    }

    void Build(std::size_t index, Page& page) {
        if (index >= PageCount()) {
            throw Failure(FailureNumber::InvalidArgument, "The report has " + std::to_string(mPageCount) +
                                                              " pages; page " + std::to_string(index + 1) +
                                                              " was asked for.");
        }
        // After a failure inside a page nothing is known of where the paginator stands.
        if (!mInOrder || mPaginator.PageIndex() != index) GoTo(index);
        mInOrder = false;
        page.Clear();
        page.width = mContext.sheet.width;
        page.height = mContext.sheet.height;
        PageBuilder builder(page, mPaginator.Fitter());
        const bool more = mPaginator.RunPage(&builder, mPageCount);
        mInOrder = more;
    }

private:
    void Measure() {
        // Measuring may have been stopped half-way before.
        if (mCheckpoints.empty()) mCheckpoints.push_back(mPaginator.Save());
        mCheckpoints.resize(1);
        mPaginator.Restore(mCheckpoints.front());
        std::size_t pages = 1;
        if (mPaginator.RunPage(nullptr, 0)) pages = MeasureRest();
        GoTo(0);
        mPageCount = pages;
    }

    std::size_t MeasureRest() {
        const Paginator::EvenPages even = mPaginator.LookAhead();
        const std::size_t placed = mPaginator.RowsPlaced();
        const std::size_t rows = mPaginator.RowCount();
        if (even.even && placed < rows) return CountEven(even, placed, rows);
        for (bool more = true; more;) {
            if (mPaginator.PageIndex() % PagesACheckpoint == 0) {
                mCheckpoints.push_back(mPaginator.Save());
                if (mContext.onProgress) mContext.onProgress(mPaginator.RowsPlaced(), rows);
            }
            more = mPaginator.RunPage(nullptr, 0);
        }
        mPaginator.Finish();
        return mPaginator.PageIndex();
    }

    // All rows but the last fill page after page; the last one keeps the sections behind it with it.
    std::size_t CountEven(const Paginator::EvenPages& even, std::size_t placed, std::size_t rows) {
        mRowsOnFirst = placed;
        mRowsOnLater = static_cast<std::size_t>(even.body / even.row);
        mLastRow = rows - 1;
        const std::size_t plain = mLastRow - placed;
        const auto onLastPage = static_cast<Twips>(plain % mRowsOnLater);
        const bool lastFits = (onLastPage + 1) * even.row + even.footer <= even.body;
        return 1 + plain / mRowsOnLater + (lastFits ? 1 : 2);
    }

    void GoTo(std::size_t index) {
        mInOrder = false;
        if (index > 0 && mRowsOnLater > 0) {
            mPaginator.JumpTo(index, std::min(mRowsOnFirst + (index - 1) * mRowsOnLater, mLastRow));
        } else {
            const std::size_t checkpoint = std::min(index / PagesACheckpoint, mCheckpoints.size() - 1);
            mPaginator.Restore(mCheckpoints[checkpoint]);
            while (mPaginator.PageIndex() < index)
                mPaginator.RunPage(nullptr, mPageCount);
        }
        mInOrder = true;
    }

    DocumentContext mContext;
    Paginator mPaginator;
    std::size_t mPageCount = 0; ///< 0: not measured yet
    std::vector<PaginatorState> mCheckpoints;
    std::size_t mRowsOnFirst = 0; ///< where every later page takes the same number of rows
    std::size_t mRowsOnLater = 0; ///< 0: pages are not alike
    std::size_t mLastRow = 0;
    bool mInOrder = false; ///< the paginator stands at the beginning of its page
};

Document::Document(const Definition& definition, std::shared_ptr<const RowSource> rows,
                   DocumentContext context)
    : mImpl(std::make_unique<Impl>(definition, std::move(rows), std::move(context))) {}

Document::~Document() = default;

std::size_t Document::PageCount() {
    return mImpl->PageCount();
}

void Document::Build(std::size_t index, Page& page) {
    mImpl->Build(index, page);
}

} // namespace qbrpt::report
