// Columns fill fields by position.
#pragma once

#include "base/rows.h"
#include "report/definition.h"

#include <string>
#include <vector>

namespace qbrpt::report {

/// Makes of a record set's row the row that a template expects: as many values as the field list and its
/// computed values, each of its field's kind where that can be. Surplus columns are dropped, missing ones
/// are null; text longer than its field is cut at a character, a number on a whole-number field keeps its
/// fraction. A value that its field cannot take stays what it is, or becomes null where it says nothing.
class Binder {
public:
    explicit Binder(const Definition& definition);

    /// Fills `bound`. Texts live as long as those of `raw` and until the next call.
    void Bind(const RowView& raw, RowView& bound);

    [[nodiscard]] std::size_t Size() const { return mFields.size() + mComputed.size(); }

private:
    struct BoundField {
        FieldKind kind;
        std::size_t characters;
    };

    [[nodiscard]] CellView Coerce(const CellView& value, std::size_t field);
    [[nodiscard]] CellView ToText(const CellView& value, std::size_t field);

    std::vector<BoundField> mFields;
    std::vector<Computed> mComputed;
    std::vector<std::string> mTexts; ///< texts made here, one place a field
};

/// `text` cut to `characters` characters; a mark is never parted from its letter.
[[nodiscard]] std::string_view CutText(std::string_view text, std::size_t characters);

} // namespace qbrpt::report
