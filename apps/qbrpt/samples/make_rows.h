// Rows one after the other.
#pragma once

#include "samples/sample_rows.h"

namespace qbrpt::samples {

/// The first `count` rows that `make` gives.
template <class Make>
std::vector<Row> Rows(std::size_t count, Make make) {
    std::vector<Row> rows;
    for (std::size_t i = 0; i < count; ++i)
        rows.push_back(make(i));
    return rows;
}

} // namespace qbrpt::samples
