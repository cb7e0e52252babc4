#include "adapters/layout/table_reader.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::layout {

namespace {

/// Longer than any sheet; keeps sums of lengths far from overflow.
constexpr double LongestLength = 2000;

} // namespace

report::Twips TwipsOf(double points) {
    return static_cast<report::Twips>(std::lround(points * 20));
}

TableReader::TableReader(const Node& table, std::string_view what, Mistakes& mistakes)
    : mTable(table), mWhat(what), mMistakes(mistakes) {
    if (table.kind != NodeKind::Table)
        mMistakes.Add(table.place, mWhat + " must be a table, not " + std::string(NameOf(table.kind)));
}

bool TableReader::Has(std::string_view key) {
    return Child(key) != nullptr;
}

const Node* TableReader::Child(std::string_view key) {
    if (std::find(mKnown.begin(), mKnown.end(), key) == mKnown.end()) mKnown.push_back(key);
    return mTable.Find(key);
}

const Node* TableReader::Take(std::string_view key, NodeKind kind) {
    const Node* node = Child(key);
    if (node == nullptr || node->kind == kind) return node;
    mMistakes.Add(node->place, Quoted(key) + " must be " + std::string(NameOf(kind)) + ", not " +
                                   std::string(NameOf(node->kind)));
    return nullptr;
}

void TableReader::Missing(std::string_view key) {
    mMistakes.Add(mTable.place, mWhat + " needs a " + Quoted(key));
}

std::string TableReader::Text(std::string_view key, std::string_view fallback) {
    const Node* node = Take(key, NodeKind::Text);
    return node == nullptr ? std::string(fallback) : node->text;
}

std::string TableReader::RequiredText(std::string_view key) {
    if (!Has(key)) Missing(key);
    return Text(key);
}

bool TableReader::Flag(std::string_view key, bool fallback) {
    const Node* node = Take(key, NodeKind::Flag);
    return node == nullptr ? fallback : node->flag;
}

double TableReader::Number(std::string_view key, double fallback) {
    const Node* node = Take(key, NodeKind::Number);
    return node == nullptr ? fallback : node->number;
}

report::Twips TableReader::Length(std::string_view key, double fallbackPoints) {
    const double points = Number(key, fallbackPoints);
    if (std::fabs(points) <= LongestLength) return TwipsOf(points);
    Wrong(key, Quoted(key) + " must be a length in points, at most 2000");
    return TwipsOf(fallbackPoints);
}

report::Twips TableReader::RequiredLength(std::string_view key) {
    if (!Has(key)) Missing(key);
    return Length(key);
}

const Place& TableReader::PlaceOf(std::string_view key) const {
    const Node* node = mTable.Find(key);
    return node == nullptr ? mTable.place : node->place;
}

void TableReader::Finish() {
    for (const Entry& entry : mTable.entries) {
        if (std::find(mKnown.begin(), mKnown.end(), entry.key) != mKnown.end()) continue;
        mMistakes.Add(entry.place,
                      mWhat + " has no key " + Quoted(entry.key) + Suggestion(entry.key, mKnown));
    }
}

} // namespace qbrpt::layout
