// Pages of the layouts as text, compared with the files in golden/. After a wanted change of a layout, run
// the test program with QBRPT_WRITE_GOLDENS=1 and look at the difference before committing it.
#include "adapters/layout/library.h"
#include "fakes/fake_text_port.h"
#include "report/document.h"
#include "report/page_text.h"
#include "samples/sample_rows.h"
#include "templates/field_tables.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace qbrpt;

using MakeRows = std::vector<samples::Row> (*)();

struct Golden {
    const char* layout;
    const char* name;
    std::map<std::string, std::string> texts; ///< what a host has written into the layout's objects
    bool landscape;
    MakeRows rows;
    std::size_t pages;
};

void PrintTo(const Golden& golden, std::ostream* stream) {
    *stream << golden.layout << " " << golden.name;
}

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
    {"IncomeGrpRpt", "NullRows", IncomeTexts, true,
     [] { return std::vector<samples::Row>(3, samples::NullRow(17)); }, 1},
    {"IncomeGrpRpt", "FullLength", IncomeTexts, true, [] { return samples::FullIncomeDays(4); }, 1},
    {"IncomeGrpRpt", "NoRows", {}, true, [] { return std::vector<samples::Row>(); }, 1},
    {"IncomeRpt", "Typical", IncomeTexts, true, [] { return samples::UseDays(20); }, 1},
    {"IncomeRpt", "OneRow", IncomeTexts, true, [] { return samples::UseDays(1); }, 1},
    {"IncomeRpt", "TwoHundredRows", IncomeTexts, true, [] { return samples::UseDays(200); }, 8},
    {"IncomeRpt", "NullRows", IncomeTexts, true,
     [] { return std::vector<samples::Row>(3, samples::NullRow(18)); }, 1},
    {"IncomeRpt", "FullLength", IncomeTexts, true, [] { return samples::FullUseDays(4); }, 1},
    {"PayOutRpt", "Typical", PaymentTexts, false, [] { return samples::Payments(12); }, 1},
    {"PayOutRpt", "OneRow", PaymentTexts, false, [] { return samples::Payments(1); }, 1},
    {"PayOutRpt", "TwoHundredRows", PaymentTexts, false, [] { return samples::Payments(200); }, 5},
    {"PayOutRpt", "NullRows", PaymentTexts, false,
     [] { return std::vector<samples::Row>(3, samples::NullRow(3)); }, 1},
    {"PayOutRpt", "FullLength", PaymentTexts, false, [] { return samples::FullPayments(4); }, 1},
};

/// Names the styles that a layout uses; one that arises by shrinking keeps its number.
auto StyleNames(const report::Definition& definition, fakes::FakeTextPort& port) {
    std::map<report::StyleId, std::string> names;
    for (const report::Section& section : definition.sections) {
        for (const report::Object& object : section.objects) {
            const report::FontSpec& font = object.font.spec;
            if (font.family.empty()) continue;
            names[port.Style(font)] =
                font.family + " " + std::to_string(font.size) + (font.bold ? " bold" : "");
        }
    }
    return [names](report::StyleId style) {
        const auto name = names.find(style);
        return name == names.end() ? "style " + std::to_string(style) : name->second;
    };
}

class GoldenPage : public testing::TestWithParam<Golden> {
protected:
    GoldenPage()
        : mDefinition(*layout::Library().Load(GetParam().layout, FactsOf(GetParam().layout).fields)) {
        for (const auto& [object, text] : GetParam().texts) {
            report::Object* target = report::FindObject(mDefinition, object);
            if (target == nullptr) {
                ADD_FAILURE() << "no object " << object;
                continue;
            }
            target->text = text;
            target->literal = true;
        }
        report::DocumentContext context;
        context.text = &mPort;
        if (GetParam().landscape) context.sheet = {16838, 11906};
        context.printedAt = 45737.111;
        mDocument = std::make_unique<report::Document>(
            mDefinition, std::make_shared<fakes::MemoryRows>(GetParam().rows()), context);
    }

    std::string TextOfPage(std::size_t index) {
        report::Page page;
        mDocument->Build(index, page);
        return report::PageText(page, StyleNames(mDefinition, mPort));
    }
    [[nodiscard]] report::Document& Document() { return *mDocument; }

private:
    fakes::FakeTextPort mPort;
    report::Definition mDefinition;
    std::unique_ptr<report::Document> mDocument;
};

TEST_P(GoldenPage, LastPageIsAsItWasLookedAt) {
    ASSERT_EQ(Document().PageCount(), GetParam().pages);
    const std::string text = TextOfPage(GetParam().pages - 1);
    const auto file = std::filesystem::path(QBRPT_SOURCE_DIR) / "tests/templates/golden" /
                      (std::string(GetParam().layout) + "." + GetParam().name + ".txt");
    if (std::getenv("QBRPT_WRITE_GOLDENS") != nullptr) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }
    std::ifstream stream(file, std::ios::binary);
    const std::string golden{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text, golden);
}

INSTANTIATE_TEST_SUITE_P(Layouts, GoldenPage, testing::ValuesIn(Goldens),
                         [](const auto& row) { return std::string(row.param.layout) + row.param.name; });

} // namespace
