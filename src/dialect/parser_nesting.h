// Counts how deep the parser stands, so that no statement can exhaust the stack.
#pragma once

#include "dialect/parser.h"
#include "dialect/parser_limits.h"

namespace qbrpt::dialect {

class Parser::Nesting {
public:
    explicit Nesting(Parser& parser) : mParser(parser) {
        if (parser.mDepth >= DeepestNesting) parser.Raise("The statement is nested too deeply");
        ++mParser.mDepth;
    }
    ~Nesting() { --mParser.mDepth; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    Parser& mParser;
};

} // namespace qbrpt::dialect
