// Windows and statements fold letters by a table of their own, the order of text by the installed rules.
#include "adapters/database/sqlite/text_order.h"
#include "base/letters.h"
#include "base/utf8.h"

#include <gmock/gmock.h>
#include <unicode/uchar.h>

#include <string>
#include <vector>

namespace qbrpt::database {
namespace {

TEST(LetterCase, FoldsAsTheInstalledRulesDo) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        // Newer rules may know letters that the table does not.
        UVersionInfo age;
        u_charAge(static_cast<UChar32>(character), age);
        if (age[0] > 15) continue;
        ASSERT_EQ(FoldedLetter(character),
                  static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT)))
            << std::hex << static_cast<std::uint32_t>(character);
    }
}

TEST(LetterCase, WhatIsOneNameInAWindowIsOneInTheOrderOfText) {
    const auto text = [](char32_t character) {
        std::string made;
        AppendCharacter(made, character);
        return made;
    };
    std::vector<char32_t> toldApart;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (TextOrder::Shared().Compare(text(character), text(FoldedLetter(character))) != 0)
            toldApart.push_back(character);
    }
    // The long s, alone and with a point, and the iota that stands below a letter.
    EXPECT_THAT(toldApart, ::testing::ElementsAre(0x17F, 0x345, 0x1E9B));
}

} // namespace
} // namespace qbrpt::database
