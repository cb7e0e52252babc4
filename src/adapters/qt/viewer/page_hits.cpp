#include "adapters/qt/viewer/page_hits.h"

#include "adapters/qt/viewer/text_folding.h"

#include <algorithm>

namespace qbrpt::viewer {

namespace {

FoldedText Fold(const PageReading& page) {
    FoldedText folded;
    const auto& words = page.Words();
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i].before == Before::Blank) folded.AppendBlank();
        if (words[i].before == Before::Cell || words[i].before == Before::Line) folded.AppendEnd();
        folded.Append(words[i].text, i);
    }
    return folded;
}

/// Words of one line are marked together with the blanks between them.
void AddBox(std::vector<PageBox>& boxes, const PageBox& box) {
    constexpr report::Twips widestBlank = 120;
    if (!boxes.empty() && boxes.back().top == box.top && boxes.back().bottom == box.bottom &&
        box.left - boxes.back().right < widestBlank && boxes.back().left - box.right < widestBlank) {
        boxes.back().left = std::min(boxes.back().left, box.left);
        boxes.back().right = std::max(boxes.back().right, box.right);
        return;
    }
    boxes.push_back(box);
}

template <class Take>
void Walk(const FoldedText& text, const std::u32string& query, Take&& take) {
    if (query.empty()) return;
    const std::u32string& letters = text.Letters();
    for (std::size_t at = letters.find(query); at != std::u32string::npos;
         at = letters.find(query, at + query.size()))
        take(at);
}

} // namespace

std::vector<PageHit> HitsOn(const PageReading& page, const std::u32string& query) {
    const FoldedText text = Fold(page);
    std::vector<PageHit> hits;
    Walk(text, query, [&](std::size_t at) {
        PageHit& hit = hits.emplace_back();
        for (std::size_t i = at; i < at + query.size();) {
            const FoldedText::Source& first = text.SourceOf(i);
            std::size_t end = first.endByte;
            for (++i; i < at + query.size() && text.SourceOf(i).word == first.word; ++i) {
                if (text.SourceOf(i).endByte == 0) break;
                end = text.SourceOf(i).endByte;
            }
            if (first.endByte > 0)
                AddBox(hit.boxes, page.BoxOf(page.Words()[first.word], first.firstByte, end));
        }
    });
    return hits;
}

std::size_t CountHits(const PageReading& page, const std::u32string& query) {
    const FoldedText text = Fold(page);
    std::size_t count = 0;
    Walk(text, query, [&](std::size_t) { ++count; });
    return count;
}

} // namespace qbrpt::viewer
