// Dialogs: their frame, the keys of the whole window, buttons and boxes.
#include "adapters/gdi/raster_gdi.h"
#include "adapters/qt/dialog/arrow_pair.h"
#include "adapters/qt/dialog/buttons.h"
#include "adapters/qt/dialog/text_boxes.h"
#include "dialog_fixture.h"
#include "preview/print_dialog_tables.h"

#include <QtGui/QClipboard>
#include <QtGui/QScreen>
#include <QtWidgets/QLabel>

namespace qbrpt::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Dialog : public DialogTest {};

TEST_F(Dialog, HasAFixedFrameInTheMiddleOfTheScreen) {
    EXPECT_GE(form->ScaleWidth(), 6405);
    EXPECT_GE(form->ScaleHeight(), 3255);
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize());
    const QPoint off = Window().geometry().center() - Window().screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
}

TEST(DialogSizes, AreThoseOfTheirTables) {
    const WindowPlatform platform;
    DialogEvents events;
    for (const FormTable* table : {&PrintOptionsTable(), &PrinterSetupTable()}) {
        const Ref<Form> form = Platform::Current().forms->Load(*table, events);
        EXPECT_NEAR(form->ScaleWidth(), table->clientWidth, 15) << table->name;
        EXPECT_NEAR(form->ScaleHeight(), table->clientHeight, 15) << table->name;
    }
}

TEST_F(Dialog, ShowsAllOfEachControl) {
    WhileOpen([&] {
        for (const ControlRow& row : SampleDialog().controls) {
            auto* widget = Window().findChild<QWidget*>(QString::fromUtf8(row.name.data()));
            if (row.name.empty() || row.name == "comment" || row.widthInDigits > 0) continue;
            EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << row.name;
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << row.name;
        }
    });
}

TEST_F(Dialog, LaysItsRowsOutFromTheRight) {
    WhileOpen([&] {
        const auto left = [&](const char* name) {
            return Window().findChild<QWidget*>(name)->mapTo(&Window(), QPoint(0, 0)).x();
        };
        EXPECT_GT(left("printerLabel"), left("printer"));
        EXPECT_GT(left("printer"), left("setup"));
        EXPECT_GT(left("from"), left("Way(0)"));
        EXPECT_GT(left("ok"), left("cancel"));
        EXPECT_LT(left("cancel"), 20) << "buttons stand at the far side";
    });
}

TEST_F(Dialog, TheTabKeyGoesInItsOrder) {
    WhileOpen([&] {
        std::vector<std::string> way;
        for (int turn = 0; turn < 15; ++turn) {
            way.push_back(Focused());
            Press(Qt::Key_Tab);
        }
        EXPECT_THAT(way, ElementsAre("from", "Way(0)", "all", "setup", "copies", "arrows", "paper", "since",
                                     "until", "list", "note", "ok", "cancel", "printer", "from"));
        Press(Qt::Key_Backtab);
        EXPECT_EQ(Focused(), "from");
    });
}

TEST_F(Dialog, TheTabKeyLandsOnTheOptionThatIsOn) {
    WhileOpen([&] {
        const auto tabs = [&](int key) {
            Press(key);
            return Focused();
        };
        Get<ToggleControl>("Way(1)")->SetValue(true);
        EXPECT_EQ(tabs(Qt::Key_Tab), "Way(1)");
        EXPECT_EQ(tabs(Qt::Key_Tab), "all");
        EXPECT_EQ(tabs(Qt::Key_Backtab), "Way(1)");
        EXPECT_EQ(tabs(Qt::Key_Backtab), "from");
        Find<QWidget>("Way(0)").setFocus(); // only looked at
        EXPECT_EQ(tabs(Qt::Key_Tab), "all");
        EXPECT_EQ(tabs(Qt::Key_Backtab), "Way(1)");
        EXPECT_EQ(tabs(Qt::Key_Backtab), "from");
        Get<ToggleControl>("Way(0)")->SetValue(true);
        EXPECT_EQ(tabs(Qt::Key_Tab), "Way(0)");
        EXPECT_EQ(tabs(Qt::Key_Left), "Way(1)");
        EXPECT_TRUE(Get<ToggleControl>("Way(1)")->Value());
        Press(Qt::Key_Tab);
        Get<ToggleControl>("Way(1)")->SetValue(false); // none is on: the next there is
        EXPECT_EQ(tabs(Qt::Key_Backtab), "Way(1)");
        EXPECT_EQ(tabs(Qt::Key_Backtab), "from");
        EXPECT_EQ(tabs(Qt::Key_Tab), "Way(0)");
    });
}

TEST_F(Dialog, TellsOnceWhenItIsActiveAndOfEachNewFocus) {
    WhileOpen([&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !events.Of("activate").empty(); }));
        Press(Qt::Key_Tab);
        Get<TextBox>("note")->SetFocus();
        Get<TextBox>("note")->SetFocus();
    });
    EXPECT_THAT(events.Of("activate"), ElementsAre("activate"));
    EXPECT_THAT(events.Of("focus"), ElementsAre("focus from", "focus Way(0)", "focus note"));
}

TEST_F(Dialog, AFocusThatCannotBeHadIsAFailure) {
    Get<TextBox>("note")->SetEnabled(false);
    Get<TextBox>("copies")->SetVisible(false);
    EXPECT_THROW(Get<TextBox>("note")->SetFocus(), Failure);
    EXPECT_THROW(Get<TextBox>("copies")->SetFocus(), Failure);
    EXPECT_FALSE(Get<TextBox>("copies")->Visible());
    EXPECT_FALSE(Get<TextBox>("note")->Enabled());
    EXPECT_TRUE(Get<TextBox>("from")->Enabled());
    EXPECT_TRUE(Get<TextBox>("from")->Visible()) << "though its window is not shown yet";
    Get<TextBox>("from")->SetFocus();
    EXPECT_THROW(static_cast<void>(form->Get<Label>("from")), Failure);
    EXPECT_THROW(static_cast<void>(form->Get<TextBox>("nobody")), Failure);
}

TEST_F(Dialog, EnterAndEscapeArePressedButtons) {
    WhileOpen([&] {
        Press(Qt::Key_Return); // in a text box
        Press(Qt::Key_Escape);
        Get<CommandButton>("setup")->SetDefault(true);
        Press(Qt::Key_Enter);
        Get<CommandButton>("setup")->SetEnabled(false);
        Press(Qt::Key_Return); // nobody answers
        Get<CommandButton>("cancel")->SetFocus();
        Press(Qt::Key_Return); // a button that has the focus answers itself
        Press(Qt::Key_Space);
    });
    EXPECT_THAT(events.Of("click"),
                ElementsAre("click ok", "click cancel", "click setup", "click cancel", "click cancel"));
}

TEST_F(Dialog, NoButtonIsTheDefaultOnceItsOwnIsTakenAway) {
    Get<CommandButton>("setup")->SetDefault(false); // it was not
    WhileOpen([&] { Press(Qt::Key_Return); });
    EXPECT_THAT(events.Of("click"), ElementsAre("click ok"));
    form = Platform::Current().forms->Load(SampleDialog(), events);
    Get<CommandButton>("ok")->SetDefault(false);
    WhileOpen([&] { Press(Qt::Key_Return); });
    EXPECT_THAT(events.Of("click"), ElementsAre("click ok"));
}

TEST_F(Dialog, HidingEndsItsShowingAndKeepsWhatItHolds) {
    events.then = [&](const std::string& what) {
        if (what == "click ok") form->Hide();
    };
    WhileOpen([&] {
        Get<TextBox>("from")->SetText("7");
        Press(Qt::Key_Return);
    });
    EXPECT_FALSE(form->Visible());
    EXPECT_EQ(Get<TextBox>("from")->Text(), "7");
    EXPECT_THAT(events.Of("unload"), IsEmpty());
    form->Unload();
    EXPECT_THAT(events.Of("unload"), ElementsAre("unload"));
}

TEST_F(Dialog, HiddenItCanBeShownAgainAtOnce) {
    events.then = [&](const std::string& what) {
        if (what == "click ok") form->Hide();
    };
    for (const char* pages : {"7", "8"}) {
        std::string first;
        WhileOpen([&] {
            first = Focused();
            Get<TextBox>("from")->SetText(pages);
            Press(Qt::Key_Return);
        });
        EXPECT_EQ(first, "from") << "shown for " << pages;
        EXPECT_FALSE(form->Visible());
        EXPECT_EQ(Get<TextBox>("from")->Text(), pages);
    }
    EXPECT_THAT(events.Of("activate"), ElementsAre("activate", "activate"));
    EXPECT_THAT(events.Of("click"), ElementsAre("click ok", "click ok"));
    EXPECT_THAT(events.Of("unload"), IsEmpty());
}

TEST_F(Dialog, HiddenAsItComesUpItIsNotWaitedFor) {
    events.then = [&](const std::string& what) {
        if (what == "activate") form->Hide();
    };
    for (const std::size_t showings : {1U, 2U}) {
        form->ShowModal();
        EXPECT_FALSE(form->Visible());
        EXPECT_EQ(events.Of("activate").size(), showings);
    }
}

TEST_F(Dialog, ClosedByItsFrameItUnloads) {
    WhileOpen([] {});
    EXPECT_THAT(events.Of("unload"), ElementsAre("unload"));
    EXPECT_EQ(Get<TextBox>("from")->Text(), "1") << "what it held can still be read";
    const Ref<TextBox> box = Get<TextBox>("from");
    form.Clear();
    EXPECT_THROW(static_cast<void>(box->Text()), Failure);
}

TEST_F(Dialog, AltAndALetterPressTheirButton) {
    WhileOpen([&] {
        const auto withAlt = [&](int letter) {
            QTest::sendKeyEvent(QTest::Click, &Window(), static_cast<Qt::Key>(letter), QString(),
                                Qt::AltModifier);
        };
        withAlt(0x0639); // ain
        withAlt(0x0643); // kaf
        EXPECT_TRUE(QTest::qWaitFor([&] { return events.Of("click").size() == 2; }));
    });
    EXPECT_THAT(events.Of("click"), ::testing::UnorderedElementsAre("click setup", "click all"));
    EXPECT_TRUE(Get<ToggleControl>("all")->Value());
}

TEST_F(Dialog, OptionsExcludeEachOtherAndTellOfBeingChosen) {
    WhileOpen([&] {
        ClickOn(Find<QWidget>("Way(1)"));
        ClickOn(Find<QWidget>("Way(1)"));
        Press(Qt::Key_Right); // where the other stands
        Get<ToggleControl>("Way(1)")->SetValue(true);
        Get<ToggleControl>("Way(1)")->SetValue(false);
    });
    EXPECT_THAT(events.Of("click"), ElementsAre("click Way(1)", "click Way(0)", "click Way(1)"));
    EXPECT_FALSE(Get<ToggleControl>("Way(0)")->Value());
    EXPECT_FALSE(Get<ToggleControl>("Way(1)")->Value()) << "a rule can switch all off";
}

TEST_F(Dialog, ACheckBoxTellsOfEachSwitch) {
    WhileOpen([&] {
        ClickOn(Find<QWidget>("all"));
        Press(Qt::Key_Space);
        Get<ToggleControl>("all")->SetValue(true);
        Get<ToggleControl>("all")->SetValue(true);
    });
    EXPECT_THAT(events.Of("click"), ElementsAre("click all", "click all", "click all"));
}

TEST_F(Dialog, TheUpperArrowGoesToTheLowerNumber) {
    auto& arrows = Find<qt::ArrowPair>("arrows");
    WhileOpen([&] {
        const QPoint upper(arrows.width() / 2, 4);
        const QPoint lower(arrows.width() / 2, arrows.height() - 4);
        ClickOn(arrows, lower);
        ClickOn(arrows, lower);
        EXPECT_EQ(Get<ScrollBar>("arrows")->Value(), 3);
        ClickOn(arrows, upper);
        EXPECT_EQ(Get<ScrollBar>("arrows")->Value(), 2);
        Press(Qt::Key_Down);
        EXPECT_EQ(Get<ScrollBar>("arrows")->Value(), 3);
        Press(Qt::Key_Home);
        Press(Qt::Key_Up); // no further
        EXPECT_EQ(Get<ScrollBar>("arrows")->Value(), 1);
        EXPECT_EQ(events.Of("change arrows").size(), 5U);
        EXPECT_EQ(Get<ScrollBar>("arrows")->Max(), 32767);
        EXPECT_THROW(Get<ScrollBar>("arrows")->SetValue(0), Failure);
        Get<ScrollBar>("arrows")->SetValue(32767);
        EXPECT_EQ(events.Of("change arrows").size(), 6U);
    });
}

TEST_F(Dialog, FieldsAreCalledByTheWordsBeforeThem) {
    struct {
        const char* field;
        const char* name;
    } const rows[] = {{"printer", "الطابعة"}, {"from", "من الصفحة"}, {"paper", "الورق"},
                      {"since", "من"},        {"note", "البيان"},    {"setup", "إعداد الطابعة"}};
    for (const auto& row : rows)
        EXPECT_EQ(Find<QWidget>(row.field).accessibleName().toStdString(), row.name) << row.field;
}

TEST_F(Dialog, WordsWithoutRoomEndInDotsAndStandInTheTip) {
    const std::string comment = "usb://Orion/L200?serial=123456789012345678901234567890";
    WhileOpen([&] {
        Get<Label>("comment")->SetCaption(comment);
        const auto& label = Find<QLabel>("comment");
        EXPECT_TRUE(label.text().contains("...") || label.text().contains(QChar(0x2026)));
        EXPECT_EQ(label.toolTip().toStdString(), comment);
        Get<Label>("comment")->SetCaption("A4");
        EXPECT_EQ(label.toolTip(), "");
        EXPECT_TRUE(label.text().contains("A4"));
    });
}

TEST_F(Dialog, AMovedControlLeavesItsRow) {
    const Ref<PictureBox> sheet = Get<PictureBox>("sheet");
    sheet->Move({.left = 300, .top = 600, .width = 450, .height = 345});
    WhileOpen([&] {
        EXPECT_EQ(Find<QWidget>("sheet").geometry(), QRect(20, 40, 30, 23));
        Get<CommandButton>("ok")->Move(150, 15);
        EXPECT_EQ(Find<QWidget>("ok").pos(), QPoint(10, 1));
        EXPECT_EQ(Get<CommandButton>("ok")->Place().left, 150);
    });
}

TEST_F(Dialog, APictureBoxHasItsSurfaceOnlyWhileItIsPainted) {
    Platform::Current().gdi = std::make_shared<gdi::RasterGdi>();
    auto& drawing = dynamic_cast<gdi::RasterGdi&>(*Platform::Current().gdi);
    form = Platform::Current().forms->Load(SampleDialog(), events);
    const Ref<PictureBox> sheet = Get<PictureBox>("sheet");
    const std::size_t before = drawing.LiveHandles();
    events.then = [&](const std::string& what) {
        if (what != "paint") return;
        const auto hdc = static_cast<GdiHandle>(sheet->hDC());
        EXPECT_NE(hdc, 0);
        const GdiHandle brush = drawing.CreateSolidBrush(0x0000FF);
        drawing.FillRect(hdc, 0, 0, 8, 8, brush);
        drawing.DeleteObject(brush);
    };
    WhileOpen([&] {
        EXPECT_EQ(sheet->hDC(), 0U);
        const QImage shown = Find<QWidget>("sheet").grab().toImage();
        EXPECT_EQ(shown.pixelColor(4, 4), QColor(255, 0, 0));
        EXPECT_EQ(shown.pixelColor(20, 20), QColor("#F1F3F4"));
        const int paints = events.paints;
        sheet->Refresh();
        EXPECT_TRUE(QTest::qWaitFor([&] { return events.paints > paints; }));
    });
    EXPECT_EQ(drawing.LiveHandles(), before);
    EXPECT_EQ(sheet->Picture(), 0U);
}

} // namespace
} // namespace qbrpt::test
