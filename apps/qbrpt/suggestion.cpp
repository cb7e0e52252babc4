#include "suggestion.h"

#include <algorithm>
#include <numeric>

namespace qbrpt::cli {

namespace {

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Insertions, deletions and replacements that make one word of the other.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (Lower(a[i]) == Lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row[b.size()];
}

} // namespace

std::string NearestName(std::string_view typed, const std::vector<std::string>& names) {
    constexpr std::size_t longestTyped = 64;
    if (typed.size() > longestTyped) return {};
    std::string nearest;
    std::size_t least = typed.size() / 3 + 2;
    for (const std::string& name : names) {
        const std::size_t distance = Distance(typed, name);
        if (distance < least) {
            least = distance;
            nearest = name;
        }
    }
    return nearest;
}

} // namespace qbrpt::cli
