#include "base/calendar.h"
#include "base/failure.h"
#include "pdf/pdf_help.h"

#include <gmock/gmock.h>

namespace qbrpt::pdf {
namespace {

using namespace test;
using testing::ContainsRegex;
using testing::HasSubstr;

class WriterTest : public testing::Test {
protected:
    Page TextPage(std::string_view text) {
        PageMaker maker(engine);
        maker.Text(text, style, 11000, 1000);
        return maker.page;
    }
    std::string Info(const std::string& pdf) { return Look(pdf, {"pdfinfo", "{}"}); }

    text::TextEngine engine;
    report::StyleId style = engine.Style({"Noto Sans Arabic", 170, false});
};

TEST_F(WriterTest, TellsTitleDateLanguageAndDirection) {
    const double printed = DayNumberOf({2025, 3, 21, 2, 40, 0, 0, 0});
    const std::string pdf =
        PdfOf(engine, {TextPage("محمد")}, {"تقرير بالإيراد (1) \\ \xF0\x9F\x98\x80", printed});
    EXPECT_THAT(Info(pdf), ContainsRegex("Title: +تقرير بالإيراد \\(1\\) \\\\ \xF0\x9F\x98\x80\n"));
    EXPECT_THAT(Look(pdf, {"pdfinfo", "-rawdates", "{}"}),
                ContainsRegex("CreationDate: +D:20250321024000\n"));
    const std::string plain = ContentOf(pdf);
    EXPECT_THAT(plain, ContainsRegex("/Lang +\\(ar\\)"));
    EXPECT_THAT(plain, ContainsRegex("/Direction +/R2L"));
    EXPECT_THAT(plain, ContainsRegex("/DisplayDocTitle +true"));
}

TEST_F(WriterTest, WithoutTitleNoneIsShown) {
    const std::string pdf = PdfOf(engine, {TextPage("محمد")});
    EXPECT_THAT(Info(pdf), testing::Not(HasSubstr("Title:")));
    EXPECT_THAT(ContentOf(pdf), testing::Not(HasSubstr("DisplayDocTitle")));
    EXPECT_THAT(Info(pdf), testing::Not(HasSubstr("CreationDate")));
}

TEST_F(WriterTest, IsWellFormed) {
    PageMaker maker(engine);
    maker.Text("محمد (أبو علي) مُسدَّدًا 1,234.50", style, 11000, 1000);
    maker.Figures("-12.5%", style, 500, 1000);
    maker.Shape(ItemKind::Rule, 0xA3ACB3, 500, 1100, 9000, 0, 30);
    maker.Shape(ItemKind::Frame, 0x0B3F4F, 500, 1200, 9000, 500, 50);
    maker.Shape(ItemKind::Fill, 0xE4EBEE, 500, 1800, 9000, 500);
    auto picture = std::make_shared<qbrpt::Picture>(qbrpt::Picture{2, 1, {255, 0, 0, 255, 0, 255, 0, 128}});
    maker.Picture(picture, 500, 3000);
    const std::string pdf = PdfOf(engine, {maker.page, TextPage("علي")}, {"عنوان", 45000});
    EXPECT_THAT(Look(pdf, {"qpdf", "--check", "{}"}), HasSubstr("No syntax or stream encoding errors found"));
    EXPECT_THAT(Look(pdf, {"pdftoppm", "-r", "20", "{}"}), testing::StartsWith("P6")) << "a picture";
}

TEST_F(WriterTest, SamePagesSameBytes) {
    const std::vector<Page> pages = {TextPage("محمد علي 2025"), TextPage("خالد PC-05")};
    EXPECT_EQ(PdfOf(engine, pages, {"ع", 45000}), PdfOf(engine, pages, {"ع", 45000}));
    EXPECT_NE(PdfOf(engine, pages, {"ع", 45000}), PdfOf(engine, {pages[0]}, {"ع", 45000}));
}

TEST_F(WriterTest, PagesKeepTheirSizes) {
    Page wide = TextPage("عرض");
    wide.width = 16838;
    wide.height = 11906;
    const std::string pdf = PdfOf(engine, {TextPage("طول"), wide, TextPage("طول")});
    const std::string sizes = Look(pdf, {"pdfinfo", "-f", "1", "-l", "3", "{}"});
    EXPECT_THAT(sizes, ContainsRegex("Page +1 size: +595.3 x 841.9"));
    EXPECT_THAT(sizes, ContainsRegex("Page +2 size: +841.9 x 595.3"));
    EXPECT_THAT(sizes, ContainsRegex("Page +3 size: +595.3 x 841.9"));
}

TEST_F(WriterTest, ManyPagesStandInATree) {
    StringSink sink;
    Writer writer(sink, engine.Fonts(), {});
    for (int i = 1; i <= 1000; ++i)
        writer.AddPage(TextPage("صفحة " + std::to_string(i)));
    writer.Finish();
    EXPECT_EQ(writer.PageCount(), 1000U);
    EXPECT_THAT(Info(sink.bytes), ContainsRegex("Pages: +1000\n"));
    for (const char* page : {"1", "64", "65", "1000"})
        EXPECT_THAT(Look(sink.bytes, {"pdftotext", "-f", page, "-l", page, "{}", "-"}), HasSubstr(page));
    EXPECT_THAT(Look(sink.bytes, {"qpdf", "--check", "{}"}),
                HasSubstr("No syntax or stream encoding errors"));
}

TEST_F(WriterTest, NoPageIsAFailure) {
    StringSink sink;
    Writer writer(sink, engine.Fonts(), {});
    try {
        writer.Finish();
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::Output);
    }
}

TEST_F(WriterTest, AnEmptyPageIsAPage) {
    Page empty;
    empty.width = 11906;
    empty.height = 16838;
    const std::string pdf = PdfOf(engine, {empty});
    EXPECT_THAT(Info(pdf), ContainsRegex("Pages: +1\n"));
    EXPECT_THAT(Look(pdf, {"qpdf", "--check", "{}"}), HasSubstr("No syntax or stream encoding errors"));
}

TEST_F(WriterTest, AFullDiskIsTheCallersFailure) {
    struct FullSink : ByteSink {
        void Write(std::string_view) override {
            throw Failure(FailureNumber::FileAccess, "the disk is full");
        }
    };
    FullSink sink;
    Writer writer(sink, engine.Fonts(), {});
    writer.AddPage(TextPage("محمد"));
    EXPECT_THROW(writer.Finish(), Failure);
}

TEST_F(WriterTest, APictureIsWrittenOnce) {
    const qbrpt::Picture logo{2, 2, std::vector<std::uint8_t>(16, 255)};
    PageMaker one(engine);
    one.Picture(std::make_shared<qbrpt::Picture>(logo), 100, 100);
    PageMaker two(engine);
    two.Picture(std::make_shared<qbrpt::Picture>(logo), 100, 100);
    two.Picture(std::make_shared<qbrpt::Picture>(qbrpt::Picture{1, 1, {1, 2, 3, 4}}), 3000, 100);
    const std::string pdf = PdfOf(engine, {one.page, two.page, one.page});
    const std::string plain = ContentOf(pdf);
    std::size_t images = 0;
    for (std::size_t at = plain.find("/Subtype /Image"); at != std::string::npos;
         at = plain.find("/Subtype /Image", at + 1))
        ++images;
    EXPECT_EQ(images, 3U) << "the logo, the other one, and the other one's transparency";
}

TEST_F(WriterTest, APictureWithoutItsPixelsIsRefused) {
    for (const qbrpt::Picture& broken :
         {qbrpt::Picture{2, 2, {1, 2, 3}}, qbrpt::Picture{0, 0, {}}, qbrpt::Picture{-1, -1, {1, 2, 3, 4}}}) {
        PageMaker maker(engine);
        maker.Picture(std::make_shared<qbrpt::Picture>(broken), 100, 100);
        EXPECT_THROW(PdfOf(engine, {maker.page}), Failure);
    }
}

// Rows of a report come as tint, text, rule, tint, text, rule ...
TEST_F(WriterTest, TextIsOneBlockAboveTheDrawing) {
    PageMaker maker(engine);
    for (report::Twips row = 0; row < 5; ++row) {
        maker.Shape(ItemKind::Fill, 0xE4EBEE, 500, 1000 + row * 340, 9000, 340);
        maker.Text("محمد", style, 9000, 1234 + row * 340);
        maker.Shape(ItemKind::Rule, 0xA3ACB3, 500, 1340 + row * 340, 9000, 0, 30);
    }
    const std::string plain = ContentOf(PdfOf(engine, {maker.page}));
    EXPECT_EQ(plain.find("BT\n"), plain.rfind("BT\n"));
    EXPECT_GT(plain.find("BT\n"), plain.find(" re\n"));
}

TEST_F(WriterTest, WhatCoversTextIsDrawnBehindIt) {
    PageMaker maker(engine);
    maker.Text("محمد", style, 9000, 1234);
    maker.Shape(ItemKind::Fill, 0xFF0000, 500, 1000, 9000, 340);
    const std::string plain = ContentOf(PdfOf(engine, {maker.page}));
    EXPECT_LT(plain.find("BT\n"), plain.find("1 0 0 rg"));
}

TEST_F(WriterTest, FiguresOnOneBaselineKeepTheirPlaces) {
    PageMaker maker(engine);
    const std::vector<report::Twips> places = {9000, 7123, 5011, 2999, 800};
    for (const report::Twips x : places)
        maker.Figures("8", style, x, 1000);
    const std::string boxes = Look(PdfOf(engine, {maker.page}), {"pdftotext", "-bbox", "{}", "-"});
    for (const report::Twips x : places) {
        char expected[32];
        std::snprintf(expected, sizeof expected, "xMin=\"%.1f", x / 20.0);
        EXPECT_THAT(boxes, HasSubstr(std::string(expected).substr(0, std::string(expected).size() - 1)));
    }
}

} // namespace
} // namespace qbrpt::pdf
