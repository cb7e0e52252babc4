#include "dialect/diagnostics.h"

#include "base/utf8.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

namespace {

constexpr std::size_t LongestQuotedWord = 40; // characters; a message box is no place for a whole text

// Control characters don't belong into a message box: line ends show as blanks, others as U+FFFD.
std::string Shown(std::string_view word) {
    std::string shown;
    for (std::size_t at = 0; at < word.size();) {
        const char32_t character = NextCharacter(word, at);
        const bool blank = character == U'\r' || character == U'\n' || character == U'\t';
        AppendCharacter(shown, blank ? U' ' : character < U' ' ? ReplacementCharacter : character);
    }
    return shown;
}

} // namespace

Place PlaceOf(std::string_view statement, std::size_t offset) {
    Place place;
    const std::size_t end = std::min(offset, statement.size());
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < end; ++i) {
        const bool pair = statement[i] == '\r' && i + 1 < statement.size() && statement[i + 1] == '\n';
        if (pair || (statement[i] != '\r' && statement[i] != '\n')) continue;
        ++place.line;
        lineStart = i + 1;
    }
    place.column = static_cast<int>(CharacterCount(statement.substr(lineStart, end - lineStart))) + 1;
    return place;
}

std::string QuotedWord(std::string_view word) {
    const std::string valid = Shown(word.substr(0, LongestQuotedWord * 4));
    const std::string_view head = FirstCharacters(valid, LongestQuotedWord);
    return '"' + std::string(head) + (head.size() < valid.size() ? "...\"" : "\"");
}

Diagnostics::Diagnostics(std::string_view statement, std::string savedQuery)
    : mStatement(statement), mSavedQuery(std::move(savedQuery)) {}

void Diagnostics::Raise(FailureNumber number, std::size_t offset, std::string_view word,
                        const std::string& what) const {
    const Place place = PlaceAt(offset);
    std::string text = mSavedQuery.empty() ? "" : "In the saved query " + QuotedWord(mSavedQuery) + ": ";
    text += what + " (line " + std::to_string(place.line) + ", column " + std::to_string(place.column);
    text += word.empty() ? ", at the end of the statement)." : ", at " + QuotedWord(word) + ").";
    throw Failure(number, text);
}

} // namespace qbrpt::dialect
