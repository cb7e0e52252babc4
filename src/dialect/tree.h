// The syntax tree of a statement. The parser builds it; the binder gives every name its meaning and every
// expression its kind; rewrites change its shape; the emitter reads it.
#pragma once

#include "base/value.h"
#include "dialect/catalogue.h"
#include "dialect/diagnostics.h"
#include "dialect/translate.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::dialect {

struct Builtin;
struct Query;
struct Select;
struct Source;

enum class NodeType : std::uint8_t {
    Null,
    Boolean, ///< `whole` is 0 or 1
    Whole,
    Number,
    Text,
    Date,
    Name,       ///< a column, an alias of the select list, or a parameter
    Negate,     ///< -a
    Arithmetic, ///< + - * / \ Mod ^
    Join,       ///< a & b
    Compare,
    And, ///< two or more operands
    Or,  ///< two or more operands
    Xor,
    Equivalent,
    Implies,
    Not,
    Between,
    InList, ///< first operand is the one that is looked for
    InQuery,
    Like,
    IsNull,
    Exists,
    Subquery,
    Call,
    Lookup ///< made by a rewrite: column `whole` (from 0) of the totals `text`, in the row of the operand's
           ///< key
};

enum class Operator : std::uint8_t {
    None,
    Add,
    Subtract,
    Multiply,
    Divide,
    DivideWhole,
    Remainder,
    Power,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual
};

/// What a name stands for.
struct Binding {
    enum class Target : std::uint8_t { None, Column, Alias, Parameter };
    Target target = Target::None;
    Source* source = nullptr; ///< of a column
    Select* select = nullptr; ///< whose list holds the alias
    std::size_t index = 0;    ///< of the column, the item or the parameter
};

struct Node;
using NodePtr = std::unique_ptr<Node>;

struct Node {
    NodeType type = NodeType::Null;
    Operator op = Operator::None;
    bool negated = false;   ///< Is Not Null, Not Between, Not In, Not Like
    bool star = false;      ///< Count(*)
    bool enclosed = false;  ///< stands in parentheses of its own
    std::size_t offset = 0; ///< in its statement
    std::string_view word;  ///< as it stands there, for messages
    std::string qualifier;  ///< of a name
    std::string text;       ///< of a name, a text or a call
    std::int64_t whole = 0;
    double number = 0; ///< of Number, day number of Date
    std::vector<NodePtr> operands;
    std::unique_ptr<Query> query; ///< of InQuery, Exists and Subquery
    int height = 1;               ///< of the expression under this node, in nodes

    // Filled in by the binder.
    ValueKind kind = ValueKind::Null;
    Binding binding;
    const Builtin* builtin = nullptr;
};

/// A column that a source offers.
struct SourceColumn {
    std::string name;
    ValueKind kind = ValueKind::Null;
};

/// A table, a saved query or a sub-select of a FROM clause.
struct Source {
    std::string name;  ///< of a table or a saved query; empty for a sub-select
    std::string alias; ///< as statements name it: the alias where one is given
    std::size_t offset = 0;
    std::string_view word;
    std::unique_ptr<Query> query; ///< of a sub-select and of a saved query

    // Filled in by the binder.
    const Table* table = nullptr;
    std::vector<SourceColumn> columns;
    std::string emittedName; ///< unique in the whole statement

    std::string totals; ///< made by a rewrite: the totals that stand here in place of a table
};

struct JoinNode {
    enum class Type : std::uint8_t { Leaf, Inner, Left, Right };
    Type type = Type::Leaf;
    Source* source = nullptr; ///< of a leaf; owned by the select
    std::unique_ptr<JoinNode> left;
    std::unique_ptr<JoinNode> right;
    NodePtr condition; ///< may be missing on an inner join: a comma
};

struct SelectItem {
    NodePtr expression; ///< missing for a star
    std::string alias;
    bool star = false;
    std::string starQualifier;
    std::size_t offset = 0;
    std::string_view word;
    // Filled in by the binder.
    enum class State : std::uint8_t { Fresh, Binding, Bound };
    State state = State::Fresh;
    bool aggregated = false; ///< an aggregate stands in it
};

struct OrderTerm {
    NodePtr expression;
    bool descending = false;
    std::optional<std::size_t> item; ///< filled in where the term names an item of the select list
};

struct Select {
    bool distinct = false;
    std::optional<std::int64_t> top;
    bool percent = false;
    std::vector<SelectItem> items;
    std::vector<std::unique_ptr<Source>> sources; ///< as they stand in the text
    std::unique_ptr<JoinNode> from;
    NodePtr where;
    std::vector<NodePtr> groupBy;
    NodePtr having;
    bool aggregated = false; ///< filled in: an aggregate stands in its list, HAVING or ORDER BY
    /// Made by a rewrite: the rows are sorted into groups apart, and not walked along an index of the key,
    /// which the engine would prefer.
    bool groupsApart = false;
};

struct Query {
    std::vector<std::unique_ptr<Select>> parts; ///< more than one: a union
    std::vector<bool> all;                      ///< whether part i+1 is joined by UNION ALL
    std::vector<OrderTerm> order;
    int height = 0; ///< of the highest expression in it

    // Filled in by the binder.
    std::vector<OutputColumn> columns;
};

struct DeclaredParameter {
    std::string name;
    ValueKind kind = ValueKind::Null;
    std::size_t offset = 0;
};

struct Assignment {
    std::string column;
    std::size_t offset = 0;
    std::string_view word;
    NodePtr value; ///< missing where an INSERT takes rows from a SELECT
    // Filled in by the binder.
    std::string emittedColumn;
    ValueKind kind = ValueKind::Null; ///< of the column
};

/// Aggregates over one table, once for all values of a key: made by a rewrite. The first column is the key.
struct Totals {
    std::string name;
    std::unique_ptr<Query> query;
};

/// A whole statement.
struct Statement {
    StatementKind kind = StatementKind::Select;
    std::vector<DeclaredParameter> parameters;
    std::unique_ptr<Query> query; ///< of a SELECT, and of INSERT ... SELECT
    // Of the writing ones. The target stands as the only source of a select, so that names find it.
    std::unique_ptr<Select> target;
    std::vector<Assignment> assignments;
    std::vector<Totals> totals; ///< filled in by a rewrite
};

} // namespace qbrpt::dialect
