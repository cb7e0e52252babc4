// What names can mean at one place of a statement.
#pragma once

#include "dialect/binder.h"

namespace qbrpt::dialect {

struct Binder::Scope {
    Select* select = nullptr;
    Scope* parent = nullptr;
    const char* clause = "";  ///< for messages
    bool aggregates = false;  ///< may stand here
    bool inAggregate = false; ///< inside the argument of one
    bool aliases = true;      ///< of the select list may be named
};

struct Binder::SavedText {
    std::string text;
    Diagnostics diagnostics;
    SavedText(std::string statement, const std::string& name)
        : text(std::move(statement)), diagnostics(text, name) {}
};

} // namespace qbrpt::dialect
