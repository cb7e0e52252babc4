// What layouts can say of their objects and sections beyond plain tables.
#include "report_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace qbrpt::report {
namespace {

using testing::ElementsAre;

std::vector<Item> ItemsOf(TestReport& report, ItemKind kind, std::size_t page = 0) {
    Page built;
    report.Pages().Build(page, built);
    std::vector<Item> items;
    for (const Item& item : built.items)
        if (item.kind == kind) items.push_back(item);
    return items;
}

TEST(Bars, TheLargestValueOfTheReportIsFull) {
    Definition definition = PlainDefinition();
    Object bar = TextObject("Bar", "", 0, 1000);
    bar.type = ObjectType::Box;
    bar.fill = 0x112233;
    bar.barField = AmountField;
    bar.barToLargest = true;
    definition.sections[0].objects.push_back(bar);
    TestReport report(definition, {NamedRow("a", 2), NamedRow("b", 8), NamedRow("c", 0), NamedRow("d", -8)});
    std::vector<Twips> widths;
    for (const Item& item : ItemsOf(report, ItemKind::Fill))
        widths.push_back(item.width);
    EXPECT_THAT(widths, ElementsAre(250, 1000));
    TestReport single(definition, {NamedRow("a", 0.125)});
    EXPECT_EQ(ItemsOf(single, ItemKind::Fill)[0].width, 125) << "there is nothing to compare it with";
}

TEST(Conditions, CanBeTurnedRound) {
    Definition definition = PlainDefinition();
    Object& amount = definition.sections[0].objects[1];
    amount.showWhen = Condition{AmountField, Condition::Test::Positive};
    Object other = amount;
    other.name = "Other";
    other.type = ObjectType::Text;
    other.text = "none";
    other.showWhen->unless = true;
    definition.sections[0].objects.push_back(other);
    TestReport report(definition, {NamedRow("a", 1), NamedRow("b", 0), {std::string("c"), Null{}, Null{}}});
    EXPECT_EQ(report.Words(0), "a 1.00|b none|c none");
}

TEST(RowsOfTotals, ShareTheSizeOfTheWidest) {
    Definition definition = PlainDefinition();
    Object narrow = TotalObject("Narrow", {Aggregate::Count, AmountField}, 0, 1000);
    narrow.format = ValueFormat::Count;
    const Object wide = TotalObject("Wide", {Aggregate::Sum, AmountField}, 2000, 300);
    Object below = narrow;
    below.name = "Below";
    below.top = 200;
    definition.sections.push_back(MakeSection(SectionKind::ReportFooter, {narrow, wide, below}, 400));
    TestReport report(definition, {NamedRow("a", 1234567.25)});
    const std::vector<Item> figures = ItemsOf(report, ItemKind::Figures);
    ASSERT_EQ(figures.size(), 4U) << "the row's figure, then the totals";
    EXPECT_NE(figures[2].style, figures[0].style) << "it was too wide";
    EXPECT_EQ(figures[1].style, figures[2].style);
    EXPECT_EQ(figures[3].style, figures[0].style) << "another row of totals keeps its size";
    EXPECT_LE(figures[2].width, 300);
}

TEST(GroupFooters, CanBeLeftOutBehindASingleRow) {
    Definition definition = PlainDefinition();
    definition.groups = {{.field = NameField}};
    Section sum = MakeSection(SectionKind::GroupFooter,
                              {TotalObject("Sum", {Aggregate::Sum, AmountField, Scope::Group})});
    sum.skipAlone = true;
    definition.sections.push_back(sum);
    TestReport report(definition, {NamedRow("a", 1), NamedRow("b", 2), NamedRow("b", 3), NamedRow("c", 4)});
    EXPECT_EQ(report.Words(0), "a 1.00|b 2.00|b 3.00|5.00|c 4.00");
}

TEST(Groups, CanTellAnotherFieldThanTheirOwn) {
    Definition definition = PlainDefinition();
    definition.groups = {{.field = AmountField, .shown = NoteField, .whenEmpty = "nobody"}};
    definition.sections.push_back(MakeSection(SectionKind::GroupHeader, {TextObject("Head", "{group}")}));
    TestReport report(definition, {NamedRow("a", 1, "one"), NamedRow("b", 1, "one"), {std::string("c")}});
    EXPECT_EQ(report.Words(0), "one|a 1.00|b 1.00|nobody|c");
}

TEST(PageHeaders, CanBeShorterOnLaterPages) {
    Definition definition = PlainDefinition();
    Object first = TextObject("First", "first");
    first.on = OnPages::First;
    Object later = TextObject("Later", "later");
    later.on = OnPages::Later;
    later.top = 400;
    Object both = TextObject("Both", "both");
    both.top = 600;
    Section header = MakeSection(SectionKind::PageHeader, {first, later, both}, 800);
    header.laterTop = 400;
    definition.sections.push_back(header);
    TestReport report(definition, NumberedRows(14), SheetFor(1800));
    EXPECT_THAT(report.AllWords(),
                ElementsAre("first|both|r1 1.00|r2 2.00|r3 3.00|r4 4.00|r5 5.00",
                            "later|both|r6 6.00|r7 7.00|r8 8.00|r9 9.00|r10 10.00|r11 11.00|r12 12.00",
                            "later|both|r13 13.00|r14 14.00"));
    Page page;
    report.Pages().Build(1, page);
    EXPECT_EQ(page.items.front().y, 150) << "nothing is left blank above it";
}

TEST(Sections, AreFoundByTheirRole) {
    Definition definition = PlainDefinition();
    definition.sections[0].name = "Section3";
    definition.sections[0].role = "Incoming";
    EXPECT_EQ(FindSection(definition, "Incoming"), &definition.sections[0]);
    EXPECT_EQ(FindSection(definition, "Section3"), &definition.sections[0]);
    definition.sections[0].role.clear();
    EXPECT_EQ(FindSection(definition, ""), nullptr);
}

} // namespace
} // namespace qbrpt::report
