#include "templates/golden_page.h"

#include "adapters/database/row_sort.h"
#include "adapters/layout/library.h"
#include "report/page_text.h"
#include "templates/field_tables.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace qbrpt {

namespace {

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

/// The rows as a report of this layout gets them.
std::shared_ptr<const RowSource> InOrder(const MakeRows& make, const report::Definition& definition) {
    std::vector<database::RowOrder> order;
    for (const report::SortKey& key : definition.order)
        order.push_back({static_cast<std::size_t>(key.field), key.descending});
    return database::SortRows(std::make_shared<MemoryRows>(make()), order);
}

} // namespace

GoldenPage::GoldenPage()
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
    mDocument =
        std::make_unique<report::Document>(mDefinition, InOrder(GetParam().rows, mDefinition), Context());
}

report::DocumentContext GoldenPage::Context() {
    report::DocumentContext context;
    context.text = &mPort;
    if (GetParam().landscape) context.sheet = {16838, 11906};
    context.printedAt = 45737.111;
    for (const auto& [name, rows] : GetParam().subreportRows)
        context.subreportRows[name] = InOrder(rows, *mDefinition.subreports.at(name));
    return context;
}

std::string GoldenPage::TextOfPage(std::size_t index) {
    report::Page page;
    mDocument->Build(index, page);
    return report::PageText(page, StyleNames(mDefinition, mPort));
}

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

} // namespace qbrpt
