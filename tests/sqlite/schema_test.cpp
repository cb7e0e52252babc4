// What a column's declaration promises, and the indexes of tables.
#include "adapters/database/sqlite/sqlite_open.h"
#include "adapters/database/sqlite/sqlite_schema.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gmock/gmock.h>

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

TEST(Schema, KnowsTheIndexesThatHoldAllRows) {
    const test::TempFolder folder;
    const auto file = folder / "indexes.db";
    test::MakeFile(file, "CREATE TABLE t (a INTEGER, b TEXT UNIQUE, C REAL);"
                         "CREATE INDEX both ON t (c, A);"
                         "CREATE INDEX some ON t (a) WHERE b IS NOT NULL;"
                         "CREATE INDEX worked_out ON t (a, c + 1);"
                         "CREATE VIEW v AS SELECT * FROM t");
    const SqliteHandle handle = OpenSqliteFile(file, false, true);
    SqliteSchema schema(handle.get());
    schema.BeginStatement();
    using Columns = std::vector<std::string>;
    EXPECT_THAT(schema.FindTable("T")->indexes,
                testing::UnorderedElementsAre(Columns{"b"}, Columns{"C", "a"}, Columns{"a", ""}));
    EXPECT_THAT(schema.FindTable("v")->indexes, testing::IsEmpty());
}

} // namespace
} // namespace qbrpt::database
