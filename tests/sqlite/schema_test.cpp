// What a column's declaration promises.
#include "adapters/database/sqlite/sqlite_schema.h"

#include <gtest/gtest.h>

namespace qbrpt::database {
namespace {

struct DeclarationRow {
    const char* declaration;
    ValueKind kind;
};

TEST(Schema, ReadsDeclarations) {
    const DeclarationRow rows[] = {{"DATETIME", ValueKind::Date},
                                   {"date", ValueKind::Date},
                                   {"TIMESTAMP", ValueKind::Date},
                                   {"TIME", ValueKind::Date},
                                   {"BOOLEAN", ValueKind::Boolean},
                                   {"bool", ValueKind::Boolean},
                                   {"BIT", ValueKind::Boolean},
                                   {"YESNO", ValueKind::Boolean},
                                   {"INTEGER", ValueKind::Whole},
                                   {"INT", ValueKind::Whole},
                                   {"BIGINT", ValueKind::Whole},
                                   {"unsigned big int", ValueKind::Whole},
                                   {"LONG", ValueKind::Whole},
                                   {"COUNTER", ValueKind::Whole},
                                   {"REAL", ValueKind::Number},
                                   {"DOUBLE PRECISION", ValueKind::Number},
                                   {"CURRENCY", ValueKind::Number},
                                   {"NUMERIC(15,2)", ValueKind::Number},
                                   {"DECIMAL(18, 4)", ValueKind::Number},
                                   {"TEXT", ValueKind::Text},
                                   {"VARCHAR(50)", ValueKind::Text},
                                   {"LONG TEXT", ValueKind::Text},
                                   {"MEMO", ValueKind::Text},
                                   {"CHARINT", ValueKind::Text},
                                   {"", ValueKind::Null},
                                   {"BLOB", ValueKind::Null},
                                   {"SOMETHING", ValueKind::Null}};
    for (const auto& row : rows)
        EXPECT_EQ(KindOfDeclaration(row.declaration), row.kind) << row.declaration;
}

} // namespace
} // namespace qbrpt::database
