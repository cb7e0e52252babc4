// The words of a statement.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qbrpt::dialect {

enum class TokenType : std::uint8_t {
    End,
    Word,   ///< a bare name or a word of the dialect
    Name,   ///< a name in brackets
    Whole,  ///< a whole number
    Number, ///< a number with a fraction or an exponent
    Text,   ///< text between quotes of either kind
    Date,   ///< a date between "#"
    Symbol  ///< an operator or a mark of punctuation
};

struct Token {
    TokenType type = TokenType::End;
    std::size_t offset = 0;
    std::string_view raw;   ///< as it stands in the statement
    std::string text;       ///< of Name and Text, without quotes or brackets
    std::int64_t whole = 0; ///< of Whole
    double number = 0;      ///< of Number, and the day number of Date
};

} // namespace qbrpt::dialect
