// How deep a statement may go. The limits stand well inside of what the stack and the engine behind bear.
#pragma once

namespace qbrpt::dialect {

constexpr int DeepestNesting = 90;      ///< parentheses, calls and queries inside each other
constexpr int HighestExpression = 400;  ///< operators that lean on each other, as in a+b+c+...
constexpr int MostSources = 64;         ///< tables in one FROM clause
constexpr int MostParts = 400;          ///< SELECTs in one UNION
constexpr int MostArguments = 100;      ///< of one call
constexpr int MostItems = 1000;         ///< columns of one SELECT
constexpr int MostSavedQueries = 200;   ///< saved queries that one statement takes in, all together
constexpr int DeepestSavedQueries = 20; ///< saved queries inside each other

} // namespace qbrpt::dialect
