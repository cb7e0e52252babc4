// A report as a web page, read back by a parser.
#include "adapters/export/html.h"
#include "adapters/export/html_text.h"
#include "base/failure.h"
#include "export/export_tools.h"

#include <gmock/gmock.h>

namespace qbrpt::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;

std::string HtmlOf(const ExportJob& job) {
    StringSink sink;
    WriteHtml(sink, job);
    return sink.bytes;
}

std::vector<std::string> LinesOf(const ExportJob& job) {
    return DumpOf("dump_html.py", HtmlOf(job));
}

TEST(Html, ShowsHeadingCaptionsRowsAndTotals) {
    const report::Definition definition = UseDefinition(false);
    EXPECT_THAT(
        LinesOf(JobOf(definition,
                      {UseRow("1", 45717.5, 75.0, 1234.5, "a"), UseRow("1", 45718.25, Null{}, 0.0, "b")})),
        ElementsAre("html lang=ar dir=rtl", "meta charset=utf-8",
                    "meta name=viewport content=width=device-width", "title: استخدام <الأجهزة>",
                    "h1: استخدام <الأجهزة>",
                    "thead. | th[]البيان | th[c]البدء | th[n]المدة س:د | th[n]المبلغ",
                    "tbody. | td[]a | td[c]01/03/2025 12:00 | td[n]1:15 | td[n k]1,234.50",
                    "tbody. | td[]b | td[c]02/03/2025 06:00 | td[n] | td[n k z]0.00",
                    "tbody.t | th[*2]المجموع قيدان | td[n]1:15 | td[n k]1,234.50",
                    "tbody.a | th[*2]المعدل | td[n] | td[n k]617.25", "footer: طُبع في <01/03/2025 12:00>"));
}

TEST(Html, GroupsHaveHeadingsAndSubtotals) {
    const report::Definition definition = UseDefinition(true);
    EXPECT_THAT(
        LinesOf(JobOf(definition, {UseRow("7", 45717, 10.0, 1.0, "a"), UseRow("7", 45717, 20.0, 2.0, "b"),
                                   UseRow("", 45717, 30.0, 4.0, "c")})),
        IsSupersetOf({"tbody.g | th[*4]جهاز 7", "tbody.s | th[*2]مجموع 7 قيدان | td[n]0:30 | td[n k]3.00",
                      "tbody.g | th[*4]جهاز بلا جهاز",
                      "tbody.s | th[*2]مجموع بلا جهاز قيد واحد | td[n]0:30 | td[n k]4.00",
                      "tbody.t | th[*2]المجموع 3 قيود | td[n]1:00 | td[n k]7.00"}));
}

TEST(Html, ASingleRowNeedsNoSubtotal) {
    report::Definition definition = UseDefinition(true);
    definition.groups[0].total->skipAlone = true;
    const auto lines =
        LinesOf(JobOf(definition, {UseRow("7", 45717, 10.0, 1.0, "a"), UseRow("8", 45717, 20.0, 2.0, "b"),
                                   UseRow("8", 45717, 30.0, 4.0, "c")}));
    EXPECT_THAT(lines, Contains(HasSubstr("مجموع 8")));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("مجموع 7"))));
}

TEST(Html, EmphasisFollowsTheValue) {
    report::Definition definition = UseDefinition(false);
    definition.columns[3].emphasis =
        report::Emphasis{report::Condition::Test::Positive, 0x8C1010, 0xF6E1DC, true};
    const std::string page =
        HtmlOf(JobOf(definition, {UseRow("7", 45717, 10.0, 1.0, "a"), UseRow("7", 45717, 10.0, 0.0, "b")}));
    EXPECT_THAT(page, HasSubstr("style=\"color:#8C1010;background:#F6E1DC;font-weight:700\">1.00</td>"));
    EXPECT_THAT(page, HasSubstr("<td class=\"n k z\">0.00</td>"));
    EXPECT_THAT(page, HasSubstr("<td class=\"n k\">1.00</td></tr>")) << "the total stays as it is";
}

TEST(Html, ColoursAreThoseOfTheLayout) {
    report::Definition definition = UseDefinition(false);
    EXPECT_THAT(HtmlOf(JobOf(definition, {})),
                HasSubstr(":root{--accent:#0B3F4F;--tint:#E4EBEE;--light:#F1F5F6}"));
    report::Object rule;
    rule.type = report::ObjectType::Line;
    rule.stroke = 75;
    rule.color = 0x7A2E0E;
    definition.sections[0].objects.push_back(rule);
    report::Object caption;
    caption.name = "caption";
    definition.columns[0].captionObject = caption.name;
    report::Object box;
    box.type = report::ObjectType::Box;
    box.fill = 0xF3E9E2;
    report::Section captions;
    captions.kind = report::SectionKind::PageHeader;
    captions.objects = {box, caption};
    report::Section rows;
    box.fill = 0xFAF5F1;
    rows.objects = {box};
    definition.sections.insert(definition.sections.end(), {captions, rows});
    EXPECT_THAT(HtmlOf(JobOf(definition, {})),
                HasSubstr(":root{--accent:#7A2E0E;--tint:#F3E9E2;--light:#FAF5F1}"));
}

TEST(Html, WithoutATitleTheHeadingGivesIt) {
    const report::Definition definition = UseDefinition(false);
    ExportJob job = JobOf(definition, {});
    job.title.clear();
    EXPECT_THAT(LinesOf(job), Contains("title: استخدام <الأجهزة>"));
}

TEST(Html, WithoutRowsThereIsAnEmptyTable) {
    const report::Definition definition = UseDefinition(true);
    EXPECT_THAT(LinesOf(JobOf(definition, {})), Contains("tbody.t | th[*2]المجموع 0 قيد | td[n] | td[n k]"));
}

TEST(Html, ASubreportIsASecondTable) {
    const report::Definition definition = UseDefinition(false);
    report::Definition inside = UseDefinition(false);
    inside.sections[0].objects[0].text = "من الحساب";
    ExportJob job = JobOf(definition, {});
    job.parts.push_back(JobOf(inside, {UseRow("1", 45717, 10.0, 1.0, "x")}).parts[0]);
    EXPECT_THAT(LinesOf(job),
                IsSupersetOf({"h1: استخدام <الأجهزة>", "h2: من الحساب",
                              "tbody. | td[]x | td[c]01/03/2025 00:00 | td[n]0:10 | td[n k]1.00"}));
}

TEST(Html, WithoutColumnsAllFieldsAreShown) {
    report::Definition definition = UseDefinition(false);
    definition.columns.clear();
    definition.total.reset();
    definition.average.reset();
    EXPECT_THAT(LinesOf(JobOf(definition, {UseRow("7", 45717, 10.5, 1.0, "a")})),
                IsSupersetOf({"thead. | th[]host | th[n]begin | th[]minutes | th[]cost | th[]details",
                              "tbody. | td[]7 | td[n]01/03/2025 00:00 | td[]10.5 | td[]1 | td[]a"}));
}

TEST(Html, NothingIsFetchedFromElsewhere) {
    const report::Definition definition = UseDefinition(true);
    const std::string page = HtmlOf(JobOf(definition, {UseRow("7", 45717, 1.0, 1.0, "<script>x</script>")}));
    for (const char* way : {"http", "src=", "<link", "<script", "@import", "url("})
        EXPECT_THAT(page, Not(HasSubstr(way)));
    EXPECT_THAT(page, HasSubstr("display:table-header-group")) << "captions repeat on paper";
}

TEST(Html, PaperIsThatOfTheReport) {
    const report::Definition definition = UseDefinition(false);
    ExportJob job = JobOf(definition, {});
    EXPECT_THAT(HtmlOf(job), HasSubstr("size:210.0mm 297.0mm"));
    job.landscape = true;
    EXPECT_THAT(HtmlOf(job), HasSubstr("size:297.0mm 210.0mm"));
    job.paperSize = 300; // of the printer's own
    job.ownSheet = PaperExtent{5669, 11339};
    EXPECT_THAT(HtmlOf(job), HasSubstr("size:200.0mm 100.0mm"));
}

struct Words {
    const char* name;
    std::string text;
    const char* written;
};
void PrintTo(const Words& words, std::ostream* stream) {
    *stream << words.name;
}
class HtmlText : public testing::TestWithParam<Words> {};

TEST_P(HtmlText, IsWritten) {
    std::string html;
    AppendCellText(html, GetParam().text);
    EXPECT_EQ(html, GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HtmlText,
    testing::Values(Words{"Marks", "<a href=\"x\">&'", "&lt;a href=&quot;x&quot;&gt;&amp;&#39;"},
                    Words{"DateAmongWords", "في 02-03-2025 مساء",
                          "في <bdi dir=\"ltr\">02-03-2025</bdi> مساء"},
                    Words{"BareDigits", "جهاز 7", "جهاز 7"}, Words{"DigitsAlone", "02-03", "02-03"},
                    Words{"LineEnds", "a\r\nb\rc", "a\nb\nc"},
                    Words{"Controls", std::string("a\0\x01z", 4), "a  z"},
                    Words{"BadBytes", "a\xFF", "a\uFFFD"}, Words{"NoCharacter", "\xEF\xBF\xBF", "\uFFFD"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Html, ManyRowsStreamInSmallPieces) {
    const report::Definition definition = UseDefinition(false);
    StringSink sink;
    std::size_t told = 0;
    WriteHtml(sink, JobOf(definition, std::vector(50'000, UseRow("7", 45717, 1.0, 1.0, "a"))),
              [&told](std::size_t, std::size_t all) {
                  ++told;
                  EXPECT_EQ(all, 50'000U);
              });
    EXPECT_GT(told, 5U);
    EXPECT_GT(sink.bytes.size(), 1'000'000U);
    EXPECT_LT(sink.longest, 100'000U);
}

TEST(Html, AFullDiskIsTheSinksFailure) {
    struct FullDisk final : ByteSink {
        void Write(std::string_view) override { throw Failure(FailureNumber::Output, "full"); }
    } sink;
    const report::Definition definition = UseDefinition(false);
    EXPECT_THROW(WriteHtml(sink, JobOf(definition, {})), Failure);
}

} // namespace
} // namespace qbrpt::test
