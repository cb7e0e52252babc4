// Mistakes in a layout file, gathered so that its writer sees all of them at once.
#pragma once

#include "adapters/layout/tree.h"

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::layout {

class Mistakes {
public:
    void Add(const Place& place, const std::string& words);
    [[nodiscard]] bool Empty() const { return mLines.empty(); }
    /// Raises FailureNumber::Layout with a line for each mistake, in the order of the file.
    void RaiseIfAny() const;

private:
    struct Line {
        Place place;
        std::string words;
    };
    std::vector<Line> mLines;
};

/// `; did you mean "..."?` for the nearest of `known`, or the list of all of them where none is near.
[[nodiscard]] std::string Suggestion(std::string_view word, std::span<const std::string_view> known);

/// `"word"` between quotes.
[[nodiscard]] std::string Quoted(std::string_view word);

} // namespace qbrpt::layout
