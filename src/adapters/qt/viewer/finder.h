// Looks through all pages of a report, a little at a time.
#pragma once

#include "adapters/qt/viewer/page_store.h"
#include "adapters/qt/viewer/search_course.h"

#include <QtCore/QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace qbrpt::viewer {

/// Works between events, so that the window stays live. Counts come in as pages are looked through.
class Finder {
public:
    Finder();

    /// Counts or the current place are other ones now.
    std::function<void()> changed;
    /// A place is to be shown.
    std::function<void(const HitPlace&)> found;

    /// Begins anew at page `from`; an empty query ends the search.
    void Start(std::shared_ptr<PageStore> pages, std::u32string query, std::int32_t from);
    void Step(bool forward);
    /// Stops looking further; what was found stays.
    void Stop();
    void Clear();

    [[nodiscard]] const std::u32string& Query() const { return mQuery; }
    /// None where nothing is looked for.
    [[nodiscard]] const SearchCourse* Course() const { return mCourse ? &*mCourse : nullptr; }
    [[nodiscard]] bool Working() const { return mTimer.isActive(); }

private:
    void Work();
    void ShowCurrent();

    std::shared_ptr<PageStore> mPages;
    std::u32string mQuery;
    std::optional<SearchCourse> mCourse;
    QTimer mTimer;
};

} // namespace qbrpt::viewer
