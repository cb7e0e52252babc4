#include "adapters/layout/checks.h"

#include <algorithm>
#include <map>
#include <set>

namespace qbrpt::layout {

namespace {

using report::Object;
using report::ObjectType;
using report::Twips;

bool TakesRoom(const Object& object) {
    const bool isShape = object.type == ObjectType::Line || object.type == ObjectType::Box ||
                         object.type == ObjectType::Subreport;
    return !isShape && object.follows.empty() && object.width > 0 && object.height > 0;
}

/// Whether no row and no page shows both.
bool Exclude(const Object& a, const Object& b) {
    if (a.on != b.on && a.on != report::OnPages::All && b.on != report::OnPages::All) return true;
    return a.showWhen && b.showWhen && a.showWhen->field == b.showWhen->field &&
           a.showWhen->test == b.showWhen->test && a.showWhen->unless != b.showWhen->unless;
}

bool Overlap(const Object& a, const Object& b) {
    return a.right < b.right + b.width && b.right < a.right + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

void CheckEdges(const Placed& placed, const BuiltSection& section, const Workshop& shop) {
    const Object& object = placed.object;
    if (!object.follows.empty() || object.type == ObjectType::Subreport) return;
    if (object.right < shop.margin || object.right + object.width > shop.width - shop.margin)
        shop.mistakes.Add(placed.place, Quoted(object.name) + " stands within " +
                                            std::to_string(shop.margin / 20) +
                                            " points of the template's edge");
    if (object.width < 0 || object.height < 0)
        shop.mistakes.Add(placed.place, Quoted(object.name) + " has a size below 0");
    // Marks of the first or last row of a page may stand outside of it.
    const bool mayStandOutside =
        object.type == ObjectType::Line && (object.atBottom || object.when != report::LineWhen::Always);
    if (!mayStandOutside && (object.top < 0 || object.top + object.height > section.section.height))
        shop.mistakes.Add(placed.place, Quoted(object.name) + " reaches out of its section " +
                                            Quoted(section.section.name));
}

} // namespace

void SettleNames(std::vector<BuiltSection>& sections, Mistakes& mistakes) {
    std::map<std::string, Place> given;
    for (const BuiltSection& section : sections) {
        for (const Placed& placed : section.objects) {
            if (!placed.named) continue;
            const auto [first, added] = given.emplace(placed.object.name, placed.place);
            if (!added)
                mistakes.Add(placed.place, "the name " + Quoted(placed.object.name) + " is taken; see " +
                                               ToText(first->second));
        }
    }
    std::set<std::string> taken;
    for (const auto& [name, place] : given)
        taken.insert(name);
    for (BuiltSection& section : sections) {
        std::map<std::string, std::string> renamed;
        for (Placed& placed : section.objects) {
            if (placed.named) continue;
            const std::string wanted = placed.object.name;
            for (int count = 2; !taken.insert(placed.object.name).second; ++count)
                placed.object.name = wanted + " " + std::to_string(count);
            if (placed.object.name != wanted) renamed[wanted] = placed.object.name;
            const auto followed = renamed.find(placed.object.follows);
            if (followed != renamed.end()) placed.object.follows = followed->second;
        }
    }
}

void CheckPlaces(const std::vector<BuiltSection>& sections, const Workshop& shop) {
    for (const BuiltSection& section : sections) {
        for (std::size_t i = 0; i < section.objects.size(); ++i) {
            const Placed& one = section.objects[i];
            CheckEdges(one, section, shop);
            if (!TakesRoom(one.object)) continue;
            for (std::size_t j = i + 1; j < section.objects.size(); ++j) {
                const Placed& other = section.objects[j];
                if (TakesRoom(other.object) && Overlap(one.object, other.object) &&
                    !Exclude(one.object, other.object))
                    shop.mistakes.Add(other.place,
                                      Quoted(other.object.name) + " overlaps " + Quoted(one.object.name));
            }
        }
    }
}

void CheckPlaceholders(const std::vector<BuiltSection>& sections, const report::Definition& definition,
                       Mistakes& mistakes) {
    for (const BuiltSection& section : sections) {
        for (const Placed& placed : section.objects) {
            const std::string problem = report::PlaceholderProblem(definition, placed.object.text);
            if (!problem.empty()) mistakes.Add(placed.place, problem);
        }
    }
}

} // namespace qbrpt::layout
