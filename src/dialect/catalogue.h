// What the translator must know of a database: its tables, their columns' kinds, its saved queries.
#pragma once

#include "base/value.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::dialect {

struct Column {
    std::string name;                 ///< in the database's own spelling
    ValueKind kind = ValueKind::Null; ///< Null where the declaration tells nothing
};

struct Table {
    std::string name; ///< in the database's own spelling
    std::vector<Column> columns;
    bool hasRowOrder = true;                       ///< false for views
    std::vector<std::vector<std::string>> indexes; ///< the columns of each that holds all rows, in its order
};

class Catalogue {
public:
    virtual ~Catalogue() = default;
    /// The table or view of this name, any case. Valid until the catalogue is read anew.
    [[nodiscard]] virtual const Table* FindTable(std::string_view name) const = 0;
    /// The text of the saved query of this name, any case.
    [[nodiscard]] virtual std::optional<std::string> SavedQuery(std::string_view name) const = 0;
};

} // namespace qbrpt::dialect
