// Comparing names and words without regard to case.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace qbrpt::dialect {

[[nodiscard]] constexpr char FoldLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Names of tables, columns and functions, and the words of the dialect, are one under any case of the
/// Latin letters.
[[nodiscard]] constexpr bool SameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return FoldLetter(a) == FoldLetter(b); });
}

[[nodiscard]] inline std::string FoldName(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldLetter);
    return folded;
}

} // namespace qbrpt::dialect
