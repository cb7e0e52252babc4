// Reads one table of a layout file: known keys by name and kind, unknown keys as mistakes.
#pragma once

#include "adapters/layout/mistakes.h"
#include "adapters/layout/tree.h"
#include "report/text_port.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qbrpt::layout {

/// Lengths in layout files are points; the engine's are twips.
[[nodiscard]] report::Twips TwipsOf(double points);

class TableReader {
public:
    /// `what` names the table in descriptions, e.g. "a column".
    TableReader(const Node& table, std::string_view what, Mistakes& mistakes);

    [[nodiscard]] bool Has(std::string_view key);
    [[nodiscard]] std::string Text(std::string_view key, std::string_view fallback = {});
    /// A missing key is a mistake.
    [[nodiscard]] std::string RequiredText(std::string_view key);
    [[nodiscard]] bool Flag(std::string_view key, bool fallback = false);
    [[nodiscard]] double Number(std::string_view key, double fallback);
    /// A length in points, as twips; outside -2000 to 2000 points it is a mistake.
    [[nodiscard]] report::Twips Length(std::string_view key, double fallbackPoints = 0);
    [[nodiscard]] report::Twips RequiredLength(std::string_view key);
    /// One of a fixed list of words; `noun` says in descriptions what they are, where the key does not.
    template <class T>
    [[nodiscard]] T Choice(std::string_view key, std::span<const std::pair<std::string_view, T>> choices,
                           T fallback, std::string_view noun = {}) {
        const Node* node = Take(key, NodeKind::Text);
        if (node == nullptr) return fallback;
        std::vector<std::string_view> words;
        for (const auto& [word, value] : choices) {
            if (word == node->text) return value;
            words.push_back(word);
        }
        mMistakes.Add(node->place, Quoted(node->text) + " is no " + std::string(noun.empty() ? key : noun) +
                                       Suggestion(node->text, words));
        return fallback;
    }
    /// The node of a key of any kind, or null.
    [[nodiscard]] const Node* Child(std::string_view key);
    [[nodiscard]] const Node* Child(std::string_view key, NodeKind kind) { return Take(key, kind); }

    /// Where a key's value stands; the table's own place where the key is missing.
    [[nodiscard]] const Place& PlaceOf(std::string_view key) const;
    void Wrong(std::string_view key, const std::string& words) { mMistakes.Add(PlaceOf(key), words); }

    /// Every key that was not asked for is a mistake. Call it last.
    void Finish();

private:
    const Node* Take(std::string_view key, NodeKind kind);
    void Missing(std::string_view key);

    const Node& mTable;
    std::string mWhat;
    Mistakes& mMistakes;
    std::vector<std::string_view> mKnown;
};

} // namespace qbrpt::layout
