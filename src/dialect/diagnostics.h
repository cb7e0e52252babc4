// Where in a statement something is wrong, and how it is said.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qbrpt::dialect {

/// A place in a statement as people count: lines from 1, characters from 1. A carriage return, a line
/// feed or the pair of them ends a line.
struct Place {
    int line = 1;
    int column = 1;
};

[[nodiscard]] Place PlaceOf(std::string_view statement, std::size_t offset);

/// A word or a text in quotes, cut where it is long, fit for a message box.
[[nodiscard]] std::string QuotedWord(std::string_view word);

/// The text of one statement, for messages that quote it.
class Diagnostics {
public:
    /// `savedQuery` is the name under which the statement is saved, empty for one that was sent.
    explicit Diagnostics(std::string_view statement, std::string savedQuery = {});

    /// Raises "`what` (line 2, column 7, at "word")", with the name of the saved query in front.
    [[noreturn]] void Raise(FailureNumber number, std::size_t offset, std::string_view word,
                            const std::string& what) const;
    [[nodiscard]] Place PlaceAt(std::size_t offset) const { return PlaceOf(mStatement, offset); }

private:
    std::string_view mStatement;
    std::string mSavedQuery;
};

} // namespace qbrpt::dialect
