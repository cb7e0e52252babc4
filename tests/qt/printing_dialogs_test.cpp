// The dialogs of printing as real windows, by keyboard and by mouse.
#include "adapters/gdi/form_pictures.h"
#include "adapters/qt/application.h"
#include "fakes/call_log.h"
#include "preview/print_dialogs.h"
#include "window_platform.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PrintingDialogs : public ::testing::Test {
protected:
    PrintingDialogs() {
        qt::RequireApplication(); // a test's steps wait for it
        platform.printers->printers = {
            {"مكتب الاستقبال", "Orion L200 PCL", "usb://Orion/L200", OrientationPortrait, 9, 7, 11'906},
            {"Plotter", "plotter", "socket://10.0.0.7", OrientationLandscape, 8, 2, 23'811}};
        fakes::SpooledPrinter& desk = platform.spooler->printers["مكتب الاستقبال"];
        desk.papers = {.names = {"A4", "A5", "رسالة"}, .codes = {9, 11, 1}};
        desk.bins = {.names = {"تلقائي", "الدرج الأول"}, .codes = {7, 1}};
        desk.record.description = "مكتب الاستقبال,Orion L200 PCL,القاعة";
        desk.record.comment = "بجوار الصندوق، ورق A4 فقط";
        platform.spooler->printers["Plotter"].papers = {.names = {"A3", "A4"}, .codes = {8, 9}};
        fakes::FakePlatform::Observe(log);
    }

    static QWidget& Dialog() { return *QApplication::activeModalWidget(); }
    template <class Widget>
    static Widget& Find(const char* name) {
        return *Dialog().findChild<Widget*>(name);
    }
    static QWidget& Find(const char* name) { return Find<QWidget>(name); }
    static std::string TextOf(const char* name) { return Find<QLineEdit>(name).text().toStdString(); }
    static std::string Focused() {
        QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? std::string() : widget->objectName().toStdString();
    }
    static void Type(const char* keys) { QTest::keyClicks(QApplication::focusWidget(), keys); }
    static void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }
    /// In its middle, or at a place of its own.
    static void ClickOn(const char* name, QPoint place = {}) {
        QTest::mouseClick(&Find(name), Qt::LeftButton, Qt::NoModifier, place);
    }
    /// On the mark or the words of a check box or an option.
    static void Switch(const char* name) {
        QWidget& toggle = Find(name);
        ClickOn(name, {toggle.width() - 8, toggle.height() / 2});
    }

    bool Ask(std::vector<Meanwhile::Step> steps, std::int32_t pages = 12) {
        const Meanwhile meanwhile(std::move(steps));
        return ShowPrintDlg(pages, from, to, copies, all, changed);
    }
    static bool Choose(std::vector<Meanwhile::Step> steps) {
        const Meanwhile meanwhile(std::move(steps));
        return GetPrinterSetup();
    }
    [[nodiscard]] std::size_t Beeps() const { return log->LinesOf({"Screen.Beep"}).size(); }
    PrinterInfo Current() { return platform.printers->Current(); }

    WindowPlatform platform;
    std::shared_ptr<fakes::CallLog> log = std::make_shared<fakes::CallLog>();
    std::int32_t from = -7;
    std::int32_t to = -7;
    std::int32_t copies = -7;
    bool all = false;
    bool changed = false;
};

TEST_F(PrintingDialogs, APageRangeAndCopiesByKeyboardAlone) {
    EXPECT_TRUE(Ask({[] {
        EXPECT_EQ(Focused(), "printFrom");
        Type("2"); // over the 1 that is selected
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focused(), "printTo");
        Type("3");
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focused(), "printAllChk");
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focused(), "copyCount");
        Type("2");
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focused(), "cmdPrntSetup");
        Press(Qt::Key_Tab);
        EXPECT_NE(Focused(), "cmdOk") << "the arrows come before";
        Find("copyCount").setFocus();
        Press(Qt::Key_Return);
    }}));
    EXPECT_EQ(from, 2);
    EXPECT_EQ(to, 3);
    EXPECT_EQ(copies, 2);
    EXPECT_FALSE(all);
    EXPECT_EQ(Beeps(), 0U);
}

TEST_F(PrintingDialogs, KeysThatAreNoUseAreDropped) {
    EXPECT_FALSE(Ask({[this] {
        Type("a");
        EXPECT_EQ(Beeps(), 1U);
        EXPECT_EQ(TextOf("printFrom"), "1") << "nor does the selection go";
        Press(Qt::Key_Tab);
        Type("99");
        EXPECT_EQ(TextOf("printTo"), "9");
        Type("0");
        EXPECT_EQ(TextOf("printTo"), "9");
        Press(Qt::Key_Backspace);
        Type("012");
        EXPECT_EQ(TextOf("printTo"), "12");
        EXPECT_EQ(Beeps(), 1U);
        Press(Qt::Key_Escape);
    }}));
    EXPECT_EQ(from, -7);
}

TEST_F(PrintingDialogs, ThePrintersNameIsOnlyToBeRead) {
    Ask({[] {
        EXPECT_TRUE(Find<QLineEdit>("prName").isReadOnly());
        Find("prName").setFocus();
        Type("x");
        Press(Qt::Key_Delete);
        Press(Qt::Key_Backspace);
        EXPECT_EQ(TextOf("prName"), "مكتب الاستقبال");
        Press(Qt::Key_Escape);
    }});
}

TEST_F(PrintingDialogs, TheCopiesAndTheirArrowsFollowEachOther) {
    EXPECT_TRUE(Ask({[] {
        const QPoint down(10, Find("VScroll1").height() - 5);
        ClickOn("VScroll1", down);
        ClickOn("VScroll1", down);
        EXPECT_EQ(TextOf("copyCount"), "3");
        ClickOn("VScroll1", {10, 5});
        EXPECT_EQ(TextOf("copyCount"), "2") << "the arrow at the top lowers it";
        Find<QLineEdit>("copyCount").clear();
        EXPECT_EQ(TextOf("copyCount"), "1");
        Find("copyCount").setFocus();
        Find<QLineEdit>("copyCount").selectAll();
        Type("327681");
        EXPECT_EQ(TextOf("copyCount"), "32761") << "the 8 would have been too much";
        ClickOn("cmdOk");
    }}));
    EXPECT_EQ(copies, 32'761);
}

TEST_F(PrintingDialogs, PrintAllByMouse) {
    EXPECT_TRUE(Ask({[] {
        Switch("printAllChk");
        EXPECT_TRUE(Find("printFrom").isEnabled());
        Switch("printAllChk");
        EXPECT_FALSE(Find("printFrom").isEnabled());
        EXPECT_FALSE(Find("printTo").isEnabled());
        Switch("printAllChk");
        EXPECT_TRUE(Find("printTo").isEnabled());
        ClickOn("cmdOk");
    }}));
    EXPECT_TRUE(all);
}

TEST_F(PrintingDialogs, TheFramesCrossCancels) {
    EXPECT_FALSE(Ask({[] { Dialog().close(); }}));
    EXPECT_FALSE(Ask({[] { ClickOn("Cancel"); }}));
    EXPECT_FALSE(Choose({[] { Dialog().close(); }}));
    EXPECT_EQ(from, -7);
    EXPECT_EQ(Current().deviceName, "مكتب الاستقبال");
    EXPECT_EQ(OpenForm(), nullptr);
}

TEST_F(PrintingDialogs, AnotherPrinterFromWithin) {
    EXPECT_FALSE(Ask({[] { ClickOn("cmdPrntSetup"); },
                      [] {
                          EXPECT_EQ(Dialog().windowTitle().toStdString(), "إعداد الطابعة");
                          Find("comboPrinter").setFocus();
                          Press(Qt::Key_Down);
                          EXPECT_THAT(Find<QComboBox>("comboPaper").currentText().toStdString(),
                                      ::testing::HasSubstr("A3"));
                          EXPECT_FALSE(Find("comboSource").isEnabled());
                          EXPECT_TRUE(Find<QAbstractButton>("OrignOpt(1)").isChecked());
                          EXPECT_EQ(Find<QLabel>("labCommet").text(), "");
                          Press(Qt::Key_Return);
                      },
                      [] {
                          EXPECT_EQ(TextOf("prName"), "Plotter");
                          ClickOn("Cancel");
                      }}));
    EXPECT_EQ(Current().deviceName, "Plotter");
    EXPECT_EQ(Current().paperSize, 8);
    EXPECT_EQ(Current().orientation, OrientationLandscape);
    EXPECT_THAT(log->LinesOf({"MessageBoxes"}), IsEmpty());
}

TEST_F(PrintingDialogs, PaperTrayAndDirectionByMouse) {
    EXPECT_TRUE(Choose({[] {
        EXPECT_EQ(Find<QComboBox>("comboPrinter").currentText().toStdString(), "مكتب الاستقبال");
        Find<QComboBox>("comboPaper").setCurrentIndex(1);
        Find<QComboBox>("comboSource").setCurrentIndex(1);
        Switch("OrignOpt(1)");
        EXPECT_FALSE(Find<QAbstractButton>("OrignOpt(0)").isChecked());
        ClickOn("cmdOk");
    }}));
    EXPECT_EQ(Current().paperSize, 11);
    EXPECT_EQ(Current().paperBin, 1);
    EXPECT_EQ(Current().orientation, OrientationLandscape);
}

/// How many pixels of the painted sheet are others than its picture has over the dialog's ground.
int WrongPixels(QWidget& box, const char* picture) {
    const Picture sheet = gdi::FormPicture(picture).value();
    const QImage shown = box.grab().toImage();
    if (shown.width() != sheet.width || shown.height() != sheet.height) return -1;
    const QRgb ground = box.palette().color(QPalette::Window).rgb();
    const QRgb pureRed = qRgb(255, 0, 0);
    int wrong = 0;
    for (int y = 0; y < sheet.height; ++y) {
        for (int x = 0; x < sheet.width; ++x) {
            const std::uint8_t* rgba = sheet.rgba.data() + 4 * (static_cast<std::size_t>(y * sheet.width) +
                                                                static_cast<std::size_t>(x));
            const QRgb pixel = qRgb(rgba[0], rgba[1], rgba[2]);
            wrong += shown.pixel(x, y) != (pixel == pureRed ? ground : pixel) ? 1 : 0;
        }
    }
    return wrong;
}

TEST_F(PrintingDialogs, TheSheetIsPaintedInItsDirection) {
    const std::size_t handles = platform.drawing->LiveHandles();
    Choose({[] {
        EXPECT_EQ(WrongPixels(Find("PicDrw"), "sheet-portrait"), 0);
        EXPECT_EQ(Find("PicDrw").geometry(), QRect(38, 28, 26, 32));
        Switch("OrignOpt(1)");
        EXPECT_EQ(WrongPixels(Find("PicDrw"), "sheet-landscape"), 0);
        EXPECT_EQ(Find("PicDrw").geometry().size(), QSize(31, 23));
        EXPECT_FALSE(Find("Pic1").isVisible());
        EXPECT_FALSE(Find("Pic2").isVisible());
        Switch("OrignOpt(0)");
        EXPECT_EQ(WrongPixels(Find("PicDrw"), "sheet-portrait"), 0);
        Dialog().close();
    }});
    EXPECT_EQ(platform.drawing->LiveHandles(), handles) << "nothing of the painting is left";
}

/// Controls of the dialog that are not as large as they want to be, or lie over one another.
std::vector<std::string> Cramped() {
    std::vector<std::string> names;
    std::vector<QWidget*> shown;
    for (QWidget* widget : QApplication::activeModalWidget()->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
        const bool words =
            qobject_cast<QLabel*>(widget) != nullptr || qobject_cast<QAbstractButton*>(widget) != nullptr;
        if (words && (widget->width() < widget->minimumSizeHint().width() ||
                      widget->height() < widget->minimumSizeHint().height()))
            names.push_back(widget->objectName().toStdString());
        for (const QWidget* other : shown)
            if (other->parent() == widget->parent() && other->geometry().intersects(widget->geometry()) &&
                !other->objectName().startsWith("qt_"))
                names.push_back(other->objectName().toStdString() + " " + widget->objectName().toStdString());
        shown.push_back(widget);
    }
    return names;
}

TEST_F(PrintingDialogs, NothingIsCutAndTheWindowsAreFixed) {
    Ask({[] {
        EXPECT_THAT(Cramped(), IsEmpty());
        EXPECT_EQ(Dialog().minimumSize(), Dialog().maximumSize());
        EXPECT_EQ(Dialog().size(), QSize(427, 217)) << "6405 by 3255 twips";
        Dialog().close();
    }});
    Choose({[] {
        EXPECT_THAT(Cramped(), IsEmpty());
        EXPECT_EQ(Dialog().minimumSize(), Dialog().maximumSize());
        EXPECT_EQ(Dialog().size(), QSize(441, 286)) << "6615 by 4290 twips";
        EXPECT_EQ(Dialog().layoutDirection(), Qt::RightToLeft);
        Dialog().close();
    }});
}

TEST_F(PrintingDialogs, FieldsHaveNamesForThoseWhoDoNotSee) {
    Ask({[] {
        EXPECT_EQ(Find("printFrom").accessibleName().toStdString(), "من الصفحة");
        EXPECT_EQ(Find("printTo").accessibleName().toStdString(), "إلى");
        EXPECT_EQ(Find("copyCount").accessibleName().toStdString(), "عدد النسخ");
        Dialog().close();
    }});
    Choose({[] {
        EXPECT_EQ(Find("comboPrinter").accessibleName().toStdString(), "الاسم");
        EXPECT_EQ(Find("comboPaper").accessibleName().toStdString(), "الحجم");
        EXPECT_EQ(Find("comboSource").accessibleName().toStdString(), "المصدر");
        Dialog().close();
    }});
}

TEST_F(PrintingDialogs, SixHundredPapersAreABox) {
    auto& papers = platform.spooler->printers["Plotter"].papers;
    papers.names.assign(600, "ورقة");
    papers.codes.assign(600, 9);
    EXPECT_TRUE(Choose({[] {
                            Find("comboPrinter").setFocus();
                            Press(Qt::Key_Down);
                        },
                        [] { QTest::keyClick(&Dialog(), Qt::Key_Return); }, // the box
                        [] { ClickOn("cmdOk"); }}));
    EXPECT_THAT(log->LinesOf({"MessageBoxes"}),
                ElementsAre("MessageBoxes.MsgBox(\"comboPrinter\rOverflow.\", 0, \"qbrpt\")"));
}

} // namespace
} // namespace qbrpt::test
