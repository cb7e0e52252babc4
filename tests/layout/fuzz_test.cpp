// A short run of the fuzzer: the built-in layouts with a few words changed.
#include "adapters/layout/library.h"
#include "layout/fuzz_layout.h"
#include "templates/field_tables.h"
#include "tools/mutator.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace qbrpt;

constexpr auto Words = std::to_array<std::string_view>({"0",
                                                        "-1",
                                                        "1",
                                                        "2000",
                                                        "1e9",
                                                        "nan",
                                                        "inf",
                                                        "true",
                                                        "false",
                                                        "\"\"",
                                                        "\"{group}\"",
                                                        "\"{rows:row}\"",
                                                        "\"{text:HeadTitleText}\"",
                                                        "\"{pages}\"",
                                                        "[]",
                                                        "{}",
                                                        "[[",
                                                        "]]",
                                                        "\"money\"",
                                                        "\"duration\"",
                                                        "\"date\"",
                                                        "\"picture\"",
                                                        "\"percent\"",
                                                        "\"text\"",
                                                        "\"yes-no\"",
                                                        "\"empty\"",
                                                        "\"rows\"",
                                                        "\"total\"",
                                                        "\"captions\"",
                                                        "\"report-footer\"",
                                                        "\"details\"",
                                                        "width =",
                                                        "height =",
                                                        "caption =",
                                                        "field =",
                                                        "format =",
                                                        "sum = true",
                                                        "average = true",
                                                        "key = true",
                                                        "hide_repeated = true",
                                                        "grow = true",
                                                        "suppress = true",
                                                        "unit = \"x\"",
                                                        "kind = \"details\"",
                                                        "[[group]]",
                                                        "[[object]]",
                                                        "[total]",
                                                        "[sections]",
                                                        "# note",
                                                        "\n"});

/// The built-in layouts beside the number of their template.
struct Seed {
    std::size_t templateIndex;
    std::string_view text;
};

std::vector<Seed> Seeds() {
    std::vector<Seed> seeds;
    const auto templates = AllTemplates();
    for (std::size_t i = 0; i < templates.size(); ++i)
        for (const layout::BuiltInFile& file : layout::BuiltInFiles())
            if (file.name == templates[i].name) seeds.push_back({i, file.text});
    return seeds;
}

TEST(LayoutFuzz, SeedsAreTaken) {
    for (const Seed& seed : Seeds())
        EXPECT_TRUE(FuzzLayout(seed.templateIndex, seed.text)) << AllTemplates()[seed.templateIndex].name;
}

TEST(LayoutFuzz, NearLayoutsEndInWordsOrOnPages) {
    const test::FuzzRun run(1'500);
    const std::vector<Seed> seeds = Seeds();
    test::Mutator mutator(run.seed, {}, Words);
    long taken = 0;
    for (long i = 0; i < run.turns; ++i) {
        const Seed& seed = seeds[mutator.Below(seeds.size())];
        taken += FuzzLayout(seed.templateIndex, mutator.Changed(seed.text)) ? 1 : 0;
    }
    EXPECT_GT(taken, run.turns / 50) << "enough of them must reach the pages";
}

} // namespace
