// What the engine works out of a definition once, before it walks any row.
#pragma once

#include "report/definition.h"
#include "report/text_port.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::report {

constexpr std::size_t NoIndex = static_cast<std::size_t>(-1);

struct CompiledObject {
    const Object* object = nullptr; ///< read anew each time: format events change texts and places
    StyleId style = 0;
    const FigureFont* figures = nullptr;
    /// Slot in CompiledDefinition::totals: of a total, or of the value that a bar's full width stands for.
    std::size_t total = NoIndex;
    std::size_t follows = NoIndex; ///< object of the same section
    bool mayGrow = false;
    std::vector<std::size_t> pushedBy; ///< growing objects of the section that stand wholly above this one
};

struct CompiledSection {
    const Section* section = nullptr;
    std::vector<CompiledObject> objects;
    std::vector<std::size_t> drawOrder;                ///< boxes first, then the order of the layout
    std::vector<std::size_t> fromTop;                  ///< the highest first
    std::size_t subreport = NoIndex;                   ///< the object that holds a subreport
    const struct CompiledDefinition* inside = nullptr; ///< that subreport, compiled
    bool mayGrow = false;
    bool dependsOnRow = false; ///< something that grows shows a value of the row
    bool hidesRepeated = false;
    bool readsWhole = false; ///< shows a total of all rows before they have passed
    bool sharesSize = false; ///< holds totals, which have one size along a row
};

/// Sections by where they stand on paper, as indexes into CompiledDefinition::sections.
struct SectionPlaces {
    using List = std::vector<std::size_t>;
    List reportHeader, pageHeader, details, reportFooter, pageFooter;
    std::vector<List> groupHeader, groupFooter; ///< by group
};

struct CompiledDefinition {
    /// Raises FailureNumber::Layout with DefinitionProblem's words.
    CompiledDefinition(const Definition& source, TextPort& text);

    const Definition* definition;
    std::vector<CompiledSection> sections;
    SectionPlaces places;
    std::vector<Total> totals; ///< each once
    std::map<std::string, std::unique_ptr<CompiledDefinition>, std::less<>> subreports;

    bool headersShowReportTotals = false;
    std::vector<bool> headersShowGroupTotals; ///< by group
    bool rowsShowTotals = false; ///< running totals in rows or page footers: every page needs all rows before
};

} // namespace qbrpt::report
