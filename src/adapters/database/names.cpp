#include "adapters/database/names.h"

#include <algorithm>

namespace qbrpt::database {

namespace {

char Small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

std::string FoldName(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), Small);
    return folded;
}

bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Small(x) == Small(y); });
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace qbrpt::database
