// From the text of one statement to its tree.
#pragma once

#include "dialect/lexer.h"
#include "dialect/tree.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qbrpt::dialect {

class Parser {
public:
    /// Both arguments must outlive the parser and the tree, which quotes the text in messages.
    Parser(std::string_view statement, const Diagnostics& diagnostics);

    /// The whole text as one statement; a trailing ";" is welcome, a second statement is not. Raises
    /// SyntaxError, or WriteRefused for a second statement and for what is no statement on rows.
    [[nodiscard]] Statement ParseStatement();

private:
    // Tokens.
    Token Take();
    [[nodiscard]] const Token& Next();
    [[nodiscard]] bool IsWord(std::string_view word) const { return IsWord(mToken, word); }
    [[nodiscard]] bool IsAny(std::span<const std::string_view> words) const;
    [[nodiscard]] static bool IsWord(const Token& token, std::string_view word);
    [[nodiscard]] bool IsSymbol(std::string_view symbol) const;
    bool Accept(std::string_view word);
    bool AcceptSymbol(std::string_view symbol);
    void Expect(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    [[nodiscard]] bool IsName() const;
    [[nodiscard]] std::string TakeName(std::string_view what, bool anyWord = false);
    [[noreturn]] void Raise(const std::string& what) const;
    [[noreturn]] void RaiseRefused(const std::string& what) const;
    [[noreturn]] void RaiseExpected(const std::string& what) const { Raise("Expected " + what); }

    // Statements.
    void ParseParameters(Statement& statement);
    void ParseInsert(Statement& statement);
    void ParseUpdate(Statement& statement);
    void ParseDelete(Statement& statement);
    void ParseTarget(Statement& statement);

    // Queries.
    [[nodiscard]] std::unique_ptr<Query> ParseQuery();
    [[nodiscard]] std::unique_ptr<Select> ParseSelect();
    void ParseSelectOptions(Select& select);
    [[nodiscard]] SelectItem ParseItem();
    [[nodiscard]] bool ParseStar(SelectItem& item);
    void ParseOrder(Query& query);
    [[nodiscard]] std::unique_ptr<JoinNode> ParseFrom(Select& select);
    [[nodiscard]] std::unique_ptr<JoinNode> ParseJoins(Select& select);
    [[nodiscard]] std::unique_ptr<JoinNode> ParseSource(Select& select);
    [[nodiscard]] bool AcceptJoin(JoinNode::Type& type);
    void ParseAlias(Source& source);

    // Expressions.
    [[nodiscard]] NodePtr ParseExpression(int level = 0);
    [[nodiscard]] NodePtr ParsePrefix();
    [[nodiscard]] NodePtr ParsePrimary();
    [[nodiscard]] NodePtr ParseParenthesis();
    [[nodiscard]] NodePtr ParseNameOrCall();
    [[nodiscard]] NodePtr ParseCall(const Token& name);
    [[nodiscard]] NodePtr ParseTest(NodePtr left);
    [[nodiscard]] NodePtr ParseIn(NodePtr node);
    [[nodiscard]] NodePtr ParseBinary(NodePtr left, int level, NodeType type, Operator op);
    [[nodiscard]] NodePtr Make(NodeType type, const Token& token);
    void Adopt(Node& node, NodePtr operand);
    void AdoptQuery(Node& node);

    class Nesting;

    const Diagnostics& mDiagnostics;
    Lexer mLexer;
    Token mToken;               ///< the one to be read
    std::optional<Token> mNext; ///< the one behind it, once somebody has asked for it
    int mDepth = 0;
    int mHighest = 0; ///< highest expression of the query that is being read
};

} // namespace qbrpt::dialect
