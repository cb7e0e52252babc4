#include "adapters/qt/viewer/text_selection.h"

#include <gtest/gtest.h>

namespace qbrpt::viewer {
namespace {

TEST(TextSelection, CoversAllBetweenItsEnds) {
    struct Row {
        const char* name;
        TextPlace anchor;
        TextPlace head;
        std::int32_t page;
        std::pair<std::size_t, std::size_t> words; ///< of ten
    };
    const Row rows[] = {
        {"one word", {1, 3}, {1, 3}, 1, {3, 4}},
        {"forwards", {1, 3}, {1, 6}, 1, {3, 7}},
        {"backwards", {1, 6}, {1, 3}, 1, {3, 7}},
        {"the page before", {1, 3}, {1, 6}, 0, {0, 0}},
        {"the page after", {1, 3}, {1, 6}, 2, {0, 0}},
        {"first of several pages", {1, 3}, {3, 2}, 1, {3, 10}},
        {"a page in between", {1, 3}, {3, 2}, 2, {0, 10}},
        {"last of several pages", {3, 2}, {1, 3}, 3, {0, 3}},
        {"a page that has fewer words now", {1, 30}, {1, 60}, 1, {10, 10}},
    };
    for (const Row& row : rows) {
        TextSelection selection;
        selection.Begin(row.anchor);
        selection.Extend(row.head);
        EXPECT_EQ(selection.On(row.page, 10), row.words) << row.name;
    }
}

TEST(TextSelection, NothingIsSelectedAtFirstAndAfterClearing) {
    TextSelection selection;
    EXPECT_TRUE(selection.Empty());
    EXPECT_EQ(selection.On(0, 10), (std::pair<std::size_t, std::size_t>{0, 0}));
    EXPECT_EQ(selection.Text([](std::int32_t, const auto&) { FAIL(); }), "");
    selection.Begin({0, 1});
    selection.Clear();
    EXPECT_TRUE(selection.Empty());
}

} // namespace
} // namespace qbrpt::viewer
