// Rows that were read once and can be walked again and again.
#pragma once

#include "base/value.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt {

/// One value seen without copying it. `text` is valid until the cursor moves.
struct CellView {
    ValueKind kind = ValueKind::Null;
    std::int64_t whole = 0;  ///< Whole; Boolean as 0 or 1
    double number = 0;       ///< Number, Date (day number); also set for Whole
    std::string_view text{}; ///< Text, UTF-8
};

using RowView = std::vector<CellView>;

/// A walk over the rows of one RowSource; several may be open on the same source.
class RowCursor {
public:
    virtual ~RowCursor() = default;
    /// Puts the cursor before row `index`, counted from 0.
    virtual void Seek(std::size_t index) = 0;
    /// Steps to the next row and fills `row` (its size becomes the column count); false at the end.
    virtual bool Next(RowView& row) = 0;
};

struct ColumnInfo {
    std::string name;
    ValueKind kind = ValueKind::Null; ///< declared or inferred kind; Null when nothing is known
};

/// A finished, unchanging set of rows. Memory stays bounded: a large set lies in a file.
class RowSource {
public:
    virtual ~RowSource() = default;
    [[nodiscard]] virtual std::size_t RowCount() const = 0;
    [[nodiscard]] virtual const std::vector<ColumnInfo>& Columns() const = 0;
    [[nodiscard]] virtual std::unique_ptr<RowCursor> Open() const = 0;
};

} // namespace qbrpt
