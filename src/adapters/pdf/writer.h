// Writes pages into a PDF file as they are built, and forgets them.
#pragma once

#include "adapters/text/font_book.h"
#include "base/byte_sink.h"
#include "report/page.h"

#include <cstddef>
#include <memory>
#include <string>

namespace qbrpt::pdf {

struct DocumentInfo {
    std::string title;    ///< UTF-8; shown as the window's title by readers
    double createdAt = 0; ///< day number; 0: the file bears no date
};

/// A PDF file of Arabic pages: fonts embedded as subsets, text that can be searched and copied, right-to-left
/// viewing. The same pages give the same bytes. Memory does not grow with pages, but for sixteen bytes a
/// page.
///
/// Raises what the sink raises; the file is then incomplete and must be dropped.
class Writer {
public:
    /// `fonts` are those of the text port that shaped the pages; they and the sink must outlive the writer.
    Writer(ByteSink& sink, const text::FontBook& fonts, DocumentInfo info);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void AddPage(const report::Page& page);

    /// Writes what stands behind the pages. To be called once; raises FailureNumber::Output when there is
    /// no page.
    void Finish();

    [[nodiscard]] std::size_t PageCount() const;

private:
    class Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace qbrpt::pdf
