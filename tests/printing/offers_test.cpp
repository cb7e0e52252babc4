// Numbers and names of papers and trays.
#include "adapters/printing/cups/offers.h"
#include "base/paper.h"
#include "base/utf8.h"
#include "platform/spooler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace qbrpt {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

struct PaperRow {
    const char* keyword;
    int width;
    int height;
    std::int16_t code;
    const char* name;
};

constexpr PaperRow KnownRows[] = {
    {"iso_a4_210x297mm", 21000, 29700, 9, "A4"},
    {"iso_a4_210x297mm_borderless", 20990, 29704, 9, "A4"}, // whole points
    {"iso_a5_148x210mm", 14817, 20990, 11, "A5"},
    {"iso_a3_297x420mm", 29704, 41981, 8, "A3"},
    {"iso_a6_105x148mm", 10500, 14800, 70, "A6"},
    {"na_letter_8.5x11in", 21590, 27940, 1, "Letter"},
    {"na_legal_8.5x14in", 21590, 35560, 5, "Legal"},
    {"na_executive_7.25x10.5in", 18415, 26670, 7, "Executive"},
    {"na_ledger_11x17in", 27940, 43180, 3, "Tabloid"},
    {"jis_b5_182x257mm", 18200, 25700, 13, "B5 (JIS)"},
    {"iso_b5_176x250mm", 17600, 25000, 34, "B5 (ISO)"},
    {"iso_dl_110x220mm", 11000, 22000, 27, "ظرف DL"},
    {"iso_c5_162x229mm", 16200, 22900, 28, "ظرف C5"},
    {"na_number-10_4.125x9.5in", 10477, 24130, 20, "ظرف 10"},
    {"na_monarch_3.875x7.5in", 9843, 19050, 37, "ظرف Monarch"},
};

TEST(Papers, TheUsualOnesHaveTheirUsualNumbers) {
    for (const PaperRow& row : KnownRows) {
        SCOPED_TRACE(row.keyword);
        const auto papers = PapersOf({{row.keyword, row.width, row.height}});
        ASSERT_THAT(papers, SizeIs(1));
        EXPECT_EQ(papers[0].code, row.code);
        EXPECT_EQ(papers[0].name, row.name);
        EXPECT_EQ(papers[0].keyword, row.keyword);
        EXPECT_EQ(papers[0].width, row.width); // as the printer says it
    }
}

constexpr PaperRow OwnRows[] = {
    {"custom_211.67x423.33mm_211.67x423.33mm", 21167, 42333, 0, "211.7 × 423.3 مم"},
    {"om_small-photo_100x150mm", 10000, 15000, 0, "Small photo 100 × 150 مم"},
    {"na_index-4x6_4x6in", 10160, 15240, 0, "Index 4x6 101.6 × 152.4 مم"},
    {"roc_16k_195x270mm", 19500, 27000, 0, "16k 195 × 270 مم"},
    {"nothing-usual", 5000, 5000, 0, "50 × 50 مم"},
};

TEST(Papers, APrintersOwnAreNumberedFrom256UpByTheirSizeAlone) {
    std::vector<ListedMedia> all;
    for (const PaperRow& row : OwnRows)
        all.push_back({row.keyword, row.width, row.height});
    const auto together = PapersOf(all);
    for (std::size_t i = 0; i < together.size(); ++i) {
        SCOPED_TRACE(OwnRows[i].keyword);
        EXPECT_GE(together[i].code, FirstOwnPaper);
        EXPECT_EQ(together[i].name, OwnRows[i].name);
        EXPECT_EQ(PapersOf({all[i]})[0].code, together[i].code);
    }
}

TEST(Papers, TheSameSizeTwiceIsOnePaper) {
    EXPECT_THAT(PapersOf({{"iso_a4_210x297mm", 21000, 29700},
                          {"iso_a4_210x297mm_borderless", 20990, 29704},
                          {"custom_a_50x60mm", 5000, 6000},
                          {"custom_b_50x60mm", 5000, 6000}}),
                SizeIs(2));
}

TEST(Papers, WithoutASizeTheyAreNone) {
    EXPECT_THAT(PapersOf({{"custom", 0, 0}, {"roll", 21000, 0}}), IsEmpty());
}

TEST(Papers, SixHundredHaveSixHundredNumbers) {
    std::vector<ListedMedia> media;
    for (int i = 0; i < 600; ++i)
        media.push_back({"custom_" + std::to_string(i) + "_x", 5000 + 100 * i, 60000});
    const auto papers = PapersOf(media);
    ASSERT_THAT(papers, SizeIs(600));
    std::set<std::int16_t> codes;
    for (const PrinterPaper& paper : papers)
        codes.insert(paper.code);
    EXPECT_THAT(codes, SizeIs(600));
    EXPECT_GE(*codes.begin(), FirstOwnPaper);
}

TEST(Papers, TheStandardOnesFitTheirFieldsAndAreOfDifferentSizes) {
    for (const StandardPaper& paper : StandardPapers()) {
        EXPECT_LE(CharacterCount(paper.name), PaperNameField);
        EXPECT_LE(paper.width, paper.height) << paper.name;
        EXPECT_EQ(StandardPaperOf(paper.width, paper.height), &paper) << paper.name;
        EXPECT_EQ(StandardPaperNumbered(paper.number), &paper) << paper.name;
    }
    EXPECT_EQ(StandardPaperOf(5000, 5000), nullptr);
    EXPECT_EQ(StandardPaperNumbered(256), nullptr);
}

struct BinRow {
    const char* keyword;
    std::int16_t code; ///< 0: one of the printer's own
    const char* name;
};

constexpr BinRow BinRows[] = {
    {"auto", 7, "تلقائي"},
    {"manual", 4, "تغذية يدوية"},
    {"main", 14, "درج رئيسي"},
    {"top", 1, "درج علوي"},
    {"bottom", 2, "درج سفلي"},
    {"envelope", 5, "درج الأظرف"},
    {"tray-1", 0, "درج 1"},
    {"tray-12", 0, "درج 12"},
    {"by-pass-tray", 0, "درج جانبي"},
    {"large-capacity", 11, "درج كبير"},
    {"fancy_new-tray", 0, "Fancy new tray"},
};

TEST(Bins, HaveNumbersAndNamesThatFitTheirField) {
    std::vector<std::string> keywords;
    for (const BinRow& row : BinRows)
        keywords.emplace_back(row.keyword);
    keywords.emplace_back("auto"); // twice
    const auto bins = BinsOf(keywords);
    ASSERT_THAT(bins, SizeIs(std::size(BinRows)));
    std::set<std::int16_t> codes;
    for (std::size_t i = 0; i < bins.size(); ++i) {
        SCOPED_TRACE(BinRows[i].keyword);
        EXPECT_EQ(bins[i].keyword, BinRows[i].keyword);
        EXPECT_EQ(bins[i].name, BinRows[i].name);
        EXPECT_LE(CharacterCount(bins[i].name), BinNameField);
        if (BinRows[i].code != 0) {
            EXPECT_EQ(bins[i].code, BinRows[i].code);
        } else {
            EXPECT_GE(bins[i].code, FirstOwnPaper);
            EXPECT_EQ(BinsOf({keywords[i]})[0].code, bins[i].code);
        }
        codes.insert(bins[i].code);
    }
    EXPECT_THAT(codes, SizeIs(bins.size()));
}

} // namespace
} // namespace qbrpt
