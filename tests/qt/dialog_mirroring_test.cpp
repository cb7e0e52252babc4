// What mirroring finds in a dialog, and what it does to the controls there.
#include "adapters/qt/style_words.h"
#include "dialog_fixture.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

namespace qbrpt::test {
namespace {

/// The sample dialog as it would be, had nobody designed it right to left.
const FormTable& FromTheLeft() {
    static const FormTable table = [] {
        FormTable copy = SampleDialog();
        copy.designedRightToLeft = false;
        return copy;
    }();
    return table;
}

class DialogMirroring : public DialogTest {
protected:
    DialogMirroring() : DialogTest(FromTheLeft()) {}
    [[nodiscard]] WindowHandle HandleOf(const char* name) const {
        return qt::Handles::Table().HandleOf(&Find<QWidget>(name));
    }
};

struct ClassRow {
    const char* control;
    const char* className;
    std::uint32_t style; ///< added by mirroring
    std::uint32_t extendedStyle;
};

constexpr std::uint32_t Words = 0x3000;

TEST_F(DialogMirroring, KnowsEachControlByItsClass) {
    static const ClassRow rows[] = {
        {"printerLabel", "Static", 0x400, Words},         {"printer", "ThunderTextBox", 0, Words | 0x4000},
        {"setup", "ThunderCommandButton", 0, Words},      {"range", "ThunderFrame", 0, Words},
        {"Way(0)", "ThunderOptionButton", 0x220, 0x2000}, {"all", "ThunderCheckBox", 0x220, 0x2000},
        {"arrows", "ThunderVScrollBar", 0, Words},        {"paper", "ThunderComboBox", 0, 0},
        {"since", "DTPicker20WndClass", 0, Words},        {"list", "ListView20WndClass", 0, 0x400000},
        {"sheet", "ThunderPictureBox", 0, Words}};
    WindowTree& tree = *Platform::Current().tree;
    std::vector<std::uint32_t> before;
    for (const ClassRow& row : rows)
        before.push_back(tree.GetWindowLong(HandleOf(row.control), WindowLong::Style));
    MirrorWindow(form->hWnd(), false, false);
    for (std::size_t at = 0; at < std::size(rows); ++at) {
        const WindowHandle handle = HandleOf(rows[at].control);
        EXPECT_EQ(tree.GetClassName(handle), rows[at].className) << rows[at].control;
        EXPECT_EQ(tree.GetWindowLong(handle, WindowLong::Style) & ~before[at], rows[at].style)
            << rows[at].control;
        EXPECT_EQ(tree.GetWindowLong(handle, WindowLong::ExtendedStyle), rows[at].extendedStyle)
            << rows[at].control;
    }
}

TEST_F(DialogMirroring, TheTreeHasFramesAroundWhatStandsInThem) {
    WindowTree& tree = *Platform::Current().tree;
    EXPECT_EQ(tree.GetWindow(HandleOf("range"), WindowRelation::Child), HandleOf("fromLabel"));
    EXPECT_EQ(tree.GetWindow(form->hWnd(), WindowRelation::Child), HandleOf("printerLabel"));
    EXPECT_EQ(Get<TextBox>("from")->hWnd(), HandleOf("from"));
}

TEST_F(DialogMirroring, TurnsTextsMarksAndScrollBars) {
    Get<TextBox>("note")->SetText("one\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix");
    for (int item = 1; item <= 30; ++item)
        Get<ListView>("list")->Add(std::to_string(item), "item");
    const auto sides = [&] {
        std::string found;
        WhileOpen([&] {
            const auto atLeft = [](const QWidget& part, const QWidget& whole) {
                return part.mapTo(&whole, QPoint(0, 0)).x() < whole.width() / 2;
            };
            found +=
                Find<QLineEdit>("printer").alignment().testFlag(Qt::AlignRight) ? "text right" : "text left";
            found += Find<QLineEdit>("from").alignment().testFlag(Qt::AlignHCenter) ? ", middle" : ", aside";
            found += Find<QLabel>("noteLabel").alignment().testFlag(Qt::AlignRight) ? ", words right"
                                                                                    : ", words left";
            const auto& page = Find<QPlainTextEdit>("note");
            found += atLeft(*page.verticalScrollBar(), page) ? ", bar left" : ", bar right";
            const auto& list = Find<QAbstractScrollArea>("list");
            found += atLeft(*list.verticalScrollBar(), list) ? ", list bar left" : ", list bar right";
            found +=
                Find<QWidget>("all").layoutDirection() == Qt::RightToLeft ? ", mark right" : ", mark left";
            found += Find<QWidget>("paper").layoutDirection() == Qt::RightToLeft ? ", combo turned"
                                                                                 : ", combo as it was";
            found += Find<QWidget>("ok").x() > Find<QWidget>("cancel").x() ? ", from the right"
                                                                           : ", from the left";
        });
        return found;
    };
    EXPECT_EQ(sides(), "text left, middle, words left, bar right, list bar right, mark left, combo as it "
                       "was, from the left");
    form = Platform::Current().forms->Load(FromTheLeft(), events);
    Get<TextBox>("note")->SetText("one\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix");
    for (int item = 1; item <= 30; ++item)
        Get<ListView>("list")->Add(std::to_string(item), "item");
    MirrorWindow(form->hWnd(), false, false);
    EXPECT_EQ(sides(), "text right, middle, words right, bar left, list bar left, mark right, combo as it "
                       "was, from the right");
}

TEST(DesignedRightToLeft, AllIsTurnedButWhatOnlyMirroringTurns) {
    const WindowPlatform platform;
    DialogEvents events;
    const Ref<Form> form = Platform::Current().forms->Load(SampleDialog(), events);
    const QWidget& window = *qt::Handles::Table().Find(form->hWnd())->widget;
    for (const char* name : {"printer", "range", "all", "Way(0)", "paper", "since", "note", "setup"})
        EXPECT_EQ(window.findChild<QWidget*>(name)->layoutDirection(), Qt::RightToLeft) << name;
    EXPECT_EQ(window.findChild<QWidget*>("list")->layoutDirection(), Qt::LeftToRight);
}

} // namespace
} // namespace qbrpt::test
