// Texts without regard to the case of Latin letters; any other character counts as itself.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace qbrpt {

[[nodiscard]] constexpr char SmallLatin(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] inline std::string SmallLatin(std::string_view text) {
    std::string small(text);
    for (char& c : small)
        c = SmallLatin(c);
    return small;
}

[[nodiscard]] constexpr bool SameAnyCase(char one, char other) {
    return SmallLatin(one) == SmallLatin(other);
}

[[nodiscard]] constexpr bool SameAnyCase(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return SameAnyCase(a, b); });
}

} // namespace qbrpt
