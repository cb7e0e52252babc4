// Whole pages as text, down to places and colours.
#include "report_maker.h"

#include <gtest/gtest.h>

namespace qbrpt::report {
namespace {

Definition GoldenDefinition() {
    Definition definition;
    definition.name = "Golden";
    definition.width = 3000;
    definition.top = 100;
    definition.bottom = 100;
    definition.fields = TestFields;
    definition.nouns["entry"] = {"قيد واحد", "قيدان", "قيود", "قيدًا", "قيد"};
    Object title = TextObject("Title", "حركة القيد", 0, 3000);
    title.font.spec = {"Head", 200, true};
    title.color = 0x0B3F4F;
    definition.sections.push_back(MakeSection(SectionKind::ReportHeader, {title}, 300));
    Object tint;
    tint.name = "Tint";
    tint.type = ObjectType::Box;
    tint.width = 3000;
    tint.height = 200;
    tint.fill = 0xE4EBEE;
    Object caption = TextObject("Caption", "المبلغ", 2000, 1000);
    caption.font.spec.bold = true;
    definition.sections.push_back(MakeSection(SectionKind::PageHeader, {caption, tint}));
    Object name = FieldObject("Name", NameField, 0, 1000);
    name.canGrow = true;
    Object amount = FieldObject("Amount", AmountField, 2000, 1000);
    amount.zeroColor = 0x7A828A;
    Object rule;
    rule.name = "Hairline";
    rule.type = ObjectType::Line;
    rule.width = 3000;
    rule.stroke = 30;
    rule.color = 0xA3ACB3;
    rule.atBottom = true;
    rule.when = LineWhen::BetweenRows;
    definition.sections.push_back(MakeSection(SectionKind::Details, {name, amount, rule}));
    Object frame = tint;
    frame.name = "Frame";
    frame.stroke = 50;
    definition.sections.push_back(
        MakeSection(SectionKind::ReportFooter, {frame, TextObject("Count", "{rows:entry}"),
                                                TotalObject("Sum", {Aggregate::Sum, AmountField})}));
    definition.sections.push_back(
        MakeSection(SectionKind::PageFooter, {TextObject("Pages", "صفحة {page} من {pages}"),
                                              TextObject("Printed", "طُبع في {printed}", 1500, 1500)}));
    return definition;
}

TEST(GoldenPage, RowsWithAWrappedNameAndAZero) {
    TestReport report(GoldenDefinition(),
                      {NamedRow("صافي الإيراد ليوم 02-03-2025", 1234.5), NamedRow("Daniel Ortiz", 0)});
    EXPECT_EQ(report.Text(0), R"(page 150.0 x 100.0
text 102.5 12.5 w 47.5 Head 200 bold #0B3F4F حركة القيد
fill 0.0 20.0 150.0 x 10.0 #E4EBEE
text 35.0 27.5 w 15.0 Body 100 bold #000000 المبلغ
text 110.0 37.5 w 40.0 Body 100 #000000 صافي الإيراد ليوم
text 125.0 47.5 w 25.0 Body 100 #000000 02-03-2025
num 30.0 37.5 w 20.0 Body 100 #000000 1,234.50
rule 0.0 50.0 150.0 x 0.0 0.30 #A3ACB3
text 121.3 57.5 w 28.8 Body 100 #000000 Daniel Ortiz
num 40.0 57.5 w 10.0 Body 100 #7A828A 0.00
fill 0.0 60.0 150.0 x 10.0 #E4EBEE
frame 0.0 60.0 150.0 x 10.0 0.50 #000000
text 137.5 67.5 w 12.5 Body 100 #000000 قيدان
num 30.0 67.5 w 20.0 Body 100 #000000 1,234.50
text 126.3 92.5 w 23.8 Body 100 #000000 صفحة 1 من 1
text 18.8 92.5 w 56.3 Body 100 #000000 طُبع في 01/03/2025 12:00
)");
}

TEST(GoldenPage, NoRows) {
    TestReport report(GoldenDefinition(), {});
    EXPECT_EQ(report.Text(0), R"(page 150.0 x 100.0
text 102.5 12.5 w 47.5 Head 200 bold #0B3F4F حركة القيد
fill 0.0 20.0 150.0 x 10.0 #E4EBEE
text 35.0 27.5 w 15.0 Body 100 bold #000000 المبلغ
fill 0.0 30.0 150.0 x 10.0 #E4EBEE
frame 0.0 30.0 150.0 x 10.0 0.50 #000000
text 138.8 37.5 w 11.3 Body 100 #000000 0 قيد
text 126.3 92.5 w 23.8 Body 100 #000000 صفحة 1 من 1
text 18.8 92.5 w 56.3 Body 100 #000000 طُبع في 01/03/2025 12:00
)");
}

} // namespace
} // namespace qbrpt::report
