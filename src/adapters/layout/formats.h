// Words of layout files for the ways in which values are written and placed.
#pragma once

#include "adapters/layout/table_reader.h"
#include "base/fields.h"
#include "report/definition.h"

#include <optional>

namespace qbrpt::layout {

/// `align`, or where it is missing the usual side of the format.
[[nodiscard]] report::Align ReadAlign(TableReader& reader, std::string_view key, report::Align fallback);

/// `format` of a value of `kind`. A format that the kind cannot have is a mistake; texts and dates have a
/// usual one, numbers must say theirs.
[[nodiscard]] report::ValueFormat ReadFormat(TableReader& reader, std::optional<FieldKind> kind);

/// `is`: what must hold of a value.
[[nodiscard]] report::Condition::Test ReadTest(TableReader& reader);

/// `of`: what a total does with the values.
[[nodiscard]] report::Aggregate ReadAggregate(TableReader& reader);

/// The format of a value of which nothing is said.
[[nodiscard]] report::ValueFormat UsualFormat(std::optional<FieldKind> kind);
[[nodiscard]] report::Align UsualAlign(report::ValueFormat format);
/// Figures: values that are drawn without wrapping, grey where they are zero.
[[nodiscard]] bool IsNumberFormat(report::ValueFormat format);

} // namespace qbrpt::layout
