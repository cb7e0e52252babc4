// A statement of the system's dialect, made into one of the engine behind it.
#pragma once

#include "dialect/catalogue.h"

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::dialect {

enum class StatementKind : std::uint8_t { Select, Insert, Update, Delete };

/// One parameter of a statement, in the order in which callers count them from 0: those of the
/// PARAMETERS clause first, then other unknown names in the order of their first use.
struct Parameter {
    std::string name;
    ValueKind kind = ValueKind::Null; ///< declared kind; Null where nothing is declared
    int line = 0;                     ///< of its first use, or of its declaration; counted from 1
    int column = 0;                   ///< in characters, counted from 1
    bool declared = false;            ///< stands in a PARAMETERS clause
};

struct OutputColumn {
    std::string name; ///< the alias, the column's name, or Expr1000, Expr1001, ... as the dialect counts
    ValueKind kind = ValueKind::Null; ///< inferred; Null where any kind may come
};

struct DateColumn {
    std::string table; ///< both in the database's own spelling
    std::string column;
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    std::string sql; ///< for SQLite; parameter n is written ?n+1
    std::vector<Parameter> parameters;
    std::vector<OutputColumn> columns; ///< of a SELECT
    /// The dates that it compares, sorts by, works with or stores. A text in one of them would change the
    /// rows in silence; a text in any other date that a SELECT names comes out and is seen.
    std::vector<DateColumn> dates;
};

/// Translates one statement for SQLite. Raises a Failure that says what is wrong and where: line, column
/// and the word (SyntaxError, UnknownName, or WriteRefused where a second statement follows
/// or it is none on rows).
[[nodiscard]] Translation TranslateForSqlite(std::string_view statement, const Catalogue& catalogue);

} // namespace qbrpt::dialect
