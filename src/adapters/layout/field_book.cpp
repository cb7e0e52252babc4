#include "adapters/layout/field_book.h"

#include <algorithm>
#include <array>

namespace qbrpt::layout {

namespace {

using Operation = report::Computed::Operation;

std::optional<Operation> OperationOf(std::string_view sign) {
    if (sign == "+") return Operation::Add;
    if (sign == "-") return Operation::Subtract;
    if (sign == "*") return Operation::Multiply;
    if (sign == "/") return Operation::Divide;
    return std::nullopt;
}

/// The words of a text, parted by blanks.
std::vector<std::string_view> WordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t at = text.find_first_not_of(' '); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(' ', end);
    }
    return words;
}

} // namespace

bool IsNumberKind(FieldKind kind) {
    return kind == FieldKind::Number || kind == FieldKind::WholeNumber;
}

FieldBook::FieldBook(std::span<const Field> fields, TableReader& layout, Mistakes& mistakes)
    : mFields(fields), mMistakes(mistakes) {
    const Node* computed = layout.Child("computed", NodeKind::Table);
    if (computed == nullptr) return;
    for (const Entry& entry : computed->entries)
        ReadComputed(entry);
}

void FieldBook::ReadComputed(const Entry& entry) {
    const Place& place = entry.value.place;
    const auto words = WordsOf(entry.value.text);
    const auto operation = words.size() == 3 ? OperationOf(words[1]) : std::nullopt;
    if (entry.value.kind != NodeKind::Text || !operation) {
        mMistakes.Add(place, "a computed value is two fields with a sign between them, as in "
                             "\"count * price\"; signs are + - * /");
        return;
    }
    const auto names = Names();
    if (std::find(names.begin(), names.end(), entry.key) != names.end()) {
        mMistakes.Add(entry.place, "there is a field " + Quoted(entry.key) + " already");
        return;
    }
    const int left = Operand(words[0], place);
    const int right = Operand(words[2], place);
    if (left >= 0 && right >= 0) mComputed.push_back({entry.key, *operation, left, right});
}

int FieldBook::Operand(std::string_view name, const Place& usedAt) const {
    const auto found = std::find_if(mFields.begin(), mFields.end(),
                                    [name](const Field& field) { return field.name == name; });
    if (found == mFields.end()) return Find(std::string(name), usedAt);
    if (!IsNumberKind(found->kind)) {
        mMistakes.Add(usedAt, "the field " + Quoted(name) + " is no number");
        return -1;
    }
    return static_cast<int>(found - mFields.begin());
}

std::vector<std::string_view> FieldBook::Names() const {
    std::vector<std::string_view> names;
    for (const Field& field : mFields)
        names.push_back(field.name);
    for (const report::Computed& computed : mComputed)
        names.emplace_back(computed.name);
    return names;
}

int FieldBook::Find(const std::string& name, const Place& usedAt) const {
    const auto names = Names();
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end()) return static_cast<int>(found - names.begin());
    mMistakes.Add(usedAt, "there is no field " + Quoted(name) + Suggestion(name, names));
    return -1;
}

std::optional<FieldKind> FieldBook::KindOf(int field) const {
    if (field < 0) return std::nullopt;
    const auto position = static_cast<std::size_t>(field);
    return position < mFields.size() ? mFields[position].kind : FieldKind::Number;
}

} // namespace qbrpt::layout
