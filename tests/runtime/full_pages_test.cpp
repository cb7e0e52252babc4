// Pages of all templates in real faces, every text as long and every figure as wide as its field allows:
// nothing collides, nothing comes near the template's edges.
#include "adapters/layout/library.h"
#include "adapters/text/text_engine.h"
#include "report/document.h"
#include "samples/report_rows.h"
#include "templates/field_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace qbrpt;
using report::Item;
using report::ItemKind;
using report::Twips;

constexpr Twips EdgesKeptFree = 260;
/// Rounding of places and widths.
constexpr Twips Tolerance = 2;

struct Case {
    std::string_view layout;
    std::size_t rows;
    bool longTexts; ///< in the objects that a host fills
};

void PrintTo(const Case& one, std::ostream* stream) {
    *stream << one.layout << " with " << one.rows << " rows";
}

/// A word on the page, without the tips of its tallest letters and tails.
struct Box {
    Twips left, top, right, bottom;
    std::string text;
};

class FullPages : public testing::TestWithParam<Case> {
protected:
    FullPages()
        : mDefinition(
              *layout::Library().Load(std::string(GetParam().layout), FactsOf(GetParam().layout).fields)) {
        for (report::Section& section : mDefinition.sections) {
            for (report::Object& object : section.objects) {
                // Objects without a text of the layout's own are there to be filled.
                if (object.type != report::ObjectType::Text || !object.text.empty()) continue;
                object.text = GetParam().longTexts ? samples::LongText(90) : "قصير";
                object.literal = true;
            }
        }
        report::DocumentContext context;
        context.text = &mText;
        if (mDefinition.width > context.sheet.width) std::swap(context.sheet.width, context.sheet.height);
        mSheet = context.sheet;
        for (const auto& [name, inside] : mDefinition.subreports)
            context.subreportRows[name] = Rows();
        mDocument = std::make_unique<report::Document>(mDefinition, Rows(), context);
    }

    static std::shared_ptr<const RowSource> Rows() {
        return std::make_shared<MemoryRows>(samples::FullRows(GetParam().layout, GetParam().rows));
    }

    /// Runs `check` with every page.
    template <class Check>
    void OnEveryPage(Check check) {
        for (std::size_t index = 0; index < mDocument->PageCount(); ++index) {
            report::Page page;
            mDocument->Build(index, page);
            SCOPED_TRACE("page " + std::to_string(index + 1));
            check(page);
        }
    }

    [[nodiscard]] std::vector<Box> WordsOf(const report::Page& page) {
        std::vector<Box> words;
        for (const Item& item : page.items) {
            float size = 0;
            std::string text;
            if (item.kind == ItemKind::Word && !item.word->runs.empty()) {
                size = item.word->runs.front().size;
                text = item.word->text;
            } else if (item.kind == ItemKind::Figures) {
                size = mText.Figures(item.style).size;
                text = page.figureText.substr(item.first, item.length);
            }
            if (size <= 0) continue;
            const auto above = static_cast<Twips>(size * 0.7F);
            const auto below = static_cast<Twips>(size * 0.2F);
            words.push_back({item.x, item.y - above, item.x + item.width, item.y + below, text});
        }
        return words;
    }

    text::TextEngine mText;
    report::Definition mDefinition;
    report::Sheet mSheet;
    std::unique_ptr<report::Document> mDocument;
};

TEST_P(FullPages, HaveNoWordsOnOneSpot) {
    OnEveryPage([this](const report::Page& page) {
        std::vector<Box> words = WordsOf(page);
        EXPECT_GT(words.size(), 4U);
        std::sort(words.begin(), words.end(), [](const Box& a, const Box& b) { return a.top < b.top; });
        for (std::size_t i = 0; i < words.size(); ++i) {
            for (std::size_t j = i + 1; j < words.size() && words[j].top < words[i].bottom; ++j) {
                const Twips across =
                    std::min(words[i].right, words[j].right) - std::max(words[i].left, words[j].left);
                const Twips down = std::min(words[i].bottom, words[j].bottom) - words[j].top;
                EXPECT_FALSE(across > Tolerance && down > Tolerance)
                    << "\"" << words[i].text << "\" and \"" << words[j].text << "\"";
            }
        }
    });
}

TEST_P(FullPages, KeepOffTheTemplatesEdges) {
    const Twips left = (mSheet.width - mDefinition.width) / 2 + EdgesKeptFree - Tolerance;
    const Twips right = (mSheet.width + mDefinition.width) / 2 - EdgesKeptFree + Tolerance;
    OnEveryPage([&](const report::Page& page) {
        for (const Item& item : page.items) {
            EXPECT_GE(item.x, left);
            EXPECT_LE(item.x + item.width, right);
            EXPECT_GE(item.y, 0);
            EXPECT_LE(item.y + item.height, mSheet.height);
        }
    });
}

std::vector<Case> AllCases() {
    std::vector<Case> cases;
    for (const TemplateFacts& facts : AllTemplates())
        for (const std::size_t rows : {3U, 40U})
            cases.push_back({facts.name, rows, rows == 3});
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Templates, FullPages, testing::ValuesIn(AllCases()), [](const auto& row) {
    return std::string(row.param.layout) + std::to_string(row.param.rows);
});

} // namespace
