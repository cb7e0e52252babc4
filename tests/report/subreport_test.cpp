#include "base/failure.h"
#include "report_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qbrpt::report {
namespace {

using testing::ElementsAre;

/// Rows in a list with a heading that repeats, and their sum at its end.
Definition List(const std::string& name) {
    Definition definition = PlainDefinition();
    definition.name = name;
    definition.groups = {{.field = -1}};
    Section head = MakeSection(SectionKind::GroupHeader, {TextObject(name + "Head", name + "{continued}")});
    head.repeat = true;
    definition.sections.push_back(head);
    definition.sections.push_back(MakeSection(
        SectionKind::GroupFooter, {TotalObject(name + "Sum", {Aggregate::Sum, AmountField, Scope::Group})}));
    return definition;
}

Definition TwoLists() {
    Definition definition = List("in");
    definition.subreports["out"] = std::make_shared<Definition>(List("out"));
    Object inside;
    inside.name = "Inside";
    inside.type = ObjectType::Subreport;
    inside.subreport = "out";
    inside.right = 100;
    inside.top = 200;
    definition.sections.push_back(
        MakeSection(SectionKind::ReportFooter, {TextObject("Between", "between"), inside}, 800));
    definition.sections.push_back(MakeSection(SectionKind::ReportFooter, {TextObject("End", "end")}));
    definition.sections.push_back(MakeSection(SectionKind::PageFooter, {TextObject("F", "{page}")}));
    return definition;
}

std::shared_ptr<const RowSource> Rows(std::size_t count) {
    return std::make_shared<fakes::MemoryRows>(NumberedRows(count));
}

TEST(Subreport, FlowsBehindTheReportAndGoesOnOverPages) {
    TestReport report(TwoLists(), NumberedRows(3), SheetFor(2000));
    report.context.subreportRows["out"] = Rows(6);
    EXPECT_THAT(report.AllWords(),
                ElementsAre("in|r1 1.00|r2 2.00|r3 3.00|6.00|between|out|r1 1.00|r2 2.00|1",
                            "out(تابع)|r3 3.00|r4 4.00|r5 5.00|r6 6.00|21.00|end|2"));
    EXPECT_EQ(report.Words(0).back(), '1') << "an earlier page can be asked for again";
}

TEST(Subreport, StandsAsFarInAsItsObject) {
    TestReport report(TwoLists(), NumberedRows(1), SheetFor(4000));
    report.context.subreportRows["out"] = Rows(1);
    Page page;
    report.Pages().Build(0, page);
    std::vector<Twips> ends;
    for (const Item& item : page.items) {
        if (item.kind == ItemKind::Word && item.word->text == "r1") ends.push_back(item.x + item.width);
    }
    EXPECT_THAT(ends, ElementsAre(3000, 2900));
}

TEST(Subreport, WithoutRowsOfItsOwnIsLeftOut) {
    TestReport report(TwoLists(), NumberedRows(1), SheetFor(4000));
    EXPECT_THAT(report.AllWords(), ElementsAre("in|r1 1.00|1.00|between|end|1"));
}

TEST(Subreport, CanBeTheWholeReport) {
    TestReport report(TwoLists(), {}, SheetFor(4000));
    report.context.subreportRows["out"] = Rows(2);
    EXPECT_THAT(report.AllWords(), ElementsAre("between|out|r1 1.00|r2 2.00|3.00|end|1"));
}

TEST(Subreport, HeaderStaysWithItsFirstRow) {
    Definition inside = PlainDefinition();
    inside.sections.push_back(MakeSection(SectionKind::ReportHeader, {TextObject("H", "list")}));
    Definition definition = PlainDefinition();
    definition.subreports["out"] = std::make_shared<Definition>(inside);
    Object object;
    object.name = "Inside";
    object.type = ObjectType::Subreport;
    object.subreport = "out";
    definition.sections.push_back(MakeSection(SectionKind::ReportFooter, {object}));
    TestReport report(definition, NumberedRows(9));
    report.context.subreportRows["out"] = Rows(1);
    EXPECT_EQ(report.Words(1), "list|r1 1.00");
}

TEST(Subreport, EveryOrderOfPagesGivesTheSamePages) {
    TestReport inOrder(TwoLists(), NumberedRows(700), SheetFor(1600));
    inOrder.context.subreportRows["out"] = Rows(900);
    TestReport backwards(TwoLists(), NumberedRows(700), SheetFor(1600));
    backwards.context.subreportRows["out"] = Rows(900);
    const std::vector<std::string> pages = inOrder.AllWords();
    for (std::size_t index = pages.size(); index-- > 0;)
        ASSERT_EQ(backwards.Words(index), pages[index]) << index;
}

TEST(Subreport, PageTotalsAndHeadersAheadWork) {
    Definition definition = PlainDefinition();
    Section foot = MakeSection(SectionKind::PageFooter,
                               {TotalObject("P", {Aggregate::Sum, AmountField, Scope::Page}),
                                TotalObject("SoFar", {Aggregate::Sum, AmountField, Scope::Report}, 1000)});
    definition.sections.push_back(foot);
    definition.sections.push_back(MakeSection(
        SectionKind::PageHeader, {TotalObject("All", {Aggregate::Sum, AmountField, Scope::Report})}));
    TestReport report(definition, NumberedRows(12), SheetFor(1400));
    EXPECT_THAT(report.AllWords(), ElementsAre("78.00|r1 1.00|r2 2.00|r3 3.00|r4 4.00|r5 5.00|15.00 15.00",
                                               "78.00|r6 6.00|r7 7.00|r8 8.00|r9 9.00|r10 10.00|55.00 40.00",
                                               "78.00|r11 11.00|r12 12.00|78.00 23.00"));
}

TEST(Progress, CanStopLongWork) {
    Definition definition = List("in"); // a group: the engine walks the rows to count pages
    TestReport report(definition, NumberedRows(5000));
    int calls = 0;
    report.context.onProgress = [&](std::size_t done, std::size_t all) {
        EXPECT_LE(done, all);
        EXPECT_EQ(all, 5000U);
        if (++calls == 2) throw Failure(FailureNumber::Cancelled, "stopped");
    };
    EXPECT_THROW((void)report.Pages().PageCount(), Failure);
    EXPECT_EQ(calls, 2);
    // The document can be asked again.
    EXPECT_EQ(report.Words(0).substr(0, 10), "in|r1 1.00");
}

} // namespace
} // namespace qbrpt::report
