// Names and calls inside expressions.
#include "dialect/binder.h"
#include "dialect/builtins.h"
#include "dialect/grouping.h"
#include "dialect/kinds.h"
#include "dialect/parser_limits.h"
#include "dialect/scope.h"
#include "dialect/words.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

namespace {

constexpr int DeepestBinding = 900; // aliases that name each other can be deeper than any one expression

} // namespace

void Binder::BindNode(Node& node, Scope* scope) {
    if (++mDepth > DeepestBinding)
        Raise(FailureNumber::SyntaxError, node, "This expression is nested too deeply");
    switch (node.type) {
    case NodeType::Name:
        BindName(node, scope);
        break;
    case NodeType::Call:
        BindCall(node, scope);
        break;
    case NodeType::InQuery:
    case NodeType::Exists:
    case NodeType::Subquery:
        BindNested(node, scope);
        break;
    default:
        BindOperands(node, scope);
        break;
    }
    node.kind = InferKind(node);
    for (const NodePtr& operand : node.operands)
        node.height = std::max(node.height, operand->height + 1);
    if (node.height > HighestExpression)
        Raise(FailureNumber::SyntaxError, node, "This expression is nested too deeply");
    --mDepth;
}

void Binder::BindOperands(Node& node, Scope* scope) {
    for (const NodePtr& operand : node.operands)
        BindNode(*operand, scope);
}

void Binder::BindNested(Node& node, Scope* scope) {
    BindOperands(node, scope);
    const int aggregates = mAggregates;
    BindQuery(*node.query, scope);
    mAggregates = aggregates; // those of the inner query are its own
    if (node.type != NodeType::Exists && node.query->columns.size() != 1)
        Raise(FailureNumber::SyntaxError, node, "A SELECT inside an expression gives one column");
}

bool Binder::BindColumn(Node& node, const Scope& scope) {
    std::vector<Source*> holders;
    for (const auto& source : scope.select->sources) {
        if (!node.qualifier.empty() && !SameName(node.qualifier, source->alias)) continue;
        const auto column =
            std::find_if(source->columns.begin(), source->columns.end(),
                         [&node](const SourceColumn& entry) { return SameName(entry.name, node.text); });
        if (column == source->columns.end()) continue;
        node.binding = {Binding::Target::Column, source.get(), nullptr,
                        static_cast<std::size_t>(column - source->columns.begin())};
        holders.push_back(source.get());
    }
    if (holders.size() < 2) return !holders.empty();
    std::string tables;
    for (std::size_t i = 0; i < holders.size(); ++i) {
        if (i > 0) tables += i + 1 < holders.size() ? ", " : " and ";
        tables += "\"" + (holders[i]->alias.empty() ? "a sub-select" : holders[i]->alias) + "\"";
    }
    Raise(FailureNumber::UnknownName, node,
          "The name \"" + node.text + "\" could mean a column of " + tables +
              "; put the table in front of it");
}

bool Binder::BindQualified(Node& node, Scope* scope) {
    for (Scope* at = scope; at != nullptr; at = at->parent) {
        const auto& sources = at->select->sources;
        const bool named = std::any_of(sources.begin(), sources.end(), [&node](const auto& source) {
            return SameName(source->alias, node.qualifier);
        });
        if (!named) continue;
        if (BindColumn(node, *at)) return true;
        Raise(FailureNumber::UnknownName, node,
              "\"" + node.qualifier + "\" has no column \"" + node.text + "\"");
    }
    Raise(FailureNumber::UnknownName, node, "The FROM clause has no \"" + node.qualifier + "\"");
}

bool Binder::BindAlias(Node& node, Scope& scope) {
    if (!scope.aliases || scope.select == nullptr) return false;
    auto& items = scope.select->items;
    const auto item = std::find_if(items.begin(), items.end(), [&node](const SelectItem& entry) {
        return !entry.alias.empty() && SameName(entry.alias, node.text);
    });
    if (item == items.end()) return false;
    const auto index = static_cast<std::size_t>(item - items.begin());
    if (item->state == SelectItem::State::Binding)
        Raise(FailureNumber::SyntaxError, node, "The column \"" + node.text + "\" refers to itself");
    BindItem(*scope.select, index, scope);
    if (item->aggregated) {
        if (scope.inAggregate || !scope.aggregates)
            Raise(FailureNumber::SyntaxError, node,
                  "\"" + node.text + "\" is an aggregate and can't stand " +
                      (scope.inAggregate ? "inside another one" : std::string("in ") + scope.clause));
        ++mAggregates;
    }
    node.binding = {Binding::Target::Alias, nullptr, scope.select, index};
    node.height = item->expression->height + 1;
    return true;
}

// Now, Date and Time need no parentheses.
bool Binder::BindPlainCall(Node& node) {
    if (node.word.empty() || node.word.front() == '[') return false;
    const Builtin* builtin = FindBuiltin(node.text);
    if (builtin == nullptr || builtin->maximum != 0) return false;
    node.type = NodeType::Call;
    node.builtin = builtin;
    return true;
}

void Binder::BindName(Node& node, Scope* scope) {
    if (node.star) Raise(FailureNumber::SyntaxError, node, "\"*\" can only stand in a SELECT list");
    if (!node.qualifier.empty()) {
        (void)BindQualified(node, scope);
        return;
    }
    for (const Scope* at = scope; at != nullptr; at = at->parent) {
        if (BindColumn(node, *at)) return;
    }
    const bool declared =
        std::any_of(mParameters.begin(), mParameters.end(), [&node](const FoundParameter& found) {
            return found.parameter.declared && SameName(found.parameter.name, node.text);
        });
    if (!declared && scope != nullptr && BindAlias(node, *scope)) return;
    if (!declared && BindPlainCall(node)) return;
    BindParameter(node);
}

void Binder::BindParameter(Node& node) {
    const bool nested = !mOpenSavedQueries.empty();
    const std::size_t offset = nested ? mOuterOffset : node.offset;
    const auto found =
        std::find_if(mParameters.begin(), mParameters.end(), [&node](const FoundParameter& entry) {
            return SameName(entry.parameter.name, node.text);
        });
    const auto index = static_cast<std::size_t>(found - mParameters.begin());
    if (found == mParameters.end()) {
        const Place place = mDiagnostics->PlaceAt(node.offset);
        mParameters.push_back({{node.text, node.kind, place.line, place.column, false}, offset});
    } else {
        found->offset = std::min(found->offset, offset);
        if (found->parameter.kind == ValueKind::Null) found->parameter.kind = node.kind;
    }
    node.binding = {Binding::Target::Parameter, nullptr, nullptr, index};
    node.kind = mParameters[index].parameter.kind;
}

void Binder::BindCall(Node& node, Scope* scope) {
    node.builtin = FindBuiltin(node.text);
    if (node.builtin == nullptr)
        Raise(FailureNumber::UnknownName, node, "There is no function \"" + node.text + "\"");
    if (node.star && node.builtin->form != Form::Count)
        Raise(FailureNumber::SyntaxError, node, "Only Count takes \"*\"");
    const int count = node.star ? 1 : static_cast<int>(node.operands.size());
    if (count < node.builtin->minimum || count > node.builtin->maximum) {
        const std::string least = std::to_string(node.builtin->minimum);
        const std::string most = std::to_string(node.builtin->maximum);
        Raise(FailureNumber::SyntaxError, node,
              node.text + " takes " + (least == most ? least : least + " to " + most) + " arguments, not " +
                  std::to_string(count));
    }
    if (node.builtin->form == Form::Switch && node.operands.size() % 2 != 0)
        Raise(FailureNumber::SyntaxError, node, "Switch takes pairs of a condition and a value");
    if (IsAggregate(node.builtin->form))
        BindAggregate(node, scope);
    else
        BindOperands(node, scope);
}

void Binder::BindAggregate(Node& node, Scope* scope) {
    if (scope == nullptr || !scope->aggregates || scope->inAggregate) {
        const std::string where = scope == nullptr     ? "here"
                                  : scope->inAggregate ? "inside another aggregate"
                                                       : std::string("in ") + scope->clause;
        Raise(FailureNumber::SyntaxError, node, "The aggregate " + node.text + " can't stand " + where);
    }
    Scope own = *scope;
    own.inAggregate = true;
    BindOperands(node, &own);
    ++mAggregates;
    if (LooksOnlyOutside(node, *scope))
        Raise(FailureNumber::SyntaxError, node,
              "The aggregate " + node.text + " looks at columns of an outer SELECT only");
}

// Engines don't agree whose rows such an aggregate would run over.
bool Binder::LooksOnlyOutside(const Node& node, const Scope& scope) {
    const auto holds = [](const Scope& at, const Source* source) {
        return std::any_of(at.select->sources.begin(), at.select->sources.end(),
                           [source](const auto& entry) { return entry.get() == source; });
    };
    bool inside = false;
    bool outside = false;
    VisitNodes(node, [&](const Node& inner) {
        const Source* source = Meaning(inner).binding.source;
        inside = inside || (source != nullptr && holds(scope, source));
        for (const Scope* at = scope.parent; source != nullptr && at != nullptr; at = at->parent)
            outside = outside || holds(*at, source);
        return true;
    });
    return outside && !inside;
}

} // namespace qbrpt::dialect
