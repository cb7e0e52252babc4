#include "base/failure.h"
#include "report_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qbrpt::report {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

Section Header(std::string text, OnPages on = OnPages::All) {
    Section section = MakeSection(SectionKind::PageHeader, {TextObject("H" + text, text)});
    section.on = on;
    return section;
}
Section Footer(std::string text) {
    return MakeSection(SectionKind::PageFooter, {TextObject("F" + text, text)});
}
Section ReportEnd(std::string text, Twips height = 200) {
    return MakeSection(SectionKind::ReportFooter, {TextObject("R" + text, text)}, height);
}

/// Rows grouped by name, with a repeated heading and a subtotal.
Definition Grouped() {
    Definition definition = PlainDefinition();
    definition.sections.clear();
    definition.groups = {{NameField}};
    Section head = MakeSection(SectionKind::GroupHeader, {TextObject("Head", "{group}{continued}")});
    head.repeat = true;
    definition.sections.push_back(head);
    definition.sections.push_back(
        MakeSection(SectionKind::Details, {FieldObject("Amount", AmountField, 2000, 1000)}));
    definition.sections.push_back(MakeSection(
        SectionKind::GroupFooter,
        {TextObject("Label", "sum"), TotalObject("Sum", {Aggregate::Sum, AmountField, Scope::Group})}));
    return definition;
}

std::vector<fakes::Row> GroupRows(std::initializer_list<std::pair<std::string, int>> groups) {
    std::vector<fakes::Row> rows;
    for (const auto& [name, count] : groups) {
        for (int i = 1; i <= count; ++i)
            rows.push_back(NamedRow(name, i));
    }
    return rows;
}

struct CountRow {
    std::string name;
    std::size_t rows;
    Twips footer; ///< height of the section behind the last row; 0: none
    std::size_t pages;
};

class PageCounts : public testing::TestWithParam<CountRow> {};

// Ten rows a page.
TEST_P(PageCounts, AreExactAndEveryRowStandsOnce) {
    Definition definition = PlainDefinition();
    if (GetParam().footer > 0) definition.sections.push_back(ReportEnd("end", GetParam().footer));
    TestReport report(definition, NumberedRows(GetParam().rows));
    ASSERT_EQ(report.Pages().PageCount(), GetParam().pages);
    std::string all;
    for (const std::string& page : report.AllWords())
        all += page.empty() ? "" : page + "|";
    for (std::size_t row = 1; row <= GetParam().rows; ++row) {
        const std::string words = "r" + std::to_string(row) + " " + std::to_string(row) + ".00|";
        ASSERT_NE(all.find(words), std::string::npos) << words;
        all.erase(all.find(words), words.size());
    }
    EXPECT_EQ(all, GetParam().footer > 0 ? "end|" : "");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PageCounts,
    testing::Values(CountRow{"None", 0, 0, 1}, CountRow{"One", 1, 0, 1}, CountRow{"ExactlyFull", 10, 0, 1},
                    CountRow{"OneMore", 11, 0, 2}, CountRow{"TwoFull", 20, 0, 2},
                    CountRow{"Many", 999, 0, 100}, CountRow{"NoneWithFooter", 0, 200, 1},
                    CountRow{"FooterFits", 9, 200, 1}, CountRow{"FooterTakesTheLastRowAlong", 10, 200, 2},
                    CountRow{"FooterBehindSecondPage", 19, 200, 2},
                    CountRow{"FooterOntoThirdPage", 20, 200, 3}, CountRow{"TallFooter", 5, 1800, 2},
                    CountRow{"FooterFillsAPageWithItsRow", 11, 1800, 2},
                    CountRow{"FooterWithItsRowTallerThanAPage", 11, 1900, 3},
                    CountRow{"FooterTallerThanAPage", 3, 4100, 3}),
    [](const auto& row) { return row.param.name; });

TEST(Paginator, TheLastRowGoesWithWhatFollows) {
    Definition definition = PlainDefinition();
    definition.sections.push_back(ReportEnd("end"));
    TestReport report(definition, NumberedRows(10));
    EXPECT_EQ(report.Words(1), "r10 10.00|end");
}

TEST(Paginator, HeadersAndFootersStandWhereTheyBelong) {
    Definition definition = PlainDefinition();
    definition.top = 100;
    definition.bottom = 100;
    definition.sections.push_back(Header("first", OnPages::First));
    definition.sections.push_back(Header("later", OnPages::Later));
    definition.sections.push_back(Header("all"));
    definition.sections.push_back(Footer("{page}/{pages}"));
    definition.sections.push_back(
        MakeSection(SectionKind::ReportHeader, {TextObject("Title", "title")}, 400));
    TestReport report(definition, NumberedRows(8));
    EXPECT_THAT(report.AllWords(), ElementsAre("title|first|all|r1 1.00|r2 2.00|r3 3.00|r4 4.00|1/2",
                                               "later|all|r5 5.00|r6 6.00|r7 7.00|r8 8.00|2/2"));
    Page page;
    report.Pages().Build(1, page);
    EXPECT_EQ(page.items.front().y, 100 + 150) << "below the blank at the top";
    EXPECT_EQ(page.items.back().y, 2000 - 100 - 200 + 150) << "the footer stands at the bottom";
}

TEST(Paginator, NoRowsGiveOnePageWithHeadingsAndTotals) {
    Definition definition = PlainDefinition();
    definition.sections.push_back(Header("caption"));
    definition.nouns["row"] = {"صف واحد", "صفان", "صفوف", "صفًا", "صف"};
    Section end = ReportEnd("{rows:row}");
    end.objects.push_back(TotalObject("Sum", {Aggregate::Sum, AmountField}));
    end.objects.push_back(TotalObject("Count", {Aggregate::Count, AmountField}, 1000, 1000));
    end.objects.back().format = ValueFormat::Count;
    definition.sections.push_back(end);
    TestReport report(definition, {});
    EXPECT_THAT(report.AllWords(), ElementsAre("caption|0 صف 0"));
}

TEST(Paginator, AGroupHeadStaysWithItsFirstRowAndRepeats) {
    TestReport report(Grouped(), GroupRows({{"a", 4}, {"b", 12}}), SheetFor(1400));
    EXPECT_THAT(report.AllWords(),
                ElementsAre("a|1.00|2.00|3.00|4.00|sum 10.00",    // b would begin alone at the bottom
                            "b|1.00|2.00|3.00|4.00|5.00|6.00",    //
                            "b(تابع)|7.00|8.00|9.00|10.00|11.00", // the last row goes with its sum
                            "b(تابع)|12.00|sum 78.00"));
}

TEST(Paginator, AGroupFootIsNotOrphaned) {
    TestReport report(Grouped(), GroupRows({{"a", 6}}), SheetFor(1400));
    EXPECT_THAT(report.AllWords(), ElementsAre("a|1.00|2.00|3.00|4.00|5.00", "a(تابع)|6.00|sum 21.00"));
}

TEST(Paginator, AHeadThatDoesNotRepeatStandsOnce) {
    Definition definition = Grouped();
    definition.sections[0].repeat = false;
    TestReport report(definition, GroupRows({{"a", 8}}), SheetFor(1400));
    EXPECT_THAT(report.AllWords(), ElementsAre("a|1.00|2.00|3.00|4.00|5.00|6.00", "7.00|8.00|sum 36.00"));
}

TEST(Paginator, AGroupCanHaveAPageOfItsOwn) {
    Definition definition = Grouped();
    definition.sections[0].newPageBefore = true;
    TestReport before(definition, GroupRows({{"a", 1}, {"b", 2}}));
    EXPECT_THAT(before.AllWords(), ElementsAre("a|1.00|sum 1.00", "b|1.00|2.00|sum 3.00"));
    definition = Grouped();
    definition.sections[2].newPageAfter = true;
    definition.sections.push_back(ReportEnd("end"));
    TestReport after(definition, GroupRows({{"a", 1}, {"b", 2}}));
    EXPECT_THAT(after.AllWords(), ElementsAre("a|1.00|sum 1.00", "b|1.00|2.00|sum 3.00|end"));
}

TEST(Paginator, GroupsNestAndCloseFromTheInside) {
    Definition definition = Grouped();
    definition.groups = {{NameField}, {NoteField}};
    Section inner = MakeSection(SectionKind::GroupHeader, {TextObject("Inner", "{group}")});
    inner.group = 1;
    Section innerEnd = MakeSection(SectionKind::GroupFooter,
                                   {TotalObject("InnerSum", {Aggregate::Sum, AmountField, Scope::Group, 1})});
    innerEnd.group = 1;
    definition.sections.push_back(inner);
    definition.sections.push_back(innerEnd);
    TestReport report(definition, {NamedRow("a", 1, "x"), NamedRow("a", 2, "y"), NamedRow("b", 3, "y")},
                      SheetFor(4000));
    EXPECT_THAT(report.AllWords(), ElementsAre("a|x|1.00|1.00|y|2.00|2.00|sum 3.00|b|y|3.00|3.00|sum 3.00"));
}

TEST(Paginator, LetterCaseMakesNoGroupAndNullsMakeOne) {
    Definition definition = Grouped();
    definition.groups[0].whenEmpty = "none";
    TestReport report(definition, {{Null{}, Null{}, 1.0}, NamedRow("Ab", 2), NamedRow("aB", 3)});
    EXPECT_EQ(report.Words(0), "none|1.00|sum 1.00|Ab|2.00|3.00|sum 5.00");
}

TEST(Paginator, AllRowsCanBeOneGroup) {
    Definition definition = Grouped();
    definition.groups = {{.field = -1}};
    definition.sections[0].objects[0].text = "list{continued}";
    TestReport report(definition, NumberedRows(8), SheetFor(1400));
    EXPECT_THAT(report.AllWords(),
                ElementsAre("list|1.00|2.00|3.00|4.00|5.00|6.00", "list(تابع)|7.00|8.00|sum 36.00"));
    TestReport none(definition, {}, SheetFor(1400));
    EXPECT_THAT(none.AllWords(), ElementsAre(""));
}

TEST(Paginator, DaysMakeGroups) {
    constexpr static std::array<Field, 1> Days = {{{"day", FieldKind::DateTime, 8, 0}}};
    Definition definition = Grouped();
    definition.fields = Days;
    definition.groups = {{.field = 0, .by = Group::By::Day}};
    definition.sections.resize(1);
    TestReport report(definition, {{Date{45717.25}}, {Date{45717.75}}, {Date{45718.1}}});
    EXPECT_EQ(report.Words(0), "01/03/2025|02/03/2025");
}

Definition Growing() {
    Definition definition = PlainDefinition();
    Object note = FieldObject("Note", NoteField, 1000, 1000);
    note.canGrow = true;
    definition.sections[0].objects.push_back(note);
    return definition;
}

// A word of 20 characters fills a line of 1000.
std::string NoteOfLines(int lines) {
    std::string note;
    for (int i = 0; i < lines; ++i)
        note += std::string(i == 0 ? "" : " ") + std::string(19, static_cast<char>('a' + i));
    return note;
}

TEST(Paginator, AGrowingRowMovesWholeToTheNextPage) {
    std::vector<fakes::Row> rows = NumberedRows(8);
    rows.push_back(NamedRow("r9", 9, NoteOfLines(3)));
    TestReport report(Growing(), rows);
    EXPECT_EQ(report.Pages().PageCount(), 2U);
    EXPECT_EQ(report.Words(1), "r9 aaaaaaaaaaaaaaaaaaa 9.00|bbbbbbbbbbbbbbbbbbb|ccccccccccccccccccc");
}

TEST(Paginator, ARowThatMaySplitFillsThePage) {
    Definition definition = Growing();
    definition.sections[0].keepTogether = false;
    std::vector<fakes::Row> rows = NumberedRows(8);
    rows.push_back(NamedRow("r9", 9, NoteOfLines(3)));
    TestReport report(definition, rows);
    EXPECT_EQ(report.Pages().PageCount(), 2U);
    EXPECT_EQ(report.Words(1), "ccccccccccccccccccc");
}

TEST(Paginator, ARowTallerThanAPageIsSplitBetweenLines) {
    TestReport report(Growing(), {NamedRow("r1", 1), NamedRow("r2", 2, NoteOfLines(12)), NamedRow("r3", 3)},
                      SheetFor(1000));
    const std::vector<std::string> pages = report.AllWords();
    ASSERT_THAT(pages, SizeIs(3));
    EXPECT_EQ(pages[0], "r1 1.00|r2 aaaaaaaaaaaaaaaaaaa 2.00|bbbbbbbbbbbbbbbbbbb|ccccccccccccccccccc|"
                        "ddddddddddddddddddd");
    EXPECT_EQ(pages[2], "jjjjjjjjjjjjjjjjjjj|kkkkkkkkkkkkkkkkkkk|lllllllllllllllllll|r3 3.00");
}

TEST(Paginator, AFixedSectionTallerThanAPageEnds) {
    Definition definition = PlainDefinition();
    definition.sections[0].height = 5000;
    definition.sections[0].objects[1].top = 4800;
    TestReport report(definition, NumberedRows(2), SheetFor(1000));
    const std::vector<std::string> pages = report.AllWords();
    ASSERT_THAT(pages, SizeIs(10));
    EXPECT_EQ(pages[0], "r1");
    EXPECT_EQ(pages[4], "1.00");
    EXPECT_EQ(pages[5], "r2");
}

TEST(Paginator, AllPartsOfASplitRowAreOfOneShape) {
    Definition definition = Growing();
    Object name = FieldObject("Long", NoteField, 0, 500);
    name.hideRepeated = name.canGrow = true;
    definition.sections[0].objects.push_back(name);
    const std::string note = NoteOfLines(9);
    TestReport report(definition, {NamedRow("r1", 1, note), NamedRow("r2", 2, note)}, SheetFor(1000));
    std::string all;
    for (const std::string& page : report.AllWords())
        all += page + "|";
    std::size_t shown = 0;
    for (std::size_t at = all.find("aaaaaaaaaa"); at != std::string::npos;
         at = all.find("aaaaaaaaaa", at + 19))
        ++shown;
    // Twice in each row: whole in the wide column, its first part in the narrow one.
    EXPECT_EQ(shown, 4U) << "a name that would be hidden under its like stands in every part of a split row";
}

TEST(Paginator, HeadersAndFootersShowTheRowsOfTheirPage) {
    Definition definition = PlainDefinition();
    definition.sections.push_back(Header("{field:name}"));
    definition.sections.push_back(Footer("{field:name}"));
    definition.sections[2].objects[0].name = "Last";
    TestReport report(definition, NumberedRows(7), SheetFor(1400));
    EXPECT_THAT(report.AllWords(),
                ElementsAre("r1|r1 1.00|r2 2.00|r3 3.00|r4 4.00|r5 5.00|r5", "r6|r6 6.00|r7 7.00|r7"));
}

TEST(Paginator, HeadersTooTallForTheSheetAreLeftOut) {
    Definition definition = PlainDefinition();
    Section header = Header("tall");
    header.height = 1500;
    definition.sections.push_back(header);
    definition.sections.push_back(Footer("foot"));
    TestReport report(definition, NumberedRows(6), SheetFor(1000));
    EXPECT_THAT(report.AllWords(), ElementsAre("r1 1.00|r2 2.00|r3 3.00|r4 4.00|r5 5.00", "r6 6.00"));
}

TEST(Paginator, ATallReportHeaderTakesPagesOfItsOwn) {
    Definition definition = PlainDefinition();
    definition.sections.push_back(Header("later", OnPages::Later));
    Section cover = MakeSection(SectionKind::ReportHeader, {TextObject("Cover", "cover")}, 1900);
    definition.sections.push_back(cover);
    TestReport report(definition, NumberedRows(2));
    EXPECT_THAT(report.AllWords(), ElementsAre("cover", "later|r1 1.00|r2 2.00"));
}

TEST(Paginator, TooSmallAPaperIsAClearFailure) {
    try {
        TestReport report(PlainDefinition(), {}, {3000, 600});
        report.Pages();
        FAIL() << "no failure";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::Report);
        EXPECT_NE(failure.Description().find("paper"), std::string::npos);
    }
}

TEST(Paginator, APageThatIsNotThereIsAFailure) {
    TestReport report(PlainDefinition(), NumberedRows(3));
    Page page;
    EXPECT_THROW(report.Pages().Build(1, page), Failure);
    EXPECT_EQ(report.Words(0), "r1 1.00|r2 2.00|r3 3.00") << "the document goes on after it";
}

TEST(Paginator, SuppressedSectionsTakeNoRoom) {
    Definition definition = Grouped();
    definition.sections[1].suppress = true;
    TestReport report(definition, GroupRows({{"a", 300}, {"b", 2}}));
    EXPECT_THAT(report.AllWords(), ElementsAre("a|sum 45,150.00|b|sum 3.00"));
}

} // namespace
} // namespace qbrpt::report
