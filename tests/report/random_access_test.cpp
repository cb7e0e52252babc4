// Any page, asked for in any order, is the page that reading from the first one gives.
#include "report_maker.h"

#include <gtest/gtest.h>

#include <random>

namespace qbrpt::report {
namespace {

class Random {
public:
    explicit Random(std::uint64_t seed) : mEngine(seed) {}
    int Below(int limit) { return static_cast<int>(mEngine() % static_cast<unsigned>(limit)); }
    bool Chance(int percent) { return Below(100) < percent; }
    std::mt19937_64& Engine() { return mEngine; }

private:
    std::mt19937_64 mEngine;
};

Section RandomSection(Random& random, SectionKind kind, std::vector<Object> objects) {
    Section section = MakeSection(kind, std::move(objects), 100 + random.Below(5) * 100);
    section.keepTogether = random.Chance(85);
    return section;
}

Total SumOf(Scope scope, int group = 0) {
    return {Aggregate::Sum, AmountField, scope, group};
}

void AddGroups(Random& random, Definition& definition) {
    const int count = random.Below(3);
    for (int group = 0; group < count; ++group) {
        definition.groups.push_back({.field = group == 0 && random.Chance(10) ? -1 : group});
        Object title = TextObject("Group", "{group} {continued}");
        title.canGrow = random.Chance(30);
        Section head = RandomSection(random, SectionKind::GroupHeader, {title});
        head.group = group;
        head.repeat = random.Chance(70);
        head.newPageBefore = random.Chance(10);
        if (random.Chance(30)) head.objects.push_back(TotalObject("Ahead", SumOf(Scope::Group, group)));
        if (random.Chance(80)) definition.sections.push_back(head);
        Section foot =
            RandomSection(random, SectionKind::GroupFooter,
                          {TextObject("Rows", "{rows}"), TotalObject("Sum", SumOf(Scope::Group, group))});
        foot.group = group;
        foot.newPageAfter = random.Chance(10);
        if (random.Chance(80)) definition.sections.push_back(foot);
    }
}

Definition RandomDefinition(Random& random) {
    Definition definition = PlainDefinition();
    definition.sections.clear();
    definition.top = random.Below(3) * 50;
    AddGroups(random, definition);
    Object name = FieldObject("Name", NameField, 0, 1000);
    name.hideRepeated = random.Chance(30);
    Object note = FieldObject("Note", NoteField, 1000, 1000);
    note.canGrow = random.Chance(60);
    if (random.Chance(30)) note.shrinkTo = 80;
    Object line = TextObject("Line", "");
    line.type = ObjectType::Line;
    line.when = static_cast<LineWhen>(random.Below(4));
    line.yieldsToRepeated = true;
    line.atBottom = true;
    line.stroke = 30;
    definition.sections.push_back(RandomSection(
        random, SectionKind::Details, {name, note, FieldObject("Amount", AmountField, 2000, 1000), line}));
    if (random.Chance(20))
        definition.sections.push_back(
            RandomSection(random, SectionKind::Details, {TextObject("More", "more")}));
    if (random.Chance(60)) {
        definition.sections.push_back(
            RandomSection(random, SectionKind::ReportHeader, {TextObject("T", "title")}));
        if (random.Chance(20))
            definition.sections.back().objects.push_back(TotalObject("All", SumOf(Scope::Report)));
    }
    if (random.Chance(70)) {
        Section header = RandomSection(random, SectionKind::PageHeader, {TextObject("H", "{field:name}")});
        header.on = static_cast<OnPages>(random.Below(3));
        header.objects[0].canGrow = random.Chance(30);
        definition.sections.push_back(header);
    }
    if (random.Chance(60)) {
        definition.sections.push_back(
            RandomSection(random, SectionKind::ReportFooter, {TotalObject("End", SumOf(Scope::Report))}));
    }
    if (random.Chance(60)) {
        definition.sections.push_back(
            RandomSection(random, SectionKind::PageFooter, {TextObject("F", "{page}/{pages} {field:name}")}));
        if (random.Chance(40))
            definition.sections.back().objects.push_back(TotalObject("P", SumOf(Scope::Page)));
        if (random.Chance(20))
            definition.sections.back().objects.push_back(TotalObject("S", SumOf(Scope::Report)));
    }
    return definition;
}

std::vector<fakes::Row> RandomRows(Random& random) {
    std::vector<fakes::Row> rows;
    const int count = random.Chance(10) ? random.Below(3) : random.Below(800);
    std::string name = "a";
    std::string group = "x";
    for (int i = 0; i < count; ++i) {
        if (random.Chance(15)) name = std::string(1, static_cast<char>('a' + random.Below(26)));
        if (random.Chance(30)) group.clear();
        const int words = random.Chance(10) ? random.Below(60) : 1;
        if (random.Chance(40)) {
            group.clear();
            for (int word = 0; word < words; ++word)
                group += std::string(static_cast<std::size_t>(random.Below(30)), 'w') + " ";
        }
        rows.push_back(NamedRow(name, i + 1, group));
    }
    return rows;
}

std::string FirstDifference(const std::string& a, const std::string& b) {
    const auto at = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto offset = static_cast<std::size_t>(at.first - a.begin());
    return a.substr(offset > 60 ? offset - 60 : 0, 160) + "\n  ---\n" +
           b.substr(offset > 60 ? offset - 60 : 0, 160);
}

class RandomReports : public testing::TestWithParam<int> {};

TEST_P(RandomReports, GiveTheSamePagesInEveryOrder) {
    const std::uint64_t seed =
        (std::uint64_t{std::random_device{}()} << 8U) + static_cast<unsigned>(GetParam());
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const Definition definition = RandomDefinition(random);
    const std::vector<fakes::Row> rows = RandomRows(random);
    const Sheet sheet = SheetFor(1500 + random.Below(4000));

    TestReport inOrder(definition, rows, sheet);
    std::vector<std::string> pages;
    for (std::size_t index = 0; index < inOrder.Pages().PageCount(); ++index)
        pages.push_back(inOrder.Text(index));
    ASSERT_EQ(inOrder.Pages().PageCount(), pages.size());

    std::vector<std::size_t> order;
    for (std::size_t index = 0; index < pages.size(); ++index)
        order.push_back(index);
    std::shuffle(order.begin(), order.end(), random.Engine());
    TestReport shuffled(definition, rows, sheet);
    for (const std::size_t index : order) {
        const std::string page = shuffled.Text(index);
        ASSERT_EQ(page, pages[index]) << "page " << index << "\n" << FirstDifference(page, pages[index]);
    }
}

// A total in the rows, even an invisible one, makes the engine walk them instead of counting by arithmetic.
TEST_P(RandomReports, CountAlikeByArithmeticAndByWalking) {
    const std::uint64_t seed =
        (std::uint64_t{std::random_device{}()} << 8U) + static_cast<unsigned>(GetParam());
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    Definition definition = PlainDefinition();
    definition.sections[0].height = 100 + random.Below(400);
    if (random.Chance(70))
        definition.sections.push_back(MakeSection(
            SectionKind::ReportFooter, {TotalObject("End", SumOf(Scope::Report))}, random.Below(1200)));
    if (random.Chance(70)) {
        definition.sections.push_back(
            MakeSection(SectionKind::PageHeader, {TextObject("H", "head")}, random.Below(500)));
        definition.sections.back().on = static_cast<OnPages>(random.Below(3));
    }
    if (random.Chance(50))
        definition.sections.push_back(
            MakeSection(SectionKind::ReportHeader, {TextObject("T", "title")}, random.Below(2500)));
    const std::vector<fakes::Row> rows = NumberedRows(static_cast<std::size_t>(random.Below(120)));
    const Sheet sheet = SheetFor(1200 + random.Below(2000));
    TestReport counted(definition, rows, sheet);
    definition.sections[0].objects.push_back(TotalObject("Walk", SumOf(Scope::Report)));
    definition.sections[0].objects.back().suppress = true;
    TestReport walked(definition, rows, sheet);
    ASSERT_EQ(counted.Pages().PageCount(), walked.Pages().PageCount());
    for (std::size_t index = walked.Pages().PageCount(); index-- > 0;)
        ASSERT_EQ(counted.Text(index), walked.Text(index)) << "page " << index;
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomReports, testing::Range(0, 60));

TEST(RandomAccess, ThousandsOfPagesAreReachedAtOnce) {
    Definition definition = PlainDefinition();
    definition.groups = {{.field = NameField}};
    definition.sections.push_back(
        MakeSection(SectionKind::GroupFooter, {TotalObject("Sum", SumOf(Scope::Group))}));
    TestReport report(definition, NumberedRows(20'000));
    const std::size_t pages = report.Pages().PageCount();
    EXPECT_EQ(pages, 4000U);
    EXPECT_EQ(report.Words(3999).substr(0, 17), "r19996 19,996.00|");
    EXPECT_EQ(report.Words(0).substr(0, 7), "r1 1.00");
    EXPECT_EQ(report.Words(2000).substr(0, 16), "r10001 10,001.00");
}

} // namespace
} // namespace qbrpt::report
