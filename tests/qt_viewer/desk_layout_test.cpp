#include "adapters/qt/viewer/desk_layout.h"

#include <gtest/gtest.h>

#include <ostream>

namespace qbrpt::viewer {

void PrintTo(const DeskRect& rect, std::ostream* out) {
    *out << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
}

namespace {

/// Sheets of 600 by 900 pixels at 100 percent.
DeskLayout Desk(std::int32_t pages, Pixels width, Pixels height, double zoom = 100) {
    DeskLayout desk;
    desk.SetPages(pages, {9000, 13500});
    desk.SetView(width, height);
    desk.SetZoom(zoom);
    return desk;
}

TEST(DeskLayout, PagesLieOneBelowTheOtherInTheMiddle) {
    struct Row {
        const char* name;
        DeskLayout desk;
        std::int32_t page;
        DeskRect place;
    };
    const Row rows[] = {
        {"first page, wide view", Desk(3, 1000, 800), 0, {200, 24, 600, 900}},
        {"second page", Desk(3, 1000, 800), 1, {200, 948, 600, 900}},
        {"view narrower than the page", Desk(3, 300, 800), 0, {24, 24, 600, 900}},
        {"half size", Desk(3, 1000, 800, 50), 2, {350, 972, 300, 450}},
        {"beyond 32 bits", Desk(1'000'000, 1000, 800, 400), 999'999, {24, 24 + 999'999LL * 3624, 2400, 3600}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.desk.PageRect(row.page), row.place) << row.name;
    EXPECT_EQ(Desk(1'000'000, 1000, 800, 400).LastTop(), 24 + 1'000'000LL * 3624 - 800);
}

TEST(DeskLayout, TheCurrentPageFillsMostOfTheView) {
    struct Row {
        const char* name;
        DeskLayout desk;
        Pixels top;
        std::int32_t favourite;
        std::int32_t current;
    };
    const Row rows[] = {
        {"at the beginning", Desk(3, 1000, 800), 0, -1, 0},
        {"a little of the second page", Desk(3, 1000, 800), 300, -1, 0},
        {"more of the second page", Desk(3, 1000, 800), 600, -1, 1},
        {"at the end", Desk(3, 1000, 800), 3 * 924 + 24 - 800, -1, 2},
        {"several whole pages: the first", Desk(9, 1000, 800, 25), 0, -1, 0},
        {"several whole pages: the favourite", Desk(9, 1000, 800, 25), 0, 2, 2},
        {"a favourite that is cut", Desk(9, 1000, 800, 25), 0, 3, 0},
        {"a favourite out of sight", Desk(9, 1000, 800, 25), 0, 8, 0},
        {"no page at all", Desk(0, 1000, 800), 0, -1, 0},
        {"no view yet", Desk(3, 0, 0), 0, -1, 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.desk.CurrentPage(row.top, row.favourite), row.current) << row.name;
}

TEST(DeskLayout, SeesThePagesThatReachIntoTheView) {
    struct Row {
        const char* name;
        Pixels top;
        std::int32_t first;
        std::int32_t end;
    };
    const DeskLayout desk = Desk(5, 1000, 800);
    const Row rows[] = {
        {"top", 0, 0, 1},
        {"first pixel of the second page", 948 - 799, 0, 2},
        {"one pixel before it", 948 - 800, 0, 1},
        {"last pixel of the first page", 923, 0, 2},
        {"between the pages", 924, 1, 2},
        {"bottom", desk.LastTop(), 4, 5},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(desk.Visible(row.top).first, row.first) << row.name;
        EXPECT_EQ(desk.Visible(row.top).end, row.end) << row.name;
    }
}

TEST(DeskLayout, APageIsShownFromItsTopWhereTheDeskIsLongEnough) {
    const DeskLayout desk = Desk(3, 1000, 800);
    EXPECT_EQ(desk.TopOf(0), 0);
    EXPECT_EQ(desk.TopOf(1), 924);
    EXPECT_EQ(desk.TopOf(2), 1848);
    const DeskLayout small = Desk(3, 1000, 800, 25);
    EXPECT_EQ(small.TopOf(2), small.LastTop());
    EXPECT_EQ(small.LastTop(), 0);
}

TEST(DeskLayout, APointOfAPageKeepsItsPlaceThroughZooms) {
    DeskLayout desk = Desk(20, 1000, 800);
    for (const Pixels y : {0LL, 24LL, 500LL, 930LL, 5000LL}) {
        const PagePoint point = desk.PointAt(400, y);
        for (const double zoom : {25.0, 400.0, 137.0}) {
            desk.SetZoom(zoom);
            const DeskRect place = desk.PlaceOf(point);
            const DeskRect page = desk.PageRect(point.page);
            EXPECT_NEAR(static_cast<double>(place.y - page.y), point.down * static_cast<double>(page.height),
                        1);
            EXPECT_NEAR(static_cast<double>(place.x - page.x), point.across * static_cast<double>(page.width),
                        1);
        }
        desk.SetZoom(100);
        EXPECT_EQ(desk.PlaceOf(point).y, y);
        EXPECT_EQ(desk.PlaceOf(point).x, 400);
    }
}

TEST(DeskLayout, FitsAreZoomsThatFillTheView) {
    DeskLayout desk = Desk(3, 1000, 800);
    desk.SetZoom(desk.ZoomToWidth());
    EXPECT_EQ(desk.Width(), 1000);
    desk.SetZoom(desk.ZoomToPage());
    EXPECT_EQ(desk.PageRect(0).height, 800 - 2 * DeskMargin);
    desk.SetView(0, 0);
    EXPECT_EQ(desk.ZoomToPage(), 1) << "a view of nothing";
}

} // namespace
} // namespace qbrpt::viewer
