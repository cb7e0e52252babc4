#include "adapters/qt/viewer/text_folding.h"

#include <gtest/gtest.h>

namespace qbrpt::viewer {
namespace {

TEST(TextFolding, WhatReadsAlikeIsAlike) {
    struct Row {
        const char* name;
        const char* one;
        const char* other;
        bool alike;
    };
    const Row rows[] = {
        {"vowel marks", "مُحَمَّد", "محمد", true},
        {"superscript alef", "رحمٰن", "رحمن", true},
        {"tatweel", "محـــمد", "محمد", true},
        {"alef with hamza above", "أحمد", "احمد", true},
        {"alef with hamza below", "إيراد", "ايراد", true},
        {"alef with madda", "آلة", "الة", true},
        {"alef wasla", "ٱلله", "الله", true},
        {"hamza as a mark of its own", "أحمد", "أحمد", true},
        {"Arabic figures", "٢٠٢٥", "2025", true},
        {"Persian figures", "۲۰۲۵", "2025", true},
        {"Arabic figure marks", "١٬٢٣٤٫٥٠", "1,234.50", true},
        {"letter case", "Daniel ORTIZ", "daniel ortiz", true},
        {"letter case beyond Latin", "ÉCOLE Ω", "école ω", true},
        {"several blanks", "ورق   طباعة", "ورق طباعة", true},
        {"no-break blank", "ورق\u00A0طباعة", "ورق طباعة", true},
        {"blanks at the ends", "  ورق ", "ورق", true},
        {"order signs", "\u200Fورق\u2069", "ورق", true},
        {"minus", "\u221215", "-15", true},
        {"ta marbuta and ha", "قهوة", "قهوه", false},
        {"alef maqsura and ya", "على", "علي", false},
        {"waw with hamza", "مؤسسة", "موسسة", false},
        {"other letters", "سالم", "سليم", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FoldQuery(row.one) == FoldQuery(row.other), row.alike) << row.name;
    EXPECT_TRUE(FoldQuery(" \u064E \u0640").empty()) << "nothing left to look for";
}

TEST(TextFolding, LettersKnowTheBytesThatTheyCameFrom) {
    FoldedText text;
    text.Append("أَب", 7); // alef 2 bytes, fatha 2, ba 2
    ASSERT_EQ(text.Letters(), U"اب");
    EXPECT_EQ(text.SourceOf(0).word, 7U);
    EXPECT_EQ(text.SourceOf(0).firstByte, 0U);
    EXPECT_EQ(text.SourceOf(0).endByte, 4U) << "with its mark";
    EXPECT_EQ(text.SourceOf(1).firstByte, 4U);
    EXPECT_EQ(text.SourceOf(1).endByte, 6U);
}

TEST(TextFolding, EndsArePartOfNoQuery) {
    FoldedText text;
    text.Append("a", 0);
    text.AppendEnd();
    text.Append("b", 1);
    text.AppendBlank();
    text.AppendBlank();
    text.Append("c", 2);
    EXPECT_EQ(text.Letters(), std::u32string({U'a', 0, U'b', U' ', U'c'}));
    EXPECT_EQ(FoldQuery(std::string_view("a\0b", 3)), U"ab") << "a control character typed";
}

} // namespace
} // namespace qbrpt::viewer
