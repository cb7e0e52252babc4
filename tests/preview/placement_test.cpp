// The preview takes the place of the host's window and gives it back.
#include "preview_fixture.h"

#include <cstring>

namespace qbrpt {
namespace {

using fakes::FakeForm;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class Placement : public PreviewTest {
protected:
    Placement() {
        hOwnerWnd = Host;
        platform.windows->places[Host] = {.showCmd = 1, .left = 100, .top = 50, .right = 900, .bottom = 650};
        platform.windows->titles[Host] = "مقهى الواحة";
        platform.windows->icons[Host] = 5;
    }
    static constexpr WindowHandle Host = 40;
    static inline const std::string Key =
        fakes::FakeRegistry::KeyOf(HKEY_USERS, ".Default\\Software\\Tollmere\\Printing", "Window Place");
};

TEST_F(Placement, StandsOverTheHostWhileItIsHidden) {
    Show([this](FakeForm& form) {
        EXPECT_THAT(platform.windows->log,
                    ElementsAre("icon 1 5 77", "icon 0 5 77", "hide 40", "move 100 50 800 600 77", "top 77",
                                "activate 77", "focus 77"));
        EXPECT_EQ(form.caption, "مقهى الواحة [Printing]");
        EXPECT_THAT(form.moves, ElementsAre(std::pair{1500, 750}));
        form.events.Resize();
        EXPECT_THAT(form.moves, SizeIs(1)); // the first resize alone places the window
    });
    EXPECT_EQ(platform.windows->log.back(), "show 40");
    EXPECT_EQ(platform.registry->values.count(Key), 1U);
}

TEST_F(Placement, KeepsItsOwnPlaceAsTheSystemsRecord) {
    platform.windows->places[Me] = {.flags = 2,
                                    .showCmd = 3,
                                    .minX = -1,
                                    .minY = -2,
                                    .maxX = -3,
                                    .maxY = -4,
                                    .left = 1,
                                    .top = 2,
                                    .right = 3,
                                    .bottom = 0x01020304};
    Show();
    const std::string& value = platform.registry->values.at(Key);
    ASSERT_THAT(value, SizeIs(44));
    EXPECT_EQ(value.substr(0, 12), std::string("\x2C\0\0\0\x02\0\0\0\x03\0\0\0", 12));
    EXPECT_EQ(value.substr(12, 4), "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(value.substr(40), "\x04\x03\x02\x01");
}

TEST_F(Placement, FollowsAMaximisedHost) {
    platform.windows->places[Host].showCmd = 3;
    Show([](FakeForm& form) {
        EXPECT_EQ(form.state, WindowState::Maximized);
        EXPECT_THAT(form.moves, IsEmpty());
    });
}

TEST_F(Placement, FollowsAMinimisedHost) {
    platform.windows->places[Host].showCmd = 6;
    Show([this](FakeForm& form) {
        EXPECT_EQ(form.state, WindowState::Minimized);
        EXPECT_TRUE(platform.windows->hidden[Host]);
    });
}

TEST_F(Placement, NeedsNoTitleAndNoIcon) {
    platform.windows->titles[Host].clear();
    platform.windows->icons[Host] = 0;
    Show([this](FakeForm& form) {
        EXPECT_EQ(form.caption, "Printing");
        EXPECT_EQ(platform.windows->log.front(), "hide 40");
    });
}

TEST_F(Placement, CutsTheTitleAtItsEnd) {
    platform.windows->titles[Host] = std::string("Cafe\0rest", 9);
    Show([](FakeForm& form) { EXPECT_EQ(form.caption, "Cafe [Printing]"); });
}

TEST_F(Placement, FreesItselfFromAnOwnerFirst) {
    platform.tree->windows[Me].owner = Host;
    Show([this](FakeForm&) { EXPECT_EQ(platform.tree->windows[Me].owner, 0U); });
}

TEST_F(Placement, WithoutAHostStaysWhereItOpensWhateverIsStored) {
    hOwnerWnd = 0;
    for (const std::size_t size : {44U, 12U, 0U}) {
        platform.registry->values[Key] = std::string(size, '\x07');
        Show([this](FakeForm& form) {
            EXPECT_THAT(form.moves, IsEmpty());
            EXPECT_THAT(platform.windows->log, IsEmpty());
            EXPECT_EQ(form.caption, "طباعة");
        });
        EXPECT_THAT(platform.registry->values.at(Key), SizeIs(44));
    }
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(Placement, LeavesItselfAloneWhereItIsTheHost) {
    hOwnerWnd = Me;
    Show([this](FakeForm& form) {
        EXPECT_THAT(form.moves, IsEmpty());
        EXPECT_FALSE(platform.windows->hidden[Me]);
    });
}

TEST_F(Placement, WritesNothingWhereItsPlaceCannotBeTold) {
    platform.windows->places.erase(Me);
    Show();
    EXPECT_THAT(platform.registry->values, IsEmpty());
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
    EXPECT_EQ(platform.windows->log.back(), "show 40");
}

TEST_F(Placement, ASecondPreviewGoesThroughTheSameSteps) {
    Show();
    frmPrntServer::Drop();
    const std::vector<std::string> first = platform.windows->log;
    platform.windows->log.clear();
    Show();
    EXPECT_EQ(platform.windows->log, first);
}

/// Fails each call of one name.
class Broken final : public PortObserver {
public:
    explicit Broken(std::string operation) : mOperation(std::move(operation)) {}

private:
    void Called(const PortCall& call) override {
        if (call.operation == mOperation) throw Failure(FailureNumber::Device, "broken");
    }
    std::string mOperation;
};

TEST_F(Placement, AFailingMoveAsksAndTheHostComesBackAllTheSame) {
    fakes::FakePlatform::Observe(std::make_shared<Broken>("MoveWindow"));
    EXPECT_TRUE(Show());
    EXPECT_THAT(platform.messages->boxes, ElementsAre(fakes::ShownBox{"LoadLastPos\r\nbroken", 21, "qbrpt"}));
    EXPECT_EQ(platform.windows->log.back(), "show 40");
}

TEST_F(Placement, AFailingStoreAsksAndTheHostComesBackAllTheSame) {
    fakes::FakePlatform::Observe(std::make_shared<Broken>("WriteValue"));
    EXPECT_TRUE(Show());
    EXPECT_THAT(platform.messages->boxes, ElementsAre(fakes::ShownBox{"SavePos\r\nbroken", 21, "qbrpt"}));
    EXPECT_FALSE(platform.windows->hidden[Host]);
}

TEST_F(Placement, WhoeverGoesOnAfterAFailingMoveGetsTheRestOfTheSteps) {
    platform.messages->answers = {BoxAnswer::Retry};
    fakes::FakePlatform::Observe(std::make_shared<Broken>("MoveWindow"));
    Show([](FakeForm& form) {
        EXPECT_EQ(form.caption, "مقهى الواحة [Printing]");
        EXPECT_THAT(form.moves, ElementsAre(std::pair{1500, 750})) << "by the first resize";
    });
    EXPECT_THAT(platform.messages->boxes, SizeIs(1));
}

TEST_F(Placement, ALeftEdgeBeyondAllBoundsTakesTheUpperOneNotWithIt) {
    platform.windows->places[Host].left = 200'000'000;
    platform.windows->places[Host].right = 200'000'800;
    platform.messages->answers = {BoxAnswer::Retry};
    Show([](FakeForm& form) { EXPECT_THAT(form.moves, ElementsAre(std::pair{0, 750})); });
    ASSERT_THAT(platform.messages->boxes, SizeIs(1));
    EXPECT_EQ(platform.messages->boxes[0].text, "LoadLastPos\r\nOverflow.");
    EXPECT_EQ(platform.messages->boxes[0].style, 21);
}

/// Fails what is asked of one window.
class BrokenFor final : public PortObserver {
public:
    BrokenFor(std::string operation, WindowHandle window)
        : mOperation(std::move(operation)), mWindow(window) {}

private:
    void Called(const PortCall& call) override {
        if (call.operation == mOperation && call.arguments[0] == Value{std::int64_t{mWindow}})
            throw Failure(FailureNumber::Device, "broken");
    }
    std::string mOperation;
    WindowHandle mWindow;
};

TEST_F(Placement, WhoeverGoesOnWithoutItsOwnPlaceWritesAnEmptyOne) {
    fakes::FakePlatform::Observe(std::make_shared<BrokenFor>("GetWindowPlacement", Me));
    platform.messages->answers = {BoxAnswer::Retry};
    Show();
    EXPECT_THAT(platform.messages->boxes, ElementsAre(fakes::ShownBox{"SavePos\r\nbroken", 21, "qbrpt"}));
    EXPECT_EQ(platform.registry->values[Key], "\x2C" + std::string(43, '\0'));
    platform.registry->values.clear();
    Show();
    EXPECT_THAT(platform.registry->values, IsEmpty()) << "cancelled";
}

TEST_F(Placement, TheWindowThatWasHiddenComesBackAlsoWhereTheHostHasAnotherNow) {
    struct Row {
        WindowHandle now;
        std::vector<std::string> shown;
    };
    for (const Row& row : {Row{Host, {"show 40"}}, Row{41, {"show 41", "show 40"}}, Row{0, {"show 40"}},
                           Row{Me, {"show 77", "show 40"}}}) {
        hOwnerWnd = Host;
        Show([&](FakeForm&) {
            hOwnerWnd = row.now;
            platform.windows->log.clear();
        });
        EXPECT_EQ(platform.windows->log, row.shown);
        EXPECT_FALSE(platform.windows->hidden[Host]);
        frmPrntServer::Drop();
    }
}

TEST_F(Placement, AnotherWindowThatCannotBeShownKeepsTheHiddenOneNotAway) {
    fakes::FakePlatform::Observe(std::make_shared<BrokenFor>("ShowWindow", 41));
    Show([](FakeForm&) { hOwnerWnd = 41; });
    EXPECT_FALSE(platform.windows->hidden[Host]);
    EXPECT_THAT(platform.messages->boxes, ElementsAre(fakes::ShownBox{"broken", 16, "qbrpt"}));
}

/// Fails one call by its number.
class Once final : public PortObserver {
public:
    explicit Once(std::size_t position) : mPosition(position) {}
    void Stop() { mStopped = true; }

private:
    void Called(const PortCall&) override {
        if (mStopped || ++mCalls != mPosition) return;
        throw Failure(FailureNumber::Device, "broken");
    }
    std::size_t mPosition;
    std::size_t mCalls = 0;
    bool mStopped = false;
};

/// From a call on: what a failure leads to.
struct RoutineRow {
    const char* from;
    const char* box; ///< before the description; null where failures are passed over
    int style = 21;
};

constexpr const char* ShowBox = "ShowpReport\r";

constexpr RoutineRow Mirroring[] = {{"Form.hWnd()", ShowBox}, {"WindowTree.", nullptr}};
constexpr RoutineRow EnglishWords[] = {
    {"Form.SetRightToLeft(", ShowBox}, {"WindowTree.", nullptr}, {"Form.Menu(", ShowBox}};
constexpr RoutineRow Rest[] = {{"Form.Viewer(", ShowBox},
                               {"Printer.Current(", "RefreshReportprinter\r", 16},
                               {"Form.Viewer(", ShowBox},
                               {"Windows.DoEvents(", ShowBox},
                               {"Form.Viewer(", nullptr},
                               {"Windows.GetWindowPlacement(40", "LoadLastPos\r\n"},
                               {"Screen.MousePointer(0)", ShowBox},
                               {"Form.ToolbarOf(", "", 16},
                               {"Toolbar.ZOrder(", "", 16},
                               {"Form.hWnd()", "SavePos\r\n"},
                               {"Windows.ShowWindow(40, 5)", "", 16},
                               {"Screen.MousePointer(0)", ShowBox},
                               {"Form.Unload(", "", 16}};

/// The routines in the order in which they run.
std::vector<RoutineRow> Routines(bool arabic) {
    std::vector<RoutineRow> rows = {{"Screen.MousePointer(11)", ShowBox}, {"Form.ToolbarOf(", nullptr}};
    if (arabic)
        rows.insert(rows.end(), std::begin(Mirroring), std::end(Mirroring));
    else
        rows.insert(rows.end(), std::begin(EnglishWords), std::end(EnglishWords));
    rows.insert(rows.end(), std::begin(Rest), std::end(Rest));
    return rows;
}

/// The routine of each call.
std::vector<RoutineRow> RoutineOfEach(const std::vector<std::string>& calls, bool arabic) {
    const std::vector<RoutineRow> rows = Routines(arabic);
    std::vector<RoutineRow> each;
    std::size_t row = 0;
    for (const std::string& call : calls) {
        if (row + 1 < rows.size() && call.starts_with(rows[row + 1].from)) ++row;
        each.push_back(rows[row]);
    }
    EXPECT_EQ(row + 1, rows.size()) << "no call begins with "
                                    << rows[std::min(row + 1, rows.size() - 1)].from;
    return each;
}

class EachCallFails : public Placement, public ::testing::WithParamInterface<bool> {};

TEST_P(EachCallFails, AndTheHostIsBackThePointerUsualAndTheBoxThatOfItsRoutine) {
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    Show([](FakeForm&) {}, GetParam());
    frmPrntServer::Drop();
    const std::vector<std::string> calls = log->Lines();
    const std::vector<RoutineRow> routines = RoutineOfEach(calls, GetParam());
    for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Retry}) {
        for (std::size_t position = 0; position < calls.size(); ++position) {
            const std::string& call = calls[position];
            platform.messages->usual = answer;
            platform.messages->boxes.clear();
            const auto fault = std::make_shared<Once>(position + 1);
            fakes::FakePlatform::Observe(fault);
            Show([](FakeForm&) {}, GetParam());
            frmPrntServer::Drop();
            fault->Stop();
            EXPECT_FALSE(platform.windows->hidden[Host]) << call;
            if (!call.starts_with("Screen.")) {
                EXPECT_EQ(platform.screen->Current(), Pointer::Default) << call;
            }
            const RoutineRow& routine = routines[position];
            if (routine.box == nullptr) {
                EXPECT_THAT(platform.messages->boxes, IsEmpty()) << call;
                continue;
            }
            ASSERT_THAT(platform.messages->boxes, ::testing::Not(IsEmpty())) << call;
            EXPECT_EQ(platform.messages->boxes.front(),
                      (fakes::ShownBox{std::string(routine.box) + "broken", routine.style, "qbrpt"}))
                << call;
            if (answer == BoxAnswer::Cancel) {
                EXPECT_THAT(platform.messages->boxes, SizeIs(1)) << call;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, EachCallFails, ::testing::Values(true, false),
                         [](const auto& arabic) { return arabic.param ? "Arabic" : "English"; });

} // namespace
} // namespace qbrpt
