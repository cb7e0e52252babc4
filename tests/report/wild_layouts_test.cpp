// Layouts that nobody would write still end, on pages that can be drawn.
#include "report_maker.h"

#include <gtest/gtest.h>

#include <random>

namespace qbrpt::report {
namespace {

class Wild {
public:
    explicit Wild(std::uint64_t seed) : mEngine(seed) {}

    int Below(int limit) { return static_cast<int>(mEngine() % static_cast<unsigned>(limit)); }
    bool Maybe() { return Below(2) == 0; }
    Twips Length() { return Below(4) == 0 ? 0 : Below(Below(4) == 0 ? 20'000 : 600); }
    Twips Place() { return Length() - Below(300); }

    Object AnyObject(int number) {
        Object object;
        object.name = "o" + std::to_string(number);
        object.type = static_cast<ObjectType>(Below(6));
        object.right = Place();
        object.top = Place();
        object.width = Length();
        object.height = object.type == ObjectType::Box ? Length() : Place();
        object.baseline = Place();
        object.lineStep = Length();
        object.font.spec = {"Wild", Length(), Maybe()};
        object.align = static_cast<Align>(Below(3));
        object.canGrow = Maybe();
        object.shrinkTo = Length();
        object.hideRepeated = Maybe();
        object.text = Texts[static_cast<std::size_t>(Below(static_cast<int>(Texts.size())))];
        object.field = Below(3);
        object.total = {static_cast<Aggregate>(Below(5)), Below(3)};
        object.format = static_cast<ValueFormat>(Below(11));
        object.picture = "0.0#";
        object.stroke = Below(100);
        if (Maybe()) object.fill = 0xFFFFFF;
        object.when = static_cast<LineWhen>(Below(4));
        object.fullHeight = Maybe();
        object.atBottom = Maybe();
        object.yieldsToRepeated = Maybe();
        if (number > 0 && Below(5) == 0) object.follows = "o" + std::to_string(Below(number));
        if (Below(5) == 0) object.showWhen = Condition{Below(3), static_cast<Condition::Test>(Below(6))};
        if (object.showWhen) object.showWhen->unless = Maybe();
        object.on = static_cast<OnPages>(Below(3));
        if (Below(5) == 0) object.barField = Below(3);
        object.barToLargest = Maybe();
        object.suppress = Below(8) == 0;
        return object;
    }

    Definition AnyDefinition() {
        Definition definition;
        definition.width = 1 + Length();
        definition.top = Length() / 10;
        definition.bottom = Length() / 10;
        definition.fields = TestFields;
        const int groups = Below(3);
        for (int group = 0; group < groups; ++group)
            definition.groups.push_back({.field = Below(4) - 1, .by = static_cast<Group::By>(Below(2))});
        const int sections = Below(10);
        for (int i = 0; i < sections; ++i) {
            Section section = MakeSection(static_cast<SectionKind>(Below(7)), {}, Length());
            const bool grouped =
                section.kind == SectionKind::GroupHeader || section.kind == SectionKind::GroupFooter;
            if (grouped && groups == 0) continue;
            section.group = grouped ? Below(groups) : 0;
            section.on = static_cast<OnPages>(Below(3));
            section.keepTogether = Maybe();
            section.repeat = Maybe();
            section.newPageBefore = Below(6) == 0;
            section.newPageAfter = Below(6) == 0;
            section.suppress = Below(8) == 0;
            if (section.height > 0) section.laterTop = Below(section.height);
            section.skipAlone = Maybe();
            const int objects = Below(6);
            for (int number = 0; number < objects; ++number)
                section.objects.push_back(AnyObject(number));
            definition.sections.push_back(section);
        }
        return definition;
    }

private:
    const std::vector<std::string> Texts = {"",
                                            "a",
                                            "{group} {continued}",
                                            "{rows} {page}/{pages}",
                                            "\n\r\n x \t",
                                            std::string(500, 'w'),
                                            "{field:note}",
                                            "\xFF\xC3 broken"};
    std::mt19937_64 mEngine;
};

std::vector<fakes::Row> WildRows(Wild& wild) {
    std::vector<fakes::Row> rows;
    const int count = wild.Below(25);
    for (int i = 0; i < count; ++i) {
        const std::string note(static_cast<std::size_t>(wild.Below(300)), wild.Maybe() ? 'n' : ' ');
        rows.push_back(
            {wild.Maybe() ? Value(std::string(1, static_cast<char>('a' + wild.Below(3)))) : Value(Null{}),
             wild.Maybe() ? Value(note) : Value(std::int64_t{i}),
             wild.Maybe() ? Value(wild.Below(1000) / 8.0) : Value(std::string("text"))});
    }
    return rows;
}

class WildLayouts : public testing::TestWithParam<int> {};

TEST_P(WildLayouts, EndOnPagesThatCanBeDrawn) {
    const std::uint64_t seed =
        (std::uint64_t{std::random_device{}()} << 8U) + static_cast<unsigned>(GetParam());
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Wild wild(seed);
    const Definition definition = wild.AnyDefinition();
    ASSERT_EQ(DefinitionProblem(definition), "");
    TestReport report(definition, WildRows(wild), {1 + wild.Below(20'000), 6000 + wild.Below(20'000)});
    const std::size_t pages = report.Pages().PageCount();
    ASSERT_GE(pages, 1U);
    // A few rows of eight hundred letters, in every section of a layout that takes a page for a letter.
    ASSERT_LT(pages, 200'000U);
    for (std::size_t index = 0; index < pages; ++index)
        ASSERT_FALSE(report.Text(index).empty());
    ASSERT_EQ(report.Text(0), report.Text(0));
}

INSTANTIATE_TEST_SUITE_P(Seeds, WildLayouts, testing::Range(0, 120));

} // namespace
} // namespace qbrpt::report
