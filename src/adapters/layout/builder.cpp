#include "adapters/layout/builder.h"

#include "adapters/layout/cards.h"
#include "adapters/layout/checks.h"
#include "adapters/layout/free_objects.h"
#include "adapters/layout/heading.h"
#include "adapters/layout/sections.h"
#include "adapters/layout/table_parts.h"

#include <algorithm>
#include <array>

namespace qbrpt::layout {

namespace {

constexpr double WidestTemplate = 40000;
constexpr int DeepestSubreport = 2;
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

/// The keys of a layout that its subreports share.
constexpr auto SharedKeys =
    std::to_array<std::string_view>({"width_twips", "margin", "shrink_to", "face", "color", "style", "stroke",
                                     "row", "metrics", "emphasis", "noun", "headings"});

Node InHouseOf(const Node& layout, const Node& subreport) {
    Node shared;
    for (const Entry& entry : layout.entries)
        if (std::find(std::begin(SharedKeys), std::end(SharedKeys), entry.key) != std::end(SharedKeys))
            shared.entries.push_back(entry);
    return Merge(std::move(shared), subreport);
}

class Builder {
public:
    Builder(const std::string& name, const Node& node, std::span<const Field> fields,
            const PictureShelf& pictures, Mistakes& mistakes)
        : mNode(node), mMistakes(mistakes), mLayout(node, "the layout", mistakes), mSheet(mLayout, mistakes),
          mFields(fields, mLayout, mistakes),
          mShop{mSheet, mistakes, mFields, pictures, ReadWidth(mLayout), mLayout.Length("margin", 13)} {
        mBuilt.definition = std::make_shared<report::Definition>();
        mBuilt.place = node.place;
        mBuilt.widthPlace = mLayout.PlaceOf("width_twips");
        mBuilt.definition->name = name;
        mBuilt.definition->width = mShop.width;
        mBuilt.definition->fields = fields;
        mBuilt.definition->computed = mFields.Computed();
        mBuilt.definition->nouns = mSheet.Nouns();
    }

    BuiltLayout Build() {
        mShop.logo = ReadLogo();
        BuildPageParts();
        BuildTableParts(mLayout, Needed(mLayout, "metrics", NodeKind::Table), mShop, mParts,
                        *mBuilt.definition);
        if (const Node* cards = mLayout.Child("cards", NodeKind::Table))
            mParts["cards"] = CardsBand(*cards, mShop);
        BuildSubreports();
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

    std::shared_ptr<const Picture> ReadLogo() {
        const Node* node = mLayout.Child("logo", NodeKind::Table);
        if (node == nullptr) return nullptr;
        TableReader reader(*node, "[logo]", mMistakes);
        const std::string file = reader.RequiredText("file");
        reader.Finish();
        return file.empty() ? nullptr : mShop.pictures.Find(file, reader.PlaceOf("file"));
    }

    /// Each is a layout of its own for rows of the same fields, without page headers and footers.
    void BuildSubreports() {
        const Node* subreports = mLayout.Child("subreport", NodeKind::Table);
        if (subreports == nullptr) return;
        for (const Entry& entry : subreports->entries) {
            if (mDepth >= DeepestSubreport || entry.value.kind != NodeKind::Table) {
                mMistakes.Add(entry.place, "a subreport is a table, at most two deep");
                continue;
            }
            const Node inside = InHouseOf(mNode, entry.value);
            Builder builder(entry.key, inside, mFields.Fields(), mShop.pictures, mMistakes);
            builder.mDepth = mDepth + 1;
            const BuiltLayout built = builder.Build();
            mBuilt.sections.insert(mBuilt.sections.end(), built.sections.begin(), built.sections.end());
            mBuilt.definition->subreports[entry.key] = built.definition;
        }
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
            if (!section.role.empty()) mBuilt.sections.push_back({section.role, built.place});
            definition.sections.push_back(std::move(section));
        }
        if (!mMistakes.Empty()) return;
        CheckPlaceholders(sections, definition, mMistakes);
        if (!mMistakes.Empty()) return;
        const std::string problem = report::DefinitionProblem(definition);
        if (!problem.empty()) mMistakes.Add(mBuilt.place, problem);
    }

    const Node& mNode;
    Mistakes& mMistakes;
    TableReader mLayout;
    StyleSheet mSheet;
    FieldBook mFields;
    Workshop mShop;
    Parts mParts;
    BuiltLayout mBuilt;
    int mDepth = 0;
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
                        const PictureShelf& pictures, Mistakes& mistakes) {
    return Builder(name, layout, fields, pictures, mistakes).Build();
}

void CheckStandIn(const BuiltLayout& own, const BuiltLayout& builtIn, Mistakes& mistakes) {
    if (own.definition->width != builtIn.definition->width)
        mistakes.Add(own.widthPlace, "\"width_twips\" must be " + std::to_string(builtIn.definition->width) +
                                         " for this template");
    CheckHolds(own.sections, builtIn.sections, "section", own.place, mistakes);
    CheckHolds(own.objects, builtIn.objects, "object", own.place, mistakes);
}

} // namespace qbrpt::layout
