#include "dialect/joins.h"

#include "dialect/builtins.h"
#include "dialect/grouping.h"
#include "dialect/kinds.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

namespace {

using JoinPtr = std::unique_ptr<JoinNode>;

void CollectSources(const JoinNode& join, std::vector<const Source*>& sources) {
    if (join.source != nullptr) sources.push_back(join.source);
    if (join.left) CollectSources(*join.left, sources);
    if (join.right) CollectSources(*join.right, sources);
}

bool Mentions(const Node* condition, const JoinNode& join) {
    if (condition == nullptr) return false;
    const std::vector<const Source*> sources = SourcesOf(join);
    bool found = false;
    VisitNodes(*condition, [&](const Node& node) {
        const Source* source = Meaning(node).binding.source;
        found = found || std::find(sources.begin(), sources.end(), source) != sources.end();
        return !found;
    });
    return found;
}

bool RejectsAny(const std::vector<const Node*>& conjuncts, const JoinNode& join) {
    const std::vector<const Source*> sources = SourcesOf(join);
    return std::any_of(conjuncts.begin(), conjuncts.end(), [&sources](const Node* conjunct) {
        return std::any_of(sources.begin(), sources.end(),
                           [conjunct](const Source* source) { return RejectsNulls(*conjunct, *source); });
    });
}

void SwapRightJoins(JoinNode& join) {
    if (join.type == JoinNode::Type::Leaf) return;
    if (join.type == JoinNode::Type::Right) {
        std::swap(join.left, join.right);
        join.type = JoinNode::Type::Left;
    }
    SwapRightJoins(*join.left);
    SwapRightJoins(*join.right);
}

// `tests` are conditions that every row of the result passes.
void StrengthenJoins(JoinNode& join, const std::vector<const Node*>& tests) {
    if (join.type == JoinNode::Type::Leaf) return;
    if (join.type == JoinNode::Type::Left && RejectsAny(tests, *join.right))
        join.type = JoinNode::Type::Inner;
    std::vector<const Node*> own = Conjuncts(join.condition.get());
    std::vector<const Node*> all = tests;
    all.insert(all.end(), own.begin(), own.end());
    StrengthenJoins(*join.right, all);
    StrengthenJoins(*join.left, join.type == JoinNode::Type::Inner ? all : tests);
}

// (L . (R1 . R2)) becomes ((L . R1) . R2): `join` keeps its place, `condition` goes to the inner one.
void RotateLeft(JoinNode& join, JoinNode::Type inner, NodePtr innerCondition, JoinNode::Type outer,
                NodePtr outerCondition) {
    JoinPtr right = std::move(join.right);
    auto lower = std::make_unique<JoinNode>();
    lower->type = inner;
    lower->left = std::move(join.left);
    lower->right = std::move(right->left);
    lower->condition = std::move(innerCondition);
    join.left = std::move(lower);
    join.right = std::move(right->right);
    join.type = outer;
    join.condition = std::move(outerCondition);
}

bool RotateOnce(JoinNode& join) {
    JoinNode& right = *join.right;
    if (right.type == JoinNode::Type::Leaf) return false;
    if (join.type == JoinNode::Type::Inner && join.left->type == JoinNode::Type::Leaf) {
        std::swap(join.left, join.right);
        return true;
    }
    if (join.type == JoinNode::Type::Inner && right.type == JoinNode::Type::Inner) {
        NodePtr condition = Both(std::move(right.condition), std::move(join.condition));
        RotateLeft(join, JoinNode::Type::Inner, nullptr, JoinNode::Type::Inner, std::move(condition));
        return true;
    }
    if (right.type != JoinNode::Type::Left || Mentions(join.condition.get(), *right.right)) return false;
    // An outer join may only be taken out of an outer join if it finds nothing for a row of nulls.
    if (join.type == JoinNode::Type::Left && !RejectsAny(Conjuncts(right.condition.get()), *right.left))
        return false;
    RotateLeft(join, join.type, std::move(join.condition), JoinNode::Type::Left, std::move(right.condition));
    return true;
}

void LeanLeft(JoinNode& join) {
    if (join.type == JoinNode::Type::Leaf) return;
    LeanLeft(*join.right);
    while (RotateOnce(join)) {}
    LeanLeft(*join.left);
}

} // namespace

NodePtr Both(NodePtr left, NodePtr right) {
    if (!left) return right;
    if (!right) return left;
    auto both = std::make_unique<Node>();
    both->type = NodeType::And;
    both->kind = ValueKind::Boolean;
    both->height = std::max(left->height, right->height) + 1;
    both->operands.push_back(std::move(left));
    both->operands.push_back(std::move(right));
    return both;
}

std::vector<const Source*> SourcesOf(const JoinNode& join) {
    std::vector<const Source*> sources;
    CollectSources(join, sources);
    return sources;
}

std::vector<const Node*> Conjuncts(const Node* condition) {
    std::vector<const Node*> found;
    if (condition == nullptr) return found;
    if (condition->type != NodeType::And || condition->kind != ValueKind::Boolean) return {condition};
    for (const NodePtr& operand : condition->operands) {
        const std::vector<const Node*> inner = Conjuncts(operand.get());
        found.insert(found.end(), inner.begin(), inner.end());
    }
    return found;
}

bool IsNullWith(const Node& expression, const Source& source) {
    const Node& node = Meaning(expression);
    if (node.type == NodeType::Name) return node.binding.source == &source;
    if (node.type == NodeType::Negate) return IsNullWith(*node.operands[0], source);
    if (node.type == NodeType::Call &&
        (node.builtin->form == Form::ToNumber || node.builtin->form == Form::ToWhole))
        return IsNullWith(*node.operands[0], source);
    return false;
}

bool RejectsNulls(const Node& condition, const Source& source) {
    switch (condition.type) {
    case NodeType::Compare:
        return IsNullWith(*condition.operands[0], source) || IsNullWith(*condition.operands[1], source);
    case NodeType::Between:
    case NodeType::InList:
    case NodeType::Like:
        return IsNullWith(*condition.operands[0], source);
    case NodeType::InQuery: // null is in no set, and so it is not in the empty one
        return !condition.negated && IsNullWith(*condition.operands[0], source);
    case NodeType::IsNull:
        return condition.negated && IsNullWith(*condition.operands[0], source);
    default:
        return false;
    }
}

void RewriteJoins(Select& select) {
    if (!select.from) return;
    SwapRightJoins(*select.from);
    StrengthenJoins(*select.from, Conjuncts(select.where.get()));
    LeanLeft(*select.from);
}

} // namespace qbrpt::dialect
