#include "adapters/layout/tree.h"

#include <gtest/gtest.h>

namespace {

using namespace qbrpt::layout;

TEST(LayoutTree, KeepsTheOrderOfTheFileAndThePlaces) {
    const Node tree = Parse("z = 1\na = \"x\"\n[t]\nk = [true, 2.5]\n", "f.toml");
    ASSERT_EQ(tree.entries.size(), 3U);
    EXPECT_EQ(tree.entries[0].key, "z");
    EXPECT_EQ(tree.entries[1].key, "a");
    EXPECT_EQ(ToText(tree.entries[1].value.place), "f.toml:2:5");
    const Node* list = tree.Find("t")->Find("k");
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->items[0].flag);
    EXPECT_EQ(list->items[1].number, 2.5);
    EXPECT_EQ(tree.Find("nobody"), nullptr);
}

TEST(LayoutTree, MergesTablesAndReplacesTheRest) {
    const Node merged =
        Merge(Parse("a = 1\n[t]\nx = 1\ny = [1, 2]\n", "base"), Parse("b = 2\n[t]\ny = [3]\n[u]\n", "over"));
    EXPECT_EQ(merged.Find("a")->number, 1);
    EXPECT_EQ(merged.Find("b")->number, 2);
    EXPECT_EQ(merged.Find("t")->Find("x")->number, 1);
    ASSERT_EQ(merged.Find("t")->Find("y")->items.size(), 1U);
    EXPECT_EQ(*merged.Find("t")->Find("x")->place.file, "base");
    EXPECT_EQ(*merged.Find("t")->Find("y")->place.file, "over");
}

TEST(LayoutTree, ATableReplacesANumber) {
    const Node merged = Merge(Parse("a = 1\n", "base"), Parse("[a]\nx = 2\n", "over"));
    EXPECT_EQ(merged.Find("a")->Find("x")->number, 2);
}

} // namespace
