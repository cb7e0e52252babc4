#include "base/failure.h"
#include "report/placeholders.h"
#include "report_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace qbrpt::report {
namespace {

using testing::HasSubstr;

// What a text says in a report of two rows, with a noun and a further object to name.
std::string Said(const std::string& text, SectionKind kind, bool literal = false) {
    Definition definition = PlainDefinition();
    definition.sections[0].objects.clear();
    definition.nouns["entry"] = {"قيد", "قيدان", "قيود", "قيدًا", "قيد"};
    definition.groups = {{.field = NameField}};
    Object object = TextObject("Said", text, 0, 3000);
    object.literal = literal;
    Section section = MakeSection(kind, {object});
    section.repeat = true;
    definition.sections.push_back(section);
    Section hidden = MakeSection(SectionKind::ReportFooter,
                                 {TextObject("Title", "title"), TextObject("Inner", "<{text:Title}>"),
                                  TextObject("Loop", "{text:Loop}"), TextObject("Empty", ""),
                                  FieldObject("Amount", AmountField, 0, 1000),
                                  TotalObject("Sum", {Aggregate::Sum, AmountField})});
    hidden.suppress = true;
    definition.sections.push_back(hidden);
    TestReport report(definition, {NamedRow("x", 1.5), NamedRow("x", 2.25)});
    return report.Words(0);
}

struct TextRow {
    std::string name;
    std::string text;
    SectionKind kind;
    std::string said;
};

class Texts : public testing::TestWithParam<TextRow> {};

TEST_P(Texts, SayWhatTheirPlaceholdersStandFor) {
    EXPECT_EQ(Said(GetParam().text, GetParam().kind), GetParam().said);
}

INSTANTIATE_TEST_SUITE_P(
    Placeholders, Texts,
    testing::Values(TextRow{"Plain", "a", SectionKind::PageHeader, "a"},
                    TextRow{"Page", "{page}/{pages}", SectionKind::PageFooter, "1/1"},
                    TextRow{"Printed", "{printed}", SectionKind::PageFooter, "12:00 01/03/2025"},
                    TextRow{"RowsOfTheReport", "{rows}", SectionKind::ReportHeader, "2"},
                    TextRow{"RowsOfTheGroupBefore", "{rows}", SectionKind::GroupHeader, "2"},
                    TextRow{"RowsOfTheGroup", "{rows}", SectionKind::GroupFooter, "2"},
                    TextRow{"CountedRows", "{rows:entry}", SectionKind::ReportFooter, "قيدان"},
                    TextRow{"Group", "{group}", SectionKind::GroupHeader, "x"},
                    TextRow{"GroupInAFooter", "of-{group}", SectionKind::GroupFooter, "of-x"},
                    TextRow{"NotContinued", "a{continued}", SectionKind::GroupHeader, "a"},
                    TextRow{"FieldOfTheFirstRow", "{field:amount}", SectionKind::PageHeader, "1.5"},
                    TextRow{"FieldOfTheLastRow", "{field:amount}", SectionKind::ReportFooter, "2.25"},
                    TextRow{"OtherText", "{text:Title}", SectionKind::PageHeader, "title"},
                    TextRow{"TextInText", "{text:Inner}", SectionKind::PageHeader, "<title>"},
                    TextRow{"TextWithoutText", "[{text:Empty}]", SectionKind::PageHeader, "[]"},
                    TextRow{"TotalAsText", "{text:Sum}", SectionKind::ReportFooter, "3.75"},
                    TextRow{"TotalAhead", "{text:Sum}", SectionKind::ReportHeader, "3.75"},
                    TextRow{"FieldObjectAsText", "{text:Amount}", SectionKind::PageHeader, "1.50"}),
    [](const auto& row) { return row.param.name; });

TEST(SectionText, LiteralTextsKeepTheirBraces) {
    EXPECT_EQ(Said("{page}{x", SectionKind::PageHeader, true), "{page}{x");
}

TEST(SectionText, ATextThatHoldsItselfEnds) {
    EXPECT_EQ(Said("{text:Loop}", SectionKind::PageHeader), "");
}

// Keeps the texts that it is asked to lay out.
class RecordingTextPort final : public fakes::FakeTextPort {
public:
    std::shared_ptr<const TextBlock> Layout(std::string_view text, StyleId style, Twips maxWidth,
                                            BaseDirection base) override {
        texts.emplace_back(text);
        directions.push_back(base);
        return FakeTextPort::Layout(text, style, maxWidth, base);
    }
    std::vector<std::string> texts;
    std::vector<BaseDirection> directions;
};

TEST(SectionText, InsertedValuesAreIsolatedInsideOtherText) {
    Definition definition = PlainDefinition();
    definition.sections[0].objects = {TextObject("T", "من {field:name} {printed}", 0, 3000),
                                      TextObject("Alone", "{field:name}", 0, 3000)};
    RecordingTextPort port;
    TestReport report(definition, {NamedRow("a-1")});
    report.context.text = &port;
    (void)report.Words(0);
    EXPECT_EQ(port.texts,
              (std::vector<std::string>{"من \u2068a-1\u2069 \u206601/03/2025 12:00\u2069", "a-1"}));
}

TEST(SectionText, AnInsertedValueCannotOpenAnIsolateThatItDoesNotClose) {
    Definition definition = PlainDefinition();
    definition.sections[0].objects = {TextObject("Said", "<{field:name}>", 0, 3000)};
    const auto said = [&](const std::string& name) {
        RecordingTextPort port;
        TestReport report(definition, {NamedRow(name)});
        report.context.text = &port;
        (void)report.Words(0);
        return port.texts.front();
    };
    EXPECT_EQ(said("a\u2067b\u2069\u2066"), "<\u2068ab\u2069>");
    EXPECT_EQ(said("a\u2065\u206Ab"), "<\u2068a\u2065\u206Ab\u2069>");
    EXPECT_EQ(said("a\xE2\x81"), "<\u2068a\xE2\x81\u2069>");
}

TEST(SectionText, OnlyArabicTextsRunFromTheRight) {
    Definition definition = PlainDefinition();
    definition.sections[0].objects = {FieldObject("N", NameField, 0, 3000)};
    RecordingTextPort port;
    TestReport report(definition,
                      {NamedRow("Daniel Ortiz."), NamedRow("نسمة"), NamedRow("a نسمة"), NamedRow("\u05D0"),
                       NamedRow("\uFEDF"), NamedRow("é ü €"), NamedRow("12-3")});
    report.context.text = &port;
    (void)report.Words(0);
    using enum BaseDirection;
    EXPECT_EQ(port.directions, (std::vector<BaseDirection>{LeftToRight, RightToLeft, RightToLeft, RightToLeft,
                                                           RightToLeft, LeftToRight, LeftToRight}));
}

TEST(Placeholders, MistakesAreNamed) {
    Definition definition = PlainDefinition();
    definition.nouns["entry"] = {};
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"{page} {pages} {printed} {rows} {rows:entry} {group} {continued} {field:name} {text:Name}", ""},
        {"no braces", ""},
        {"{page", "not closed"},
        {"{pagse}", "{pagse} is no placeholder"},
        {"{page:1}", "{page:1} is no placeholder"},
        {"{text}", "{text} is no placeholder"},
        {"{text:Nobody}", "object is not there"},
        {"{field:none}", "field is not there"},
        {"{rows:cars}", "noun is not there"},
        {"{}", "no placeholder"}};
    for (const auto& [text, problem] : rows) {
        SCOPED_TRACE(text);
        if (problem.empty())
            EXPECT_EQ(PlaceholderProblem(definition, text), "");
        else
            EXPECT_THAT(PlaceholderProblem(definition, text), HasSubstr(problem));
    }
}

TEST(FormatEvents, ChangeTextsEachTimeTheirSectionIsFormatted) {
    Definition definition = PlainDefinition();
    Section header = MakeSection(SectionKind::PageHeader, {TextObject("H", "before")});
    header.name = "Head";
    header.formatEvent = true;
    definition.sections.push_back(header);
    TestReport report(definition, NumberedRows(12));
    std::set<std::int32_t> pages;
    report.context.onFormat = [&](const Section& section, std::int32_t page) {
        EXPECT_EQ(section.name, "Head");
        pages.insert(page);
        FindObject(report.Layout(), "H")->text = "after";
    };
    EXPECT_EQ(report.Words(0).substr(0, 5), "after");
    EXPECT_EQ(report.Words(1).substr(0, 5), "after");
    EXPECT_TRUE(pages.contains(1) && pages.contains(2));
}

TEST(FormatEvents, SeeEveryRowThatIsDrawn) {
    Definition definition = PlainDefinition();
    definition.sections[0].formatEvent = true;
    TestReport report(definition, NumberedRows(12));
    int calls = 0;
    report.context.onFormat = [&](const Section&, std::int32_t) { ++calls; };
    (void)report.Pages().PageCount();
    calls = 0;
    (void)report.Words(1);
    EXPECT_GE(calls, 2);
    EXPECT_LE(calls, 4) << "no more than once to measure and once to draw each row";
}

struct ProblemRow {
    std::string name;
    std::function<void(Definition&)> spoil;
    std::string problem;
};

TEST(Definitions, MistakesAreRefusedWithWords) {
    const std::vector<ProblemRow> rows = {
        {"width", [](Definition& d) { d.width = 0; }, "width"},
        {"field", [](Definition& d) { d.sections[0].objects[0].field = 9; }, "field"},
        {"group field", [](Definition& d) { d.groups = {{.field = 7}}; }, "group"},
        {"no group", [](Definition& d) { d.sections.push_back(MakeSection(SectionKind::GroupHeader, {})); },
         "group"},
        {"height", [](Definition& d) { d.sections[0].height = -1; }, "height"},
        {"length", [](Definition& d) { d.sections[0].objects[0].top = 2'000'000; }, "length"},
        {"computed",
         [](Definition& d) {
             d.computed = {{"c", Computed::Operation::Add, 0, 5}};
         },
         "computed"},
        {"condition",
         [](Definition& d) {
             d.sections[0].objects[0].showWhen = Condition{8, Condition::Test::Zero};
         },
         "condition"},
        {"follows", [](Definition& d) { d.sections[0].objects[0].follows = "Amount"; }, "follows"},
        {"page total in a header",
         [](Definition& d) {
             d.sections.push_back(MakeSection(
                 SectionKind::PageHeader, {TotalObject("T", {Aggregate::Sum, AmountField, Scope::Page})}));
         },
         "page total"},
        {"subreport", [](Definition& d) { d.sections[0].objects[0].type = ObjectType::Subreport; },
         "subreport"},
        {"placeholder", [](Definition& d) { d.sections[0].objects.push_back(TextObject("T", "{x}")); },
         "{x}"}};
    for (const ProblemRow& row : rows) {
        SCOPED_TRACE(row.name);
        Definition definition = PlainDefinition();
        row.spoil(definition);
        EXPECT_THAT(DefinitionProblem(definition), HasSubstr(row.problem));
        try {
            TestReport report(definition, {});
            (void)report.Pages();
            ADD_FAILURE() << "laid out all the same";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::Layout);
        }
    }
    EXPECT_EQ(DefinitionProblem(PlainDefinition()), "");
}

} // namespace
} // namespace qbrpt::report
