// The text of a page in reading order, and where its letters stand.
#pragma once

#include "adapters/text/font_book.h"
#include "report/page.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::viewer {

/// What stands between a word and the one before it.
enum class Before : std::uint8_t { Nothing, Blank, Cell, Line };

/// A rectangle of a page in twips.
struct PageBox {
    report::Twips left = 0;
    report::Twips top = 0;
    report::Twips right = 0;
    report::Twips bottom = 0;
};

/// A word, or a cell's figures, as a reader meets it.
struct PageWord {
    const report::Item* item = nullptr;
    Before before = Before::Nothing;
    std::string_view text; ///< without the marks that stand at its ends to steer its order
    PageBox box;
};

/// The words of one page: rows as the report wrote them, the cells of a row from the right, the lines of a
/// cell together. Must not outlive the page.
class PageReading {
public:
    PageReading(const report::Page& page, const text::FontBook& fonts);

    [[nodiscard]] const std::vector<PageWord>& Words() const { return mWords; }
    /// Words from `first` to before `end`: blanks inside a cell, a tab between cells, a line feed between
    /// rows.
    [[nodiscard]] std::string Text(std::size_t first, std::size_t end) const;
    /// The word at a point of the page, or the one that lies nearest; the count of words where there is none.
    [[nodiscard]] std::size_t WordNear(report::Twips x, report::Twips y) const;
    /// The place of some bytes of a word's text.
    [[nodiscard]] PageBox BoxOf(const PageWord& word, std::size_t firstByte, std::size_t endByte) const;

private:
    /// What one object of the report wrote.
    struct Cell {
        report::Twips firstLine = 0; ///< its baseline
        report::Twips right = 0;
        std::vector<PageWord> words;
    };
    void AddLine(std::size_t begin, std::size_t end, Cell& cell) const;
    void AddFigures(const report::Item& item, Cell& cell) const;
    void Add(const report::Item& item, std::string_view text, Before before, Cell& cell) const;
    void TakeRow(std::vector<Cell>& row);

    const report::Page& mPage;
    const text::FontBook& mFonts;
    std::vector<PageWord> mWords;
};

} // namespace qbrpt::viewer
