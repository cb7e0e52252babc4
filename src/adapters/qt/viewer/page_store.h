// The pages of a report, built when asked for; the last ones stay at hand.
#pragma once

#include "adapters/output/page_source.h"
#include "adapters/qt/viewer/page_reading.h"

#include <list>
#include <memory>
#include <optional>

namespace qbrpt::viewer {

/// A page as it was built.
class BuiltPage {
public:
    BuiltPage(PageSource& source, std::int32_t index, const text::FontBook& fonts);
    [[nodiscard]] const report::Page& Page() const { return mPage; }
    [[nodiscard]] const PageReading& Reading();

private:
    report::Page mPage;
    const text::FontBook& mFonts;
    std::optional<PageReading> mReading; ///< made when it is asked for
};

class PageStore {
public:
    PageStore(const Ref<CrystalRuntime::Report>& report);

    [[nodiscard]] PageSource& Source() const { return mSource; }
    [[nodiscard]] const text::FontBook& Fonts() const { return mFonts; }
    /// Page `index`, from 0.
    std::shared_ptr<BuiltPage> At(std::int32_t index);
    /// The same without taking a place among the pages kept: for a walk through all of them.
    std::shared_ptr<BuiltPage> Passing(std::int32_t index);
    void Forget() { mPages.clear(); }

private:
    struct Kept {
        std::int32_t index = 0;
        std::shared_ptr<BuiltPage> page;
    };
    std::shared_ptr<BuiltPage> Find(std::int32_t index);

    Ref<CrystalRuntime::Report> mReport;
    PageSource& mSource;
    const text::FontBook& mFonts;
    std::list<Kept> mPages; ///< the last used first
};

} // namespace qbrpt::viewer
