#include "adapters/qt/viewer/finder.h"

#include "adapters/qt/viewer/page_hits.h"
#include "base/failure.h"

#include <QtCore/QElapsedTimer>

#include <utility>

namespace qbrpt::viewer {

namespace {

/// Short enough to keep scrolling smooth.
constexpr qint64 SliceMilliseconds = 6;

} // namespace

Finder::Finder() {
    mTimer.setInterval(0);
    QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this] { Work(); });
}

void Finder::Start(std::shared_ptr<PageStore> pages, std::u32string query, std::int32_t from) {
    Clear();
    mPages = std::move(pages);
    mQuery = std::move(query);
    if (!mPages || mQuery.empty()) {
        if (changed) changed();
        return;
    }
    mCourse.emplace(mPages->Source().PageCount(), from);
    mTimer.start();
    Work();
}

void Finder::Clear() {
    mTimer.stop();
    mCourse.reset();
    mQuery.clear();
    mPages.reset();
}

void Finder::Stop() {
    mTimer.stop();
    if (changed) changed();
}

void Finder::Step(bool forward) {
    if (!mCourse) return;
    const bool stepped = mCourse->Step(forward);
    if (!mCourse->Complete()) mTimer.start();
    if (changed) changed();
    if (stepped) ShowCurrent();
}

// Out of an event, through which nothing may be thrown.
void Finder::ShowCurrent() {
    try {
        if (found) found(*mCourse->Current());
    } catch (const Failure&) { // told of where the page is drawn
    }
}

void Finder::Work() {
    QElapsedTimer clock;
    clock.start();
    bool stepped = false;
    try {
        while (!stepped && clock.elapsed() < SliceMilliseconds) {
            const std::optional<std::int32_t> page = mCourse->NextPage();
            if (!page) break;
            mCourse->Found(*page, CountHits(mPages->Passing(*page)->Reading(), mQuery));
            stepped = mCourse->Resume();
        }
    } catch (const Failure&) {
        mTimer.stop(); // a page that cannot be built tells of it where it is drawn
    }
    if (mCourse->Complete()) mTimer.stop();
    if (changed) changed();
    if (stepped) ShowCurrent();
}

} // namespace qbrpt::viewer
