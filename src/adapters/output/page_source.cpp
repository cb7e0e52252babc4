#include "adapters/output/page_source.h"

#include "base/failure.h"

namespace qbrpt {

PageSource& PagesOf(const Ref<CrystalRuntime::Report>& report) {
    auto* pages = dynamic_cast<PageSource*>(&*report);
    if (pages == nullptr)
        throw Failure(FailureNumber::Report, "This report has no pages that could be shown.");
    return *pages;
}

} // namespace qbrpt
