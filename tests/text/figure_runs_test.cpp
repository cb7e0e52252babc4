#include "adapters/text/figure_runs.h"
#include "base/utf8.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace qbrpt::text {
namespace {

struct Row {
    const char* name;
    const char32_t* text;
    std::vector<std::string> runs; ///< "!" in front: not shut off from its neighbours
};

class FigureRuns : public testing::TestWithParam<Row> {};

TEST_P(FigureRuns, AreFound) {
    const std::u32string_view text = GetParam().text;
    std::vector<std::string> found;
    for (const FigureRun& run : FindFigureRuns(text)) {
        std::string& one = found.emplace_back(run.isolated ? "" : "!");
        for (const char32_t c : text.substr(run.first, run.length))
            AppendCharacter(one, c);
    }
    EXPECT_THAT(found, testing::ElementsAreArray(GetParam().runs));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FigureRuns,
    testing::Values(
        Row{"Nothing", U"محمد بن علي", {}}, Row{"Empty", U"", {}}, Row{"OneNumber", U"صفحة 12 من", {"12"}},
        Row{"DateWithDashes", U"من 02-03-2025 إلى", {"02-03-2025"}},
        Row{"DateWithSlashes", U"21/03/2025", {"21/03/2025"}},
        Row{"PhoneWithDash", U"هاتف 011-4455667", {"011-4455667"}},
        Row{"Negative", U"رصيد -0.35 فقط", {"-0.35"}},
        Row{"MinusSign",
            U"\u22125",
            {"\xE2\x88\x92"
             "5"}},
        Row{"DashBehindAWordIsNoSign", U"إلى-5", {"5"}}, Row{"Money", U"1,234,567.50", {"1,234,567.50"}},
        Row{"Percent", U"12.5%", {"12.5%"}}, Row{"PercentBehindABlank", U"نسبة 400 % من", {"400 %"}},
        Row{"PercentOfTheNextFigure", U"400 %5", {"400", "5"}}, Row{"Time", U"09:00", {"09:00"}},
        Row{"TimeAndLetter", U"09:00ص", {"09:00"}},
        Row{"DateAndTime", U"21/03/2025 02:40", {"21/03/2025 02:40"}},
        Row{"YearAndTimeStayApart", U"مارس 2025  09:00ص", {"2025", "09:00"}},
        Row{"YearThenTimeOneBlank", U"2025 09:00", {"2025", "09:00"}},
        Row{"PhoneInGroups", U"هاتف 44 501 55 ·", {"44 501 55"}},
        Row{"PhoneWithCountry", U"+974 4455 6677", {"+974 4455 6677"}},
        Row{"SmallNumbersStayApart", U"غرفة 5 3", {"5", "3"}},
        Row{"FewDigitsStayApart", U"01 2025", {"01", "2025"}}, Row{"Unit", U"50 MB", {"50 MB"}},
        Row{"LatinWord", U"لغة C++ جيدة", {"!C++"}}, Row{"Code", U"PC-05", {"!PC-05"}},
        Row{"CodeThatBeginsWithDigits", U"05-PC", {"05-PC"}},
        Row{"Phrase", U"Windows 10 Pro", {"!Windows", "!10 Pro"}}, Row{"Address", U"a@b.com", {"!a@b.com"}},
        Row{"Link", U"http://x.qa/a?b=1", {"!http://x.qa/a?b=1"}},
        Row{"NetworkAddress", U"192.168.1.7:8080", {"192.168.1.7:8080"}},
        Row{"StopBehindIsNone", U"العدد 5.", {"5"}}, Row{"CommaBehindIsNone", U"5, 6", {"5", "6"}},
        Row{"ArabicDigits", U"٢٠٢٥/٠٣/٠١", {"٢٠٢٥/٠٣/٠١"}}, Row{"SignAtTheVeryEnd", U"5 -", {"5"}},
        Row{"LoneSign", U"-", {}}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace qbrpt::text
