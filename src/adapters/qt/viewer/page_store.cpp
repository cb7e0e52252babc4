#include "adapters/qt/viewer/page_store.h"

#include <algorithm>

namespace qbrpt::viewer {

namespace {

/// More than are seen at once at the smallest zoom on a large screen.
constexpr std::size_t PagesKept = 24;

} // namespace

BuiltPage::BuiltPage(PageSource& source, std::int32_t index, const text::FontBook& fonts) : mFonts(fonts) {
    source.BuildPage(index, mPage);
}

const PageReading& BuiltPage::Reading() {
    if (!mReading) mReading.emplace(mPage, mFonts);
    return *mReading;
}

PageStore::PageStore(const Ref<CrystalRuntime::Report>& report)
    : mReport(report), mSource(PagesOf(report)), mFonts(mSource.Fonts()) {}

std::shared_ptr<BuiltPage> PageStore::Find(std::int32_t index) {
    const auto known =
        std::find_if(mPages.begin(), mPages.end(), [index](const Kept& one) { return one.index == index; });
    if (known == mPages.end()) return nullptr;
    mPages.splice(mPages.begin(), mPages, known);
    return known->page;
}

std::shared_ptr<BuiltPage> PageStore::At(std::int32_t index) {
    if (auto known = Find(index)) return known;
    auto page = std::make_shared<BuiltPage>(mSource, index, mFonts);
    mPages.push_front({index, page});
    if (mPages.size() > PagesKept) mPages.pop_back();
    return page;
}

std::shared_ptr<BuiltPage> PageStore::Passing(std::int32_t index) {
    if (auto known = Find(index)) return known;
    return std::make_shared<BuiltPage>(mSource, index, mFonts);
}

} // namespace qbrpt::viewer
