#include "dialect/lexer.h"

#include "base/utf8.h"
#include "dialect/date_text.h"
#include "dialect/words.h"

#include <charconv>

namespace qbrpt::dialect {

namespace {

constexpr std::size_t LongestStatement = 1U << 20U; // bytes

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool BeginsWord(char c) {
    return (SmallLatin(c) >= 'a' && SmallLatin(c) <= 'z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool ContinuesWord(char c) {
    return BeginsWord(c) || IsDigit(c) || c == '$';
}

bool IsNoBreakSpace(std::string_view text, std::size_t at) {
    return text.substr(at, 2) == "\xC2\xA0";
}

} // namespace

Lexer::Lexer(std::string_view statement, const Diagnostics& diagnostics)
    : mText(statement), mDiagnostics(diagnostics) {
    if (statement.size() > LongestStatement) {
        throw Failure(FailureNumber::SyntaxError,
                      "The statement is longer than 1 MB (" + std::to_string(statement.size()) +
                          " bytes). Shorten it, or use a join in place of a list.");
    }
    if (const std::size_t nul = statement.find('\0'); nul != std::string_view::npos)
        mDiagnostics.Raise(FailureNumber::SyntaxError, nul, statement.substr(nul, 1),
                           "A statement can't hold this character");
    for (std::size_t at = 0; at < statement.size();) {
        const std::size_t start = at;
        if (NextCharacter(statement, at) == ReplacementCharacter && at == start + 1)
            mDiagnostics.Raise(FailureNumber::SyntaxError, start, statement.substr(start, 1),
                               "The statement is not valid UTF-8");
    }
}

char Lexer::At(std::size_t offset) const {
    return offset < mText.size() ? mText[offset] : '\0';
}

void Lexer::SkipBlanks() {
    while (mAt < mText.size()) {
        if (const char c = mText[mAt];
            c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v')
            ++mAt;
        else if (IsNoBreakSpace(mText, mAt))
            mAt += 2;
        else
            return;
    }
}

Token Lexer::Finish(TokenType type, std::size_t start) {
    Token token;
    token.type = type;
    token.offset = start;
    token.raw = mText.substr(start, mAt - start);
    return token;
}

Token Lexer::Next() {
    SkipBlanks();
    if (mAt >= mText.size()) return Finish(TokenType::End, mText.size());
    const char c = mText[mAt];
    if (BeginsWord(c)) return ReadWord();
    if (IsDigit(c) || (c == '.' && IsDigit(At(mAt + 1)))) return ReadNumber();
    if (c == '\'' || c == '"') return ReadText(c);
    if (c == '[') return ReadName();
    if (c == '#') return ReadDate();
    return ReadSymbol();
}

Token Lexer::ReadWord() {
    const std::size_t start = mAt;
    while (mAt < mText.size() && ContinuesWord(mText[mAt]) && !IsNoBreakSpace(mText, mAt))
        ++mAt;
    return Finish(TokenType::Word, start);
}

Token Lexer::ReadNumber() {
    const std::size_t start = mAt;
    bool whole = true;
    while (IsDigit(At(mAt)))
        ++mAt;
    if (At(mAt) == '.') {
        whole = false;
        ++mAt;
        while (IsDigit(At(mAt)))
            ++mAt;
    }
    const std::size_t sign = At(mAt + 1) == '+' || At(mAt + 1) == '-' ? 1 : 0;
    if (SmallLatin(At(mAt)) == 'e' && IsDigit(At(mAt + 1 + sign))) {
        whole = false;
        mAt += 1 + sign;
        while (IsDigit(At(mAt)))
            ++mAt;
    }
    Token token = Finish(whole ? TokenType::Whole : TokenType::Number, start);
    const char* end = token.raw.data() + token.raw.size();
    if (whole && std::from_chars(token.raw.data(), end, token.whole).ec == std::errc()) return token;
    token.type = TokenType::Number;
    if (std::from_chars(token.raw.data(), end, token.number).ec != std::errc())
        mDiagnostics.Raise(FailureNumber::SyntaxError, start, token.raw, "This number is out of range");
    return token;
}

Token Lexer::ReadText(char quote) {
    const std::size_t start = mAt++;
    std::string text;
    while (true) {
        const std::size_t end = mText.find(quote, mAt);
        if (end == std::string_view::npos)
            mDiagnostics.Raise(FailureNumber::SyntaxError, start, mText.substr(start),
                               "The text that begins here has no closing quote");
        text += mText.substr(mAt, end - mAt);
        mAt = end + 1;
        if (At(mAt) != quote) break;
        text.push_back(quote); // a doubled quote stands for itself
        ++mAt;
    }
    Token token = Finish(TokenType::Text, start);
    token.text = std::move(text);
    return token;
}

Token Lexer::ReadName() {
    const std::size_t start = mAt;
    const std::size_t end = mText.find(']', start);
    if (end == std::string_view::npos)
        mDiagnostics.Raise(FailureNumber::SyntaxError, start, mText.substr(start),
                           "The name that begins here has no closing bracket");
    mAt = end + 1;
    Token token = Finish(TokenType::Name, start);
    token.text = std::string(mText.substr(start + 1, end - start - 1));
    if (token.text.find_first_not_of(" \t\r\n") == std::string::npos)
        mDiagnostics.Raise(FailureNumber::SyntaxError, start, token.raw,
                           "A name is missing between the brackets");
    return token;
}

Token Lexer::ReadDate() {
    const std::size_t start = mAt;
    const std::size_t end = mText.find('#', start + 1);
    if (end == std::string_view::npos)
        mDiagnostics.Raise(FailureNumber::SyntaxError, start, mText.substr(start),
                           "The date that begins here has no closing #");
    mAt = end + 1;
    Token token = Finish(TokenType::Date, start);
    const std::optional<double> date =
        ParseDateText(mText.substr(start + 1, end - start - 1), DateOrder::MonthFirst);
    if (!date)
        mDiagnostics.Raise(FailureNumber::SyntaxError, start, token.raw,
                           "This is no date; write it as #month/day/year#");
    token.number = *date;
    return token;
}

Token Lexer::ReadSymbol() {
    const std::size_t start = mAt;
    const std::string_view two = mText.substr(mAt, 2);
    mAt += two == "<>" || two == "<=" || two == ">=" ? 2U : 1U;
    Token token = Finish(TokenType::Symbol, start);
    if (std::string_view("<>=+-*/\\^&(),.;!").find(token.raw[0]) == std::string_view::npos)
        mDiagnostics.Raise(FailureNumber::SyntaxError, start, token.raw,
                           "A statement can't hold this character");
    return token;
}

} // namespace qbrpt::dialect
