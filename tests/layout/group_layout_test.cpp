// A layout with groups: what its few lines become.
#include "adapters/layout/library.h"
#include "templates/field_tables.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace qbrpt;
using report::ObjectType;
using report::SectionKind;

constexpr std::string_view Usage = R"(width_twips = 16089
columns = [
  { field = "user_name", hide_repeated = true, caption = "المستخدم" },
  { field = "use_begin", width = 110, caption = "بدء الاستخدام" },
  { field = "use_time",  width = 66, format = "duration", sum = true, unit = "س:د", caption = "المدة" },
  { field = "cost",      width = 66, format = "money", sum = true, key = true, caption = "المدفوع" },
  { field = "user",      width = 66, caption = "الموظف", caption_object = "UserText" },
]
[heading]
title = "OtherTitleText"
[[group]]
field   = "host_name"
heading = "جهاز {group}"
total   = { label = "مجموع {group}", noun = "row" }
[[group]]
field  = "use_begin"
by_day = true
format = "date"
[total]
label = "المجموع الكلي"
[sections]
A = "first-heading"
B = "later-heading"
C = "captions"
D = "group-heading"
E = "group-heading 2"
F = "rows"
G = "group-total"
H = "total"
I = "footer"
J = "empty"
)";

class GroupLayout : public testing::Test {
protected:
    [[nodiscard]] const report::Object& Object(const std::string& name) const {
        const report::Object* object = report::FindObject(*definition, name);
        if (object == nullptr) throw std::runtime_error("no object " + name);
        return *object;
    }
    [[nodiscard]] const report::Section& Section(std::size_t index) const {
        return definition->sections.at(index);
    }

    std::shared_ptr<const report::Definition> definition =
        layout::Library().Read("UsageTest", Usage, "usage.toml", FactsOf("UsageRpt").fields);
};

TEST_F(GroupLayout, GroupsStandInTheirOrder) {
    ASSERT_EQ(definition->groups.size(), 2U);
    EXPECT_EQ(definition->groups[0].field, 0);
    EXPECT_EQ(definition->groups[1].field, 2);
    EXPECT_EQ(definition->groups[1].by, report::Group::By::Day);
    EXPECT_EQ(definition->groups[1].format, report::ValueFormat::Date);
}

TEST_F(GroupLayout, HeadingsRepeatAndKnowTheirGroup) {
    EXPECT_EQ(Section(3).kind, SectionKind::GroupHeader);
    EXPECT_TRUE(Section(3).repeat);
    EXPECT_EQ(Section(3).group, 0);
    EXPECT_EQ(Section(4).group, 1);
    EXPECT_EQ(Object("group 1").text, "جهاز {group}");
    EXPECT_EQ(Object("group 1 continued").follows, "group 1");
    EXPECT_EQ(Object("group 2").text, "{group}");
}

TEST_F(GroupLayout, SubtotalsAreOfTheirGroup) {
    EXPECT_EQ(Section(6).kind, SectionKind::GroupFooter);
    const report::Object& subtotal = Object("cost subtotal 1");
    EXPECT_EQ(subtotal.type, ObjectType::Total);
    EXPECT_EQ(subtotal.total.scope, report::Scope::Group);
    EXPECT_EQ(subtotal.total.group, 0);
    EXPECT_EQ(subtotal.total.field, 9);
    EXPECT_EQ(Object("cost total").total.scope, report::Scope::Report);
    EXPECT_EQ(Object("subtotal 1 count").text, "{rows:row}");
}

TEST_F(GroupLayout, FiguresOfAColumnStandOnOneAxis) {
    for (const char* name : {"cost caption", "cost subtotal 1", "cost total"}) {
        EXPECT_EQ(Object(name).right, Object("cost").right) << name;
        EXPECT_EQ(Object(name).width, Object("cost").width) << name;
        EXPECT_EQ(Object(name).align, Object("cost").align) << name;
    }
    EXPECT_EQ(Object("cost total").font.spec.size, Object("cost").font.spec.size);
    EXPECT_TRUE(Object("cost").font.spec.bold);
}

TEST_F(GroupLayout, LinesLeaveOutTheKeyColumn) {
    const report::Object& first = Object("row line");
    const report::Object& second = Object("row line 2");
    const report::Object& box = Object("cost box");
    EXPECT_EQ(first.right + first.width, box.right);
    EXPECT_EQ(second.right, box.right + box.width);
    EXPECT_EQ(second.right + second.width, definition->width - 260);
    EXPECT_TRUE(first.yieldsToRepeated);
    EXPECT_FALSE(second.yieldsToRepeated);
}

TEST_F(GroupLayout, ColumnsFillThePage) {
    const report::Object& last = Object("user");
    EXPECT_EQ(Object("user_name").right, 260 + 80);
    EXPECT_EQ(last.right + last.width, definition->width - 260 - 80);
}

TEST_F(GroupLayout, ACaptionCanHaveANameForCode) {
    EXPECT_EQ(Object("UserText").text, "الموظف");
}

TEST_F(GroupLayout, AUnitFollowsItsCaption) {
    EXPECT_EQ(Object("use_time unit").follows, "use_time caption");
    EXPECT_EQ(Object("use_time unit").text, "س:د");
}

TEST_F(GroupLayout, AHeadingWithoutCafeLeavesNoHole) {
    // The title stands where the café's name would.
    EXPECT_EQ(Object("OtherTitleText").top + Object("OtherTitleText").baseline, 44 * 20);
    EXPECT_EQ(Section(0).height, (44 + 8 + 8) * 20);
}

TEST_F(GroupLayout, AnEmptySectionShowsNothing) {
    EXPECT_EQ(Section(9).name, "J");
    EXPECT_EQ(Section(9).height, 0);
    EXPECT_TRUE(Section(9).objects.empty());
}

TEST_F(GroupLayout, TheColumnsAreKnownOutsideOfPages) {
    ASSERT_EQ(definition->columns.size(), 5U);
    const report::Column& cost = definition->columns[3];
    EXPECT_EQ(cost.field, 9);
    EXPECT_EQ(report::CaptionOf(*definition, cost), "المدفوع");
    EXPECT_EQ(cost.format, report::ValueFormat::Money);
    EXPECT_TRUE(cost.sum);
    EXPECT_TRUE(cost.key);
    EXPECT_EQ(cost.width, 66 * 20);
    EXPECT_EQ(definition->columns[2].unit, "س:د");
    EXPECT_EQ(definition->groups[0].heading, "جهاز {group}");
    EXPECT_EQ(definition->groups[0].total->noun, "row");
    EXPECT_FALSE(definition->groups[1].total.has_value());
    EXPECT_EQ(definition->total->label, "المجموع الكلي");
}

TEST_F(GroupLayout, ACaptionSaysWhatAHostHasWritten) {
    report::Definition filled = *definition;
    report::FindObject(filled, "UserText")->text = "المشرف";
    EXPECT_EQ(report::CaptionOf(filled, filled.columns[4]), "المشرف");
    EXPECT_EQ(filled.columns[4].caption, "الموظف");
}

} // namespace
