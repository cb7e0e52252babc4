#include "dialect/parser.h"
#include "dialect/parser_limits.h"
#include "dialect/parser_nesting.h"
#include "dialect/words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qbrpt::dialect {

namespace {

// How tightly operators bind, from the loosest to the tightest.
enum Level : int {
    Lowest = 0,
    ImpliesLevel,
    EquivalentLevel,
    XorLevel,
    OrLevel,
    AndLevel,
    NotLevel,
    CompareLevel,
    JoinLevel,
    SumLevel,
    RemainderLevel,
    DivideWholeLevel,
    ProductLevel,
    NegateLevel,
    PowerLevel
};

struct BinaryOperator {
    std::string_view word;
    int level;
    NodeType type;
    Operator op;
};

constexpr std::array<BinaryOperator, 19> BinaryOperators = {{
    {"IMP", ImpliesLevel, NodeType::Implies, Operator::None},
    {"EQV", EquivalentLevel, NodeType::Equivalent, Operator::None},
    {"XOR", XorLevel, NodeType::Xor, Operator::None},
    {"OR", OrLevel, NodeType::Or, Operator::None},
    {"AND", AndLevel, NodeType::And, Operator::None},
    {"=", CompareLevel, NodeType::Compare, Operator::Equal},
    {"<>", CompareLevel, NodeType::Compare, Operator::NotEqual},
    {"<", CompareLevel, NodeType::Compare, Operator::Less},
    {"<=", CompareLevel, NodeType::Compare, Operator::LessOrEqual},
    {">", CompareLevel, NodeType::Compare, Operator::Greater},
    {">=", CompareLevel, NodeType::Compare, Operator::GreaterOrEqual},
    {"&", JoinLevel, NodeType::Join, Operator::None},
    {"+", SumLevel, NodeType::Arithmetic, Operator::Add},
    {"-", SumLevel, NodeType::Arithmetic, Operator::Subtract},
    {"MOD", RemainderLevel, NodeType::Arithmetic, Operator::Remainder},
    {"\\", DivideWholeLevel, NodeType::Arithmetic, Operator::DivideWhole},
    {"*", ProductLevel, NodeType::Arithmetic, Operator::Multiply},
    {"/", ProductLevel, NodeType::Arithmetic, Operator::Divide},
    {"^", PowerLevel, NodeType::Arithmetic, Operator::Power},
}};

const BinaryOperator* FindOperator(const Token& token) {
    if (token.type != TokenType::Word && token.type != TokenType::Symbol) return nullptr;
    const auto* found =
        std::find_if(BinaryOperators.begin(), BinaryOperators.end(),
                     [&token](const BinaryOperator& entry) { return SameName(entry.word, token.raw); });
    return found == BinaryOperators.end() ? nullptr : found;
}

} // namespace

NodePtr Parser::Make(NodeType type, const Token& token) {
    auto node = std::make_unique<Node>();
    node->type = type;
    node->offset = token.offset;
    node->word = token.raw;
    mHighest = std::max(mHighest, 1);
    return node;
}

void Parser::Adopt(Node& node, NodePtr operand) {
    node.height = std::max(node.height, operand->height + 1);
    if (node.height > HighestExpression) Raise("This expression has too many operators in a row");
    mHighest = std::max(mHighest, node.height);
    node.operands.push_back(std::move(operand));
}

void Parser::AdoptQuery(Node& node) {
    node.query = ParseQuery();
    node.height = std::max(node.height, node.query->height + 1);
    if (node.height > HighestExpression) Raise("This expression is nested too deeply");
    mHighest = std::max(mHighest, node.height);
}

NodePtr Parser::ParseExpression(int level) {
    const Nesting nesting(*this);
    NodePtr left = ParsePrefix();
    while (true) {
        if (level <= CompareLevel &&
            (IsWord("IS") || IsWord("BETWEEN") || IsWord("IN") || IsWord("LIKE") || IsWord("NOT"))) {
            left = ParseTest(std::move(left));
            continue;
        }
        const BinaryOperator* found = FindOperator(mToken);
        if (found == nullptr || found->level < level) return left;
        left = ParseBinary(std::move(left), found->level, found->type, found->op);
    }
}

NodePtr Parser::ParseBinary(NodePtr left, int level, NodeType type, Operator op) {
    NodePtr node = Make(type, Take());
    node->op = op;
    NodePtr right = ParseExpression(level + 1);
    // A row of And or of Or is one node, however long: hosts write lists this way.
    if ((type == NodeType::And || type == NodeType::Or) && left->type == type && !left->enclosed) {
        Adopt(*left, std::move(right));
        return left;
    }
    Adopt(*node, std::move(left));
    Adopt(*node, std::move(right));
    return node;
}

NodePtr Parser::ParsePrefix() {
    if (IsWord("NOT")) {
        NodePtr node = Make(NodeType::Not, Take());
        Adopt(*node, ParseExpression(NotLevel));
        return node;
    }
    if (IsSymbol("-")) {
        NodePtr node = Make(NodeType::Negate, Take());
        Adopt(*node, ParseExpression(NegateLevel));
        return node;
    }
    if (IsSymbol("+")) {
        Take();
        return ParseExpression(NegateLevel);
    }
    return ParsePrimary();
}

// Is [Not] Null, [Not] Between, [Not] In, [Not] Like.
NodePtr Parser::ParseTest(NodePtr left) {
    const Token word = Take();
    if (IsWord(word, "IS")) {
        NodePtr node = Make(NodeType::IsNull, word);
        node->negated = Accept("NOT");
        Expect("NULL");
        Adopt(*node, std::move(left));
        return node;
    }
    const bool negated = IsWord(word, "NOT");
    const Token test = negated ? Take() : word;
    NodePtr node;
    if (IsWord(test, "BETWEEN")) {
        node = Make(NodeType::Between, test);
        Adopt(*node, std::move(left));
        Adopt(*node, ParseExpression(JoinLevel));
        Expect("AND");
        Adopt(*node, ParseExpression(JoinLevel));
    } else if (IsWord(test, "LIKE")) {
        node = Make(NodeType::Like, test);
        Adopt(*node, std::move(left));
        Adopt(*node, ParseExpression(JoinLevel));
    } else if (IsWord(test, "IN")) {
        node = Make(NodeType::InList, test);
        Adopt(*node, std::move(left));
        node = ParseIn(std::move(node));
    } else {
        mDiagnostics.Raise(FailureNumber::SyntaxError, test.offset, test.raw,
                           "Expected Between, In or Like behind Not");
    }
    node->negated = negated;
    return node;
}

NodePtr Parser::ParseIn(NodePtr node) {
    if (!IsSymbol("(")) RaiseExpected("\"(\" behind In");
    Take();
    if (IsWord("SELECT")) {
        node->type = NodeType::InQuery;
        AdoptQuery(*node);
    } else {
        do {
            Adopt(*node, ParseExpression());
        } while (AcceptSymbol(","));
    }
    ExpectSymbol(")");
    return node;
}

NodePtr Parser::ParsePrimary() {
    switch (mToken.type) {
    case TokenType::Whole: {
        NodePtr node = Make(NodeType::Whole, mToken);
        node->whole = Take().whole;
        return node;
    }
    case TokenType::Number:
    case TokenType::Date: {
        NodePtr node = Make(mToken.type == TokenType::Date ? NodeType::Date : NodeType::Number, mToken);
        node->number = Take().number;
        return node;
    }
    case TokenType::Text: {
        NodePtr node = Make(NodeType::Text, mToken);
        node->text = Take().text;
        return node;
    }
    case TokenType::Symbol:
        if (IsSymbol("(")) return ParseParenthesis();
        break;
    case TokenType::Word:
    case TokenType::Name:
        return ParseNameOrCall();
    case TokenType::End:
        break;
    }
    RaiseExpected("a column, a value or a function");
}

NodePtr Parser::ParseParenthesis() {
    const Token open = Take();
    NodePtr node;
    if (IsWord("SELECT")) {
        node = Make(NodeType::Subquery, open);
        AdoptQuery(*node);
    } else {
        node = ParseExpression();
        node->enclosed = true;
    }
    ExpectSymbol(")");
    return node;
}

NodePtr Parser::ParseNameOrCall() {
    if (IsWord("NULL")) return Make(NodeType::Null, Take());
    if (IsWord("TRUE") || IsWord("FALSE")) {
        NodePtr node = Make(NodeType::Boolean, mToken);
        node->whole = IsWord("TRUE") ? 1 : 0;
        Take();
        return node;
    }
    const auto open = [this] { return Next().type == TokenType::Symbol && Next().raw == "("; };
    if (IsWord("EXISTS") && open()) {
        NodePtr node = Make(NodeType::Exists, Take());
        Take();
        if (!IsWord("SELECT")) RaiseExpected("SELECT");
        AdoptQuery(*node);
        ExpectSymbol(")");
        return node;
    }
    const bool calledByReservedName = (IsWord("LEFT") || IsWord("RIGHT")) && open();
    if (!IsName() && !calledByReservedName) RaiseExpected("a column, a value or a function");
    const Token token = Take();
    if (token.type == TokenType::Word && IsSymbol("(")) return ParseCall(token);
    NodePtr node = Make(NodeType::Name, token);
    node->text = token.type == TokenType::Name ? token.text : std::string(token.raw);
    while (AcceptSymbol(".") || AcceptSymbol("!")) {
        if (!node->qualifier.empty()) Raise("A name has at most two parts");
        node->qualifier = std::move(node->text);
        if (AcceptSymbol("*")) { // table.*, which only a select list may hold
            node->star = true;
            return node;
        }
        node->offset = mToken.offset;
        node->word = mToken.raw;
        node->text = TakeName("the name of a column", true);
    }
    return node;
}

NodePtr Parser::ParseCall(const Token& name) {
    NodePtr node = Make(NodeType::Call, name);
    node->text = std::string(name.raw);
    if (node->text.back() == '$') node->text.pop_back(); // Left$ and its like are the same functions
    Take();
    if (AcceptSymbol(")")) return node;
    if (AcceptSymbol("*")) {
        node->star = true;
    } else {
        do {
            if (node->operands.size() >= MostArguments) Raise("This call has too many arguments");
            Adopt(*node, ParseExpression());
        } while (AcceptSymbol(","));
    }
    ExpectSymbol(")");
    return node;
}

} // namespace qbrpt::dialect
