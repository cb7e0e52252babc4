// Pages of the plain tables.
#include "templates/golden_page.h"

namespace qbrpt {
namespace {

const std::map<std::string, std::string> IncomeTexts = {
    {"HotelNameTextTop", "مقهى نسمة للإنترنت"},
    {"HotelNameTextBottom", "مقهى نسمة للإنترنت"},
    {"HotelAddr1Text", "شارع الميناء، بجوار مكتبة الواحة"},
    {"HotelAddr2Text", "هاتف 011-4455667"},
    {"IncomeTitleText", "تقرير بالإيراد من السبت 01 مارس إلى الخميس 20 مارس 2025"},
};
const std::map<std::string, std::string> PaymentTexts = {
    {"HotelNameText", "مقهى نسمة للإنترنت"},
    {"HotelAddr1Text", "شارع الميناء، بجوار مكتبة الواحة"},
    {"HotelAddr2Text", "هاتف 011-4455667"},
    {"HeadTitleText", "المصروفات الخارجية ليوم السبت 01 مارس 2025"},
};

const std::vector<Golden> Goldens = {
    {"IncomeGrpRpt", "Typical", IncomeTexts, true, [] { return samples::IncomeMonth(); }, 1},
    {"IncomeGrpRpt", "OneRow", IncomeTexts, true, [] { return samples::IncomeDays(1); }, 1},
    {"IncomeGrpRpt", "TwoHundredRows", IncomeTexts, true, [] { return samples::IncomeDays(200); }, 8},
    {"IncomeGrpRpt", "NullRows", IncomeTexts, true, [] { return std::vector<Row>(3, samples::NullRow(17)); },
     1},
    {"IncomeGrpRpt", "FullLength", IncomeTexts, true, [] { return samples::FullIncomeDays(4); }, 1},
    {"IncomeGrpRpt", "NoRows", {}, true, [] { return std::vector<Row>(); }, 1},
    {"IncomeRpt", "Typical", IncomeTexts, true, [] { return samples::UseDays(20); }, 1},
    {"IncomeRpt", "OneRow", IncomeTexts, true, [] { return samples::UseDays(1); }, 1},
    {"IncomeRpt", "TwoHundredRows", IncomeTexts, true, [] { return samples::UseDays(200); }, 8},
    {"IncomeRpt", "NullRows", IncomeTexts, true, [] { return std::vector<Row>(3, samples::NullRow(18)); }, 1},
    {"IncomeRpt", "FullLength", IncomeTexts, true, [] { return samples::FullUseDays(4); }, 1},
    {"PayOutRpt", "Typical", PaymentTexts, false, [] { return samples::Payments(12); }, 1},
    {"PayOutRpt", "OneRow", PaymentTexts, false, [] { return samples::Payments(1); }, 1},
    {"PayOutRpt", "TwoHundredRows", PaymentTexts, false, [] { return samples::Payments(200); }, 5},
    {"PayOutRpt", "NullRows", PaymentTexts, false, [] { return std::vector<Row>(3, samples::NullRow(3)); },
     1},
    {"PayOutRpt", "FullLength", PaymentTexts, false, [] { return samples::FullPayments(4); }, 1},
};

INSTANTIATE_TEST_SUITE_P(Layouts, GoldenPage, testing::ValuesIn(Goldens), NameOfGolden);

} // namespace
} // namespace qbrpt
