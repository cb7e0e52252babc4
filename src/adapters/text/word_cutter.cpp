#include "adapters/text/word_cutter.h"

#include "adapters/text/characters.h"
#include "base/utf8.h"

#include <algorithm>

namespace qbrpt::text {

namespace {

struct Cluster {
    std::size_t first = 0;
    float width = 0;
};

std::vector<Cluster> ClustersInReadingOrder(const report::ShapedWord& word) {
    std::vector<Cluster> clusters;
    for (const report::GlyphRun& run : word.runs)
        for (const report::Glyph& glyph : run.glyphs)
            clusters.push_back({glyph.textStart, glyph.advance * run.size});
    std::stable_sort(clusters.begin(), clusters.end(),
                     [](const Cluster& a, const Cluster& b) { return a.first < b.first; });
    return clusters;
}

} // namespace

std::vector<std::size_t> CutWord(const report::ShapedWord& word, report::Twips width) {
    const std::vector<Cluster> clusters = ClustersInReadingOrder(word);
    std::vector<std::size_t> ends;
    float filled = 0;
    for (std::size_t i = 0; i < clusters.size(); ++i) {
        std::size_t position = clusters[i].first;
        const bool begins = position < word.text.size() && (i == 0 || clusters[i - 1].first != position) &&
                            !IsAttached(NextCharacter(word.text, position));
        if (begins && filled > 0 && filled + clusters[i].width > static_cast<float>(width)) {
            ends.push_back(clusters[i].first);
            filled = 0;
        }
        filled += clusters[i].width;
    }
    ends.push_back(word.text.size());
    return ends;
}

} // namespace qbrpt::text
