#include "adapters/layout/builder.h"

#include "adapters/layout/checks.h"
#include "adapters/layout/columns.h"
#include "adapters/layout/formats.h"
#include "adapters/layout/free_objects.h"
#include "adapters/layout/heading.h"
#include "adapters/layout/sections.h"
#include "adapters/layout/table_bands.h"

#include <algorithm>

namespace qbrpt::layout {

namespace {

constexpr double WidestTemplate = 40000;
const Node NoNode;

/// A table that a layout must have; an empty one and a mistake where it is missing.
const Node& Needed(TableReader& layout, std::string_view key, NodeKind kind) {
    if (!layout.Has(key))
        layout.Wrong(key, "the layout needs " + std::string(NameOf(kind)) + " " + Quoted(key));
    const Node* node = layout.Child(key, kind);
    return node == nullptr ? NoNode : *node;
}

report::Twips ReadWidth(TableReader& layout) {
    const double width = layout.Number("width_twips", 0);
    if (width >= 1440 && width <= WidestTemplate) return static_cast<report::Twips>(width);
    layout.Wrong("width_twips", "\"width_twips\" must be the template's page width, 1440 to 40000 twips");
    return 11178;
}

class Builder {
public:
    Builder(const std::string& name, const Node& node, std::span<const Field> fields, Mistakes& mistakes)
        : mMistakes(mistakes), mLayout(node, "the layout", mistakes),
          mSheet(mLayout, mistakes), mShop{mSheet, mistakes, fields, ReadWidth(mLayout),
                                           mLayout.Length("margin", 13)} {
        mBuilt.definition = std::make_shared<report::Definition>();
        mBuilt.place = node.place;
        mBuilt.widthPlace = mLayout.PlaceOf("width_twips");
        mBuilt.definition->name = name;
        mBuilt.definition->width = mShop.width;
        mBuilt.definition->fields = fields;
        mBuilt.definition->nouns = mSheet.Nouns();
    }

    BuiltLayout Build() {
        BuildPageParts();
        BuildTableParts();
        std::vector<FreeObject> freeObjects;
        if (const Node* list = mLayout.Child("object", NodeKind::List))
            freeObjects = ReadFreeObjects(*list, mShop);
        std::vector<BuiltSection> sections =
            StackSections(Needed(mLayout, "sections", NodeKind::Table), mParts, freeObjects, mShop);
        mLayout.Finish();
        SettleNames(sections, mMistakes);
        if (mMistakes.Empty()) CheckPlaces(sections, mShop);
        Finish(sections);
        return std::move(mBuilt);
    }

private:
    void BuildPageParts() {
        const Node& forms = Needed(mLayout, "headings", NodeKind::Table);
        if (const Node* heading = mLayout.Child("heading", NodeKind::Table)) {
            const HeadingWords words = ReadHeading(*heading, mShop);
            mBuilt.definition->titleObject = TitleObjectOf(words);
            mParts["first-heading"] = HeadingBand(words, forms, mShop);
            mParts["later-heading"] = LaterHeadingBand(words, forms, mShop);
        }
        if (const Node* footer = mLayout.Child("footer", NodeKind::Table))
            mParts["footer"] = FooterBand(*footer, mShop);
    }

    void BuildTableParts() {
        const Node& metrics = Needed(mLayout, "metrics", NodeKind::Table);
        const Node* list = mLayout.Child("columns", NodeKind::List);
        const Node* total = mLayout.Child("total", NodeKind::Table);
        const Node* average = mLayout.Child("average", NodeKind::Table);
        const Node* groups = mLayout.Child("group", NodeKind::List);
        if (list == nullptr) return;
        const Columns columns = ReadColumns(*list, metrics, mShop);
        const TableStyle style = ResolveTableStyle(metrics, columns, mShop);
        const Table table{columns, style, mShop};
        mParts["captions"] = CaptionBand(table);
        mParts["rows"] = RowBand(table);
        KeepColumns(columns);
        if (total != nullptr) {
            const TotalWords words = ReadTotalWords(*total, "[total]", mShop);
            mBuilt.definition->total = words;
            mParts["total"] = TotalBand(table, words);
        }
        if (average != nullptr) {
            const TotalWords words = ReadTotalWords(*average, "[average]", mShop);
            mBuilt.definition->average = words;
            mParts["average"] = AverageBand(table, words);
        }
        if (groups == nullptr) return;
        for (const Node& group : groups->items)
            BuildGroup(group, table);
    }

    void KeepColumns(const Columns& columns) {
        report::Definition& definition = *mBuilt.definition;
        definition.columns.assign(columns.columns.begin(), columns.columns.end());
        for (const Tier& tier : columns.tiers)
            definition.tiers.push_back(tier.caption);
    }

    void BuildGroup(const Node& node, const Table& table) {
        TableReader reader(node, "a group", mMistakes);
        const auto index = static_cast<int>(mBuilt.definition->groups.size());
        const std::string suffix = index == 0 ? "" : " " + std::to_string(index + 1);
        report::Group group;
        group.field = FieldOf(reader.RequiredText("field"), reader.PlaceOf("field"), mShop);
        if (reader.Flag("by_day")) group.by = report::Group::By::Day;
        if (group.field >= 0)
            group.format = ReadFormat(reader, mShop.fields[static_cast<std::size_t>(group.field)].kind);
        group.picture = reader.Text("picture");
        group.whenEmpty = reader.Text("when_empty");
        group.heading = reader.Text("heading", "{group}");
        mParts["group-heading" + suffix] =
            GroupHeadBand(table, group.heading, reader.Text("continued", "{continued}"), index, node.place);
        if (const Node* total = reader.Child("total", NodeKind::Table)) {
            const TotalWords words = ReadTotalWords(*total, "a group's total", mShop);
            group.total = words;
            mParts["group-total" + suffix] = SubtotalBand(table, words, index);
        }
        mBuilt.definition->groups.push_back(group);
        reader.Finish();
    }

    void Finish(const std::vector<BuiltSection>& sections) {
        report::Definition& definition = *mBuilt.definition;
        for (const BuiltSection& built : sections) {
            report::Section section = built.section;
            for (const Placed& placed : built.objects) {
                section.objects.push_back(placed.object);
                if (placed.named) mBuilt.objects.push_back({placed.object.name, placed.place});
            }
            mBuilt.sections.push_back({section.name, built.place});
            definition.sections.push_back(std::move(section));
        }
        if (!mMistakes.Empty()) return;
        CheckPlaceholders(sections, definition, mMistakes);
        if (!mMistakes.Empty()) return;
        const std::string problem = report::DefinitionProblem(definition);
        if (!problem.empty()) mMistakes.Add(mBuilt.place, problem);
    }

    Mistakes& mMistakes;
    TableReader mLayout;
    StyleSheet mSheet;
    Workshop mShop;
    Parts mParts;
    BuiltLayout mBuilt;
};

void CheckHolds(const std::vector<NamedThing>& own, const std::vector<NamedThing>& needed,
                std::string_view what, const Place& place, Mistakes& mistakes) {
    for (const NamedThing& thing : needed) {
        const bool found = std::any_of(own.begin(), own.end(),
                                       [&thing](const NamedThing& one) { return one.name == thing.name; });
        if (!found)
            mistakes.Add(place, "the program needs the " + std::string(what) + " " + Quoted(thing.name) +
                                    "; this layout has none of that name");
    }
}

} // namespace

BuiltLayout BuildLayout(const std::string& name, const Node& layout, std::span<const Field> fields,
                        Mistakes& mistakes) {
    return Builder(name, layout, fields, mistakes).Build();
}

void CheckStandIn(const BuiltLayout& own, const BuiltLayout& builtIn, Mistakes& mistakes) {
    if (own.definition->width != builtIn.definition->width)
        mistakes.Add(own.widthPlace, "\"width_twips\" must be " + std::to_string(builtIn.definition->width) +
                                         " for this template");
    CheckHolds(own.sections, builtIn.sections, "section", own.place, mistakes);
    CheckHolds(own.objects, builtIn.objects, "object", own.place, mistakes);
}

} // namespace qbrpt::layout
