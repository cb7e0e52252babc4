// What a report object and its sections and objects share.
#pragma once

#include "base/rows.h"
#include "report/definition.h"
#include "report/document.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace qbrpt {

struct ReportState {
    report::Definition definition; ///< this report's own copy
    std::map<std::string, std::function<void()>> formatHandlers;
    std::int32_t formattingPage = 0; ///< 0 outside formatting
    std::unique_ptr<report::Document> document;
    /// Of a subreport: the report that it stands in, whose pages change with it.
    std::weak_ptr<ReportState> parent;

    /// The pages made so far no longer show what the report says. While a section is being formatted,
    /// the engine itself takes what its handler changes.
    void Changed();
};

} // namespace qbrpt
