#include "report/section_text.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::report {

namespace {

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

const CellView* CellOf(const FormatScope& scope, int field) {
    return scope.row ? &(*scope.row)[static_cast<std::size_t>(field)] : nullptr;
}

/// The group whose value {group} is in a section.
int GroupOf(const CompiledSection& section) {
    const SectionKind kind = section.section->kind;
    return kind == SectionKind::GroupHeader || kind == SectionKind::GroupFooter ? section.section->group : -1;
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
    if (object.on != OnPages::All && (object.on == OnPages::First) != (scope.page <= 1)) return false;
    return !object.showWhen || (scope.row && Holds(*object.showWhen, *scope.row));
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
        text.text = source.text;
        if (!source.literal && source.text.find('{') != std::string::npos)
            text.text = mWords.Of(source.text, GroupOf(section), scope);
        break;
    default:
        break;
    }
    if (!text.figures) text.text = Cleaned(text.text, object.mayGrow, mClean);
    return text;
}

} // namespace qbrpt::report
