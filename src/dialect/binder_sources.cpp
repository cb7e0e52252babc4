// Tables, saved queries and sub-selects behind FROM, and the targets of statements that write.
#include "dialect/binder.h"
#include "dialect/grouping.h"
#include "dialect/joins.h"
#include "dialect/kinds.h"
#include "dialect/parser.h"
#include "dialect/parser_limits.h"
#include "dialect/scope.h"
#include "dialect/words.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

std::string Binder::UniqueName(const std::string& alias) {
    std::string name = alias;
    for (int i = 2; !mEmittedNames.insert(FoldName(name)).second; ++i)
        name = alias + "~" + std::to_string(i);
    return name;
}

void Binder::BindSource(Source& source) {
    if (source.query) {
        BindQuery(*source.query, nullptr);
    } else {
        source.table = mCatalogue.FindTable(source.name);
        if (source.table == nullptr) BindSavedQuery(source);
    }
    if (source.table != nullptr) {
        for (const Column& column : source.table->columns)
            source.columns.push_back({column.name, column.kind});
    } else {
        for (const OutputColumn& column : source.query->columns)
            source.columns.push_back({column.name, column.kind});
    }
    source.emittedName = UniqueName(source.alias.empty() ? "query" : source.alias);
}

void Binder::BindSavedQuery(Source& source) {
    std::optional<std::string> text = mCatalogue.SavedQuery(source.name);
    if (!text)
        mDiagnostics->Raise(FailureNumber::UnknownName, source.offset, source.word,
                            "The database has no table or query \"" + source.name + "\"");
    const bool circular =
        std::any_of(mOpenSavedQueries.begin(), mOpenSavedQueries.end(),
                    [&source](const std::string& name) { return SameName(name, source.name); });
    if (circular || mOpenSavedQueries.size() >= DeepestSavedQueries)
        mDiagnostics->Raise(FailureNumber::SyntaxError, source.offset, source.word,
                            "The saved query \"" + source.name + "\" is built on itself");
    if (mSavedTexts.size() >= MostSavedQueries)
        mDiagnostics->Raise(FailureNumber::SyntaxError, source.offset, source.word,
                            "The statement takes in too many saved queries");
    SavedText& saved = mSavedTexts.emplace_back(std::move(*text), source.name);
    Statement statement = Parser(saved.text, saved.diagnostics).ParseStatement();
    if (statement.kind != StatementKind::Select)
        mDiagnostics->Raise(FailureNumber::WriteRefused, source.offset, source.word,
                            "The saved query \"" + source.name + "\" writes, so it can't be read from");

    const bool outermost = mOpenSavedQueries.empty();
    if (outermost) mOuterOffset = source.offset;
    const Diagnostics* outer = std::exchange(mDiagnostics, &saved.diagnostics);
    mOpenSavedQueries.push_back(source.name);
    for (const DeclaredParameter& declared : statement.parameters) {
        Node node;
        node.offset = declared.offset;
        node.word = declared.name;
        node.text = declared.name;
        node.kind = declared.kind;
        BindParameter(node);
    }
    source.query = std::move(statement.query);
    BindQuery(*source.query, nullptr);
    mOpenSavedQueries.pop_back();
    mDiagnostics = outer;
}

void Binder::CheckAliases(const Select& select) {
    std::unordered_set<std::string> seen;
    for (const auto& source : select.sources) {
        if (source->alias.empty() || seen.insert(FoldName(source->alias)).second) continue;
        mDiagnostics->Raise(FailureNumber::SyntaxError, source->offset, source->word,
                            "\"" + source->alias + "\" stands twice in this FROM clause; give one an alias");
    }
}

void Binder::BindJoins(JoinNode& join, Scope& scope) {
    if (join.left) BindJoins(*join.left, scope);
    if (join.right) BindJoins(*join.right, scope);
    Scope own = scope;
    own.aliases = false;
    BindClause(join.condition.get(), own, "ON", false);
    if (join.condition) CheckJoinCondition(join, *scope.select);
}

void Binder::CheckJoinCondition(const JoinNode& join, const Select& select) const {
    const std::vector<const Source*> joined = SourcesOf(join);
    VisitNodes(*join.condition, [&](const Node& node) {
        const Source* source = node.binding.source;
        const bool own = std::any_of(select.sources.begin(), select.sources.end(),
                                     [source](const auto& entry) { return entry.get() == source; });
        if (own && std::find(joined.begin(), joined.end(), source) == joined.end())
            Raise(FailureNumber::SyntaxError, node,
                  "\"" + source->alias + "\" has no part in this join; name it in WHERE");
        return true;
    });
}

void Binder::ExpandStars(Select& select) {
    std::vector<SelectItem> items;
    for (SelectItem& item : select.items) {
        if (!item.star) {
            items.push_back(std::move(item));
            continue;
        }
        bool found = false;
        for (const auto& source : select.sources) {
            if (!item.starQualifier.empty() && !SameName(item.starQualifier, source->alias)) continue;
            found = true;
            for (std::size_t i = 0; i < source->columns.size(); ++i) {
                SelectItem& column = items.emplace_back();
                column.offset = item.offset;
                column.word = item.word;
                column.state = SelectItem::State::Bound;
                column.expression = std::make_unique<Node>();
                column.expression->type = NodeType::Name;
                column.expression->offset = item.offset;
                column.expression->word = item.word;
                column.expression->text = source->columns[i].name;
                column.expression->kind = source->columns[i].kind;
                column.expression->binding = {Binding::Target::Column, source.get(), nullptr, i};
                if (items.size() > MostItems)
                    mDiagnostics->Raise(FailureNumber::SyntaxError, item.offset, item.word,
                                        "This SELECT has too many columns");
            }
        }
        if (!found)
            mDiagnostics->Raise(FailureNumber::UnknownName, item.offset, item.word,
                                item.starQualifier.empty()
                                    ? "There is no table behind this \"*\""
                                    : "The FROM clause has no \"" + item.starQualifier + "\"");
    }
    select.items = std::move(items);
}

void Binder::BindTarget(Statement& statement) {
    Source& source = *statement.target->sources.front();
    source.table = mCatalogue.FindTable(source.name);
    if (source.table == nullptr)
        mDiagnostics->Raise(FailureNumber::UnknownName, source.offset, source.word,
                            "The database has no table \"" + source.name + "\"");
    for (const Column& column : source.table->columns)
        source.columns.push_back({column.name, column.kind});
    source.emittedName = UniqueName(source.alias);
}

void Binder::BindAssignments(Statement& statement) {
    const Source& source = *statement.target->sources.front();
    Scope scope;
    scope.select = statement.target.get();
    Scope* values = statement.kind == StatementKind::Insert ? nullptr : &scope;
    if (statement.kind == StatementKind::Insert && !statement.assignments.empty() &&
        statement.assignments.front().column.empty()) { // VALUES without a list of columns
        if (statement.assignments.size() != source.columns.size())
            mDiagnostics->Raise(FailureNumber::SyntaxError, source.offset, source.word,
                                "There are " + std::to_string(statement.assignments.size()) +
                                    " values for the " + std::to_string(source.columns.size()) +
                                    " columns of the table");
        for (std::size_t i = 0; i < source.columns.size(); ++i)
            statement.assignments[i].column = source.columns[i].name;
    } else if (statement.query && statement.assignments.empty()) {
        for (const SourceColumn& column : source.columns)
            statement.assignments.emplace_back().column = column.name;
    }
    for (Assignment& assignment : statement.assignments) {
        const auto column =
            std::find_if(source.columns.begin(), source.columns.end(),
                         [&](const SourceColumn& entry) { return SameName(entry.name, assignment.column); });
        if (column == source.columns.end())
            mDiagnostics->Raise(FailureNumber::UnknownName, assignment.offset, assignment.word,
                                "The table \"" + source.name + "\" has no column \"" + assignment.column +
                                    "\"");
        assignment.emittedColumn = column->name;
        assignment.kind = column->kind;
        if (assignment.value) BindNode(*assignment.value, values);
    }
    if (statement.query && statement.query->columns.size() != statement.assignments.size())
        mDiagnostics->Raise(FailureNumber::SyntaxError, source.offset, source.word,
                            "The SELECT gives " + std::to_string(statement.query->columns.size()) +
                                " columns for " + std::to_string(statement.assignments.size()));
    BindClause(statement.target->where.get(), scope, "WHERE", false);
}

} // namespace qbrpt::dialect
