// Small reports to export, and other programs to read the files back.
#pragma once

#include "adapters/export/export_job.h"
#include "fakes/memory_rows.h"
#include "report/definition.h"
#include "tools/child_process.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace qbrpt::test {

struct StringSink final : ByteSink {
    std::string bytes;
    std::size_t longest = 0;
    void Write(std::string_view more) override {
        bytes += more;
        longest = std::max(longest, more.size());
    }
};

constexpr std::array<Field, 5> UseFields = {{{"host", FieldKind::String, 31, 0},
                                             {"begin", FieldKind::DateTime, 8, 31},
                                             {"minutes", FieldKind::Number, 8, 39},
                                             {"cost", FieldKind::Number, 8, 47},
                                             {"details", FieldKind::String, 256, 55}}};

inline report::Column ColumnOf(int field, const std::string& caption, report::ValueFormat format) {
    report::Column column;
    column.field = field;
    column.caption = caption;
    column.format = format;
    column.width = 1000;
    if (format == report::ValueFormat::Time || format == report::ValueFormat::DateTime)
        column.align = report::Align::Centre;
    return column;
}

/// A title; columns details, begin, minutes, cost; sums; groups by host where wanted.
inline report::Definition UseDefinition(bool grouped) {
    using report::ValueFormat;
    report::Definition definition;
    definition.name = "Use";
    definition.fields = UseFields;
    definition.nouns["row"] = {"قيد واحد", "قيدان", "قيود", "قيدًا", "قيد"};
    report::Object title;
    title.name = "Title";
    title.text = "استخدام <الأجهزة>";
    title.font.spec.size = 250;
    title.font.spec.bold = true;
    report::Section head;
    head.kind = report::SectionKind::PageHeader;
    head.objects.push_back(title);
    definition.sections.push_back(head);
    definition.sections.emplace_back(); // the details
    definition.columns = {
        ColumnOf(4, "البيان", ValueFormat::Text), ColumnOf(1, "البدء", ValueFormat::DateTime),
        ColumnOf(2, "المدة", ValueFormat::Duration), ColumnOf(3, "المبلغ", ValueFormat::Money)};
    definition.columns[2].unit = "س:د";
    definition.columns[2].sum = definition.columns[3].sum = definition.columns[3].average = true;
    definition.columns[3].key = true;
    definition.total = report::TotalWords{"المجموع", "row"};
    definition.average = report::TotalWords{"المعدل", ""};
    if (grouped) {
        report::Group group;
        group.heading = "جهاز {group}";
        group.whenEmpty = "بلا جهاز";
        group.total = report::TotalWords{"مجموع {group}", "row"};
        definition.groups.push_back(group);
    }
    return definition;
}

inline fakes::Row UseRow(const std::string& host, double begin, Value minutes, Value cost,
                         const std::string& details) {
    return {host, Date{begin}, std::move(minutes), std::move(cost), details};
}

inline ExportJob JobOf(const report::Definition& definition, std::vector<fakes::Row> rows) {
    ExportJob job;
    job.title = "استخدام <الأجهزة>";
    job.printedAt = 45717.5; // 1 March 2025, noon
    job.parts.push_back({&definition, std::make_shared<fakes::MemoryRows>(std::move(rows))});
    return job;
}

/// The lines that a script of this folder prints of a file with these bytes.
inline std::vector<std::string> DumpOf(const std::string& script, const std::string& bytes) {
    const TempFolder folder;
    WriteContent(folder / "file.xlsx", bytes);
    const ProgramResult result =
        RunProgram({"/usr/bin/python3", std::string(QBRPT_SOURCE_DIR) + "/tests/export/" + script,
                    (folder / "file.xlsx").string()},
                   {{"PYTHONIOENCODING", "utf-8"}});
    EXPECT_EQ(result.status, 0) << result.err;
    std::vector<std::string> lines;
    std::istringstream stream(result.out);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace qbrpt::test
