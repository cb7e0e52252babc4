#include "adapters/layout/sections.h"

#include <algorithm>
#include <array>
#include <set>

namespace qbrpt::layout {

namespace {

using report::OnPages;
using report::SectionKind;

constexpr auto Kinds = std::to_array<std::pair<std::string_view, SectionKind>>({
    {"report-header", SectionKind::ReportHeader},
    {"page-header", SectionKind::PageHeader},
    {"group-header", SectionKind::GroupHeader},
    {"details", SectionKind::Details},
    {"group-footer", SectionKind::GroupFooter},
    {"report-footer", SectionKind::ReportFooter},
    {"page-footer", SectionKind::PageFooter},
});

constexpr auto Pages = std::to_array<std::pair<std::string_view, OnPages>>(
    {{"all", OnPages::All}, {"first", OnPages::First}, {"later", OnPages::Later}});

class Stack {
public:
    Stack(const Parts& parts, const Workshop& shop) : mParts(parts), mShop(shop) {}

    BuiltSection Build(const Entry& entry) {
        mBuilt = {{}, {}, entry.place};
        mBuilt.section.name = entry.key;
        mBuilt.section.kind = SectionKind::ReportFooter;
        mFirstPart = true;
        mFirstPagesOnly = mJoined = false;
        if (entry.value.kind == NodeKind::Table)
            AddByHand(entry.value);
        else
            AddParts(entry.value);
        return std::move(mBuilt);
    }

    [[nodiscard]] const std::set<std::string, std::less<>>& Used() const { return mUsed; }

private:
    /// A section without ready parts: its objects are placed one by one.
    void AddByHand(const Node& node) {
        TableReader reader(node, "a section", mShop.mistakes);
        report::Section& section = mBuilt.section;
        if (const Node* parts = reader.Child("parts")) AddParts(*parts);
        section.kind = reader.Choice<SectionKind>("kind", Kinds, section.kind);
        section.on = reader.Choice<OnPages>("on", Pages, section.on);
        section.height = reader.Length("height", section.height / 20.0);
        section.keepTogether = reader.Flag("keep_together", section.keepTogether);
        section.suppress = reader.Flag("suppress");
        section.role = reader.Text("role");
        reader.Finish();
        if (section.height < 0) reader.Wrong("height", "\"height\" must not be below 0");
    }

    void AddParts(const Node& value) {
        if (value.kind == NodeKind::Text) {
            AddPart(value);
        } else if (value.kind == NodeKind::List) {
            for (const Node& item : value.items)
                AddPart(item);
        } else {
            mShop.mistakes.Add(value.place, "a section is the name of a part, or a list of such names");
        }
    }

    void AddPart(const Node& name) {
        if (name.kind == NodeKind::Text && name.text == "empty") return;
        const auto part = mParts.find(name.text);
        if (part == mParts.end()) {
            std::vector<std::string_view> known;
            for (const auto& entry : mParts)
                known.push_back(entry.first);
            mShop.mistakes.Add(name.place,
                               "there is no part " + Quoted(name.text) + Suggestion(name.text, known));
            return;
        }
        mUsed.insert(name.text);
        Lay(part->second, name.place);
    }

    void Lay(const Band& band, const Place& place) {
        report::Section& section = mBuilt.section;
        if (mFirstPart) {
            section.kind = band.kind;
            section.on = band.on;
            section.group = band.group;
            section.repeat = band.repeat;
            section.skipAlone = band.skipAlone;
        } else if (section.kind != band.kind || section.group != band.group) {
            mShop.mistakes.Add(place, "this part stands elsewhere on the page than the parts before it; "
                                      "give it a section of its own");
        } else if (mFirstPagesOnly && band.on == OnPages::Later) {
            LayInPlace(band, place);
            return;
        } else if (band.on != OnPages::All &&
                   (mJoined || (section.on != band.on && section.on != OnPages::All))) {
            mShop.mistakes.Add(place, "one part is for the first page, the other for later pages");
        } else if (section.on == OnPages::All) {
            section.on = band.on;
        }
        mFirstPagesOnly = band.on == OnPages::First && (mFirstPart || mFirstPagesOnly);
        mFirstPart = false;
        for (Placed object : band.objects) {
            object.object.top += section.height;
            mBuilt.objects.push_back(std::move(object));
        }
        section.height += band.height;
    }

    /// The later pages' part stands where the first page's does, at the bottom of its room; on later pages
    /// the section begins so far down.
    void LayInPlace(const Band& band, const Place& place) {
        report::Section& section = mBuilt.section;
        const report::Twips down = section.height - band.height;
        if (down < 0) {
            mShop.mistakes.Add(place, "the part for later pages is taller than that for the first page");
            return;
        }
        for (Placed& object : mBuilt.objects)
            object.object.on = OnPages::First;
        for (Placed object : band.objects) {
            object.object.on = OnPages::Later;
            object.object.top += down;
            mBuilt.objects.push_back(std::move(object));
        }
        mFirstPagesOnly = false;
        mJoined = true;
        section.laterTop = down;
        section.on = OnPages::All;
    }

    const Parts& mParts;
    const Workshop& mShop;
    std::set<std::string, std::less<>> mUsed;
    BuiltSection mBuilt;
    bool mFirstPart = true;
    bool mFirstPagesOnly = false; ///< all parts so far are for the first page
    bool mJoined = false;         ///< one part stands for first pages, one in its place for later ones
};

void AddFreeObjects(std::vector<BuiltSection>& sections, const std::vector<FreeObject>& freeObjects,
                    const Workshop& shop) {
    std::vector<std::string_view> known;
    known.reserve(sections.size());
    for (const BuiltSection& section : sections)
        known.push_back(section.section.name);
    for (const FreeObject& free : freeObjects) {
        const auto section = std::find(known.begin(), known.end(), free.section);
        if (section == known.end())
            shop.mistakes.Add(free.placed.place, "there is no section " + Quoted(free.section) +
                                                     Suggestion(free.section, known));
        else
            sections[static_cast<std::size_t>(section - known.begin())].objects.push_back(free.placed);
    }
}

} // namespace

std::vector<BuiltSection> StackSections(const Node& plan, const Parts& parts,
                                        const std::vector<FreeObject>& freeObjects, const Workshop& shop) {
    std::vector<BuiltSection> sections;
    sections.reserve(plan.entries.size());
    Stack stack(parts, shop);
    for (const Entry& entry : plan.entries)
        sections.push_back(stack.Build(entry));
    for (const auto& [name, band] : parts)
        if (!stack.Used().contains(name))
            shop.mistakes.Add(plan.place, "no section shows the part " + Quoted(name));
    AddFreeObjects(sections, freeObjects, shop);
    return sections;
}

} // namespace qbrpt::layout
