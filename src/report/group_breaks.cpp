#include "report/group_breaks.h"

#include "report/reading.h"
#include "report/section_text.h"

#include <cmath>

namespace qbrpt::report {

namespace {

bool SameGroupValue(const Group& group, const CellView& a, const CellView& b) {
    if (a.kind != b.kind) return false;
    if (a.kind == ValueKind::Text) return EqualNoCase(a.text, b.text);
    if (a.kind == ValueKind::Date && group.by == Group::By::Day)
        return std::floor(a.number) == std::floor(b.number);
    return SameValue(a, b);
}

} // namespace

std::size_t FirstDifference(const std::vector<Group>& groups, const RowView& a, const RowView& b) {
    for (std::size_t group = 0; group < groups.size(); ++group) {
        if (groups[group].field < 0) continue;
        const auto field = static_cast<std::size_t>(groups[group].field);
        if (!SameGroupValue(groups[group], a[field], b[field])) return group;
    }
    return groups.size();
}

} // namespace qbrpt::report
