// What a definition shows, seen as a table: heading, columns, the words of totals.
#pragma once

#include "adapters/export/export_job.h"
#include "report/definition.h"

#include <string>
#include <vector>

namespace qbrpt {

/// A line above the table, dressed as on the first page.
struct HeadingLine {
    std::string text;
    double size = 9; ///< points
    bool bold = false;
    bool headingFace = false;
    report::Color color = 0;
    bool isTitle = false; ///< exactly one line of a heading is
};

/// The colours in which the layout draws its table; those of the house where it draws none.
struct TableColors {
    report::Color accent = 0x0B3F4F; ///< strong rules, group headings
    report::Color tint = 0xE4EBEE;   ///< captions, totals
    report::Color light = 0xF1F5F6;  ///< key columns, subtotals
};

struct TablePlan {
    const report::Definition* definition = nullptr;
    TableColors colors;
    std::vector<HeadingLine> heading;
    std::vector<report::Column> columns; ///< captions as they are now

    /// Columns before the first that has a sum or an average: the words of a total stand there.
    [[nodiscard]] std::size_t WordColumns() const;
    /// The report's title: `given` or, where that is empty, that of the heading.
    [[nodiscard]] std::string Title(const std::string& given) const;
};

/// The plan of a definition, which must outlive it. One without columns shows all its fields, under their
/// names.
[[nodiscard]] TablePlan PlanOf(const report::Definition& definition);

/// A part of a report that its tables show.
struct PlannedPart {
    ExportPart part;
    TablePlan plan;
};

/// The parts of a report but those whose rows or subreport it suppresses; at least one. The first bears the
/// report's heading.
[[nodiscard]] std::vector<PlannedPart> PlannedParts(const ExportJob& job);

} // namespace qbrpt
