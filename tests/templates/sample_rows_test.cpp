// Every template has sample rows of its own shape.
#include "samples/template_rows.h"
#include "templates/field_tables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace qbrpt;

bool Fits(const Value& value, FieldKind kind) {
    switch (KindOf(value)) {
    case ValueKind::Null:
        return true;
    case ValueKind::Text:
        return kind == FieldKind::String;
    case ValueKind::Date:
        return kind == FieldKind::DateTime;
    case ValueKind::Boolean:
        return kind == FieldKind::Boolean;
    default:
        return kind == FieldKind::Number || kind == FieldKind::WholeNumber;
    }
}

TEST(SampleRows, FitTheFieldsOfTheirTemplate) {
    for (const TemplateFacts& facts : AllTemplates()) {
        const std::vector<Row> rows = samples::RowsFor(facts.name, 3);
        ASSERT_EQ(rows.size(), 3U) << facts.name;
        for (const Row& row : rows) {
            // As queries do, they may leave the last field without a column, or have a further one.
            EXPECT_GE(row.size() + 1, facts.fields.size()) << facts.name;
            EXPECT_LE(row.size(), facts.fields.size() + 1) << facts.name;
            for (std::size_t i = 0; i < std::min(row.size(), facts.fields.size()); ++i)
                EXPECT_TRUE(Fits(row[i], facts.fields[i].kind)) << facts.name << " " << facts.fields[i].name;
        }
    }
}

} // namespace
