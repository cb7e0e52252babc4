#include "report_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace qbrpt::report {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Item> ItemsOf(TestReport& report, ItemKind kind, std::size_t index = 0) {
    Page page;
    report.Pages().Build(index, page);
    std::vector<Item> items;
    for (const Item& item : page.items) {
        if (item.kind == kind) items.push_back(item);
    }
    return items;
}

/// One row with these objects in its Details section.
Definition RowOf(std::vector<Object> objects, Twips height = 200) {
    Definition definition = PlainDefinition();
    definition.sections[0].objects = std::move(objects);
    definition.sections[0].height = height;
    return definition;
}

Object Line(LineWhen when) {
    Object line;
    line.name = "Line";
    line.type = ObjectType::Line;
    line.width = 3000;
    line.top = 0;
    line.atBottom = true;
    line.stroke = 30;
    line.when = when;
    return line;
}

Object Box(std::string name, Color fill) {
    Object box;
    box.name = std::move(name);
    box.type = ObjectType::Box;
    box.width = 1000;
    box.height = 200;
    box.fill = fill;
    return box;
}

TEST(PageBuilder, PlacesObjectsFromTheRightEdgeOfTheCentredTemplate) {
    Definition definition = RowOf({TextObject("T", "ab", 100, 500)});
    definition.width = 2000;
    TestReport report(definition, NumberedRows(1), {3000, 2000});
    const auto words = ItemsOf(report, ItemKind::Word);
    ASSERT_EQ(words.size(), 1U);
    EXPECT_EQ(words[0].x + words[0].width, 2500 - 100);
    EXPECT_EQ(words[0].y, 150);
}

TEST(PageBuilder, AlignsByWidth) {
    Object right = TextObject("R", "abcd", 0, 1000);
    Object centre = TextObject("C", "abcd", 1000, 1000);
    centre.align = Align::Centre;
    Object left = TextObject("L", "abcd", 2000, 1000);
    left.align = Align::Left;
    TestReport report(RowOf({right, centre, left}), NumberedRows(1));
    const auto words = ItemsOf(report, ItemKind::Word);
    ASSERT_EQ(words.size(), 3U);
    EXPECT_EQ(words[0].x, 2800);
    EXPECT_EQ(words[1].x, 1400);
    EXPECT_EQ(words[2].x, 0);
}

TEST(PageBuilder, FiguresOfAColumnEndOnOneLine) {
    std::vector<fakes::Row> rows = {NamedRow("a", 1), NamedRow("b", -12345.678), NamedRow("c", 0)};
    TestReport report(PlainDefinition(), rows);
    const auto figures = ItemsOf(report, ItemKind::Figures);
    ASSERT_EQ(figures.size(), 3U);
    for (const Item& item : figures)
        EXPECT_EQ(item.x + item.width, 1000);
    EXPECT_EQ(report.Words(0), "a 1.00|b -12,345.68|c 0.00");
}

TEST(PageBuilder, ZerosStepBack) {
    Object amount = FieldObject("A", AmountField, 0, 1000);
    amount.color = 0x111111;
    amount.zeroColor = 0x7A828A;
    TestReport report(RowOf({amount}), {NamedRow("", 0), NamedRow("", 0.001), NamedRow("", 0.01)});
    const auto figures = ItemsOf(report, ItemKind::Figures);
    ASSERT_EQ(figures.size(), 3U);
    EXPECT_EQ(figures[0].color, 0x7A828AU);
    EXPECT_EQ(figures[1].color, 0x7A828AU) << "shows as zero";
    EXPECT_EQ(figures[2].color, 0x111111U);
}

TEST(PageBuilder, FiguresTooWideShrinkAndNeverCollide) {
    for (const double amount : {1234.0, 123456789.0, -99999999999999.99, 1e300}) {
        SCOPED_TRACE(amount);
        Object narrow = FieldObject("A", AmountField, 0, 200);
        TestReport report(RowOf({narrow}), {NamedRow("", amount)});
        const auto figures = ItemsOf(report, ItemKind::Figures);
        ASSERT_EQ(figures.size(), 1U);
        EXPECT_LE(figures[0].width, 200);
        EXPECT_GE(figures[0].x, 2800);
    }
}

TEST(PageBuilder, OneLineTextTooWideShrinks) {
    TestReport report(RowOf({TextObject("T", std::string(100, 'x'), 0, 1000)}), NumberedRows(1));
    const auto words = ItemsOf(report, ItemKind::Word);
    ASSERT_EQ(words.size(), 1U);
    EXPECT_LE(words[0].width, 1000);
    EXPECT_GT(words[0].width, 800) << "no smaller than it must be";
}

TEST(PageBuilder, GrowingTextShrinksALittleBeforeItWraps) {
    Object text = TextObject("T", std::string(10, 'x') + " " + std::string(11, 'y'), 0, 1000);
    text.canGrow = true; // 1075 wide at size 100
    text.shrinkTo = 90;
    TestReport shrunk(RowOf({text}), NumberedRows(1));
    EXPECT_EQ(shrunk.Words(0), "yyyyyyyyyyy xxxxxxxxxx");
    text.shrinkTo = 96;
    TestReport wrapped(RowOf({text}), NumberedRows(1));
    EXPECT_EQ(wrapped.Words(0), "xxxxxxxxxx|yyyyyyyyyyy");
}

TEST(PageBuilder, LineFeedsBreakOnlyWhereTheSectionGrows) {
    Object text = TextObject("T", "a\r\nb\tc\n", 0, 1000);
    TestReport oneLine(RowOf({text}), NumberedRows(1));
    EXPECT_EQ(oneLine.Words(0), "c b a");
    text.canGrow = true;
    TestReport lines(RowOf({text}), NumberedRows(1));
    EXPECT_EQ(lines.Words(0), "a|c b");
}

TEST(PageBuilder, GrowthPushesWhatStandsBelowAndStretchesFullHeightBoxes) {
    Object title = TextObject("Title", std::string(15, 'a') + " " + std::string(15, 'b'), 0, 1000);
    title.canGrow = true;
    Object below = TextObject("Below", "below", 0, 1000);
    below.top = 200;
    Object beside = TextObject("Beside", "beside", 1000, 1000);
    Object tint = Box("Tint", 0xE4EBEE);
    tint.height = 400;
    tint.fullHeight = true;
    Object rule = Line(LineWhen::Always);
    TestReport report(RowOf({title, below, beside, tint, rule}, 400), NumberedRows(2));
    EXPECT_EQ(report.Words(0), "aaaaaaaaaaaaaaa beside|bbbbbbbbbbbbbbb|below|"
                               "aaaaaaaaaaaaaaa beside|bbbbbbbbbbbbbbb|below");
    const auto fills = ItemsOf(report, ItemKind::Fill);
    ASSERT_EQ(fills.size(), 2U);
    EXPECT_EQ(fills[0].height, 600);
    EXPECT_EQ(fills[1].y, 600);
    EXPECT_EQ(ItemsOf(report, ItemKind::Rule)[0].y, 600);
}

TEST(PageBuilder, BoxesAreDrawnBelowTexts) {
    TestReport report(RowOf({TextObject("T", "a"), Box("B", 0xE4EBEE)}), NumberedRows(1));
    Page page;
    report.Pages().Build(0, page);
    ASSERT_EQ(page.items.size(), 2U);
    EXPECT_EQ(page.items[0].kind, ItemKind::Fill);
}

TEST(PageBuilder, ATextCanFollowAnother) {
    Object unit = TextObject("Unit", "u", 50, 500);
    unit.follows = "Caption";
    TestReport report(RowOf({TextObject("Caption", "abc", 0, 1000), unit}), NumberedRows(1));
    const auto words = ItemsOf(report, ItemKind::Word);
    ASSERT_EQ(words.size(), 2U);
    EXPECT_EQ(words[0].x, 2850);
    EXPECT_EQ(words[1].x + words[1].width, 2800);
}

TEST(PageBuilder, ATextThatFollowsAnEmptyOneTakesItsPlace) {
    Object gone = TextObject("Gone", "", 50, 500);
    gone.follows = "Caption";
    Object hidden = TextObject("Hidden", "x", 50, 500);
    hidden.follows = "Gone";
    hidden.suppress = true;
    Object unit = TextObject("Unit", "u", 50, 500);
    unit.follows = "Hidden";
    TestReport report(RowOf({TextObject("Caption", "abc", 0, 1000), gone, hidden, unit}), NumberedRows(1));
    const auto words = ItemsOf(report, ItemKind::Word);
    ASSERT_EQ(words.size(), 2U);
    EXPECT_EQ(words[1].x + words[1].width, 2800);
}

TEST(PageBuilder, BarsAreAsWideAsTheirPart) {
    Object bar = Box("Bar", 0x0B3F4F);
    bar.barField = AmountField;
    TestReport report(
        RowOf({bar}),
        {NamedRow("", 0.25), NamedRow("", 0), NamedRow("", -1), NamedRow("", 7), {Null{}, Null{}, Null{}}});
    const auto fills = ItemsOf(report, ItemKind::Fill);
    ASSERT_EQ(fills.size(), 2U);
    EXPECT_EQ(fills[0].width, 250);
    EXPECT_EQ(fills[0].x + fills[0].width, 3000) << "from the right";
    EXPECT_EQ(fills[1].width, 1000);
}

TEST(PageBuilder, ConditionsShowOrHide) {
    Object chip = Box("Owed", 0xF6E1DC);
    chip.showWhen = Condition{AmountField, Condition::Test::Positive};
    TestReport report(RowOf({chip}), {NamedRow("", 0), NamedRow("", 15), NamedRow("", -2)});
    const auto fills = ItemsOf(report, ItemKind::Fill);
    ASSERT_EQ(fills.size(), 1U);
    EXPECT_EQ(fills[0].y, 200);
}

TEST(PageBuilder, PicturesAreKeptOnceAPage) {
    Object picture;
    picture.name = "P";
    picture.type = ObjectType::Picture;
    picture.width = 100;
    picture.height = 100;
    picture.image = std::make_shared<Picture>(Picture{1, 1, {1, 2, 3, 255}});
    TestReport report(RowOf({picture}), NumberedRows(3));
    Page page;
    report.Pages().Build(0, page);
    EXPECT_EQ(page.items.size(), 3U);
    EXPECT_EQ(page.pictures.size(), 1U);
}

TEST(Lines, BetweenRowsNeverStandUnderTheLast) {
    Definition definition = RowOf({FieldObject("N", NameField, 0, 1000), Line(LineWhen::BetweenRows)});
    TestReport report(definition, NumberedRows(13));
    EXPECT_EQ(ItemsOf(report, ItemKind::Rule, 0).size(), 9U) << "ten rows stand on the first page";
    EXPECT_EQ(ItemsOf(report, ItemKind::Rule, 1).size(), 2U);
    definition.groups = {{.field = NoteField}};
    TestReport grouped(definition, {NamedRow("a", 1, "x"), NamedRow("b", 1, "x"), NamedRow("c", 1, "y")});
    const auto rules = ItemsOf(grouped, ItemKind::Rule);
    EXPECT_EQ(rules.size(), 2U) << "a group that shows nothing of itself parts no rows";
    definition.sections.push_back(MakeSection(SectionKind::GroupHeader, {TextObject("H", "{group}")}));
    TestReport headed(definition, {NamedRow("a", 1, "x"), NamedRow("b", 1, "x"), NamedRow("c", 1, "y")});
    ASSERT_EQ(ItemsOf(headed, ItemKind::Rule).size(), 1U);
    EXPECT_EQ(ItemsOf(headed, ItemKind::Rule)[0].y, 400);
}

TEST(Lines, FirstAndLastOnPageMarkTheEnds) {
    Object first = Line(LineWhen::FirstOnPage);
    first.atBottom = false;
    TestReport report(RowOf({first, Line(LineWhen::LastOnPage)}), NumberedRows(13));
    const auto onFirst = ItemsOf(report, ItemKind::Rule, 0);
    ASSERT_EQ(onFirst.size(), 2U);
    EXPECT_EQ(onFirst[0].y, 0);
    EXPECT_EQ(onFirst[1].y, 2000);
    const auto onSecond = ItemsOf(report, ItemKind::Rule, 1);
    ASSERT_EQ(onSecond.size(), 2U);
    EXPECT_EQ(onSecond[1].y, 600);
}

TEST(Repeated, NamesStandOnceAndTheLineYields) {
    Object name = FieldObject("N", NameField, 0, 1000);
    name.hideRepeated = true;
    Object line = Line(LineWhen::BetweenRows);
    line.yieldsToRepeated = true;
    TestReport report(RowOf({name, FieldObject("A", AmountField, 2000, 1000), line}),
                      {NamedRow("x", 1), NamedRow("x", 2), NamedRow("y", 3)});
    EXPECT_EQ(report.Words(0), "x 1.00|2.00|y 3.00");
    const auto rules = ItemsOf(report, ItemKind::Rule);
    ASSERT_EQ(rules.size(), 2U);
    EXPECT_EQ(rules[0].width, 2000) << "ends left of the name that repeats";
    EXPECT_EQ(rules[0].x, 0);
    EXPECT_EQ(rules[1].width, 3000);
}

TEST(Repeated, NamesStandAgainOnTheNextPage) {
    Object name = FieldObject("N", NameField, 0, 1000);
    name.hideRepeated = true;
    TestReport report(RowOf({name}), std::vector<fakes::Row>(12, NamedRow("x")));
    EXPECT_THAT(report.AllWords(), ElementsAre("x", "x"));
}

TEST(Repeated, ASecondColumnShowsUnderANewFirst) {
    Object name = FieldObject("N", NameField, 0, 1000);
    Object note = FieldObject("M", NoteField, 1000, 1000);
    name.hideRepeated = note.hideRepeated = true;
    TestReport report(RowOf({name, note}), {NamedRow("x", 1, "m"), NamedRow("y", 1, "m"),
                                            NamedRow("y", 1, "m"), NamedRow("y", 1, "n")});
    EXPECT_EQ(report.Words(0), "x m|y m|n");
}

TEST(Repeated, AHiddenLongNameDoesNotGrowTheRow) {
    Object name = FieldObject("N", NameField, 0, 500);
    name.hideRepeated = name.canGrow = true;
    const std::string longName = "aaaaaaaa bbbbbbbb";
    TestReport report(RowOf({name, FieldObject("A", AmountField, 2000, 1000)}),
                      {NamedRow(longName, 1), NamedRow(longName, 2), NamedRow("c", 3)});
    const auto figures = ItemsOf(report, ItemKind::Figures);
    ASSERT_EQ(figures.size(), 3U);
    EXPECT_EQ(figures[1].y - figures[0].y, 400);
    EXPECT_EQ(figures[2].y - figures[1].y, 200);
}

TEST(PageBuilder, NothingIsDrawnForNulls) {
    TestReport report(PlainDefinition(), {{Null{}, Null{}, Null{}}});
    EXPECT_THAT(ItemsOf(report, ItemKind::Word), IsEmpty());
    EXPECT_THAT(ItemsOf(report, ItemKind::Figures), IsEmpty());
}

TEST(PageBuilder, APageIsUsedAgainWithoutWhatStoodOnIt) {
    TestReport report(PlainDefinition(), NumberedRows(11));
    Page page;
    report.Pages().Build(0, page);
    report.Pages().Build(1, page);
    EXPECT_EQ(page.items.size(), 2U);
    EXPECT_EQ(page.figureText, "11.00");
    EXPECT_EQ(page.texts.size(), 1U);
}

} // namespace
} // namespace qbrpt::report
