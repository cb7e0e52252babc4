// A statement's text, cut into tokens as they are asked for.
#pragma once

#include "dialect/diagnostics.h"
#include "dialect/token.h"

namespace qbrpt::dialect {

class Lexer {
public:
    /// Both arguments must outlive the lexer. Raises SyntaxError for text that is too long or not UTF-8.
    Lexer(std::string_view statement, const Diagnostics& diagnostics);
    [[nodiscard]] Token Next();

private:
    void SkipBlanks();
    [[nodiscard]] Token Finish(TokenType type, std::size_t start);
    [[nodiscard]] Token ReadWord();
    [[nodiscard]] Token ReadNumber();
    [[nodiscard]] Token ReadText(char quote);
    [[nodiscard]] Token ReadName();
    [[nodiscard]] Token ReadDate();
    [[nodiscard]] Token ReadSymbol();
    [[nodiscard]] char At(std::size_t offset) const;

    std::string_view mText;
    const Diagnostics& mDiagnostics;
    std::size_t mAt = 0;
};

} // namespace qbrpt::dialect
