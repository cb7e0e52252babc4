#include "report/section_text.h"

#include "report/placeholders.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::report {

namespace {

constexpr std::string_view Continued = "(تابع)";
constexpr std::string_view FirstStrongIsolate = "\u2068";
constexpr std::string_view LeftToRightIsolate = "\u2066";
constexpr std::string_view PopIsolate = "\u2069";
constexpr int DeepestText = 4;

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20;
}

// Line ends become '\n' where lines may break and blanks where they may not; other control characters
// would be boxes on paper.
std::string_view Cleaned(std::string_view text, bool lines, std::string& buffer) {
    if (std::none_of(text.begin(), text.end(), IsControl)) return text;
    buffer.clear();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!IsControl(text[i])) {
            buffer.push_back(text[i]);
        } else if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            continue;
        } else {
            buffer.push_back(lines && (text[i] == '\n' || text[i] == '\r') ? '\n' : ' ');
        }
    }
    while (!buffer.empty() && (buffer.back() == '\n' || buffer.back() == ' '))
        buffer.pop_back();
    return buffer;
}

// A text that is one inserted value from end to end needs no isolate around it.
std::string_view WithoutOuterIsolate(std::string_view text) {
    const std::size_t close = text.find(PopIsolate);
    if (!text.starts_with(FirstStrongIsolate) || close + PopIsolate.size() != text.size()) return text;
    return text.substr(FirstStrongIsolate.size(), close - FirstStrongIsolate.size());
}

const CellView* CellOf(const FormatScope& scope, int field) {
    return scope.row ? &(*scope.row)[static_cast<std::size_t>(field)] : nullptr;
}

} // namespace

bool SameValue(const CellView& a, const CellView& b) {
    if (a.kind != b.kind) return false;
    switch (a.kind) {
    case ValueKind::Null:
        return true;
    case ValueKind::Text:
        return a.text == b.text;
    case ValueKind::Number:
    case ValueKind::Date:
        return a.number == b.number;
    default:
        return a.whole == b.whole;
    }
}

bool SectionText::Shown(const Object& object, const FormatScope& scope) {
    if (object.suppress) return false;
    if (!object.showWhen) return true;
    const CellView* cell = CellOf(scope, object.showWhen->field);
    return cell && Holds(object.showWhen->test, *cell);
}

ValueText SectionText::Of(const CompiledSection& section, const CompiledObject& object,
                          const FormatScope& scope) {
    const Object& source = *object.object;
    ValueText text;
    switch (source.type) {
    case ObjectType::Field:
        if (const CellView* cell = CellOf(scope, source.field))
            text = mWriter.Write(*cell, source.format, source.picture);
        break;
    case ObjectType::Total:
        if (scope.totals)
            text = mWriter.Write(scope.totals->Result(object.total), source.format, source.picture);
        break;
    case ObjectType::Text:
        mText.clear();
        if (source.literal || source.text.find('{') == std::string::npos) {
            text.text = source.text;
        } else {
            Expand(section, source, scope, 0);
            text.text = WithoutOuterIsolate(mText);
        }
        break;
    default:
        break;
    }
    if (!text.figures) text.text = Cleaned(text.text, object.mayGrow, mClean);
    return text;
}

void SectionText::Expand(const CompiledSection& section, const Object& object, const FormatScope& scope,
                         int depth) {
    if (object.literal) {
        mText.append(object.text);
        return;
    }
    for (PlaceholderScan scan(object.text); scan.Next();) {
        if (scan.IsPlaceholder())
            AppendWord(section, scan.Word(), scope, depth);
        else
            mText.append(scan.Plain());
    }
}

// Inserted texts are isolated, so that a number in them never jumps over a word around them.
void SectionText::AppendIsolated(std::string_view value) {
    if (!value.empty()) mText.append(FirstStrongIsolate).append(value).append(PopIsolate);
}

void SectionText::AppendWord(const CompiledSection& section, const Placeholder& word,
                             const FormatScope& scope, int depth) {
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
        const auto noun = mDefinition.definition->nouns.find(std::string(word.argument));
        if (noun == mDefinition.definition->nouns.end())
            mText.append(std::to_string(scope.rows));
        else
            mText.append(CountedText(scope.rows, noun->second));
        break;
    }
    case Placeholder::Kind::Text:
        AppendNamed(section, word.argument, scope, depth);
        break;
    case Placeholder::Kind::Field: {
        const int field = FieldNamed(*mDefinition.definition, word.argument);
        const CellView* cell = field < 0 ? nullptr : CellOf(scope, field);
        if (cell) AppendIsolated(mWriter.Write(*cell, ValueFormat::Text, {}).text);
        break;
    }
    case Placeholder::Kind::Group: {
        const SectionKind kind = section.section->kind;
        if (kind != SectionKind::GroupHeader && kind != SectionKind::GroupFooter) break;
        const Group& group = mDefinition.definition->groups[static_cast<std::size_t>(section.section->group)];
        const CellView* cell = group.field < 0 ? nullptr : CellOf(scope, group.field);
        const ValueFormat format = group.by == Group::By::Day && group.format == ValueFormat::Text
                                       ? ValueFormat::Date
                                       : group.format;
        const std::string_view text =
            cell ? mWriter.Write(*cell, format, group.picture).text : std::string_view{};
        AppendIsolated(text.empty() ? std::string_view(group.whenEmpty) : text);
        break;
    }
    case Placeholder::Kind::Continued:
        if (scope.continued) mText.append(Continued);
        break;
    default:
        break;
    }
}

void SectionText::AppendNamed(const CompiledSection& section, std::string_view name, const FormatScope& scope,
                              int depth) {
    const Object* named = FindObject(*mDefinition.definition, name);
    if (!named || depth >= DeepestText) return;
    if (named->type == ObjectType::Text) {
        const std::size_t start = mText.size();
        mText.append(FirstStrongIsolate);
        Expand(section, *named, scope, depth + 1);
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
        const auto& totals = mDefinition.totals;
        const auto slot = std::find(totals.begin(), totals.end(), named->total);
        if (slot != totals.end())
            value = scope.totals->Result(static_cast<std::size_t>(slot - totals.begin()));
    }
    AppendIsolated(mWriter.Write(value, named->format, named->picture).text);
}

} // namespace qbrpt::report
