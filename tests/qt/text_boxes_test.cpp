// What goes into text boxes, and on what way.
#include "adapters/qt/dialog/text_boxes.h"
#include "dialog_fixture.h"
#include "support/key_filter.h"

#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TextBoxes : public DialogTest {
protected:
    /// Only digits from 1 to 50 go into "from".
    struct Filtered : DialogEvents {
        std::int16_t KeyPress(const std::string& name, std::int16_t key) override {
            return name == "from" ? FilterNumericKey(*box, key, 50, 1) : key;
        }
        Ref<TextBox> box;
    };
    TextBoxes() {
        form = Platform::Current().forms->Load(SampleDialog(), filtered);
        filtered.box = Get<TextBox>("from");
        Platform::Current().screen = platform.screen; // which counts its beeps
    }
    [[nodiscard]] std::string From() const { return filtered.box->Text(); }

    Filtered filtered;
};

TEST_F(TextBoxes, TypedCharactersAreAskedForWithTheBoxAsItStands) {
    WhileOpen([&] {
        EXPECT_EQ(filtered.box->SelLength(), 1) << "the first box comes selected";
        Type("0"); // below the least
        EXPECT_EQ(From(), "1");
        Type("4");
        EXPECT_EQ(From(), "4");
        Type("9x9 ");
        EXPECT_EQ(From(), "49");
        Press(Qt::Key_Backspace);
        EXPECT_EQ(From(), "4");
    });
    EXPECT_THAT(filtered.Of("change from"), ElementsAre("change from", "change from", "change from"));
    EXPECT_EQ(platform.screen->beeps, 1) << "at the letter";
}

TEST_F(TextBoxes, PastedTextIsAskedForAsIfItWereTyped) {
    struct {
        const char* name;
        const char* pasted;
        const char* text;
    } const rows[] = {
        {"Whole", "25", "25"},         {"WithASeparator", "1,5", "15"},   {"TooLarge", "512", "5"},
        {"NoNumber", "abc", "1"},      {"ACellOfASheet", "12\r\n", "12"}, {"TwoCells", "1\n2", "1"},
        {"ALineEndFirst", "\n5", "5"}, {"OldLineEnds", "3\r4", "3"},      {"ALineEndAlone", "\r\n", "1"},
        {"Arabic", "٤٥", "1"}};
    WhileOpen([&] {
        for (const auto& row : rows) {
            filtered.box->SetText("1");
            filtered.box->SetSelStart(0);
            filtered.box->SetSelLength(1);
            filtered.heard.clear();
            QGuiApplication::clipboard()->setText(row.pasted);
            Press(Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(From(), row.text) << row.name;
            EXPECT_LE(filtered.Of("change from").size(), 1U) << row.name << ": one change for all of it";
        }
    });
}

TEST_F(TextBoxes, APastedTextBeepsOnceHoweverLong) {
    WhileOpen([&] {
        QGuiApplication::clipboard()->setText("a long text of letters");
        Press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(platform.screen->beeps, 1);
        Press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(platform.screen->beeps, 2) << "once more for another";
        Type("ab");
        EXPECT_EQ(platform.screen->beeps, 4) << "each of two keys";
    });
}

TEST_F(TextBoxes, ComposedTextIsAskedForToo) {
    WhileOpen([&] {
        const auto commit = [](const QString& text) {
            QInputMethodEvent event;
            event.setCommitString(text);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        };
        commit("ع");
        EXPECT_EQ(From(), "1");
        commit("3");
        EXPECT_EQ(From(), "3");
        Get<TextBox>("copies")->SetFocus();
        Get<TextBox>("copies")->SetText("");
        commit("عهدة");
        EXPECT_EQ(Get<TextBox>("copies")->Text(), "عهدة");
    });
}

TEST_F(TextBoxes, ARuleCanPutAnotherCharacterInItsPlace) {
    form = Platform::Current().forms->Load(SampleDialog(), events);
    events.keys = {{"from a", 'b'}, {"from c", 0}};
    WhileOpen([&] { Type("aca"); });
    EXPECT_EQ(Get<TextBox>("from")->Text(), "bb");
}

TEST_F(TextBoxes, SelectionsCountCharacters) {
    const Ref<TextBox> box = Get<TextBox>("copies");
    box->SetText("a😀ع12");
    box->SetSelStart(1);
    box->SetSelLength(2);
    EXPECT_EQ(box->SelStart(), 1);
    EXPECT_EQ(box->SelLength(), 2);
    EXPECT_EQ(Find<QLineEdit>("copies").selectedText(), "😀ع");
    box->SetSelLength(99);
    EXPECT_EQ(box->SelLength(), 4);
    box->SetSelStart(5);
    EXPECT_EQ(box->SelLength(), 0);
    EXPECT_EQ(box->SelStart(), 5);
}

TEST_F(TextBoxes, ATextSetByRulesIsHeardWhenItDiffers) {
    filtered.heard.clear();
    Get<TextBox>("copies")->SetText("1");
    EXPECT_THAT(filtered.Of("change"), IsEmpty());
    Get<TextBox>("copies")->SetText("2");
    Get<TextBox>("note")->SetText("سطر\r\nآخر");
    Get<TextBox>("note")->SetText("سطر\r\nآخر");
    EXPECT_THAT(filtered.Of("change"), ElementsAre("change copies", "change note"));
}

TEST_F(TextBoxes, LinesOfALongTextEndWithReturnAndLineFeed) {
    const Ref<TextBox> note = Get<TextBox>("note");
    note->SetText("سطر\r\nآخر");
    EXPECT_EQ(note->Text(), "سطر\r\nآخر");
    note->SetSelStart(5);
    note->SetSelLength(3);
    EXPECT_EQ(note->SelStart(), 5);
    EXPECT_EQ(note->SelLength(), 3);
    EXPECT_EQ(Find<QPlainTextEdit>("note").textCursor().selectedText(), "آخر");
}

TEST_F(TextBoxes, EnterEndsALineOnlyWhereNoButtonAnswers) {
    WhileOpen([&] {
        Get<TextBox>("note")->SetFocus();
        Type("ab");
        Press(Qt::Key_Return); // the default button's
        Press(Qt::Key_Return, Qt::ControlModifier);
        Type("cd");
        Get<CommandButton>("ok")->SetEnabled(false);
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(Get<TextBox>("note")->Text(), "ab\r\ncd\r\n");
    EXPECT_THAT(filtered.Of("click"), ElementsAre("click ok"));
}

TEST_F(TextBoxes, ALockedBoxTakesNothing) {
    WhileOpen([&] {
        Get<TextBox>("printer")->SetFocus();
        Type("x");
        Press(Qt::Key_Backspace);
        Press(Qt::Key_V, Qt::ControlModifier);
    });
    EXPECT_EQ(Get<TextBox>("printer")->Text(), "مكتب الاستقبال – Orion L200");
}

TEST_F(TextBoxes, ASingleLineTakesTheFirstOfSeveral) {
    WhileOpen([&] {
        Get<TextBox>("copies")->SetFocus();
        Get<TextBox>("copies")->SetText("");
        QGuiApplication::clipboard()->setText("\r\nأول السطور\r\nثان");
        Press(Qt::Key_V, Qt::ControlModifier);
    });
    EXPECT_EQ(Get<TextBox>("copies")->Text(), "أول السطور");
}

TEST_F(TextBoxes, PastedLinesStayLinesWhateverTheirEnds) {
    WhileOpen([&] {
        Get<TextBox>("note")->SetFocus();
        QGuiApplication::clipboard()->setText("أول\r\nثان\rثالث\nرابع");
        Press(Qt::Key_V, Qt::ControlModifier);
    });
    EXPECT_EQ(Get<TextBox>("note")->Text(), "أول\r\nثان\r\nثالث\r\nرابع");
}

} // namespace
} // namespace qbrpt::test
