#include "dialect/binder.h"

#include "dialect/grouping.h"
#include "dialect/kinds.h"
#include "dialect/parser_limits.h"
#include "dialect/scope.h"
#include "dialect/words.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace qbrpt::dialect {

Binder::Binder(const Catalogue& catalogue, const Diagnostics& diagnostics)
    : mCatalogue(catalogue), mDiagnostics(&diagnostics) {}

Binder::~Binder() = default;

void Binder::Raise(FailureNumber number, const Node& node, const std::string& what) const {
    mDiagnostics->Raise(number, node.offset, node.word, what);
}

void Binder::Bind(Statement& statement) {
    for (const DeclaredParameter& declared : statement.parameters) {
        const Place place = mDiagnostics->PlaceAt(declared.offset);
        mParameters.push_back(
            {{declared.name, declared.kind, place.line, place.column, true}, declared.offset});
    }
    if (statement.target) BindTarget(statement);
    if (statement.query) BindQuery(*statement.query, nullptr);
    if (statement.target) BindAssignments(statement);

    // Names in a FROM clause are bound before those of the list in front of it; callers count as they read.
    std::vector<std::size_t> sorted(mParameters.size());
    std::iota(sorted.begin(), sorted.end(), 0U);
    std::stable_sort(sorted.begin(), sorted.end(), [this](std::size_t a, std::size_t b) {
        const FoundParameter& left = mParameters[a];
        const FoundParameter& right = mParameters[b];
        if (left.parameter.declared != right.parameter.declared) return left.parameter.declared;
        return !left.parameter.declared && left.offset < right.offset;
    });
    mOrder.resize(sorted.size());
    for (std::size_t place = 0; place < sorted.size(); ++place)
        mOrder[sorted[place]] = place;
}

std::vector<Parameter> Binder::Parameters() const {
    std::vector<Parameter> parameters(mParameters.size());
    for (std::size_t i = 0; i < mParameters.size(); ++i)
        parameters[mOrder[i]] = mParameters[i].parameter;
    return parameters;
}

void Binder::BindQuery(Query& query, Scope* parent) {
    for (const auto& part : query.parts)
        BindSelect(*part, parent, query);
    if (query.parts.size() > 1) {
        CombineUnion(query);
        BindUnionOrder(query);
    } else {
        query.columns = OutputColumnsOf(*query.parts.front());
    }
}

void Binder::BindSelect(Select& select, Scope* parent, Query& query) {
    for (const auto& source : select.sources)
        BindSource(*source);
    CheckAliases(select);
    ExpandStars(select);
    Scope scope;
    scope.select = &select;
    scope.parent = parent;
    if (select.from) BindJoins(*select.from, scope);
    for (std::size_t i = 0; i < select.items.size(); ++i)
        BindItem(select, i, scope);
    select.aggregated = std::any_of(select.items.begin(), select.items.end(),
                                    [](const SelectItem& item) { return item.aggregated; });
    BindClause(select.where.get(), scope, "WHERE", false);
    for (const NodePtr& term : select.groupBy)
        BindOwnClause(term.get(), scope, "GROUP BY", false);
    const int before = mAggregates;
    BindClause(select.having.get(), scope, "HAVING", true);
    if (select.having && select.groupBy.empty() && !select.aggregated)
        Raise(FailureNumber::SyntaxError, *select.having,
              "HAVING needs a GROUP BY, or an aggregate in the SELECT list");
    if (query.parts.size() == 1) BindOrder(query, select, scope);
    select.aggregated = select.aggregated || mAggregates != before;
    CheckGrouping(select, query.parts.size() == 1 ? &query.order : nullptr, *mDiagnostics);
    if (select.distinct && query.parts.size() == 1) {
        for (const OrderTerm& term : query.order) {
            if (!term.item)
                Raise(FailureNumber::SyntaxError, *term.expression,
                      "With DISTINCT, ORDER BY can only name columns of the SELECT list");
        }
    }
}

void Binder::BindItem(Select& select, std::size_t index, Scope& scope) {
    SelectItem& item = select.items[index];
    if (item.state == SelectItem::State::Bound) return;
    if (item.state == SelectItem::State::Binding)
        Raise(FailureNumber::SyntaxError, *item.expression,
              "The column \"" + item.alias + "\" refers to itself");
    item.state = SelectItem::State::Binding;
    Scope own = scope;
    own.clause = "SELECT";
    own.aggregates = true;
    own.inAggregate = false;
    const int before = mAggregates;
    BindNode(*item.expression, &own);
    item.aggregated = mAggregates != before || item.aggregated;
    item.state = SelectItem::State::Bound;
}

void Binder::BindClause(Node* expression, Scope& scope, const char* clause, bool aggregates) {
    if (expression == nullptr) return;
    Scope own = scope;
    own.clause = clause;
    own.aggregates = aggregates;
    BindNode(*expression, &own);
}

// GROUP BY and ORDER BY look at the rows of their own SELECT only.
void Binder::BindOwnClause(Node* expression, Scope& scope, const char* clause, bool aggregates) {
    Scope own = scope;
    own.parent = nullptr;
    BindClause(expression, own, clause, aggregates);
}

bool Binder::BindOrderByNumber(OrderTerm& term, std::size_t count) {
    if (term.expression->type != NodeType::Whole) return false;
    const std::int64_t number = term.expression->whole;
    if (number < 1 || number > static_cast<std::int64_t>(count))
        Raise(FailureNumber::SyntaxError, *term.expression, "ORDER BY counts columns that are not there");
    term.item = static_cast<std::size_t>(number - 1);
    return true;
}

void Binder::BindOrder(Query& query, Select& select, Scope& scope) {
    for (OrderTerm& term : query.order) {
        if (BindOrderByNumber(term, select.items.size())) continue;
        BindOwnClause(term.expression.get(), scope, "ORDER BY", select.aggregated || !select.groupBy.empty());
        const Node& wanted = Meaning(*term.expression);
        for (std::size_t i = 0; i < select.items.size() && !term.item; ++i) {
            if (SameExpression(wanted, *select.items[i].expression)) term.item = i;
        }
    }
}

// The terms of a union name its columns, as the first part has them.
void Binder::BindUnionOrder(Query& query) {
    for (OrderTerm& term : query.order) {
        if (BindOrderByNumber(term, query.columns.size())) continue;
        Node& node = *term.expression;
        const auto found =
            std::find_if(query.columns.begin(), query.columns.end(),
                         [&node](const auto& column) { return SameName(column.name, node.text); });
        if (node.type != NodeType::Name || found == query.columns.end())
            Raise(FailureNumber::SyntaxError, node,
                  "ORDER BY of a UNION can only name columns of its first SELECT");
        term.item = static_cast<std::size_t>(found - query.columns.begin());
    }
}

void Binder::CombineUnion(Query& query) {
    query.columns = OutputColumnsOf(*query.parts.front());
    for (const auto& part : query.parts) {
        if (part->percent)
            mDiagnostics->Raise(FailureNumber::SyntaxError, part->items.front().offset,
                                part->items.front().word, "TOP ... PERCENT can't stand in a part of a UNION");
        if (part->items.size() != query.columns.size())
            mDiagnostics->Raise(FailureNumber::SyntaxError, part->items.front().offset,
                                part->items.front().word,
                                "The parts of a UNION must have the same number of columns");
        for (std::size_t i = 0; i < query.columns.size(); ++i) {
            const Node& node = *part->items[i].expression;
            if (part == query.parts.front() || node.type == NodeType::Null) continue;
            const bool firstIsNull = query.parts.front()->items[i].expression->type == NodeType::Null;
            ValueKind& kind = query.columns[i].kind;
            kind = firstIsNull && kind == ValueKind::Null ? node.kind : CommonKind(kind, node.kind);
        }
    }
}

std::vector<OutputColumn> Binder::OutputColumnsOf(const Select& select) const {
    std::vector<OutputColumn> columns;
    std::unordered_set<std::string> once;
    std::unordered_set<std::string> twice;
    const auto columnName = [](const Node& node) -> const std::string& {
        return node.binding.source->columns[node.binding.index].name;
    };
    const auto isColumn = [](const SelectItem& item) {
        return item.alias.empty() && item.expression->binding.target == Binding::Target::Column;
    };
    for (const SelectItem& item : select.items) {
        if (!isColumn(item)) continue;
        std::string name = FoldName(columnName(*item.expression));
        if (!once.insert(name).second) twice.insert(std::move(name));
    }
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        const SelectItem& item = select.items[i];
        OutputColumn column{item.alias, item.expression->kind};
        if (isColumn(item)) {
            column.name = columnName(*item.expression);
            if (twice.contains(FoldName(column.name)))
                column.name = item.expression->binding.source->alias + "." + column.name;
        } else if (column.name.empty()) {
            column.name = "Expr" + std::to_string(1000 + i);
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

} // namespace qbrpt::dialect
