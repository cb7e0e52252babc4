// A finished report page by page, for whoever draws it.
#pragma once

#include "adapters/output/report_output.h"
#include "base/ref.h"
#include "platform/CrystalRuntime.h"
#include "report/document.h"

#include <cstdint>

namespace qbrpt {

namespace text {
class FontBook;
} // namespace text

/// The report runtime's reports can be drawn.
class PageSource {
public:
    virtual ~PageSource() = default;
    /// Exact; measures the report where that has not been done yet.
    [[nodiscard]] virtual std::int32_t PageCount() = 0;
    /// The same for a report that may be long: `progress` is called now and then, and may raise Cancelled.
    virtual std::int32_t CountPages(const PageProgress& progress) = 0;
    /// The sheet as it is turned.
    [[nodiscard]] virtual report::Sheet SheetSize() = 0;
    /// Builds page `index`, from 0, as every device shows it.
    virtual void BuildPage(std::int32_t index, report::Page& page) = 0;
    /// The faces behind the glyphs of the pages; a report without them is a Failure.
    [[nodiscard]] virtual const text::FontBook& Fonts() = 0;
};

/// The pages of a report; a report that has none is a Failure.
[[nodiscard]] PageSource& PagesOf(const Ref<CrystalRuntime::Report>& report);

} // namespace qbrpt
