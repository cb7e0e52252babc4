// A report laid out on paper: counts its pages exactly, builds any of them when asked.
#pragma once

#include "base/rows.h"
#include "report/definition.h"
#include "report/page.h"
#include "report/text_port.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace qbrpt::report {

/// The sheet as it is turned, in twips.
struct Sheet {
    Twips width = 11906;
    Twips height = 16838;
};

/// What a document needs besides definition and rows.
struct DocumentContext {
    TextPort* text = nullptr;
    Sheet sheet;
    /// From the sheet's left edge to the template's; the template is centred where none is given.
    std::optional<Twips> leftMargin;
    double printedAt = 0; ///< day number that {printed} shows
    /// Rows of the subreports by Object::subreport; one without rows here is left out.
    std::map<std::string, std::shared_ptr<const RowSource>> subreportRows;
    /// Called before a section with `formatEvent` is measured or drawn, each time; may change texts,
    /// pictures, places and suppression of objects, not fonts. Page counts from 1.
    std::function<void(const Section& section, std::int32_t page)> onFormat;
    /// Called now and then during long work with the rows or pages done; throws Failure Cancelled to stop.
    std::function<void(std::size_t done, std::size_t all)> onProgress;
};

/// Lays rows out on pages. The same definition, rows, sheet and clock give the same pages on every run.
/// The definition and the context must outlive the document; rows are held.
class Document {
public:
    Document(const Definition& definition, std::shared_ptr<const RowSource> rows, DocumentContext context);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Exact. Measures on the first call: by arithmetic where heights are fixed and there are no groups,
    /// else by a walk over the rows that builds no pages.
    [[nodiscard]] std::size_t PageCount();

    /// Builds page `index` (from 0) into `page`. In order is fastest; any order works, within bounded
    /// memory and without starting from the first row.
    void Build(std::size_t index, Page& page);

private:
    class Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace qbrpt::report
