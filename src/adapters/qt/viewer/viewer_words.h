// The viewer's own words, in both languages.
#pragma once

#include <QtCore/QString>

#include <cstdint>

namespace qbrpt::viewer {

struct ViewerWords {
    const char* pages;  ///< name of the reading area, for screen readers
    const char* pageOf; ///< %1 the page, %2 the number of pages
    const char* find;
    const char* findHint;
    const char* findNext;
    const char* findBefore;
    const char* closeFind;
    const char* hitOf;     ///< %1 the place, %2 the number of places
    const char* hitsSoFar; ///< the same and %3, a percentage, while pages are looked through
    const char* noHits;
    const char* copy;
    const char* fitWidth;
    const char* fitPage;
    const char* fullSize;
    const char* goToPage;
    const char* pageNumber; ///< asked by that window; %1 the number of pages
    const char* saveAs;
    const char* saveAsPdf;
    const char* saveAsXlsx;
    const char* saveAsCsv;
    const char* saveAsHtml;
    const char* saving;
    const char* ok;
    const char* cancel;
    const char* fileName;
    const char* fileKind;
    const char* folder;
    const char* save;
};

[[nodiscard]] const ViewerWords& WordsOf(bool arabic);

/// Figures are Latin in both languages.
[[nodiscard]] QString PageOf(const ViewerWords& words, std::int32_t page, std::int32_t pages);

} // namespace qbrpt::viewer
