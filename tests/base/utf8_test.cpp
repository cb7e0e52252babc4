#include "base/utf8.h"

#include <gtest/gtest.h>

#include <random>

namespace qbrpt {
namespace {

TEST(Utf8, WritesWhatItReads) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character == 0xD800) character = 0xE000; // halves of pairs are no characters
        std::string text;
        AppendCharacter(text, character);
        std::size_t at = 0;
        ASSERT_EQ(NextCharacter(text, at), character);
        ASSERT_EQ(at, text.size());
    }
}

TEST(Utf8, StepsOverOneBadByte) {
    struct Row {
        const char* name;
        std::string text;
        std::size_t characters;
    };
    const Row rows[] = {{"lone continuation", "\x80", 1},
                        {"overlong slash", "\xC0\xAF", 2},
                        {"overlong in three bytes", "\xE0\x80\xAF", 3},
                        {"half of a pair", "\xED\xA0\x80", 3},
                        {"above the last character", "\xF4\x90\x80\x80", 4},
                        {"cut short", "\xE0\xA4", 2},
                        {"lead before a letter",
                         "\xD8"
                         "a",
                         2},
                        {"never a byte", "\xFF\xFE", 2},
                        {"good between bad", "\xFFع\xFF", 3},
                        {"Windows Arabic", "\xE3\xE1", 2}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(CharacterCount(row.text), row.characters);
        std::size_t at = 0;
        EXPECT_EQ(NextCharacter(row.text, at), ReplacementCharacter);
        EXPECT_EQ(at, 1U);
        EXPECT_EQ(CharacterCount(ValidUtf8(row.text)), row.characters);
    }
}

TEST(Utf8, CountsAndCutsByCharacters) {
    EXPECT_EQ(CharacterCount(""), 0U);
    EXPECT_EQ(CharacterCount("abc"), 3U);
    EXPECT_EQ(CharacterCount("عميل"), 4U);
    EXPECT_EQ(FirstCharacters("عميل", 2), "عم");
    EXPECT_EQ(FirstCharacters("عميل", 0), "");
    EXPECT_EQ(FirstCharacters("عميل", 9), "عميل");
    EXPECT_EQ(FirstCharacters("a\xF0\x9F\x99\x82"
                              "b",
                              2),
              "a\xF0\x9F\x99\x82");
}

TEST(Utf8, ValidTextComesBackUnchanged) {
    EXPECT_EQ(ValidUtf8("عميل abc \xF0\x9F\x99\x82"), "عميل abc \xF0\x9F\x99\x82");
    EXPECT_EQ(ValidUtf8("a\xFF"
                        "b"),
              "a\xEF\xBF\xBD"
              "b");
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int i = 0; i < 2'000; ++i) {
        std::string bytes(random() % 40, ' ');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 256);
        const std::string valid = ValidUtf8(bytes);
        ASSERT_EQ(ValidUtf8(valid), valid);
        ASSERT_EQ(CharacterCount(valid), CharacterCount(bytes));
    }
}

} // namespace
} // namespace qbrpt
