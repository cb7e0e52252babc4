// The fields that a layout can name.
#pragma once

#include "adapters/layout/table_reader.h"
#include "base/fields.h"
#include "report/definition.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::layout {

/// The fields of the template's rows, and behind them the values that `[computed]` works out of them:
/// `name = "field * field"`, with + - * or / between two fields that are numbers.
class FieldBook {
public:
    FieldBook(std::span<const Field> fields, TableReader& layout, Mistakes& mistakes);

    /// The position of a field; -1 and a mistake where there is none of that name.
    [[nodiscard]] int Find(const std::string& name, const Place& usedAt) const;
    [[nodiscard]] std::optional<FieldKind> KindOf(int field) const;
    [[nodiscard]] std::span<const Field> Fields() const { return mFields; }
    [[nodiscard]] const std::vector<report::Computed>& Computed() const { return mComputed; }

private:
    void ReadComputed(const Entry& entry);
    [[nodiscard]] int Operand(std::string_view name, const Place& usedAt) const;
    [[nodiscard]] std::vector<std::string_view> Names() const;

    std::span<const Field> mFields;
    std::vector<report::Computed> mComputed;
    Mistakes& mMistakes;
};

[[nodiscard]] bool IsNumberKind(FieldKind kind);

} // namespace qbrpt::layout
