#include "adapters/layout/conditions.h"

#include "adapters/layout/formats.h"

namespace qbrpt::layout {

std::optional<report::Condition> ReadCondition(TableReader& reader, std::string_view key,
                                               const Workshop& shop) {
    const Node* node = reader.Child(key, NodeKind::Table);
    if (node == nullptr) return std::nullopt;
    TableReader table(*node, "a condition", shop.mistakes);
    report::Condition condition;
    condition.field = shop.fields.Find(table.RequiredText("field"), table.PlaceOf("field"));
    condition.test = ReadTest(table);
    table.Finish();
    if (condition.field < 0) return std::nullopt;
    return condition;
}

} // namespace qbrpt::layout
