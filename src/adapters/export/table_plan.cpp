#include "adapters/export/table_plan.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace qbrpt {

namespace {

using report::Object;
using report::ValueFormat;

constexpr double TwipsInPoint = 20;

ValueFormat FormatOf(FieldKind kind) {
    switch (kind) {
    case FieldKind::DateTime:
        return ValueFormat::DateTime;
    case FieldKind::Boolean:
        return ValueFormat::YesNo;
    default:
        return ValueFormat::Text;
    }
}

std::vector<report::Column> ColumnsOfFields(const report::Definition& definition) {
    std::vector<report::Column> columns;
    for (const Field& field : definition.fields) {
        report::Column column;
        column.field = static_cast<int>(columns.size());
        column.caption = field.name;
        column.format = FormatOf(field.kind);
        columns.push_back(std::move(column));
    }
    return columns;
}

std::vector<report::Column> ColumnsOf(const report::Definition& definition) {
    if (definition.columns.empty()) return ColumnsOfFields(definition);
    std::vector<report::Column> columns = definition.columns;
    for (report::Column& column : columns)
        column.caption = std::string(report::CaptionOf(definition, column));
    return columns;
}

bool StandsOnFirstPage(const report::Section& section) {
    const bool above =
        section.kind == report::SectionKind::ReportHeader || section.kind == report::SectionKind::PageHeader;
    return above && section.on != report::OnPages::Later && !section.suppress;
}

/// Texts that belong to the table's captions: the captions themselves, their units, their tiers.
std::set<std::string_view> CaptionObjects(const report::Definition& definition,
                                          const report::Section& section) {
    std::set<std::string_view> captions;
    for (const report::Column& column : definition.columns)
        captions.insert(column.captionObject);
    const auto isCaption = [&](const Object& object) { return captions.contains(object.name); };
    if (std::none_of(section.objects.begin(), section.objects.end(), isCaption)) return {};
    std::set<std::string_view> all = captions;
    for (const Object& object : section.objects) {
        const bool tier = std::find(definition.tiers.begin(), definition.tiers.end(), object.text) !=
                          definition.tiers.end();
        if (tier || captions.contains(object.follows)) all.insert(object.name);
    }
    return all;
}

std::vector<HeadingLine> HeadingOf(const report::Definition& definition) {
    std::vector<HeadingLine> lines;
    for (const report::Section& section : definition.sections) {
        if (!StandsOnFirstPage(section)) continue;
        const std::set<std::string_view> captions = CaptionObjects(definition, section);
        std::vector<const Object*> texts;
        for (const Object& object : section.objects) {
            const bool changes = !object.literal && object.text.find('{') != std::string::npos;
            if (object.type == report::ObjectType::Text && !object.text.empty() && !object.suppress &&
                object.on != report::OnPages::Later && !changes && !captions.contains(object.name))
                texts.push_back(&object);
        }
        std::stable_sort(texts.begin(), texts.end(), [](const Object* a, const Object* b) {
            return a->top + a->baseline < b->top + b->baseline;
        });
        for (const Object* object : texts)
            lines.push_back({object->text, object->font.spec.size / TwipsInPoint, object->font.spec.bold,
                             object->font.spec.family.find("Kufi") != std::string::npos, object->color,
                             object->name == definition.titleObject});
    }
    const bool named =
        std::any_of(lines.begin(), lines.end(), [](const HeadingLine& line) { return line.isTitle; });
    if (!named && !lines.empty()) lines.back().isTitle = true;
    return lines;
}

bool IsTint(const Object& object) {
    return object.type == report::ObjectType::Box && object.fill && !object.showWhen && object.barField < 0;
}

bool IsRule(const Object& object) {
    return object.type == report::ObjectType::Line && object.stroke > 0;
}

TableColors ColorsOf(const report::Definition& definition) {
    TableColors colors;
    bool accentFound = false;
    for (const report::Section& section : definition.sections) {
        const auto& objects = section.objects;
        const auto tint = std::find_if(objects.begin(), objects.end(), IsTint);
        const auto rule = std::find_if(objects.begin(), objects.end(), IsRule);
        if (section.kind == report::SectionKind::Details && tint != objects.end()) colors.light = *tint->fill;
        if (!StandsOnFirstPage(section)) continue;
        if (!CaptionObjects(definition, section).empty() && tint != objects.end()) colors.tint = *tint->fill;
        if (!accentFound && rule != objects.end()) colors.accent = rule->color;
        accentFound = accentFound || rule != objects.end();
    }
    return colors;
}

bool ShowsRows(const report::Definition& definition) {
    return std::any_of(definition.sections.begin(), definition.sections.end(),
                       [](const report::Section& section) {
                           return section.kind == report::SectionKind::Details && !section.suppress;
                       });
}

bool HidesSubreport(const report::Definition& outer, const std::string& name) {
    return std::any_of(outer.sections.begin(), outer.sections.end(), [&name](const report::Section& section) {
        return section.suppress &&
               std::any_of(section.objects.begin(), section.objects.end(), [&name](const Object& object) {
                   return object.type == report::ObjectType::Subreport && object.subreport == name;
               });
    });
}

} // namespace

std::size_t TablePlan::WordColumns() const {
    const auto first = std::find_if(columns.begin(), columns.end(), [](const report::Column& column) {
        return column.sum || column.average;
    });
    return static_cast<std::size_t>(first - columns.begin());
}

std::string TablePlan::Title(const std::string& given) const {
    const auto line =
        std::find_if(heading.begin(), heading.end(), [](const HeadingLine& one) { return one.isTitle; });
    return given.empty() && line != heading.end() ? line->text : given;
}

TablePlan PlanOf(const report::Definition& definition) {
    return {&definition, ColorsOf(definition), HeadingOf(definition), ColumnsOf(definition)};
}

std::vector<PlannedPart> PlannedParts(const ExportJob& job) {
    const report::Definition& outer = *job.parts.front().definition;
    std::vector<PlannedPart> planned;
    for (const ExportPart& part : job.parts) {
        const bool inside = &part != &job.parts.front();
        const bool hidden = inside ? HidesSubreport(outer, part.definition->name) : !ShowsRows(outer);
        if (!hidden) planned.push_back({part, PlanOf(*part.definition)});
    }
    if (planned.empty()) planned.push_back({job.parts.front(), PlanOf(outer)});
    planned.front().plan.heading = HeadingOf(outer);
    return planned;
}

} // namespace qbrpt
