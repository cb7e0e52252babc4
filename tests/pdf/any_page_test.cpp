// Whatever stands on a page, the file is one that other programs take without a word.
#include "pdf/pdf_help.h"
#include "text/random_text.h"

#include <gmock/gmock.h>

#include <iostream>

namespace qbrpt::pdf {
namespace {

using namespace test;

TEST(AnyPage, GivesASoundFile) {
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937 random(seed);
    const auto upTo = [&random](unsigned bound) { return static_cast<report::Twips>(random() % bound); };
    text::TextEngine engine;
    const std::vector<report::StyleId> styles = {engine.Style({"Noto Sans Arabic", 170, false}),
                                                 engine.Style({"Noto Kufi Arabic", 340, true}),
                                                 engine.Style({"DejaVu Sans Mono", 300, true})};
    std::vector<Page> pages;
    for (int i = 0; i < 30; ++i) {
        PageMaker maker(engine);
        for (int item = 0; item < 40; ++item) {
            const report::StyleId style = styles[random() % styles.size()];
            switch (random() % 4) {
            case 0:
                maker.Figures(std::to_string(random()), style, upTo(12000), upTo(17000));
                break;
            case 1:
                maker.Shape(static_cast<ItemKind>(2 + random() % 3), random() & 0xFFFFFFU, upTo(12000),
                            upTo(17000), upTo(5000), upTo(5000), upTo(200));
                break;
            default:
                maker.Text(text::test::RandomText(random), style, upTo(12000), upTo(17000));
            }
        }
        pages.push_back(maker.page);
    }
    const std::string pdf = PdfOf(engine, pages, {text::test::RandomText(random), 45000});
    EXPECT_THAT(Look(pdf, {"qpdf", "--check", "{}"}),
                testing::HasSubstr("No syntax or stream encoding errors found"));
    EXPECT_THAT(Look(pdf, {"pdftotext", "{}", "-"}), testing::Not(testing::StartsWith("status")));
    EXPECT_THAT(Look(pdf, {"pdftoppm", "-r", "20", "{}"}), testing::StartsWith("P6")) << "a picture";
}

} // namespace
} // namespace qbrpt::pdf
