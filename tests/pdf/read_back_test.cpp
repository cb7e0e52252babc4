// What stands on a page can be searched and copied: other programs read it back letter for letter.
#include "pdf/pdf_help.h"

#include <gmock/gmock.h>

namespace qbrpt::pdf {
namespace {

using namespace test;

struct Face {
    const char* name;
    report::FontSpec font;
    const char* embedded; ///< of the face that must be in the file
};

class ReadBack : public testing::TestWithParam<Face> {
protected:
    // Each text on a line of its own; the lines as they come back.
    std::vector<std::string> Lines(const std::vector<std::string>& texts) {
        PageMaker maker(engine);
        maker.page.width = 24000; // room for the longest title in the widest face
        report::Twips baseline = 500;
        for (const std::string& text : texts)
            maker.Text(text, style, 23000, baseline += 2 * GetParam().font.size);
        pdf = PdfOf(engine, {maker.page});
        return LinesOf(TextOf(pdf));
    }

    text::TextEngine engine;
    report::StyleId style = engine.Style(GetParam().font);
    std::string pdf;
};

const std::vector<std::string> names = {"محمد عبد الله السالم",
                                        "هدى عبد الرحمن المسلماني",
                                        "سيف عبيد الظاهري",
                                        "أحمد إبراهيم آل ثاني",
                                        "مؤمن رؤوف لؤي",
                                        "فائزة مسؤولة",
                                        "هيئة بيئة",
                                        "سماء صفاء",
                                        "علاء الدين",
                                        "الله",
                                        "عبدالله",
                                        "بالله",
                                        "والله",
                                        "لله",
                                        "اللّٰه أكبر",
                                        "لا إله",
                                        "لأحمد",
                                        "لإبراهيم",
                                        "لآمال",
                                        "الآن",
                                        "الأمل",
                                        "الإسلام",
                                        "فيلا",
                                        "كلاً",
                                        "قيدًا لاعبًا",
                                        "مُسدَّدًا",
                                        "يومًا",
                                        "طُبع",
                                        "شيءٌ",
                                        "مُحَمَّدٌ",
                                        "سُلَيْمان",
                                        "محـــمد",
                                        "تطويـــل",
                                        "يوسف",
                                        "زينب",
                                        "ذكرى",
                                        "ثريا",
                                        "خديجة",
                                        "غادة",
                                        "ضحى",
                                        "طارق",
                                        "قاسم",
                                        "كوثر",
                                        "نهى",
                                        "وداد",
                                        "ياسمين",
                                        "جاسم حجي",
                                        "شمّاء",
                                        "صالح",
                                        "ظافر",
                                        "موسى عيسى",
                                        "هالة",
                                        "ءامنة",
                                        "أب",
                                        "ب",
                                        "د",
                                        "دار",
                                        "ورد ووزر",
                                        "پژمان گلزار",
                                        "چای",
                                        "ڤيصل",
                                        "نجلاء لالا",
                                        "أأإإآآ",
                                        "لالالا",
                                        "ﷲ"};

TEST_P(ReadBack, EveryNameLetterForLetter) {
    ASSERT_GE(names.size(), 60U);
    for (std::size_t first = 0; first < names.size(); first += 20) {
        const std::size_t end = std::min(first + 20, names.size());
        const std::vector<std::string> some(names.begin() + static_cast<std::ptrdiff_t>(first),
                                            names.begin() + static_cast<std::ptrdiff_t>(end));
        EXPECT_THAT(Lines(some), testing::ElementsAreArray(some));
    }
    EXPECT_TRUE(engine.MissingGlyphs().empty());
}

TEST_P(ReadBack, FiguresAndLatinWordsAmongArabic) {
    const std::vector<std::string> texts = {"صفحة 3 من 12",
                                            "طُبع في 21/03/2025 02:40",
                                            "من 02-03-2025 إلى 05-03-2025",
                                            "هاتف 011-4455667",
                                            "هاتف 44 501 55 · مفتوح من 09:00 إلى 02:00",
                                            "جهاز PC-05 محجوز",
                                            "جهاز 05-PC رقم",
                                            "رصيد -0.35 فقط",
                                            "نسبة 400 % و 12.5% فقط",
                                            "نسخة Windows 10 Pro جديدة",
                                            "بريد a@b.com موقع http://x.qa/ab",
                                            "لغة C++ جيدة",
                                            "شارع الميناء، بجوار مكتبة الواحة",
                                            "محمد (أبو علي)",
                                            "قيود (12) هنا",
                                            "٢٠٢٥/٠٣/٠١ تاريخ"};
    EXPECT_THAT(Lines(texts), testing::ElementsAreArray(texts));
}

TEST_P(ReadBack, TitlesOnceBlanksAreRemoved) {
    const auto packed = [](std::vector<std::string> lines) {
        for (std::string& line : lines)
            std::erase(line, ' ');
        return lines;
    };
    const std::vector<std::string> titles = {
        "تقرير بالإيراد من السبت 01 مارس إلى الخميس 20 مارس 2025",
        "تقرير بالإيراد ليوم السبت 01 مارس 2025",
        "تقرير بالإيراد لشهر مارس 2025",
        "تقرير من يناير 2024 إلى مارس 2025",
        "تقرير ليوم السبت 01 مارس 2025  09:00ص",
        "المصروفات الخارجية من السبت 01 مارس  09:00ص إلى الأحد 02 مارس 2025  01:30م",
        "استخدام الجهاز PC-05 ليوم الأحد 02 مارس 2025",
        "حركة القيد الكلية"};
    EXPECT_EQ(packed(Lines(titles)), packed(titles));
}

TEST_P(ReadBack, EveryFontIsEmbeddedAsASubset) {
    Lines({"محمد PC-05 2025"});
    const std::vector<std::string> fonts = LinesOf(Look(pdf, {"pdffonts", "{}"}));
    ASSERT_GE(fonts.size(), 3U) << "two lines of heading, then the fonts";
    for (std::size_t i = 2; i < fonts.size(); ++i)
        EXPECT_THAT(fonts[i], testing::ContainsRegex("^[A-Z]{6}\\+.* CID TrueType +Identity-H +yes yes yes"));
    EXPECT_THAT(fonts, testing::Contains(testing::HasSubstr(GetParam().embedded)));
}

INSTANTIATE_TEST_SUITE_P(
    Faces, ReadBack,
    testing::Values(Face{"Body", {"Noto Sans Arabic", 170, false}, "+NotoSansArabic-Regular "},
                    Face{"BodyBold", {"Noto Sans Arabic", 180, true}, "+NotoSansArabic-Bold "},
                    Face{"Heading", {"Noto Kufi Arabic", 340, true}, "+NotoKufiArabic-Bold "},
                    Face{"Condensed", {"DejaVu Sans Condensed", 170, false}, "+DejaVuSansCondensed "},
                    Face{"LastOfTheChain", {"DejaVu Sans", 170, false}, "+DejaVuSans "},
                    Face{"LastOfTheChainBold", {"DejaVu Sans", 340, true}, "+DejaVuSans-Bold "}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadBackFigures, GiveThePlainCharacters) {
    text::TextEngine engine;
    PageMaker maker(engine);
    const auto style = engine.Style({"Noto Sans Arabic", 170, false});
    report::Twips baseline = 1000;
    const std::vector<std::string> figures = {"1,234.50", "0.00",   "12.5%", "21/03/2025",
                                              "02:40",    "473:40", "-8"};
    for (const std::string& text : figures)
        maker.Figures(text, style, 3000, baseline += 340);
    EXPECT_EQ(LinesOf(TextOf(PdfOf(engine, {maker.page}))), figures);
}

TEST(ReadBackColumns, StayApartAndInTheirRow) {
    text::TextEngine engine;
    PageMaker maker(engine);
    const auto style = engine.Style({"Noto Sans Arabic", 170, false});
    maker.Text("محمد علي", style, 11000, 1000);
    maker.Figures("1,234.50", style, 7000, 1000);
    maker.Text("الدوحة", style, 5000, 1000);
    const std::string text = Look(PdfOf(engine, {maker.page}), {"pdftotext", "-layout", "{}", "-"});
    for (const char* cell : {"محمد علي", "1,234.50", "الدوحة"})
        EXPECT_THAT(text, testing::HasSubstr(cell));
}

} // namespace
} // namespace qbrpt::pdf
