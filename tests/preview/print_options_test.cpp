// The dialog that asks for pages and copies.
#include "dialog_fixture.h"
#include "fakes/fault_observer.h"
#include "preview/print_dialog_tables.h"
#include "support/mirroring.h"

#include <map>

namespace qbrpt {
namespace {

using fakes::FakeForm;
using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PrintOptions : public DialogTest {
protected:
    /// Opens the dialog for a document of so many pages; `act` is what the user does.
    bool Ask(std::int32_t pages, const std::function<void(FakeForm&)>& act) {
        While("frmPrint", act);
        return ShowPrintDlg(pages, from, to, copies, all, changed);
    }
    static void Accept(FakeForm& form) { Press(form, "cmdOk"); }

    std::int32_t from = -7;
    std::int32_t to = -7;
    std::int32_t copies = -7;
    bool all = false;
    bool changed = false;
};

TEST_F(PrintOptions, OpensWithItsStartValues) {
    EXPECT_FALSE(Ask(12, [this](FakeForm& form) {
        EXPECT_EQ(form.caption, "طباعة");
        EXPECT_EQ(Box(form, "prName").text, "Lazer");
        EXPECT_EQ(Box(form, "printFrom").text, "1");
        EXPECT_EQ(Box(form, "printTo").text, "");
        EXPECT_EQ(Box(form, "copyCount").text, "1");
        EXPECT_TRUE(Box(form, "printFrom").enabled);
        EXPECT_TRUE(Box(form, "printTo").enabled);
        EXPECT_FALSE(Toggle(form, "printAllChk").on);
        EXPECT_EQ(form.controls.Of<fakes::FakeScrollBar>("VScroll1")->value, 1);
        EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Wait, Pointer::Default));
        EXPECT_NE(platform.tree->windows[Me].extended & WindowStyle::WS_EX_RTLREADING, 0U);
    }));
    EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Wait, Pointer::Default, Pointer::Default));
    EXPECT_TRUE(platform.messages->boxes.empty());
}

struct RangeRow {
    const char* name;
    std::int32_t pages;
    const char* from; ///< what stands in the boxes
    const char* to;
    const char* copies;
    std::int32_t givenFrom;
    std::int32_t givenTo;
    std::int32_t givenCopies;
};

class RangeTest : public PrintOptions, public ::testing::WithParamInterface<RangeRow> {};

TEST_P(RangeTest, IsHeldInsideTheDocument) {
    const RangeRow& row = GetParam();
    EXPECT_TRUE(Ask(row.pages, [&](FakeForm& form) {
        Box(form, "printFrom").text = row.from;
        Box(form, "printTo").text = row.to;
        Box(form, "copyCount").text = row.copies;
        Accept(form);
    }));
    EXPECT_EQ(from, row.givenFrom);
    EXPECT_EQ(to, row.givenTo);
    EXPECT_EQ(copies, row.givenCopies);
    EXPECT_FALSE(all);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RangeTest,
    ::testing::Values(RangeRow{"ConfirmedAsItOpens", 12, "1", "", "1", 1, 1, 1},
                      RangeRow{"AnInnerRange", 12, "2", "3", "2", 2, 3, 2},
                      RangeRow{"BeyondTheLastPage", 12, "13", "99", "1", 12, 12, 1},
                      RangeRow{"BackwardsGoesAsItStands", 12, "9", "4", "1", 9, 4, 1},
                      RangeRow{"Nothing", 12, "", "", "", 1, 1, 1},
                      RangeRow{"Zeros", 12, "0", "0", "0", 1, 1, 1},
                      RangeRow{"BelowZero", 12, "-5", "-1", "-9", 1, 1, 1},
                      RangeRow{"TheNumberAtTheHead", 12, "4 pages", "7x", "2nd", 4, 7, 2},
                      RangeRow{"HalvesGoToTheEvenNumber", 12, "2.5", "3.5", "4.5", 2, 4, 4},
                      RangeRow{"OnePage", 1, "1", "9", "1", 1, 1, 1},
                      RangeRow{"NoPage", 0, "1", "1", "1", 0, 0, 1},
                      RangeRow{"AsManyPagesAsThereCanBe", 32'767, "1", "32767", "1", 1, 32'767, 1},
                      RangeRow{"CopiesHaveNoUpperBound", 12, "1", "2", "99999", 1, 2, 99'999}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(PrintOptions, PrintAllIsTold) {
    EXPECT_TRUE(Ask(12, [](FakeForm& form) {
        Toggle(form, "printAllChk").SetValue(true);
        Press(form, "cmdOk");
    }));
    EXPECT_TRUE(all);
    EXPECT_EQ(to, 1) << "the boxes are told beside it";
    EXPECT_TRUE(Ask(12, Accept));
    EXPECT_FALSE(all) << "nothing of an earlier choice";
}

TEST_F(PrintOptions, TheRangeIsOpenWhileAllIsCheckedAndShutAfterwards) {
    EXPECT_TRUE(Ask(12, [](FakeForm& form) {
        Box(form, "printFrom").text = "4";
        Toggle(form, "printAllChk").SetValue(true);
        EXPECT_TRUE(Box(form, "printFrom").enabled);
        EXPECT_TRUE(Box(form, "printTo").enabled);
        Toggle(form, "printAllChk").SetValue(false);
        EXPECT_FALSE(Box(form, "printFrom").enabled);
        EXPECT_FALSE(Box(form, "printTo").enabled);
        Press(form, "cmdOk");
    }));
    EXPECT_FALSE(all);
    EXPECT_EQ(from, 4) << "what the boxes hold still counts";
    EXPECT_EQ(to, 1);
}

struct KeysRow {
    const char* name;
    std::int32_t pages;
    const char* box;
    const char* before;
    const char* keys;
    const char* after;
    int beeps;
};

class KeysTest : public PrintOptions, public ::testing::WithParamInterface<KeysRow> {};

TEST_P(KeysTest, TakesTheNumbersThatItCanUse) {
    const KeysRow& row = GetParam();
    Ask(row.pages, [&](FakeForm& form) {
        Box(form, row.box).text = row.before;
        Type(form, row.box, row.keys);
        EXPECT_EQ(Box(form, row.box).text, row.after);
    });
    EXPECT_EQ(platform.screen->beeps, row.beeps);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, KeysTest,
    ::testing::Values(KeysRow{"FirstPageInside", 12, "printFrom", "", "12", "12", 0},
                      KeysRow{"FirstPageBeyond", 12, "printFrom", "", "13", "1", 0},
                      KeysRow{"LastPageBeyond", 12, "printTo", "", "99", "9", 0},
                      KeysRow{"NoLeadingZero", 12, "printTo", "", "07", "7", 0},
                      KeysRow{"OnlyOneOnAOnePageDocument", 1, "printTo", "", "2391", "1", 0},
                      KeysRow{"NothingOnADocumentWithoutPages", 0, "printFrom", "", "0123456789", "", 0},
                      KeysRow{"LettersBeep", 12, "printFrom", "", "a-b", "", 3},
                      KeysRow{"APointIsTaken", 12, "printTo", "1", ".5", "1.5", 0},
                      KeysRow{"ASecondPointBeeps", 12, "printTo", "1.5", ".", "1.5", 1},
                      KeysRow{"BlankIsDropped", 12, "printTo", "1", " ", "1", 0},
                      KeysRow{"CopiesUpToTheirLimit", 12, "copyCount", "", "32767", "32767", 0},
                      KeysRow{"CopiesBeyondIt", 12, "copyCount", "3276", "8", "3276", 0},
                      KeysRow{"CopiesHaveNothingToDoWithPages", 1, "copyCount", "1", "5", "15", 0},
                      KeysRow{"CopiesOfLetters", 12, "copyCount", "1", "x", "1", 1}),
    [](const auto& row) { return std::string(row.param.name); });

struct CopiesRow {
    const char* name;
    const char* typed;
    std::int16_t bar;
    const char* box;
};

class CopiesTest : public PrintOptions, public ::testing::WithParamInterface<CopiesRow> {};

TEST_P(CopiesTest, BoxAndScrollBarFollowEachOther) {
    Ask(12, [](FakeForm& form) {
        fakes::FakeScrollBar& bar = *form.controls.Of<fakes::FakeScrollBar>("VScroll1");
        bar.SetValue(5);
        EXPECT_EQ(Box(form, "copyCount").text, "5");
        Box(form, "copyCount").SetText(GetParam().typed);
        EXPECT_EQ(bar.value, GetParam().bar);
        EXPECT_EQ(Box(form, "copyCount").text, GetParam().box);
    });
}

INSTANTIATE_TEST_SUITE_P(Rows, CopiesTest,
                         ::testing::Values(CopiesRow{"ANumber", "12", 12, "12"},
                                           CopiesRow{"Nothing", "", 1, "1"}, CopiesRow{"Zero", "0", 1, "1"},
                                           CopiesRow{"TheSameInOtherDigits", "05", 5, "05"},
                                           CopiesRow{"TooMany", "99999", 32'767, "32767"},
                                           CopiesRow{"Letters", "x", 1, "1"},
                                           CopiesRow{"AHalf", "2.5", 2, "2"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(PrintOptions, AnEmptiedBoxStaysWhereTheScrollBarDoesNotMove) {
    EXPECT_TRUE(Ask(12, [](FakeForm& form) {
        Box(form, "copyCount").SetText("");
        EXPECT_EQ(Box(form, "copyCount").text, "") << "the bar stood at 1 already";
        Press(form, "cmdOk");
    }));
    EXPECT_EQ(copies, 1);
}

TEST_F(PrintOptions, CancelAndTheFrameWriteNothing) {
    EXPECT_FALSE(Ask(12, [](FakeForm& form) { Press(form, "Cancel"); }));
    EXPECT_FALSE(Ask(12, [](FakeForm& form) { form.Close(); }));
    EXPECT_FALSE(Ask(12, [](FakeForm& form) {
        Press(form, "cmdOk");
        Press(form, "Cancel"); // the last word counts
    }));
    EXPECT_EQ(from, -7);
    EXPECT_EQ(to, -7);
    EXPECT_EQ(copies, -7);
    EXPECT_TRUE(platform.messages->boxes.empty());
}

TEST_F(PrintOptions, AnotherPrinterShowsItsName) {
    While("frmPrinterSetup", [](FakeForm& form) {
        List(form, "comboPrinter").SetListIndex(1);
        Press(form, "cmdOk");
    });
    EXPECT_FALSE(Ask(12, [](FakeForm& form) {
        Press(form, "cmdPrntSetup");
        EXPECT_EQ(Box(form, "prName").text, "Plotter");
        Press(form, "Cancel");
    }));
    EXPECT_EQ(platform.printers->Current().deviceName, "Plotter") << "it stays, also after Cancel";
}

TEST_F(PrintOptions, ACancelledSetupLeavesTheName) {
    While("frmPrinterSetup", [](FakeForm& form) {
        List(form, "comboPrinter").SetListIndex(1);
        Press(form, "Cancel");
    });
    Ask(12, [](FakeForm& form) {
        Press(form, "cmdPrntSetup");
        EXPECT_EQ(Box(form, "prName").text, "Lazer");
    });
    EXPECT_EQ(platform.printers->Current().deviceName, "Lazer");
}

TEST_F(PrintOptions, TooManyPagesEndItBeforeItOpens) {
    EXPECT_FALSE(Ask(32'768, [](FakeForm&) { FAIL() << "never shown"; }));
    EXPECT_EQ(platform.forms->built, 0);
    EXPECT_EQ(from, -7);
    EXPECT_TRUE(platform.messages->boxes.empty());
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

TEST_F(PrintOptions, WithoutAPrinterItEndsBeforeItIsShown) {
    platform.printers->printers.clear();
    EXPECT_FALSE(Ask(12, [](FakeForm&) { FAIL() << "never shown"; }));
    EXPECT_TRUE(platform.messages->boxes.empty());
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

// Whatever fails: no word of the dialog's own, nothing accepted that was not read, and the pointer goes back.
TEST_F(PrintOptions, EachFailureEndsItInSilence) {
    const auto act = [this](FakeForm& form) {
        Press(form, "cmdPrntSetup");
        Toggle(form, "printAllChk").SetValue(true);
        Press(form, "cmdOk");
    };
    bool whole = false;
    for (std::size_t position = 1; !whole; ++position) {
        const auto fault =
            std::make_shared<fakes::FaultObserver>(position, fakes::FaultObserver::Reach::Once);
        const auto log = std::make_shared<fakes::CallLog>();
        Platform::Current().observers = {};
        platform.messages->boxes.clear();
        platform.screen->pointers.clear();
        fakes::FakePlatform::Observe(log);
        fakes::FakePlatform::Observe(fault);
        const bool accepted = Ask(12, act);
        whole = fault->Failed() == 0;
        const bool lastPointer =
            log->Lines().back() == "Screen.MousePointer(0)" && fault->LastFailed() == "Screen.MousePointer";
        EXPECT_TRUE(lastPointer || platform.screen->Current() == Pointer::Default) << fault->LastFailed();
        EXPECT_LE(log->LinesOf({"Form.Unload"}).size(), accepted ? 2U : 1U) << fault->LastFailed();
        for (const ShownBox& box : platform.messages->boxes)
            EXPECT_THAT(box.text, ::testing::HasSubstr("fault in ")) << "of a handler, or of the setup";
    }
}

// The box of a failed OK is its handler's; the dialog waits on.
TEST_F(PrintOptions, AHandlersFailureIsABoxWithOk) {
    Ask(12, [this](FakeForm& form) {
        Box(form, "copyCount").broken = true;
        form.events.Change("copyCount");
        EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"the box is gone", 16, "qbrpt"}));
        EXPECT_TRUE(form.visible);
    });
}

TEST_F(PrintOptions, MoreCopiesThanThereAreNumbersForEndItInSilence) {
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    EXPECT_FALSE(Ask(12, [](FakeForm& form) {
        Box(form, "printFrom").text = "3";
        Box(form, "copyCount").text = "3000000000";
        Accept(form);
    }));
    EXPECT_EQ(copies, -7);
    EXPECT_EQ(from, 3) << "what stands before it is written already";
    EXPECT_THAT(log->LinesOf({"Form.Unload"}), IsEmpty());
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    EXPECT_TRUE(platform.messages->boxes.empty());
}

TEST_F(PrintOptions, AFailureBehindTheDialogLeavesItLoaded) {
    class Broken final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "Text" && hidden) throw Failure(FailureNumber::Device, "gone");
            hidden |= call.operation == "Hide";
        }
        bool hidden = false;
    };
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    fakes::FakePlatform::Observe(std::make_shared<Broken>());
    EXPECT_FALSE(Ask(12, Accept));
    EXPECT_THAT(log->LinesOf({"Form.Unload"}), IsEmpty());
    EXPECT_EQ(from, -7);
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    EXPECT_TRUE(platform.messages->boxes.empty());
}

TEST(PrintOptionsTable, HasTheControlsInTheirTabOrder) {
    const FormTable& table = PrintOptionsTable();
    EXPECT_EQ(table.clientWidth, 6405);
    EXPECT_EQ(table.clientHeight, 3255);
    EXPECT_TRUE(table.isDialog);
    std::map<std::int16_t, std::string> order;
    for (const ControlRow& row : table.controls)
        order[row.tabIndex] = std::string(row.name) + " " + std::string(row.caption);
    std::vector<std::string> names;
    for (const auto& [index, name] : order)
        names.push_back(name);
    EXPECT_THAT(names, ElementsAre("printFrom ", "printTo ", "printAllChk طباعة الكل", "copyCount ",
                                   "cmdPrntSetup إ&عداد الطابعة", "Label1(0) الطابعة", "Label1(1) من الصفحة",
                                   "Label1(2) إلى ", "Label2 عدد النسخ", "prName ", "Frame1 نطاق الطباعة",
                                   "VScroll1 ", "cmdOk موافق", "Cancel إلغاء الأمر"));
}

TEST(PrintOptionsTable, HasItsControlsInTheirPlacesAndKinds) {
    std::vector<std::string> inFrame;
    std::vector<std::string> centred;
    std::vector<std::string> locked;
    std::vector<std::string> first;
    for (const ControlRow& row : PrintOptionsTable().controls) {
        const std::string name(row.name);
        if (row.parent == "Frame1") inFrame.push_back(name);
        EXPECT_TRUE(row.parent.empty() || row.parent == "Frame1") << name;
        if (row.centred) centred.push_back(name);
        if (row.locked) locked.push_back(name);
        if (!row.text.empty()) first.push_back(name + "=" + std::string(row.text));
        EXPECT_EQ(row.isDefault, name == "cmdOk");
        EXPECT_EQ(row.isCancel, name == "Cancel");
        EXPECT_FALSE(row.on) << name;
        if (name != "VScroll1") continue;
        EXPECT_EQ(row.kind, ControlKind::VScrollBar);
        EXPECT_EQ(row.minimum, 1);
        EXPECT_EQ(row.maximum, 32'767);
    }
    EXPECT_THAT(inFrame, ElementsAre("Label1(1)", "printFrom", "Label1(2)", "printTo", "printAllChk"));
    EXPECT_THAT(centred, ElementsAre("printFrom", "printTo", "copyCount"));
    EXPECT_THAT(locked, ElementsAre("prName"));
    EXPECT_THAT(first, ElementsAre("printFrom=1", "copyCount=1"));
}

} // namespace
} // namespace qbrpt
