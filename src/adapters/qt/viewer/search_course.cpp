#include "adapters/qt/viewer/search_course.h"

#include <algorithm>
#include <numeric>

namespace qbrpt::viewer {

SearchCourse::SearchCourse(std::int32_t pages, std::int32_t from)
    : mHits(static_cast<std::size_t>(std::max(pages, 0)), Unknown),
      mFrom(std::clamp(from, 0, std::max(pages - 1, 0))), mScan(mFrom) {
    if (!mHits.empty()) mWait = Wait{true, mFrom, 0};
}

std::optional<std::int32_t> SearchCourse::NextPage() const {
    if (Complete()) return std::nullopt;
    if (mWait && mHits[static_cast<std::size_t>(mWait->page)] == Unknown) return mWait->page;
    const auto count = static_cast<std::int32_t>(mHits.size());
    std::int32_t page = mScan;
    while (mHits[static_cast<std::size_t>(page)] != Unknown)
        page = (page + 1) % count;
    return page;
}

void SearchCourse::Found(std::int32_t page, std::size_t hits) {
    std::int64_t& known = mHits[static_cast<std::size_t>(page)];
    if (known != Unknown) return;
    known = static_cast<std::int64_t>(hits);
    ++mDone;
    mTotal += hits;
    const auto count = static_cast<std::int32_t>(mHits.size());
    while (!Complete() && mHits[static_cast<std::size_t>(mScan)] != Unknown)
        mScan = (mScan + 1) % count;
}

std::size_t SearchCourse::CurrentNumber() const {
    if (!mCurrent) return 0;
    const auto before = mHits.begin() + mCurrent->page;
    return std::accumulate(mHits.begin(), before, mCurrent->hit + 1, [](std::size_t sum, std::int64_t hits) {
        return sum + static_cast<std::size_t>(std::max<std::int64_t>(hits, 0));
    });
}

bool SearchCourse::Step(bool forward) {
    if (mHits.empty()) return false;
    if (!mCurrent) {
        mWait = Wait{forward, mWait ? mWait->page : mFrom, 0};
        return Walk();
    }
    const std::int64_t onPage = mHits[static_cast<std::size_t>(mCurrent->page)];
    const std::int64_t hit = static_cast<std::int64_t>(mCurrent->hit) + (forward ? 1 : -1);
    if (hit >= 0 && hit < onPage) {
        mCurrent->hit = static_cast<std::size_t>(hit);
        mWait.reset();
        return true;
    }
    const auto count = static_cast<std::int32_t>(mHits.size());
    mWait = Wait{forward, (mCurrent->page + (forward ? 1 : count - 1)) % count, 0};
    return Walk();
}

bool SearchCourse::Resume() {
    return mWait && Walk();
}

bool SearchCourse::Walk() {
    const auto count = static_cast<std::int32_t>(mHits.size());
    for (; mWait->walked < mHits.size(); ++mWait->walked) {
        const std::int64_t hits = mHits[static_cast<std::size_t>(mWait->page)];
        if (hits == Unknown) return false;
        if (hits > 0) {
            mCurrent = HitPlace{mWait->page, mWait->forward ? 0 : static_cast<std::size_t>(hits - 1)};
            mWait.reset();
            return true;
        }
        mWait->page = (mWait->page + (mWait->forward ? 1 : count - 1)) % count;
    }
    mWait.reset();
    return false;
}

} // namespace qbrpt::viewer
