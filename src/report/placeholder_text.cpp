#include "report/placeholder_text.h"

#include "report/placeholders.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

constexpr std::string_view Continued = "(تابع)";
constexpr std::string_view FirstStrongIsolate = "\u2068";
constexpr std::string_view LeftToRightIsolate = "\u2066";
constexpr std::string_view PopIsolate = "\u2069";
constexpr int DeepestText = 4;

// A text that is one inserted value from end to end needs no isolate around it.
std::string_view WithoutOuterIsolate(std::string_view text) {
    const std::size_t close = text.find(PopIsolate);
    if (!text.starts_with(FirstStrongIsolate) || close + PopIsolate.size() != text.size()) return text;
    return text.substr(FirstStrongIsolate.size(), close - FirstStrongIsolate.size());
}

const CellView* CellOf(const FormatScope& scope, int field) {
    return scope.row && field >= 0 ? &(*scope.row)[static_cast<std::size_t>(field)] : nullptr;
}

} // namespace

std::string_view PlaceholderText::Of(std::string_view text, int group, const FormatScope& scope) {
    mText.clear();
    Expand(text, group, scope, 0);
    return WithoutOuterIsolate(mText);
}

void PlaceholderText::Expand(std::string_view text, int group, const FormatScope& scope, int depth) {
    for (PlaceholderScan scan(text); scan.Next();) {
        if (scan.IsPlaceholder())
            AppendWord(scan.Word(), group, scope, depth);
        else
            mText.append(scan.Plain());
    }
}

// Isolates of the value's own are left out: one that is never closed would take in the rest of the line.
void PlaceholderText::AppendIsolated(std::string_view value) {
    if (value.empty()) return;
    constexpr std::string_view isolates = "\xE2\x81"; // then A6 to A9
    mText.append(FirstStrongIsolate);
    for (std::size_t from = 0; from < value.size();) {
        const std::size_t at = value.find(isolates, from);
        mText.append(value.substr(from, at - from));
        if (at == std::string_view::npos) break;
        const std::string_view mark = value.substr(at, isolates.size() + 1);
        const auto last = static_cast<unsigned char>(mark.back());
        if (mark.size() == isolates.size() || last < 0xA6 || last > 0xA9) mText.append(mark);
        from = at + mark.size();
    }
    mText.append(PopIsolate);
}

void PlaceholderText::AppendWord(const Placeholder& word, int group, const FormatScope& scope, int depth) {
    switch (word.kind) {
    case Placeholder::Kind::Page:
        mText.append(std::to_string(scope.page));
        break;
    case Placeholder::Kind::Pages:
        mText.append(std::to_string(scope.pages));
        break;
    case Placeholder::Kind::Printed: {
        CellView moment;
        moment.kind = ValueKind::Date;
        moment.number = mPrintedAt;
        const std::string_view text = mWriter.Write(moment, ValueFormat::DateTime, {}).text;
        mText.append(LeftToRightIsolate).append(text).append(PopIsolate);
        break;
    }
    case Placeholder::Kind::Rows: {
        const auto noun = mDefinition.nouns.find(std::string(word.argument));
        if (noun == mDefinition.nouns.end())
            mText.append(std::to_string(scope.rows));
        else
            mText.append(CountedText(scope.rows, noun->second));
        break;
    }
    case Placeholder::Kind::Text:
        AppendNamed(word.argument, group, scope, depth);
        break;
    case Placeholder::Kind::Field:
        if (const CellView* cell = CellOf(scope, FieldNamed(mDefinition, word.argument)))
            AppendIsolated(mWriter.Write(*cell, ValueFormat::Text, {}).text);
        break;
    case Placeholder::Kind::Group:
        AppendGroup(group, scope);
        break;
    case Placeholder::Kind::Continued:
        if (scope.continued) mText.append(Continued);
        break;
    default:
        break;
    }
}

void PlaceholderText::AppendGroup(int index, const FormatScope& scope) {
    if (index < 0) return;
    const Group& group = mDefinition.groups[static_cast<std::size_t>(index)];
    const bool plainDay = group.by == Group::By::Day && group.format == ValueFormat::Text;
    const CellView* cell = CellOf(scope, group.shown < 0 ? group.field : group.shown);
    const std::string_view text =
        cell ? mWriter.Write(*cell, plainDay ? ValueFormat::Date : group.format, group.picture).text
             : std::string_view{};
    AppendIsolated(text.empty() ? std::string_view(group.whenEmpty) : text);
}

void PlaceholderText::AppendNamed(std::string_view name, int group, const FormatScope& scope, int depth) {
    const Object* named = FindObject(mDefinition, name);
    if (!named || depth >= DeepestText) return;
    if (named->type == ObjectType::Text) {
        const std::size_t start = mText.size();
        mText.append(FirstStrongIsolate);
        if (named->literal)
            mText.append(named->text);
        else
            Expand(named->text, group, scope, depth + 1);
        if (mText.size() == start + FirstStrongIsolate.size())
            mText.resize(start);
        else
            mText.append(PopIsolate);
        return;
    }
    CellView value;
    if (named->type == ObjectType::Field) {
        if (const CellView* cell = CellOf(scope, named->field)) value = *cell;
    } else if (named->type == ObjectType::Total && scope.totals) {
        const auto slot = std::find(mTotals.begin(), mTotals.end(), named->total);
        if (slot != mTotals.end())
            value = scope.totals->Result(static_cast<std::size_t>(slot - mTotals.begin()));
    }
    AppendIsolated(mWriter.Write(value, named->format, named->picture).text);
}

} // namespace qbrpt::report
