// The order of text: no regard to case, Arabic by its own alphabet.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct UCollator;

namespace qbrpt::database {

/// Unicode's order as Arabic tailors it, by letters and their marks but not by case. Names of a café are
/// nearly always made of plain letters, so those are compared by a table of ranks that is taken from the
/// full rules once; any other character sends both texts to the full rules.
class TextOrder {
public:
    /// Raises FailureNumber::DatabaseEngine where the rules of the order are not installed.
    TextOrder();
    ~TextOrder();
    TextOrder(const TextOrder&) = delete;
    TextOrder& operator=(const TextOrder&) = delete;

    /// Below, equal to or above 0, as `a` stands before, beside or behind `b`. Bytes that are no UTF-8
    /// count as U+FFFD.
    [[nodiscard]] int Compare(std::string_view a, std::string_view b) const;
    /// The same by the full rules alone.
    [[nodiscard]] int CompareByRules(std::string_view a, std::string_view b) const;

    /// Bytes whose plain order is that of the texts, and that are equal where Compare says so.
    [[nodiscard]] std::string KeyOf(std::string_view text) const;

    /// The one of the process.
    static const TextOrder& Shared();

private:
    /// Two steps of the order: the letter, then its mark. A letter of 0 is not in the table.
    struct Rank {
        unsigned char letter = 0;
        unsigned char mark = 0;
    };
    struct Closer {
        void operator()(UCollator* collator) const;
    };
    using Collator = std::unique_ptr<UCollator, Closer>;

    static Collator Open(bool marks);
    void FillRanks();
    [[nodiscard]] Rank RankAt(std::string_view text, std::size_t& position) const;
    [[nodiscard]] bool SettledAt(std::string_view text, std::size_t position) const;

    Collator mRules;
    std::vector<Rank> mRanks; ///< by character
};

} // namespace qbrpt::database
