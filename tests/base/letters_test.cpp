#include "base/letters.h"

#include <gtest/gtest.h>

#include <string>

namespace qbrpt {
namespace {

struct PairRow {
    const char* name;
    const char* one;
    const char* other;
    bool same;
};

class Pairs : public ::testing::TestWithParam<PairRow> {};

TEST_P(Pairs, AreOneTextOrTwo) {
    const PairRow& row = GetParam();
    EXPECT_EQ(SameFolded(row.one, row.other), row.same);
    EXPECT_EQ(SameFolded(row.other, row.one), row.same);
    EXPECT_TRUE(SameFolded(row.one, row.one));
}

const PairRow PairRows[] = {
    {"Nothing", "", "", true},
    {"Latin", "Till 2", "tILL 2", true},
    {"Accents", "CAFÉ", "café", true},
    {"LatinOfTurkeyAndPoland", "ŞĞŁŻ", "şğłż", true},
    {"LatinOfVietnam", "ẤẠ", "ấạ", true},
    {"YWithTwoPoints", "Ÿ", "ÿ", true},
    {"Cyrillic", "СЕЙФ", "сейф", true},
    {"CyrillicOfOtherTongues", "ЂЀӐӀ", "ђѐӑӏ", true},
    {"Greek", "ΑΒΓ", "αβγ", true},
    {"GreekWithMarks", "Ά Ώ ᾈ", "ά ώ ᾀ", true},
    {"FinalSigma", "ΣΑΣ", "σας", true},
    {"Armenian", "ԱՖ", "աֆ", true},
    {"Georgian", "ᲐᲑ", "აბ", true},
    {"FullWidth", "ＡＺ", "ａｚ", true},
    {"LongS", "ſ", "S", true},
    {"SignOfKelvin", "\xE2\x84\xAA", "k", true},
    {"SharpSAlone", "ẞ", "ß", true},
    {"BeyondTheFirstPlane", "𐐀", "𐐨", true},
    {"SameArabic", "الصندوق", "الصندوق", true},

    {"AccentCounts", "café", "cafe", false},
    {"HamzaCounts", "ا", "أ", false},
    {"TehMarbuta", "ه", "ة", false},
    {"VowelMarkCounts", "مُعاذ", "معاذ", false},
    {"SharpSIsNotTwoLetters", "ß", "ss", false},
    {"DottedI", "İ", "i", false},
    {"BareI", "I", "ı", false},
    {"LatinAndCyrillic", "A", "А", false},
    {"LatinAndFullWidth", "A", "Ａ", false},
    {"Longer", "Till", "Till ", false},
    {"LongerByALetterOfTwoBytes", "é", "éé", false},
    {"Shorter", "", "a", false},
    {"CutShort", "\xD0", "\xD0\xA1", false},
};
INSTANTIATE_TEST_SUITE_P(Rows, Pairs, ::testing::ValuesIn(PairRows),
                         [](const auto& row) { return row.param.name; });

struct CaseRow {
    const char* name;
    char32_t capital, small;
};

class Cases : public ::testing::TestWithParam<CaseRow> {};

TEST_P(Cases, GoBothWays) {
    const auto [name, capital, small] = GetParam();
    EXPECT_EQ(SmallLetter(capital), small);
    EXPECT_EQ(CapitalLetter(small), capital);
    EXPECT_EQ(SmallLetter(small), small);
    EXPECT_EQ(CapitalLetter(capital), capital);
}

const CaseRow CaseRows[] = {
    {"FirstOfLatin", U'A', U'a'}, {"LastOfLatin", U'Z', U'z'},    {"BeforeLatin", U'@', U'@'},
    {"BehindLatin", U'[', U'['},  {"Accent", U'É', U'é'},         {"Times", U'×', U'×'},
    {"EverySecond", U'Ł', U'ł'},  {"YWithTwoPoints", U'Ÿ', U'ÿ'}, {"Cyrillic", U'Я', U'я'},
    {"CyrillicIo", U'Ё', U'ё'},   {"Sigma", U'Σ', U'σ'},          {"Alpha", U'Ἀ', U'ἀ'},
    {"Arabic", U'ع', U'ع'},       {"Hebrew", U'א', U'א'},         {"Chinese", U'中', U'中'},
    {"Adlam", 0x1E900, 0x1E922},  {"Georgian", U'ა', U'ა'},       {"LastCharacter", 0x10FFFF, 0x10FFFF}};
INSTANTIATE_TEST_SUITE_P(Rows, Cases, ::testing::ValuesIn(CaseRows),
                         [](const auto& row) { return row.param.name; });

TEST(Letters, EveryCapitalComesBackFromItsSmallOne) {
    int pairs = 0;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        const char32_t small = SmallLetter(character);
        if (small == character) continue;
        ++pairs;
        ASSERT_EQ(CapitalLetter(small), character);
        ASSERT_EQ(FoldedLetter(character), small);
    }
    EXPECT_GT(pairs, 1000);
}

} // namespace
} // namespace qbrpt
