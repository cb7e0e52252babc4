#include "adapters/qt/viewer/page_hits.h"
#include "adapters/qt/viewer/page_store.h"
#include "adapters/qt/viewer/text_folding.h"
#include "viewer_fixture.h"

#include <gmock/gmock.h>

namespace qbrpt::viewer {
namespace {

using testing::HasSubstr;

class Readings : public LiveReports {
protected:
    Readings() { UseRealText(); }
    std::shared_ptr<BuiltPage> PageOf(const std::string& name, std::vector<fakes::Row> rows) {
        store = std::make_unique<PageStore>(Filled(name, std::move(rows)));
        return store->At(0);
    }
    static std::string All(BuiltPage& page) { return page.Reading().Text(0, page.Reading().Words().size()); }
    std::unique_ptr<PageStore> store;
};

TEST_F(Readings, ReadRowsFromTheRightAndLinesOfACellTogether) {
    struct Row {
        const char* name;
        const char* report;
        std::vector<fakes::Row> rows;
        std::string text;
    };
    const std::string details = "مصروفات صيانة الأجهزة والشبكة بتاريخ 02-03-2025 مصروفات صيانة";
    const Row rows[] = {
        {"captions", "PayOutRpt", NamedPayments(2), "المصروفات الخارجية\nالتاريخ\tالبيان\tالمبلغ\n"},
        {"figures, words and dates", "PayOutRpt", NamedPayments(2),
         "\n01/03/2025 00:00\tفاتورة كهرباء أحمد\t337.00\n01/03/2025 08:52\tورق طباعة 1\t123.00\n"},
        {"a total, whose label is written last", "PayOutRpt", NamedPayments(12),
         "\nالمجموع\t12 دفعة\t6,035.25\n"},
        {"a cell of several lines", "PayOutRpt", samples::FullPayments(1), "\n31/12/2025 23:59\t" + details},
        {"a day name with its date", "IncomeGrpRpt", samples::IncomeMonth(), "\nالسبت 01 مارس 2025\t09:00\t"},
        {"the footer", "PayOutRpt", NamedPayments(2), "\nصفحة 1 من 1\tطُبع في 14/01/2004 12:00"},
    };
    for (const Row& row : rows)
        EXPECT_THAT(All(*PageOf(row.report, row.rows)), HasSubstr(row.text)) << row.name;
}

TEST_F(Readings, ValuesComeBackLetterForLetter) {
    struct Row {
        const char* name;
        std::string details;
    };
    const Row rows[] = {
        {"vowel marks", "مُحَمَّد بنُ عبدِ اللهِ"},
        {"Latin words in Arabic", "خدمة Wi-Fi Pro للمقهى"},
        {"Latin words alone", "Daniel Ortiz Junior"},
        {"figures and marks", "خصم 15% (عرض 3)"},
        {"a date in words", "فاتورة 02-03-2025 مدفوعة"},
        {"a mixed word", "جهازPC5"},
        {"lam alef", "إيصال الإلكترونيات لا"},
    };
    for (const Row& row : rows) {
        std::vector<fakes::Row> payments = samples::Payments(1);
        payments[0][2] = row.details;
        EXPECT_THAT(All(*PageOf("PayOutRpt", payments)), HasSubstr("\t" + row.details + "\t")) << row.name;
    }
}

TEST_F(Readings, FindsHitsWithTheirPlaces) {
    struct Row {
        const char* name;
        const char* query;
        std::size_t hits;
    };
    const auto page = PageOf("PayOutRpt", NamedPayments(25));
    const Row rows[] = {
        {"another form of alef", "احمد", 3},
        {"a part of a word", "هرب", 3},
        {"over a blank", "كهرباء أحمد", 3},
        {"not over cells", "أحمد 337", 0},
        {"figures", "337.00", 1},
        {"Arabic figures", "٣٣٧", 1},
        {"nothing", "زرافة", 0},
    };
    for (const Row& row : rows) {
        const auto hits = HitsOn(page->Reading(), FoldQuery(row.query));
        EXPECT_EQ(hits.size(), row.hits) << row.name;
        EXPECT_EQ(CountHits(page->Reading(), FoldQuery(row.query)), row.hits) << row.name;
        for (const PageHit& hit : hits)
            for (const PageBox& box : hit.boxes) {
                EXPECT_LT(box.left, box.right) << row.name;
                EXPECT_LT(box.top, box.bottom) << row.name;
                EXPECT_TRUE(box.left >= 0 && box.right <= page->Page().width) << row.name;
            }
    }
    EXPECT_TRUE(HitsOn(page->Reading(), U"").empty());
}

TEST_F(Readings, APartOfAWordIsMarkedWhereItIsDrawn) {
    const auto page = PageOf("PayOutRpt", NamedPayments(1));
    const auto whole = HitsOn(page->Reading(), FoldQuery("كهرباء")).at(0).boxes.at(0);
    const auto first = HitsOn(page->Reading(), FoldQuery("كهر")).at(0).boxes.at(0);
    const auto last = HitsOn(page->Reading(), FoldQuery("باء")).at(0).boxes.at(0);
    EXPECT_NEAR(first.right, whole.right, 2) << "reading begins at the right";
    EXPECT_NEAR(last.left, whole.left, 2);
    EXPECT_NEAR(first.left, last.right, 2);
    const auto figures = HitsOn(page->Reading(), FoldQuery("337.00")).at(0).boxes.at(0);
    const auto cents = HitsOn(page->Reading(), FoldQuery("7.00")).at(0).boxes.at(0);
    EXPECT_NEAR(cents.right, figures.right, 2) << "figures are drawn from the left";
    EXPECT_GT(cents.left, figures.left);
}

TEST_F(Readings, TheNearestWordIsTheOneOfTheOwnLine) {
    const auto page = PageOf("PayOutRpt", NamedPayments(3));
    const auto& words = page->Reading().Words();
    for (std::size_t i = 0; i < words.size(); ++i) {
        const PageBox& box = words[i].box;
        EXPECT_EQ(page->Reading().WordNear((box.left + box.right) / 2, (box.top + box.bottom) / 2), i);
    }
    EXPECT_EQ(page->Reading().WordNear(page->Page().width, 0), 0U);
}

} // namespace
} // namespace qbrpt::viewer
