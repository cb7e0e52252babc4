// Whatever bytes a database holds, text is laid out, ends, and keeps within its width.
#include "base/utf8.h"
#include "text/random_text.h"
#include "text/text_help.h"

#include <gtest/gtest.h>

#include <iostream>
#include <random>

namespace qbrpt::text {
namespace {

using namespace test;

TEST(AnyBytes, AreLaidOut) {
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937 random(seed);
    TextEngine engine;
    const std::vector<report::StyleId> styles = {engine.Style(Body),
                                                 engine.Style({"Noto Kufi Arabic", 250, true}),
                                                 engine.Style({"DejaVu Sans Mono", 300, true})};
    for (int i = 0; i < 4000; ++i) {
        const std::string text = RandomText(random);
        const auto style = styles[random() % styles.size()];
        const auto base = random() % 4 == 0 ? BaseDirection::LeftToRight : BaseDirection::RightToLeft;
        const auto width = static_cast<report::Twips>(random() % 4000);
        const auto block = engine.Layout(text, style, width, base);
        const auto oneLine = engine.Layout(text, style, 0, base);
        ASSERT_EQ(engine.Width(text, style, base), oneLine->width) << testing::PrintToString(text);
        for (const report::TextLine& line : block->lines) {
            for (const report::PlacedWord& placed : line.words) {
                ASSERT_NE(placed.word, nullptr);
                ASSERT_EQ(ValidUtf8(placed.word->text), placed.word->text);
                ASSERT_LE(placed.x + placed.word->width, line.width) << testing::PrintToString(text);
            }
        }
    }
    EXPECT_LE(engine.MissingGlyphs().size(), 256U);
}

TEST(AnyBytes, InvalidOnesShowAsReplacementCharacters) {
    TextEngine engine;
    const auto block = engine.Layout("a\xFF\xC3", engine.Style(Body), 0, BaseDirection::LeftToRight);
    std::string text;
    for (const auto& placed : block->lines.at(0).words)
        text += placed.word->text;
    EXPECT_EQ(text, "a\xEF\xBF\xBD\xEF\xBF\xBD");
}

} // namespace
} // namespace qbrpt::text
