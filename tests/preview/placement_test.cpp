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

/// Fails one call by its number.
class Once final : public PortObserver {
public:
    explicit Once(std::size_t position) : mPosition(position) {}
    void Stop() { mStopped = true; }
    [[nodiscard]] std::size_t Calls() const { return mCalls; }
    [[nodiscard]] const std::string& Failed() const { return mFailed; }

private:
    void Called(const PortCall& call) override {
        if (mStopped || ++mCalls != mPosition) return;
        mFailed = call.operation;
        throw Failure(FailureNumber::Device, "broken");
    }
    std::size_t mPosition;
    std::size_t mCalls = 0;
    std::string mFailed;
    bool mStopped = false;
};

TEST_F(Placement, WhicheverCallFailsTheHostIsBackAndThePointerIsUsual) {
    const auto run = [this](std::size_t position, BoxAnswer answer, std::size_t& calls, std::string& failed) {
        platform.messages->usual = answer;
        const auto fault = std::make_shared<Once>(position);
        fakes::FakePlatform::Observe(fault);
        Show();
        frmPrntServer::Drop();
        fault->Stop();
        calls = fault->Calls();
        failed = fault->Failed();
    };
    std::size_t calls = 0;
    std::string failed;
    run(0, BoxAnswer::Cancel, calls, failed);
    const std::size_t all = calls;
    ASSERT_GT(all, 100U);
    for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Retry}) {
        for (std::size_t position = 1; position <= all; ++position) {
            run(position, answer, calls, failed);
            EXPECT_FALSE(platform.windows->hidden[Host]) << failed;
            if (failed != "MousePointer") {
                EXPECT_EQ(platform.screen->Current(), Pointer::Default) << failed;
            }
        }
    }
}

} // namespace
} // namespace qbrpt
