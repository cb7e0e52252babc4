// What layouts can say beyond plain tables, and what becomes of it.
#include "adapters/layout/library.h"
#include "base/failure.h"
#include "templates/field_tables.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace qbrpt;
using report::Aggregate;
using report::Condition;
using report::ObjectType;
using report::OnPages;
using report::SectionKind;

constexpr std::string_view Orders = R"(width_twips = 11178
order = ["hostname", "-pDate"]
columns = [
  { field = "details", caption = "الخدمة" },
  { field = "itemCount", width = 50, format = "two-decimals", caption = "العدد", bold = true },
  { field = "Price", width = 90, format = "money", sum = true, bar = { width = 40 }, caption = "السعر" },
  { field = "value", width = 70, format = "money", sum = true, emphasis = "owed", caption = "القيمة" },
]
[computed]
value = "itemCount * Price"
[[note]]
text   = "طلبات بلا سعر:"
of     = "count"
field  = "details"
when   = { field = "Price", is = "zero" }
format = "count"
[[group]]
field   = "itemCount"
show    = "hostname"
heading = ""
total   = { label = "مجموع {group}", skip_alone = true }
[heading]
title = "HeadTitleText"
[total]
label = "المجموع"
[sections]
A = ["first-heading", "later-heading", "captions"]
B = "rows"
C = { parts = "group-total", role = "Sums" }
D = ["total", "notes"]
E = "footer"
)";

class RichLayout : public testing::Test {
protected:
    [[nodiscard]] const report::Object& Object(const std::string& name) const {
        const report::Object* object = report::FindObject(*definition, name);
        if (object == nullptr) throw std::runtime_error("no object " + name);
        return *object;
    }
    std::shared_ptr<const report::Definition> definition =
        layout::Library().Read("OrdersTest", Orders, "orders.toml", FactsOf("ServicesRpt").fields);
};

TEST_F(RichLayout, AComputedColumnIsAFieldBehindThoseOfTheRows) {
    ASSERT_EQ(definition->computed.size(), 1U);
    EXPECT_EQ(definition->computed[0].operation, report::Computed::Operation::Multiply);
    EXPECT_EQ(definition->computed[0].left, 1);
    EXPECT_EQ(definition->computed[0].right, 2);
    EXPECT_EQ(Object("value").field, 5);
    EXPECT_EQ(Object("value total").total.field, 5);
    EXPECT_EQ(definition->columns[3].field, 5);
}

TEST_F(RichLayout, RowsGetAnOrder) {
    ASSERT_EQ(definition->order.size(), 2U);
    EXPECT_EQ(definition->order[0].field, 4);
    EXPECT_FALSE(definition->order[0].descending);
    EXPECT_EQ(definition->order[1].field, 3);
    EXPECT_TRUE(definition->order[1].descending);
}

TEST_F(RichLayout, ABarStandsBesideTheFigures) {
    const report::Object& bar = Object("Price bar");
    const report::Object& figures = Object("Price");
    EXPECT_EQ(bar.type, ObjectType::Box);
    EXPECT_EQ(bar.barField, 2);
    EXPECT_TRUE(bar.barToLargest);
    EXPECT_EQ(bar.width, 40 * 20);
    EXPECT_LE(figures.right + figures.width, bar.right);
    EXPECT_EQ(Object("Price total").width, figures.width);
}

TEST_F(RichLayout, EmphasisShowsOneOfTwoCells) {
    const Condition holds{5, Condition::Test::Positive, false};
    const Condition fails{5, Condition::Test::Positive, true};
    EXPECT_EQ(Object("value").showWhen, fails);
    EXPECT_EQ(Object("value emphasized").showWhen, holds);
    EXPECT_EQ(Object("value chip").showWhen, holds);
    EXPECT_TRUE(Object("value chip").fullHeight);
    EXPECT_TRUE(Object("value emphasized").font.spec.bold);
    EXPECT_NE(Object("value emphasized").color, Object("value").color);
}

TEST_F(RichLayout, BoldColumnsHaveNoTint) {
    EXPECT_TRUE(Object("itemCount").font.spec.bold);
    EXPECT_EQ(report::FindObject(*definition, "itemCount box"), nullptr);
    EXPECT_TRUE(definition->columns[1].key);
}

TEST_F(RichLayout, ANoteIsATextWithAFigureBehindIt) {
    const report::Object& figure = Object("note 1 figure");
    EXPECT_EQ(figure.type, ObjectType::Total);
    EXPECT_EQ(figure.follows, "note 1");
    EXPECT_EQ(figure.total.aggregate, Aggregate::Count);
    EXPECT_EQ(figure.total.when, (Condition{2, Condition::Test::Zero, false}));
    EXPECT_EQ(definition->sections[3].kind, SectionKind::ReportFooter);
}

TEST_F(RichLayout, AGroupCanTellAnotherFieldAndHaveNoHeading) {
    EXPECT_EQ(definition->groups[0].field, 1);
    EXPECT_EQ(definition->groups[0].shown, 4);
    EXPECT_TRUE(definition->sections[2].skipAlone);
    EXPECT_EQ(report::FindObject(*definition, "group 1"), nullptr);
}

TEST_F(RichLayout, ASectionCanHaveARole) {
    EXPECT_EQ(definition->sections[2].name, "C");
    EXPECT_EQ(definition->sections[2].role, "Sums");
}

TEST_F(RichLayout, TheLaterHeadingStandsInThePlaceOfTheFirst) {
    const report::Section& section = definition->sections[0];
    EXPECT_EQ(section.on, OnPages::All);
    EXPECT_EQ(Object("HeadTitleText").on, OnPages::First);
    EXPECT_EQ(Object("later heading title").on, OnPages::Later);
    EXPECT_EQ(Object("details caption").on, OnPages::All);
    EXPECT_EQ(Object("heading rule").top, Object("later heading rule").top);
    EXPECT_EQ(section.laterTop, (44 - 36) * 20);
}

constexpr std::string_view Moves = R"(width_twips = 11178
columns = [
  { field = "accName", caption = "من" },
  { field = "amount", width = 90, format = "money", sum = true, caption = "المبلغ" },
]
[list]
heading = "الوارد"
noun    = "entry"
total   = { label = "مجموع الوارد" }
[sections]
A = "list-heading"
B = "rows"
C = "list-total"
D = { kind = "report-footer", height = 12 }
E = "footer"
[[object]]
section = "D"
name = "Out"
type = "subreport"
subreport = "out"
right = 0
top = 12
[subreport.out]
columns = [{ field = "descrip", caption = "البيان" }]
[subreport.out.list]
heading = "الصادر"
[subreport.out.sections]
X = "list-heading"
Y = "rows"
)";

TEST(ListLayout, IsOneGroupWhoseHeadingTakesTheCaptionsAlong) {
    const auto definition =
        layout::Library().Read("MovesTest", Moves, "moves.toml", FactsOf("SngAccountRpt").fields);
    ASSERT_EQ(definition->groups.size(), 1U);
    EXPECT_EQ(definition->groups[0].field, -1);
    const report::Section& head = definition->sections[0];
    EXPECT_EQ(head.kind, SectionKind::GroupHeader);
    EXPECT_TRUE(head.repeat);
    EXPECT_NE(report::FindObject(*definition, "list count"), nullptr);
    EXPECT_GT(report::FindObject(*definition, "amount caption")->top, 0);
    EXPECT_EQ(definition->sections[2].kind, SectionKind::GroupFooter);
}

TEST(SubreportLayout, IsALayoutOfItsOwnInTheSameHouse) {
    const auto definition =
        layout::Library().Read("MovesTest", Moves, "moves.toml", FactsOf("SngAccountRpt").fields);
    ASSERT_TRUE(definition->subreports.contains("out"));
    const report::Definition& inside = *definition->subreports.at("out");
    EXPECT_EQ(inside.name, "out");
    EXPECT_EQ(inside.width, 11178);
    EXPECT_EQ(inside.columns.size(), 1U);
    EXPECT_EQ(inside.sections.size(), 2U);
    EXPECT_EQ(report::FindObject(*definition, "Out")->subreport, "out");
}

constexpr std::string_view Cards = R"(width_twips = 11178
[captions]
account = "الحساب"
serial1 = "الرقم"
[cards]
width = 200
height = 100
show_when = { field = "id", is = "filled" }
card = [
  { id = "id1", name = "Name1", drawing = "card-picture-1.png" },
  { id = "id2", name = "Name2", drawing = "card-picture-2.png" },
]
[[cards.object]]
name = "name"
right = 10
top = 10
width = 150
height = 20
[[cards.object]]
type = "field"
field = "id"
right = 10
top = 40
width = 150
height = 20
[[cards.object]]
type = "picture"
file = "drawing"
right = 165
top = 10
width = 30
height = 20
[sections]
A = "cards"
B = "footer"
)";

TEST(CardLayout, DealsItsObjectsToEveryCard) {
    const auto definition =
        layout::Library().Read("CardsTest", Cards, "cards.toml", FactsOf("rptPPCards").fields);
    const report::Object* first = report::FindObject(*definition, "Name1");
    const report::Object* second = report::FindObject(*definition, "Name2");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->right - first->right, 200 * 20);
    EXPECT_EQ(first->right, (11178 - 2 * 4000) / 2 + 200);
    EXPECT_EQ(second->showWhen, (Condition{5, Condition::Test::Filled, false}));
    int fields = 0;
    int marks = 0;
    int pictures = 0;
    for (const report::Object& object : definition->sections[0].objects) {
        fields += object.type == ObjectType::Field ? 1 : 0;
        marks += object.type == ObjectType::Line ? 1 : 0;
        pictures += object.type == ObjectType::Picture && object.image ? 1 : 0;
    }
    EXPECT_EQ(fields, 2);
    EXPECT_EQ(pictures, 2);
    EXPECT_EQ(marks, 12) << "two at each of three cuts, a cross between rows, two at each side";
    EXPECT_EQ(definition->sections[0].kind, SectionKind::Details);
}

TEST(CardLayout, NamesItsFieldsForTablesOutsideOfPages) {
    const auto definition =
        layout::Library().Read("CardsTest", Cards, "cards.toml", FactsOf("rptPPCards").fields);
    ASSERT_EQ(definition->columns.size(), 2U);
    EXPECT_EQ(report::CaptionOf(*definition, definition->columns[0]), "الحساب");
    EXPECT_EQ(definition->columns[1].field, 1);
}

/// A change of the orders layout that makes it wrong.
struct Mistake {
    const char* name;
    std::string_view layout;
    const char* replaced;
    const char* by;
    const char* told;
};

class RichLayoutMistake : public testing::TestWithParam<Mistake> {};

TEST_P(RichLayoutMistake, IsToldWithItsPlace) {
    const Mistake& row = GetParam();
    std::string text(row.layout);
    const std::size_t at = text.find(row.replaced);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, std::string_view(row.replaced).size(), row.by);
    const char* fields = row.layout == Orders  ? "ServicesRpt"
                         : row.layout == Moves ? "SngAccountRpt"
                                               : "rptPPCards";
    try {
        static_cast<void>(layout::Library().Read("Test", text, "own.toml", FactsOf(fields).fields));
        FAIL() << "the layout was taken";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::Layout);
        EXPECT_NE(failure.Description().find(row.told), std::string::npos) << failure.Description();
    }
}

const Mistake Mistakes[] = {
    {"ComputedOfOneField", Orders, "\"itemCount * Price\"", "\"itemCount\"",
     "own.toml:10:9: a computed value is two fields with a sign between them"},
    {"ComputedByUnknownSign", Orders, "itemCount * Price", "itemCount ^ Price", "signs are + - * /"},
    {"ComputedOfText", Orders, "itemCount * Price", "details * Price",
     "own.toml:10:9: the field \"details\" is no number"},
    {"ComputedOfNothing", Orders, "itemCount * Price", "itemCount * Prise",
     "there is no field \"Prise\"; did you mean \"Price\"?"},
    {"ComputedTwice", Orders, "value = \"item", "Price = \"item",
     "own.toml:10:1: there is a field \"Price\" already"},
    {"OrderByUnknown", Orders, "\"-pDate\"", "\"-pdate\"",
     "own.toml:2:22: there is no field \"pdate\"; did you mean \"pDate\"?"},
    {"OrderByComputed", Orders, "\"hostname\", ", "\"value\", ",
     "rows cannot stand in the order of a computed value"},
    {"UnknownEmphasis", Orders, "\"owed\"", "\"owned\"",
     "there is no emphasis \"owned\"; did you mean \"owed\"?"},
    {"BarWithoutRoom", Orders, "{ width = 40 }", "{ width = 80 }", "own.toml:6:80: a bar needs a width"},
    {"BarOfText", Orders, "field = \"details\",", "field = \"details\", bar = { width = 9 },",
     "only numbers have a bar"},
    {"UnknownTest", Orders, "is = \"zero\"", "is = \"zro\"", "\"zro\" is no test; did you mean \"zero\"?"},
    {"UnknownAggregate", Orders, "of     = \"count\"", "of     = \"counts\"",
     "\"counts\" is no total; did you mean \"count\"?"},
    {"NoteWithoutText", Orders, "text   = ", "txt    = ", "a note needs a \"text\""},
    {"UnknownSubreport", Moves, "subreport = \"out\"", "subreport = \"outt\"", "the subreport is not there"},
    {"SubreportElsewhere", Moves, "section = \"D\"", "section = \"C\"",
     "a subreport stands in a report footer only"},
    {"MistakeInSubreport", Moves, "field = \"descrip\"", "field = \"descript\"",
     "there is no field \"descript\"; did you mean \"descrip\"?"},
    {"UnknownPicture", Cards, "card-picture-1.png", "card-picture-7.png",
     "there is no picture \"card-picture-7.png\"; did you mean \"card-picture-1.png\"?"},
    {"CardsTooWide", Cards, "width = 200", "width = 280", "stands within 13 points of the template's edge"},
    {"NoCards", Cards, "card = [", "kard = [", "[cards] needs a list \"card\""},
    {"CardConditionOnNothing", Cards, "{ field = \"id\", is", "{ field = \"code\", is",
     "there is no field \"code\""},
    {"CaptionOfNothing", Cards,
     "serial1 =", "serial =", "there is no field \"serial\"; did you mean \"serial1\"?"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RichLayoutMistake, testing::ValuesIn(Mistakes),
                         [](const auto& row) { return row.param.name; });

} // namespace
