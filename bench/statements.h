// The heavy statements of the reports, and the best that a person makes of them by hand for SQLite.
#pragma once

#include <string>
#include <vector>

namespace qbrpt::bench {

struct StatementPair {
    std::string name;
    std::string statement; ///< as its command writes it
    std::string byHand;    ///< gives the same rows, in SQLite's own SQL
};

/// Over a sample database of 400 days from the first of January 2025.
[[nodiscard]] std::vector<StatementPair> StatementPairs();

/// Over the general accounts alone.
[[nodiscard]] std::vector<StatementPair> LedgerPairs();

} // namespace qbrpt::bench
