#include "adapters/qt/viewer/search_course.h"

#include <gtest/gtest.h>

#include <vector>

namespace qbrpt::viewer {
namespace {

using Hits = std::vector<std::size_t>;

/// Looks through one page.
void Look(SearchCourse& course, const Hits& hits) {
    const auto page = course.NextPage();
    ASSERT_TRUE(page.has_value());
    course.Found(*page, hits[static_cast<std::size_t>(*page)]);
}

/// Looks through all pages; gives the order.
std::vector<std::int32_t> LookAll(SearchCourse& course, const Hits& hits) {
    std::vector<std::int32_t> order;
    while (const auto page = course.NextPage()) {
        order.push_back(*page);
        course.Found(*page, hits[static_cast<std::size_t>(*page)]);
        course.Resume();
    }
    return order;
}

TEST(SearchCourse, BeginsAtThePageThatIsReadAndGoesAround) {
    SearchCourse course(5, 3);
    EXPECT_EQ(LookAll(course, {1, 0, 2, 0, 4}), (std::vector<std::int32_t>{3, 4, 0, 1, 2}));
    EXPECT_TRUE(course.Complete());
    EXPECT_EQ(course.Total(), 7U);
    EXPECT_EQ(course.Current(), (HitPlace{4, 0})) << "the first place behind the reader";
    EXPECT_EQ(course.CurrentNumber(), 4U);
}

TEST(SearchCourse, StepsGoAroundTheEnd) {
    SearchCourse course(4, 0);
    LookAll(course, {0, 2, 0, 1});
    struct Row {
        const char* name;
        bool forward;
        HitPlace place;
        std::size_t number;
    };
    ASSERT_EQ(course.Current(), (HitPlace{1, 0}));
    const Row rows[] = {
        {"to the next on the page", true, {1, 1}, 2},
        {"over a page without any", true, {3, 0}, 3},
        {"around the end", true, {1, 0}, 1},
        {"back around the beginning", false, {3, 0}, 3},
        {"back to the last of a page", false, {1, 1}, 2},
        {"back on the page", false, {1, 0}, 1},
    };
    for (const Row& row : rows) {
        EXPECT_TRUE(course.Step(row.forward)) << row.name;
        EXPECT_EQ(course.Current(), row.place) << row.name;
        EXPECT_EQ(course.CurrentNumber(), row.number) << row.name;
    }
}

TEST(SearchCourse, AStepWaitsForPagesNotLookedThroughYet) {
    const Hits hits = {1, 0, 0, 0, 0, 2};
    SearchCourse course(6, 0);
    Look(course, hits);
    ASSERT_TRUE(course.Resume());
    ASSERT_EQ(course.Current(), (HitPlace{0, 0}));
    EXPECT_FALSE(course.Step(false)) << "the last page is not known yet";
    EXPECT_EQ(course.NextPage(), 5) << "it comes first now";
    Look(course, hits);
    EXPECT_TRUE(course.Resume());
    EXPECT_EQ(course.Current(), (HitPlace{5, 1}));
    EXPECT_EQ(course.NextPage(), 1) << "the steady walk goes on";
}

TEST(SearchCourse, NothingFound) {
    SearchCourse course(3, 1);
    LookAll(course, {0, 0, 0});
    EXPECT_TRUE(course.Complete());
    EXPECT_FALSE(course.Current().has_value());
    EXPECT_FALSE(course.Step(true));
    EXPECT_FALSE(course.Step(false));
    EXPECT_EQ(course.CurrentNumber(), 0U);
    SearchCourse empty(0, 0);
    EXPECT_TRUE(empty.Complete());
    EXPECT_FALSE(empty.Step(true));
    EXPECT_FALSE(empty.NextPage().has_value());
}

TEST(SearchCourse, TheOnlyPlaceIsItsOwnNext) {
    SearchCourse course(2, 0);
    LookAll(course, {0, 1});
    EXPECT_TRUE(course.Step(true));
    EXPECT_EQ(course.Current(), (HitPlace{1, 0}));
    EXPECT_TRUE(course.Step(false));
    EXPECT_EQ(course.Current(), (HitPlace{1, 0}));
}

} // namespace
} // namespace qbrpt::viewer
