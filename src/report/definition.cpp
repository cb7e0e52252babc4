#include "report/definition.h"

#include "report/placeholders.h"

#include <algorithm>
#include <set>

namespace qbrpt::report {

namespace {

// Sections and objects far larger than any paper are mistakes, and would let sums run over.
constexpr Twips LargestLength = 1'000'000;
constexpr int DeepestSubreport = 4;

bool IsLength(Twips length) {
    return length >= 0 && length <= LargestLength;
}
bool IsPlace(Twips place) {
    return place >= -LargestLength && place <= LargestLength;
}

std::string At(std::string_view what, std::string_view name, std::string_view problem) {
    std::string text(what);
    return text.append(" \"").append(name).append("\": ").append(problem);
}

class Checker {
public:
    Checker(const Definition& definition, int depth) : mDefinition(definition), mDepth(depth) {}

    std::string Run() {
        if (!IsLength(mDefinition.width) || mDefinition.width == 0)
            return "the width must lie between 1 and 1000000 twips.";
        if (!IsLength(mDefinition.top) || !IsLength(mDefinition.bottom))
            return "top and bottom must lie between 0 and 1000000 twips.";
        for (const Group& group : mDefinition.groups) {
            if ((group.field != -1 && !IsField(group.field)) || (group.shown != -1 && !IsField(group.shown)))
                return "a group names a field that is not there.";
        }
        const auto fieldCount = static_cast<int>(mDefinition.fields.size());
        for (const SortKey& key : mDefinition.order) {
            if (key.field < 0 || key.field >= fieldCount)
                return "the order of rows names a field that is not there.";
        }
        for (const Computed& computed : mDefinition.computed) {
            if (computed.left < 0 || computed.left >= fieldCount || computed.right < 0 ||
                computed.right >= fieldCount)
                return "the computed value \"" + computed.name + "\" names a field that is not there.";
        }
        for (const Section& section : mDefinition.sections) {
            if (std::string problem = SectionProblem(section); !problem.empty())
                return At("section", section.name, problem);
        }
        for (const auto& [name, inside] : mDefinition.subreports) {
            if (!inside || mDepth >= DeepestSubreport) return "subreport \"" + name + "\" cannot be used.";
            if (std::string problem = Checker(*inside, mDepth + 1).Run(); !problem.empty())
                return At("subreport", name, problem);
        }
        return {};
    }

private:
    [[nodiscard]] bool IsField(int field) const {
        return field >= 0 &&
               static_cast<std::size_t>(field) < mDefinition.fields.size() + mDefinition.computed.size();
    }
    [[nodiscard]] bool IsGroup(int group) const {
        return group >= 0 && static_cast<std::size_t>(group) < mDefinition.groups.size();
    }

    std::string SectionProblem(const Section& section) {
        if (!IsLength(section.height) || section.laterTop < 0 || section.laterTop > section.height)
            return "the height must lie between 0 and 1000000 twips.";
        const bool grouped =
            section.kind == SectionKind::GroupHeader || section.kind == SectionKind::GroupFooter;
        if (grouped && !IsGroup(section.group)) return "the group is not there.";
        std::set<std::string_view> before;
        for (const Object& object : section.objects) {
            std::string problem = ObjectProblem(section, object);
            if (problem.empty() && !object.follows.empty() && !before.contains(object.follows))
                problem = "it follows \"" + object.follows + "\", which does not stand before it.";
            if (!problem.empty()) return At("object", object.name, problem);
            before.insert(object.name);
        }
        return {};
    }

    std::string ObjectProblem(const Section& section, const Object& object) {
        if (!IsPlace(object.right) || !IsPlace(object.top) || !IsLength(object.width) ||
            !IsPlace(object.height) || !IsPlace(object.baseline) || !IsLength(object.lineStep) ||
            !IsLength(object.font.spec.size) || !IsLength(object.shrinkTo) || !IsLength(object.stroke))
            return "a length lies out of bounds.";
        if (object.showWhen && !IsField(object.showWhen->field)) return "its condition names no field.";
        switch (object.type) {
        case ObjectType::Field:
            return IsField(object.field) ? "" : "the field is not there.";
        case ObjectType::Total:
            return TotalProblem(section, object.total);
        case ObjectType::Text:
            return object.literal ? "" : PlaceholderProblem(mDefinition, object.text);
        case ObjectType::Box:
            if (object.barField != -1 && !IsField(object.barField)) return "the bar's field is not there.";
            return object.height < 0 ? "the height must not be negative." : "";
        case ObjectType::Subreport:
            if (!mDefinition.subreports.contains(object.subreport)) return "the subreport is not there.";
            return section.kind == SectionKind::ReportFooter
                       ? ""
                       : "a subreport stands in a report footer only; move it there.";
        default:
            return {};
        }
    }

    [[nodiscard]] std::string TotalProblem(const Section& section, const Total& total) const {
        if (!IsField(total.field)) return "the total's field is not there.";
        if (total.when && !IsField(total.when->field)) return "the total's condition names no field.";
        const bool inPageHeader = section.kind == SectionKind::PageHeader;
        const bool inHeader = inPageHeader || section.kind == SectionKind::ReportHeader;
        if (total.scope == Scope::Group && (!IsGroup(total.group) || inHeader))
            return "the total's group is not there.";
        if (total.scope == Scope::Page && (inHeader || section.kind == SectionKind::GroupHeader))
            return "a page total stands below rows only; move it to the page footer.";
        const bool outer = section.kind == SectionKind::GroupHeader && total.scope == Scope::Group;
        if (outer && total.group != section.group)
            return "a group header shows totals of its own group only.";
        return {};
    }

    const Definition& mDefinition;
    int mDepth;
};

template <class D>
auto FindObjectIn(D& definition, std::string_view name)
    -> decltype(definition.sections.front().objects.data()) {
    for (auto& section : definition.sections) {
        for (auto& object : section.objects) {
            if (object.name == name) return &object;
        }
    }
    return nullptr;
}

} // namespace

Object* FindObject(Definition& definition, std::string_view name) {
    return FindObjectIn(definition, name);
}

const Object* FindObject(const Definition& definition, std::string_view name) {
    return FindObjectIn(definition, name);
}

std::string_view CaptionOf(const Definition& definition, const Column& column) {
    const Object* object = FindObject(definition, column.captionObject);
    return object != nullptr && object->type == ObjectType::Text ? object->text : column.caption;
}

Section* FindSection(Definition& definition, std::string_view name) {
    if (name.empty()) return nullptr;
    const auto found =
        std::find_if(definition.sections.begin(), definition.sections.end(),
                     [name](const Section& section) { return section.name == name || section.role == name; });
    return found == definition.sections.end() ? nullptr : &*found;
}

int FieldNamed(const Definition& definition, std::string_view name) {
    int position = 0;
    for (const Field& field : definition.fields) {
        if (field.name == name) return position;
        ++position;
    }
    for (const Computed& computed : definition.computed) {
        if (computed.name == name) return position;
        ++position;
    }
    return -1;
}

std::string PlaceholderProblem(const Definition& definition, std::string_view text) {
    for (std::size_t open = text.find('{'); open != std::string_view::npos; open = text.find('{', open + 1)) {
        const std::size_t close = text.find('}', open);
        if (close == std::string_view::npos) return "a brace is not closed.";
        const std::string inside(text.substr(open + 1, close - open - 1));
        const Placeholder word = ReadPlaceholder(inside);
        const std::string argument(word.argument);
        switch (word.kind) {
        case Placeholder::Kind::Unknown:
            return "{" + inside + "} is no placeholder.";
        case Placeholder::Kind::Text:
            if (!FindObject(definition, argument)) return "{" + inside + "}: the object is not there.";
            break;
        case Placeholder::Kind::Field:
            if (FieldNamed(definition, argument) < 0) return "{" + inside + "}: the field is not there.";
            break;
        case Placeholder::Kind::Rows:
            if (!argument.empty() && !definition.nouns.contains(argument))
                return "{" + inside + "}: the noun is not there.";
            break;
        default:
            break;
        }
    }
    return {};
}

std::string DefinitionProblem(const Definition& definition) {
    return Checker(definition, 0).Run();
}

} // namespace qbrpt::report
