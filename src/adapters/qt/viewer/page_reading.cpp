#include "adapters/qt/viewer/page_reading.h"

#include "base/utf8.h"
#include "report/page_lines.h"

#include <algorithm>
#include <cstdlib>

namespace qbrpt::viewer {

namespace {

/// Parts of one word that read in different directions touch; a blank is wider.
constexpr report::Twips NarrowestBlank = 15;
/// What a marker covers above and below the baseline, in ems.
constexpr float Above = 0.95F;
constexpr float Below = 0.35F;

/// Finds out which lines were broken off the same text.
class TextWalk {
public:
    explicit TextWalk(const report::Page& page) : mTexts(page.texts) {}

    /// Whether the line that begins with `word` goes on with the text of the line before.
    bool Continues(const report::ShapedWord* word) {
        while (mText < mTexts.size()) {
            const auto& lines = mTexts[mText]->lines;
            while (mLine < lines.size()) {
                const auto& words = lines[mLine++].words;
                if (words.empty() || words.front().word != word) continue;
                const bool inside = mFound == mText + 1;
                mFound = mText + 1;
                return inside;
            }
            ++mText;
            mLine = 0;
        }
        return false;
    }

private:
    const std::vector<std::shared_ptr<const report::TextBlock>>& mTexts;
    std::size_t mText = 0;
    std::size_t mLine = 0;
    std::size_t mFound = 0; ///< the text of the last line found, counted from 1
};

std::string_view WithoutReadingMark(std::string_view text) {
    constexpr std::string_view mark = "\xE2\x80\x8F";
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
    if (text.ends_with(mark)) text.remove_suffix(mark.size());
    return text;
}

float SizeOf(const report::Item& item, const text::FontBook& fonts) {
    if (item.kind == report::ItemKind::Figures) return fonts.Faces(item.style).figures.size;
    return item.word->runs.empty() ? 0 : item.word->runs.front().size;
}

} // namespace

PageReading::PageReading(const report::Page& page, const text::FontBook& fonts) : mPage(page), mFonts(fonts) {
    TextWalk texts(page);
    std::vector<Cell> row;
    const auto cellAt = [&](const report::Item& item) -> Cell& {
        if (!row.empty() && row.back().firstLine != item.y) TakeRow(row);
        return row.emplace_back(Cell{item.y, item.x, {}});
    };
    for (std::size_t i = 0; i < page.items.size();) {
        const report::Item& item = page.items[i];
        if (item.kind == report::ItemKind::Figures) AddFigures(item, cellAt(item));
        if (item.kind != report::ItemKind::Word || item.word == nullptr) {
            ++i;
            continue;
        }
        const std::size_t end = report::LineEnd(page, i);
        const bool continues = texts.Continues(item.word) && !row.empty();
        AddLine(i, end, continues ? row.back() : cellAt(item));
        i = end;
    }
    TakeRow(row);
}

void PageReading::TakeRow(std::vector<Cell>& row) {
    std::stable_sort(row.begin(), row.end(), [](const Cell& a, const Cell& b) { return a.right > b.right; });
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (row[i].words.empty()) continue;
        const Before before = i == 0 ? Before::Line : Before::Cell;
        row[i].words.front().before = mWords.empty() ? Before::Nothing : before;
        mWords.insert(mWords.end(), row[i].words.begin(), row[i].words.end());
    }
    row.clear();
}

void PageReading::AddLine(std::size_t begin, std::size_t end, Cell& cell) const {
    Before before = Before::Blank;
    const report::Item* last = nullptr;
    for (const std::size_t i : report::ReadingOrder(mPage, begin, end)) {
        const report::Item& item = mPage.items[i];
        if (last != nullptr) {
            const report::Twips gap =
                last->x < item.x ? item.x - last->x - last->width : last->x - item.x - item.width;
            before = std::abs(gap) < NarrowestBlank ? Before::Nothing : Before::Blank;
        }
        Add(item, WithoutReadingMark(item.word->text), before, cell);
        last = &item;
    }
}

void PageReading::AddFigures(const report::Item& item, Cell& cell) const {
    if (item.length == 0 || item.first >= mPage.figureText.size()) return;
    Add(item, std::string_view(mPage.figureText).substr(item.first, item.length), Before::Blank, cell);
}

void PageReading::Add(const report::Item& item, std::string_view text, Before before, Cell& cell) const {
    const float size = SizeOf(item, mFonts);
    const PageBox box{item.x, item.y - static_cast<report::Twips>(Above * size), item.x + item.width,
                      item.y + static_cast<report::Twips>(Below * size)};
    cell.right = std::max(cell.right, box.right);
    cell.words.push_back({&item, before, text, box});
}

std::string PageReading::Text(std::size_t first, std::size_t end) const {
    std::string text;
    for (std::size_t i = first; i < std::min(end, mWords.size()); ++i) {
        const Before before = i == first ? Before::Nothing : mWords[i].before;
        if (before == Before::Blank) text += ' ';
        if (before == Before::Cell) text += '\t';
        if (before == Before::Line) text += '\n';
        for (std::size_t at = 0; at < mWords[i].text.size();) {
            const char32_t c = NextCharacter(mWords[i].text, at);
            if (!report::IsReadingSign(c)) AppendCharacter(text, c);
        }
    }
    return text;
}

std::size_t PageReading::WordNear(report::Twips x, report::Twips y) const {
    std::size_t nearest = mWords.size();
    std::int64_t least = 0;
    for (std::size_t i = 0; i < mWords.size(); ++i) {
        const PageBox& box = mWords[i].box;
        const std::int64_t across = std::max({box.left - x, x - box.right, 0});
        const std::int64_t down = std::max({box.top - y, y - box.bottom, 0});
        // The own line comes before what lies nearer on another one.
        const std::int64_t distance = across + 20 * down;
        if (nearest != mWords.size() && distance >= least) continue;
        nearest = i;
        least = distance;
    }
    return nearest;
}

PageBox PageReading::BoxOf(const PageWord& word, std::size_t firstByte, std::size_t endByte) const {
    PageBox box = word.box;
    if (firstByte == 0 && endByte >= word.text.size()) return box;
    float pen = static_cast<float>(word.item->x);
    float left = 0;
    float right = -1;
    const auto take = [&](float width, bool inside) {
        if (inside && right < left) left = pen;
        pen += width;
        if (inside) right = pen;
    };
    if (word.item->kind == report::ItemKind::Figures) {
        const report::FigureFont& font = mFonts.Faces(word.item->style).figures;
        for (std::size_t i = 0; i < word.text.size(); ++i) {
            const std::size_t character = static_cast<unsigned char>(word.text[i]) & 0x7FU;
            take(font.advance[character] * font.size, i >= firstByte && i < endByte);
        }
    } else {
        const auto shift = static_cast<std::size_t>(word.text.data() - word.item->word->text.data());
        for (const report::GlyphRun& run : word.item->word->runs)
            for (const report::Glyph& glyph : run.glyphs) {
                const std::size_t begin = glyph.textStart;
                const std::size_t end = begin + glyph.textLength;
                take(glyph.advance * run.size, begin < endByte + shift && end > firstByte + shift);
            }
    }
    if (right < left) return box;
    box.left = static_cast<report::Twips>(left);
    box.right = static_cast<report::Twips>(right);
    return box;
}

} // namespace qbrpt::viewer
