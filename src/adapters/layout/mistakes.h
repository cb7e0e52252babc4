// Mistakes in a layout file, gathered so that its writer sees all of them at once.
#pragma once

#include "adapters/layout/tree.h"
#include "base/failure.h"

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qbrpt::layout {

/// A layout with mistakes. The description tells of the first ones, Lines() of all, in the order of the file.
class LayoutFailure : public Failure {
public:
    LayoutFailure(const std::string& description, std::vector<std::string> lines)
        : Failure(FailureNumber::Layout, description), mLines(std::move(lines)) {}
    [[nodiscard]] const std::vector<std::string>& Lines() const { return mLines; }

private:
    std::vector<std::string> mLines;
};

class Mistakes {
public:
    void Add(const Place& place, const std::string& words);
    [[nodiscard]] bool Empty() const { return mLines.empty(); }
    /// Raises a LayoutFailure with a line for each mistake.
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
