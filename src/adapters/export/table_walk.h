// A walk over the rows of a table with its groups and totals, in the order of the page.
#pragma once

#include "adapters/export/export_job.h"
#include "adapters/export/table_plan.h"

#include <cstdint>
#include <string_view>

namespace qbrpt {

/// A row of totals.
struct TotalsRow {
    enum class Kind : std::uint8_t { Group, Report, Average };
    Kind kind = Kind::Report;
    std::size_t group = 0; ///< of Kind::Group
    std::string_view label;
    std::string_view count; ///< the number of rows in words; may be empty
    RowView values;         ///< a value for each column; null where the column has none
};

/// Takes what the walk meets. Views live until the next call.
class TableVisitor {
public:
    virtual ~TableVisitor() = default;
    virtual void BeginGroup(std::size_t group, std::string_view heading) = 0;
    /// The bound row; columns pick from it by their field.
    virtual void Row(const RowView& row) = 0;
    virtual void Totals(const TotalsRow& totals) = 0;
};

/// Raises what the visitor and `onProgress` raise. Memory does not grow with the rows.
void WalkTable(const TablePlan& plan, const ExportPart& part, double printedAt, TableVisitor& visitor,
               const RowProgress& onProgress);

} // namespace qbrpt
