#include "report/compiled.h"

#include "base/failure.h"
#include "report/placeholders.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

// What a text object's placeholders ask for.
struct TextNeeds {
    bool volatileText = false; ///< changes after its section was measured: it must not change the height
    bool row = false;
    bool groupRows = false;
    std::vector<const Object*> objects; ///< {text:OBJECT}
};

TextNeeds NeedsOf(const Definition& definition, const Object& object) {
    TextNeeds needs;
    if (object.literal) return needs;
    for (PlaceholderScan scan(object.text); scan.Next();) {
        if (!scan.IsPlaceholder()) continue;
        switch (scan.Word().kind) {
        case Placeholder::Kind::Page:
        case Placeholder::Kind::Pages:
            needs.volatileText = true;
            break;
        case Placeholder::Kind::Rows:
            needs.volatileText = true;
            needs.groupRows = true;
            break;
        case Placeholder::Kind::Field:
        case Placeholder::Kind::Group:
            needs.row = true;
            break;
        case Placeholder::Kind::Text:
            if (const Object* other = FindObject(definition, scan.Word().argument))
                needs.objects.push_back(other);
            break;
        default:
            break;
        }
    }
    for (const Object* other : needs.objects) {
        // One step is enough to tell: a text inside a text inside a text is taken as changing.
        needs.volatileText = needs.volatileText || other->type == ObjectType::Total ||
                             other->text.find('{') != std::string::npos;
        needs.row = needs.row || other->type == ObjectType::Field;
    }
    return needs;
}

bool IsShaped(ValueFormat format) {
    return format == ValueFormat::Text || format == ValueFormat::Picture;
}

class Compiler {
public:
    Compiler(CompiledDefinition& out, TextPort& text) : mOut(out), mText(text) {}

    void Run() {
        const Definition& source = *mOut.definition;
        mOut.headersShowGroupTotals.resize(source.groups.size());
        for (const auto& [name, inside] : source.subreports)
            mOut.subreports.emplace(name, std::make_unique<CompiledDefinition>(*inside, mText));
        for (const Section& section : source.sections)
            AddSection(section);
        Place();
    }

private:
    void AddSection(const Section& section) {
        CompiledSection compiled;
        compiled.section = &section;
        for (const Object& object : section.objects)
            compiled.objects.push_back(CompileObject(section, object, compiled));
        AddPushes(compiled);
        for (std::size_t i = 0; i < compiled.objects.size(); ++i)
            compiled.drawOrder.push_back(i);
        compiled.fromTop = compiled.drawOrder;
        std::stable_sort(compiled.fromTop.begin(), compiled.fromTop.end(), [&](std::size_t a, std::size_t b) {
            return compiled.objects[a].object->top < compiled.objects[b].object->top;
        });
        std::stable_partition(compiled.drawOrder.begin(), compiled.drawOrder.end(), [&](std::size_t i) {
            return compiled.objects[i].object->type == ObjectType::Box;
        });
        mOut.sections.push_back(std::move(compiled));
    }

    CompiledObject CompileObject(const Section& section, const Object& object, CompiledSection& compiled) {
        CompiledObject result;
        result.object = &object;
        const bool writes = object.type == ObjectType::Text || object.type == ObjectType::Field ||
                            object.type == ObjectType::Total;
        if (writes) {
            result.style = mText.Style(object.font.spec);
            result.figures = &mText.Figures(result.style);
        }
        TextNeeds needs;
        if (object.type == ObjectType::Text) {
            needs = NeedsOf(*mOut.definition, object);
            result.mayGrow = object.canGrow && !needs.volatileText;
            if (needs.groupRows && section.kind == SectionKind::GroupHeader) NoteAhead(section, Scope::Group);
            for (const Object* other : needs.objects)
                NoteShown(section, *other);
        }
        if (object.type == ObjectType::Field) result.mayGrow = object.canGrow && IsShaped(object.format);
        if (object.type == ObjectType::Total) {
            result.total = SlotOf(object.total);
            NoteShown(section, object);
            compiled.sharesSize = true;
        }
        if (object.type == ObjectType::Box && object.barField >= 0 && object.barToLargest) {
            result.total = SlotOf({.aggregate = Aggregate::Maximum, .field = object.barField});
            compiled.readsWhole = true;
        }
        if (object.type == ObjectType::Subreport) {
            compiled.subreport = compiled.objects.size();
            const auto inside = mOut.subreports.find(object.subreport);
            if (inside != mOut.subreports.end()) compiled.inside = inside->second.get();
        }
        for (std::size_t i = 0; i < compiled.objects.size() && !object.follows.empty(); ++i) {
            if (compiled.objects[i].object->name == object.follows) result.follows = i;
        }
        if (section.kind == SectionKind::PageFooter) result.mayGrow = false; // its place is fixed
        compiled.mayGrow = compiled.mayGrow || result.mayGrow;
        compiled.dependsOnRow = compiled.dependsOnRow || needs.row || object.showWhen ||
                                (result.mayGrow && object.type == ObjectType::Field);
        compiled.hidesRepeated = compiled.hidesRepeated || object.hideRepeated;
        return result;
    }

    static void AddPushes(CompiledSection& section) {
        for (CompiledObject& lower : section.objects) {
            for (std::size_t i = 0; i < section.objects.size(); ++i) {
                const CompiledObject& upper = section.objects[i];
                const bool above = upper.object->top + upper.object->height <= lower.object->top;
                if (upper.mayGrow && above && !lower.object->atBottom) lower.pushedBy.push_back(i);
            }
        }
    }

    std::size_t SlotOf(const Total& total) {
        const auto found = std::find(mOut.totals.begin(), mOut.totals.end(), total);
        if (found != mOut.totals.end()) return static_cast<std::size_t>(found - mOut.totals.begin());
        mOut.totals.push_back(total);
        return mOut.totals.size() - 1;
    }

    void NoteShown(const Section& section, const Object& shown) {
        if (shown.type == ObjectType::Total) NoteAhead(section, shown.total.scope);
    }

    void NoteAhead(const Section& section, Scope scope) {
        switch (section.kind) {
        case SectionKind::ReportHeader:
        case SectionKind::PageHeader:
            mOut.headersShowReportTotals = true;
            break;
        case SectionKind::GroupHeader:
            if (scope == Scope::Group)
                mOut.headersShowGroupTotals[static_cast<std::size_t>(section.group)] = true;
            else
                mOut.headersShowReportTotals = true;
            break;
        case SectionKind::Details:
        case SectionKind::PageFooter:
            mOut.rowsShowTotals = mOut.rowsShowTotals || scope == Scope::Report;
            break;
        default:
            break;
        }
    }

    void Place() {
        SectionPlaces& places = mOut.places;
        places.groupHeader.resize(mOut.definition->groups.size());
        places.groupFooter.resize(mOut.definition->groups.size());
        for (std::size_t i = 0; i < mOut.sections.size(); ++i)
            ListOf(*mOut.sections[i].section).push_back(i);
    }

    SectionPlaces::List& ListOf(const Section& section) {
        SectionPlaces& places = mOut.places;
        const auto group = static_cast<std::size_t>(section.group);
        switch (section.kind) {
        case SectionKind::ReportHeader:
            return places.reportHeader;
        case SectionKind::PageHeader:
            return places.pageHeader;
        case SectionKind::GroupHeader:
            return places.groupHeader[group];
        case SectionKind::GroupFooter:
            return places.groupFooter[group];
        case SectionKind::ReportFooter:
            return places.reportFooter;
        case SectionKind::PageFooter:
            return places.pageFooter;
        default:
            return places.details;
        }
    }

    CompiledDefinition& mOut;
    TextPort& mText;
};

} // namespace

CompiledDefinition::CompiledDefinition(const Definition& source, TextPort& text) : definition(&source) {
    const std::string problem = DefinitionProblem(source);
    if (!problem.empty()) throw Failure(FailureNumber::Layout, "Layout \"" + source.name + "\": " + problem);
    Compiler(*this, text).Run();
}

} // namespace qbrpt::report
