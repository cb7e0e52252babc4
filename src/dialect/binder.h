// Gives every name of a tree its meaning and every expression its kind.
#pragma once

#include "dialect/tree.h"

#include <cstddef>
#include <deque>
#include <string>
#include <unordered_set>
#include <vector>

namespace qbrpt::dialect {

/// A parameter, and where it was first met: parameters are counted in the order of the text.
struct FoundParameter {
    Parameter parameter;
    std::size_t offset = 0; ///< in the outermost statement
};

class Binder {
public:
    /// Both arguments must outlive the binder; the binder must outlive the tree, since it keeps the texts
    /// of saved queries.
    Binder(const Catalogue& catalogue, const Diagnostics& diagnostics);

    /// Raises UnknownName for tables, columns and functions that are not there and for names that could be
    /// several things, SyntaxError for what makes no sense where it stands.
    void Bind(Statement& statement);

    /// Parameters in their final order; `PlaceOfParameter` maps the index in a Binding to it.
    [[nodiscard]] std::vector<Parameter> Parameters() const;
    [[nodiscard]] std::size_t PlaceOfParameter(std::size_t index) const { return mOrder[index]; }

private:
    struct Scope;
    struct SavedText;

    // Sources and queries.
    void BindQuery(Query& query, Scope* parent);
    void BindSelect(Select& select, Scope* parent, Query& query);
    void BindSource(Source& source);
    void BindSavedQuery(Source& source);
    void BindTarget(Statement& statement);
    void BindAssignments(Statement& statement);
    void CheckAliases(const Select& select);
    void BindJoins(JoinNode& join, Scope& scope);
    void CheckJoinCondition(const JoinNode& join, const Select& select) const;
    void ExpandStars(Select& select);
    void BindItem(Select& select, std::size_t index, Scope& scope);
    void BindClause(Node* expression, Scope& scope, const char* clause, bool aggregates);
    void BindOwnClause(Node* expression, Scope& scope, const char* clause, bool aggregates);
    void BindOrder(Query& query, Select& select, Scope& scope);
    void BindUnionOrder(Query& query);
    [[nodiscard]] bool BindOrderByNumber(OrderTerm& term, std::size_t count);
    [[nodiscard]] std::vector<OutputColumn> OutputColumnsOf(const Select& select) const;
    void CombineUnion(Query& query);
    [[nodiscard]] std::string UniqueName(const std::string& alias);

    // Expressions.
    void BindNode(Node& node, Scope* scope);
    void BindOperands(Node& node, Scope* scope);
    void BindName(Node& node, Scope* scope);
    [[nodiscard]] bool BindQualified(Node& node, Scope* scope);
    [[nodiscard]] bool BindColumn(Node& node, const Scope& scope);
    [[nodiscard]] bool BindAlias(Node& node, Scope& scope);
    [[nodiscard]] bool BindPlainCall(Node& node);
    void BindParameter(Node& node);
    void BindCall(Node& node, Scope* scope);
    void BindAggregate(Node& node, Scope* scope);
    [[nodiscard]] static bool LooksOnlyOutside(const Node& node, const Scope& scope);
    void BindNested(Node& node, Scope* scope);

    [[noreturn]] void Raise(FailureNumber number, const Node& node, const std::string& what) const;

    const Catalogue& mCatalogue;
    const Diagnostics* mDiagnostics;
    std::deque<SavedText> mSavedTexts;
    std::vector<std::string> mOpenSavedQueries; ///< names of those that are being taken in
    std::vector<FoundParameter> mParameters;
    std::vector<std::size_t> mOrder;
    std::unordered_set<std::string> mEmittedNames;
    std::size_t mOuterOffset = 0; ///< of the saved query that is being taken in
    int mDepth = 0;
    int mAggregates = 0; ///< met so far

public:
    ~Binder();
    Binder(const Binder&) = delete;
    Binder& operator=(const Binder&) = delete;
};

} // namespace qbrpt::dialect
