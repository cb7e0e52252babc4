#include "adapters/layout/mistakes.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace qbrpt::layout {

namespace {

constexpr std::size_t LongestReport = 20;
constexpr std::size_t LongestWordCompared = 64;

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string_view FileOf(const Place& place) {
    return place.file ? std::string_view(*place.file) : std::string_view();
}

/// Letters to add, drop or change to make one word of the other; case does not count.
std::size_t Distance(std::string_view a, std::string_view b) {
    a = a.substr(0, LongestWordCompared);
    b = b.substr(0, LongestWordCompared);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t change = diagonal + (Lower(a[i - 1]) == Lower(b[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, change});
        }
    }
    return row.back();
}

} // namespace

void Mistakes::Add(const Place& place, const std::string& words) {
    mLines.push_back({place, words});
}

void Mistakes::RaiseIfAny() const {
    if (mLines.empty()) return;
    std::vector<Line> lines = mLines;
    std::stable_sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) {
        return std::tuple(FileOf(a.place), a.place.line, a.place.column) <
               std::tuple(FileOf(b.place), b.place.line, b.place.column);
    });
    std::vector<std::string> words;
    words.reserve(lines.size());
    for (const Line& line : lines)
        words.push_back(ToText(line.place) + ": " + line.words);
    std::string description;
    for (std::size_t i = 0; i < std::min(words.size(), LongestReport); ++i)
        description += (i == 0 ? "" : "\n") + words[i];
    if (words.size() > LongestReport)
        description += "\n... and " + std::to_string(words.size() - LongestReport) + " more";
    throw LayoutFailure(description, std::move(words));
}

std::string Suggestion(std::string_view word, std::span<const std::string_view> known) {
    std::string_view nearest;
    std::size_t nearestDistance = std::max<std::size_t>(2, word.size() / 3) + 1;
    for (const std::string_view candidate : known) {
        const std::size_t distance = Distance(word, candidate);
        if (distance < nearestDistance) {
            nearest = candidate;
            nearestDistance = distance;
        }
    }
    if (!nearest.empty()) return "; did you mean " + Quoted(nearest) + "?";
    if (known.empty()) return "";
    std::string all = "; known are ";
    for (std::size_t i = 0; i < known.size(); ++i)
        all += (i == 0 ? "" : ", ") + std::string(known[i]);
    return all;
}

std::string Quoted(std::string_view word) {
    return "\"" + std::string(word) + "\"";
}

} // namespace qbrpt::layout
