#include "dialect/parser.h"

#include "dialect/parser_limits.h"
#include "dialect/words.h"

#include <array>
#include <utility>

namespace qbrpt::dialect {

namespace {

// Words that end a name or a list, so that a missing name is noticed where it is missing. All of them can
// still name a column in brackets or behind a dot.
constexpr std::array<std::string_view, 37> ReservedWords = {
    "SELECT", "FROM",   "WHERE", "GROUP", "ORDER",   "BY",       "HAVING", "UNION",  "JOIN", "INNER",
    "LEFT",   "RIGHT",  "ON",    "AS",    "AND",     "OR",       "NOT",    "IN",     "IS",   "NULL",
    "LIKE",   "MOD",    "XOR",   "EQV",   "BETWEEN", "IMP",      "EXISTS", "INSERT", "INTO", "UPDATE",
    "SET",    "DELETE", "TRUE",  "FALSE", "VALUES",  "DISTINCT", "CROSS"};

// What begins statements of the engine or of others that are neither read nor carried out.
constexpr std::array<std::string_view, 18> RefusedWords = {
    "DROP",    "CREATE", "ALTER",  "TRUNCATE", "REPLACE", "MERGE",  "PRAGMA",   "ATTACH", "DETACH",
    "EXECUTE", "EXEC",   "VACUUM", "REINDEX",  "BEGIN",   "COMMIT", "ROLLBACK", "GRANT",  "REVOKE"};

struct TypeWord {
    std::string_view word;
    ValueKind kind;
};

constexpr std::array<TypeWord, 33> TypeWords = {
    {{"Bit", ValueKind::Boolean},       {"YesNo", ValueKind::Boolean},
     {"Boolean", ValueKind::Boolean},   {"Logical", ValueKind::Boolean},
     {"Byte", ValueKind::Whole},        {"Short", ValueKind::Whole},
     {"SmallInt", ValueKind::Whole},    {"Integer", ValueKind::Whole},
     {"Int", ValueKind::Whole},         {"Long", ValueKind::Whole},
     {"Counter", ValueKind::Whole},     {"AutoIncrement", ValueKind::Whole},
     {"Single", ValueKind::Number},     {"Double", ValueKind::Number},
     {"Float", ValueKind::Number},      {"Real", ValueKind::Number},
     {"Currency", ValueKind::Number},   {"Money", ValueKind::Number},
     {"Numeric", ValueKind::Number},    {"Decimal", ValueKind::Number},
     {"Number", ValueKind::Number},     {"IEEESingle", ValueKind::Number},
     {"IEEEDouble", ValueKind::Number}, {"Date", ValueKind::Date},
     {"DateTime", ValueKind::Date},     {"Time", ValueKind::Date},
     {"TimeStamp", ValueKind::Date},    {"Text", ValueKind::Text},
     {"VarChar", ValueKind::Text},      {"Char", ValueKind::Text},
     {"String", ValueKind::Text},       {"Memo", ValueKind::Text},
     {"Value", ValueKind::Null}}};

} // namespace

Parser::Parser(std::string_view statement, const Diagnostics& diagnostics)
    : mDiagnostics(diagnostics), mLexer(statement, diagnostics) {
    mToken = mLexer.Next();
}

Token Parser::Take() {
    Token taken = std::move(mToken);
    mToken = mNext ? std::move(*mNext) : mLexer.Next();
    mNext.reset();
    return taken;
}

// Reads ahead only where it must, so that the first mistake in the text is the one that is told.
const Token& Parser::Next() {
    if (!mNext) mNext = mLexer.Next();
    return *mNext;
}

bool Parser::IsWord(const Token& token, std::string_view word) {
    return token.type == TokenType::Word && SameName(token.raw, word);
}

bool Parser::IsAny(std::span<const std::string_view> words) const {
    return std::any_of(words.begin(), words.end(), [this](std::string_view word) { return IsWord(word); });
}

bool Parser::IsSymbol(std::string_view symbol) const {
    return mToken.type == TokenType::Symbol && mToken.raw == symbol;
}

bool Parser::Accept(std::string_view word) {
    if (!IsWord(word)) return false;
    Take();
    return true;
}

bool Parser::AcceptSymbol(std::string_view symbol) {
    if (!IsSymbol(symbol)) return false;
    Take();
    return true;
}

void Parser::Expect(std::string_view word) {
    if (!Accept(word)) RaiseExpected(std::string(word));
}

void Parser::ExpectSymbol(std::string_view symbol) {
    if (!AcceptSymbol(symbol)) RaiseExpected("\"" + std::string(symbol) + "\"");
}

void Parser::Raise(const std::string& what) const {
    mDiagnostics.Raise(FailureNumber::SyntaxError, mToken.offset, mToken.raw, what);
}

void Parser::RaiseRefused(const std::string& what) const {
    mDiagnostics.Raise(FailureNumber::WriteRefused, mToken.offset, mToken.raw, what);
}

bool Parser::IsName() const {
    if (mToken.type == TokenType::Name) return true;
    if (mToken.type != TokenType::Word) return false;
    return !IsAny(ReservedWords);
}

std::string Parser::TakeName(std::string_view what, bool anyWord) {
    if (!IsName() && !(anyWord && mToken.type == TokenType::Word)) RaiseExpected(std::string(what));
    const Token token = Take();
    return token.type == TokenType::Name ? token.text : std::string(token.raw);
}

Statement Parser::ParseStatement() {
    Statement statement;
    if (IsWord("PARAMETERS")) ParseParameters(statement);
    if (IsWord("SELECT") || IsSymbol("("))
        statement.query = ParseQuery();
    else if (IsWord("INSERT"))
        ParseInsert(statement);
    else if (IsWord("UPDATE"))
        ParseUpdate(statement);
    else if (IsWord("DELETE"))
        ParseDelete(statement);
    else if (mToken.type == TokenType::End)
        Raise("The statement is empty");
    else if (IsAny(RefusedWords))
        RaiseRefused(std::string(mToken.raw) +
                     " is refused: a statement reads with SELECT, or writes rows with "
                     "INSERT, UPDATE or DELETE");
    else
        RaiseExpected("SELECT, INSERT, UPDATE or DELETE");
    while (AcceptSymbol(";")) {}
    if (mToken.type == TokenType::End) return statement;
    constexpr std::array<std::string_view, 5> taken = {"SELECT", "INSERT", "UPDATE", "DELETE", "PARAMETERS"};
    if (IsAny(taken) || IsAny(RefusedWords))
        RaiseRefused("One statement at a time: a second one begins here");
    Raise("The statement should end here");
}

void Parser::ParseParameters(Statement& statement) {
    Take();
    do {
        DeclaredParameter parameter;
        parameter.offset = mToken.offset;
        parameter.name = TakeName("the name of a parameter");
        const auto* type = std::find_if(TypeWords.begin(), TypeWords.end(),
                                        [this](const TypeWord& entry) { return IsWord(entry.word); });
        if (type == TypeWords.end())
            RaiseExpected("the type of the parameter, such as Long, Double or DateTime");
        parameter.kind = type->kind;
        Take();
        if (AcceptSymbol("(")) {
            if (mToken.type != TokenType::Whole) RaiseExpected("the length of the text");
            Take();
            ExpectSymbol(")");
        }
        statement.parameters.push_back(std::move(parameter));
    } while (AcceptSymbol(","));
    ExpectSymbol(";");
}

void Parser::ParseTarget(Statement& statement) {
    statement.target = std::make_unique<Select>();
    auto source = std::make_unique<Source>();
    source->offset = mToken.offset;
    source->word = mToken.raw;
    source->name = source->alias = TakeName("the name of a table");
    statement.target->sources.push_back(std::move(source));
}

void Parser::ParseInsert(Statement& statement) {
    statement.kind = StatementKind::Insert;
    Take();
    Expect("INTO");
    ParseTarget(statement);
    if (AcceptSymbol("(")) {
        do {
            Assignment& assignment = statement.assignments.emplace_back();
            assignment.offset = mToken.offset;
            assignment.word = mToken.raw;
            assignment.column = TakeName("the name of a column", true);
        } while (AcceptSymbol(","));
        ExpectSymbol(")");
    }
    if (IsWord("SELECT")) {
        statement.query = ParseQuery();
        return;
    }
    if (!Accept("VALUES")) RaiseExpected("VALUES or SELECT");
    ExpectSymbol("(");
    const bool named = !statement.assignments.empty();
    std::size_t count = 0;
    do {
        if (!named) statement.assignments.emplace_back().offset = mToken.offset;
        if (count >= statement.assignments.size()) Raise("There are more values than columns");
        statement.assignments[count++].value = ParseExpression();
    } while (AcceptSymbol(","));
    if (count < statement.assignments.size()) Raise("There are fewer values than columns");
    ExpectSymbol(")");
}

void Parser::ParseUpdate(Statement& statement) {
    statement.kind = StatementKind::Update;
    Take();
    ParseTarget(statement);
    ParseAlias(*statement.target->sources.front());
    if (JoinNode::Type join{}; IsSymbol(",") || AcceptJoin(join))
        Raise("UPDATE takes one table, without a join");
    Expect("SET");
    do {
        Assignment assignment;
        assignment.offset = mToken.offset;
        assignment.word = mToken.raw;
        assignment.column = TakeName("the name of a column");
        if (AcceptSymbol(".") || AcceptSymbol("!")) {
            if (!SameName(assignment.column, statement.target->sources.front()->alias))
                Raise("UPDATE sets columns of its own table only");
            assignment.word = mToken.raw;
            assignment.offset = mToken.offset;
            assignment.column = TakeName("the name of a column", true);
        }
        ExpectSymbol("=");
        assignment.value = ParseExpression();
        statement.assignments.push_back(std::move(assignment));
    } while (AcceptSymbol(","));
    if (Accept("WHERE")) statement.target->where = ParseExpression();
}

void Parser::ParseDelete(Statement& statement) {
    statement.kind = StatementKind::Delete;
    Take();
    if (!IsWord("FROM")) { // "DELETE *" and "DELETE t.*" name what goes; it is whole rows anyway
        if (!AcceptSymbol("*")) {
            (void)TakeName("FROM");
            ExpectSymbol(".");
            ExpectSymbol("*");
        }
    }
    Expect("FROM");
    ParseTarget(statement);
    ParseAlias(*statement.target->sources.front());
    if (JoinNode::Type join{}; IsSymbol(",") || AcceptJoin(join))
        Raise("DELETE takes one table, without a join");
    if (Accept("WHERE")) statement.target->where = ParseExpression();
}

} // namespace qbrpt::dialect
