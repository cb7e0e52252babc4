// Pages and zoom: what each command does, and what menu and buttons say after it.
#include "fakes/fault_observer.h"
#include "preview_fixture.h"

#include <map>

namespace qbrpt {
namespace {

using fakes::FakeForm;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::pair<std::string, std::string>> Pairs = {
    {"zoomin", "mnZoomIn"},   {"zoomout", "mnZoomOut"}, {"zoom25", "mnZoom25"},   {"zoom50", "mnZoom50"},
    {"zoom100", "mnZoom100"}, {"zoom200", "mnZoom200"}, {"zoom400", "mnZoom400"}, {"first", "mnFirstPage"},
    {"last", "mnLastPage"},   {"next", "mnNextPage"},   {"prev", "mnPrevPage"}};

/// The menu items that are off, in the order of the pairs above; every button must agree with its item.
std::vector<std::string> Off(const FakeForm& form) {
    std::vector<std::string> off;
    for (const auto& [key, item] : Pairs) {
        const bool enabled = form.menu.at(item)->enabled;
        EXPECT_EQ(form.toolbars.at("Toolbar1")->Of(key)->enabled, enabled) << key;
        if (!enabled) off.push_back(item);
    }
    return off;
}

struct StateRow {
    const char* name;
    std::int32_t page;
    std::int32_t pages;
    std::vector<const char*> off;
};

class PageStates : public PreviewTest, public ::testing::WithParamInterface<StateRow> {};

TEST_P(PageStates, FollowThePageShown) {
    Record().pages = GetParam().pages;
    platform.viewer->page = GetParam().page;
    Show([](FakeForm& form) {
        std::vector<std::string> expected(GetParam().off.begin(), GetParam().off.end());
        EXPECT_EQ(Off(form), expected);
        for (const char* always : {"mnPrint", "mnPrintSetup", "mnClose"})
            EXPECT_TRUE(form.menu.at(always)->enabled);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PageStates,
    ::testing::Values(
        StateRow{"OnlyPage", 1, 1, {"mnZoom100", "mnFirstPage", "mnLastPage", "mnNextPage", "mnPrevPage"}},
        StateRow{"FirstPage", 1, 3, {"mnZoom100", "mnFirstPage", "mnPrevPage"}},
        StateRow{"MiddlePage", 2, 3, {"mnZoom100"}},
        StateRow{"LastPage", 3, 3, {"mnZoom100", "mnLastPage", "mnNextPage"}}),
    [](const auto& row) { return row.param.name; });

struct PageRow {
    const char* name;
    const char* item;
    const char* key;
    std::int32_t page;
    std::vector<std::int16_t> asked;
};

class PageCommands : public PreviewTest, public ::testing::WithParamInterface<PageRow> {};

TEST_P(PageCommands, GoToThePageByMenuAndByButton) {
    Record().pages = 9;
    Show([this](FakeForm& form) {
        for (const bool byMenu : {true, false}) {
            platform.viewer->page = GetParam().page;
            platform.viewer->pagesAsked.clear();
            byMenu ? Choose(form, GetParam().item) : Press(form, GetParam().key);
            EXPECT_EQ(platform.viewer->pagesAsked, GetParam().asked);
            EXPECT_EQ(platform.screen->Current(), Pointer::Default);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Rows, PageCommands,
                         ::testing::Values(PageRow{"Next", "mnNextPage", "next", 4, {5}},
                                           PageRow{"Previous", "mnPrevPage", "prev", 4, {3}},
                                           PageRow{"First", "mnFirstPage", "first", 4, {1}},
                                           PageRow{"Last", "mnLastPage", "last", 4, {9}},
                                           PageRow{"FirstOnTheFirst", "mnFirstPage", "first", 1, {}},
                                           PageRow{"LastOnTheLast", "mnLastPage", "last", 9, {}},
                                           PageRow{"NextByAStaleState", "mnNextPage", "next", 9, {10}}),
                         [](const auto& row) { return row.param.name; });

TEST_F(PreviewTest, TheSamePageChangesNoPointerButTheStates) {
    Record().pages = 9;
    Show([this](FakeForm& form) {
        platform.screen->pointers.clear();
        form.menu.at("mnNextPage")->enabled = false;
        Choose(form, "mnFirstPage");
        EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Default));
        EXPECT_TRUE(form.menu.at("mnNextPage")->enabled);
    });
}

TEST_F(PreviewTest, ABusyViewerTakesNoCommandButTheFirstPage) {
    Record().pages = 9;
    platform.viewer->page = 4;
    Show([this](FakeForm& form) {
        for (const char* item :
             {"mnLastPage", "mnNextPage", "mnPrevPage", "mnZoom25", "mnZoomIn", "mnZoomOut"}) {
            platform.viewer->busyFor = 1;
            Choose(form, item);
        }
        EXPECT_THAT(platform.viewer->pagesAsked, IsEmpty());
        EXPECT_THAT(platform.viewer->zooms, IsEmpty());
        platform.viewer->busyFor = 2;
        Choose(form, "mnFirstPage");
        EXPECT_THAT(platform.viewer->pagesAsked, ElementsAre(1));
        EXPECT_THAT(platform.windows->sleeps, ElementsAre(10, 10));
    });
}

TEST_F(PreviewTest, AWaitEndsWhereNoWindowIsOpenHoweverBusyTheViewer) {
    Record().pages = 9;
    platform.viewer->page = 4;
    Show([this](FakeForm& form) {
        platform.windows->openWindows = 0;
        platform.viewer->busyFor = 5;
        Choose(form, "mnFirstPage");
        EXPECT_THAT(platform.viewer->pagesAsked, ElementsAre(1));
        EXPECT_THAT(platform.windows->sleeps, IsEmpty());
        platform.windows->openWindows = 3;
        platform.viewer->busyFor = 2;
        Choose(form, "mnFirstPage");
        EXPECT_THAT(platform.windows->sleeps, ElementsAre(10, 10));
    });
}

TEST_F(PreviewTest, AWaitThatFailsHoldsUpNoLaterOne) {
    Record().pages = 9;
    class BrokenOnce final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "IsBusy" && ++mAsked == 2) throw Failure(FailureNumber::Report, "torn");
        }
        int mAsked = 0; ///< first by the command itself, then by its wait
    };
    Show([this](FakeForm& form) {
        fakes::FakePlatform::Observe(std::make_shared<BrokenOnce>());
        Choose(form, "mnLastPage");
        EXPECT_THAT(platform.messages->boxes,
                    ElementsAre(fakes::ShownBox{"SetPage cose Error No.20501\rtorn", 16, "qbrpt"}));
        EXPECT_THAT(platform.viewer->pagesAsked, IsEmpty());
        Choose(form, "mnLastPage");
        EXPECT_THAT(platform.viewer->pagesAsked, ElementsAre(9));
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    });
}

TEST_F(PreviewTest, ACommandPressedDuringAWaitIsDropped) {
    Record().pages = 9;
    platform.viewer->page = 4;
    Show([this](FakeForm& form) {
        platform.viewer->busyFor = 1;
        bool nested = false;
        platform.viewer->whenAsked = [&] {
            if (std::exchange(nested, true)) return;
            Choose(form, "mnFirstPage");
        };
        Choose(form, "mnFirstPage");
        EXPECT_THAT(platform.viewer->pagesAsked, ElementsAre(1));
        platform.viewer->whenAsked = [] {};
    });
}

TEST_F(PreviewTest, AZoomPressedDuringAWaitIsWrittenDownButNotDone) {
    Show([this](FakeForm& form) {
        int asked = 0;
        platform.viewer->whenAsked = [&] {
            if (++asked == 1) Choose(form, "mnZoom50");
        };
        Choose(form, "mnFirstPage");
        platform.viewer->whenAsked = [] {};
        EXPECT_THAT(platform.viewer->zooms, IsEmpty());
        EXPECT_FALSE(form.menu.at("mnZoom50")->enabled);
    });
}

TEST_F(PreviewTest, AFailingPageSaysSoWithItsNumberAndGoesOn) {
    Record().pages = 9;
    class Broken final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "ShowNthPage") throw Failure(FailureNumber::Report, "torn page");
        }
    };
    Show([this](FakeForm& form) {
        fakes::FakePlatform::Observe(std::make_shared<Broken>());
        Choose(form, "mnNextPage");
        EXPECT_THAT(platform.messages->boxes,
                    ElementsAre(fakes::ShownBox{"SetPage cose Error No.20501\rtorn page", 16, "qbrpt"}));
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    });
}

TEST_F(PreviewTest, AFailingZoomEndsAtItsHandler) {
    class Broken final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "Zoom") throw Failure(FailureNumber::Report, "no room");
        }
    };
    Show([this](FakeForm& form) {
        fakes::FakePlatform::Observe(std::make_shared<Broken>());
        Choose(form, "mnZoom50");
        EXPECT_THAT(platform.messages->boxes, ElementsAre(fakes::ShownBox{"no room", 16, "qbrpt"}));
    });
}

TEST_F(PreviewTest, APageBeyondSixteenBitsIsAnOverflow) {
    Record().pages = 40'000;
    Show([this](FakeForm& form) {
        Choose(form, "mnLastPage");
        EXPECT_THAT(platform.viewer->pagesAsked, IsEmpty());
        ASSERT_EQ(platform.messages->boxes.size(), 1U);
        EXPECT_EQ(platform.messages->boxes[0].style, 16);
    });
}

TEST_F(PreviewTest, ZoomGoesUpAndDownItsChain) {
    Show([this](FakeForm& form) {
        for (int step = 0; step < 3; ++step)
            Choose(form, "mnZoomIn");
        EXPECT_THAT(Off(form), ::testing::Contains("mnZoomIn"));
        for (int step = 0; step < 5; ++step)
            Press(form, "zoomout");
        EXPECT_THAT(platform.viewer->zooms, ElementsAre(200, 400, 400, 200, 100, 50, 25, 25));
        EXPECT_THAT(Off(form), ::testing::IsSupersetOf({"mnZoomOut", "mnZoom25"}));
        EXPECT_EQ(form.toolbars.at("Toolbar1")->Of("zoom100")->value, 1); // as it was built
    });
}

TEST_F(PreviewTest, ZoomLevelsByName) {
    Show([this](FakeForm& form) {
        for (const char* item : {"mnZoom25", "mnZoom50", "mnZoom100", "mnZoom200", "mnZoom400"})
            Choose(form, item);
        for (const char* key : {"zoom25", "zoom50", "zoom100", "zoom200", "zoom400"})
            Press(form, key);
        EXPECT_THAT(platform.viewer->zooms, ElementsAre(25, 50, 100, 200, 400, 25, 50, 100, 200, 400));
    });
}

TEST_F(PreviewTest, APageCountLearnedLaterIsSeenAtTheNextCommand) {
    Record().pages = 0;
    Show([this](FakeForm& form) {
        EXPECT_TRUE(form.menu.at("mnNextPage")->enabled) << "what is not known may be there";
        Record().pages = 1;
        EXPECT_TRUE(form.menu.at("mnNextPage")->enabled);
        Choose(form, "mnZoom50");
        EXPECT_FALSE(form.menu.at("mnNextPage")->enabled);
        EXPECT_FALSE(form.menu.at("mnLastPage")->enabled);
    });
}

TEST_F(PreviewTest, APageTurnedInTheViewerIsSeenInTheMenu) {
    Record().pages = 3;
    Show([this](FakeForm& form) {
        platform.viewer->page = 3;
        form.events.PageChanged();
        EXPECT_FALSE(form.menu.at("mnNextPage")->enabled);
        EXPECT_TRUE(form.menu.at("mnPrevPage")->enabled);
    });
}

TEST_F(PreviewTest, AStateThatCannotBeSetHoldsNoOtherUp) {
    Record().pages = 3;
    Show([this](FakeForm& form) {
        platform.viewer->page = 3;
        // Busy, current page, pages, the item, then its state, which fails.
        fakes::FakePlatform::Observe(
            std::make_shared<fakes::FaultObserver>(5, fakes::FaultObserver::Reach::Once));
        form.events.PageChanged();
        EXPECT_TRUE(form.menu.at("mnNextPage")->enabled) << "the one that failed";
        EXPECT_TRUE(form.menu.at("mnPrevPage")->enabled);
        EXPECT_TRUE(form.menu.at("mnZoomIn")->enabled);
        EXPECT_TRUE(platform.messages->boxes.empty());
    });
}

} // namespace
} // namespace qbrpt
