// What is exported: a report as tables outside of pages.
#pragma once

#include "base/paper.h"
#include "base/rows.h"
#include "report/definition.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qbrpt {

/// A definition and the rows that it binds.
struct ExportPart {
    const report::Definition* definition = nullptr;
    std::shared_ptr<const RowSource> rows;
};

struct ExportJob {
    std::string title;
    double printedAt = 0; ///< day number
    std::int16_t paperSize = PaperA4;
    bool landscape = false;
    std::vector<ExportPart> parts;         ///< the report first, then its subreports
    std::optional<PaperExtent> ownSheet{}; ///< upright, of a paper without a usual number
};

/// Called now and then with the rows done; may raise Failure Cancelled.
using RowProgress = std::function<void(std::size_t done, std::size_t all)>;

} // namespace qbrpt
