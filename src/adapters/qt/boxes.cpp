#include "adapters/qt/boxes.h"

#include "adapters/qt/application.h"
#include "adapters/qt/host_window.h"
#include "adapters/qt/icons.h"
#include "adapters/qt/look.h"
#include "adapters/qt/screen.h"
#include "adapters/qt/shown_text.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <span>

namespace qbrpt::qt {

namespace {

constexpr int ButtonBits = 0xF;
constexpr int IconBits = 0xF0;
constexpr int DefaultBits = 0xF00;
constexpr int DefaultShift = 8;
constexpr int IconPixels = 40;
constexpr int Padding = 14;
constexpr int LeastWidth = 280;

struct BoxButton {
    BoxAnswer answer;
    const char* caption;
};

constexpr BoxButton Ok{BoxAnswer::Ok, "موافق"};
constexpr BoxButton Cancel{BoxAnswer::Cancel, "إلغاء الأمر"};
constexpr BoxButton Abort{BoxAnswer::Abort, "إحباط"};
constexpr BoxButton Retry{BoxAnswer::Retry, "إعادة المحاولة"};
constexpr BoxButton Ignore{BoxAnswer::Ignore, "تجاهل"};
constexpr BoxButton Yes{BoxAnswer::Yes, "نعم"};
constexpr BoxButton No{BoxAnswer::No, "لا"};

std::span<const BoxButton> ButtonsOf(int style) {
    static constexpr BoxButton sets[][3] = {
        {Ok}, {Ok, Cancel}, {Abort, Retry, Ignore}, {Yes, No, Cancel}, {Yes, No}, {Retry, Cancel}};
    static constexpr std::size_t counts[] = {1, 2, 3, 3, 2, 2};
    const auto set = static_cast<std::size_t>(style & ButtonBits);
    return set < std::size(counts) ? std::span(sets[set], counts[set]) : std::span(sets[0], 1);
}

QString IconOf(int style) {
    switch (style & IconBits) {
    case 0x10:
        return "box-critical";
    case 0x20:
        return "box-question";
    case 0x30:
        return "box-warning";
    case 0x40:
        return "box-information";
    default:
        return {};
    }
}

QString BoxStyleSheet() {
    return QStringLiteral(R"(
QMessageBox { background: #F1F3F4; }
QLabel { color: #14191D; }
QPushButton { background: #FBFCFC; color: #14191D; border: 1px solid #9AA4AB; border-radius: 4px;
    min-width: 72px; min-height: 16px; padding: 5px 7px; }
QPushButton:hover { background: #E6ECEF; }
QPushButton:focus, QPushButton:default { border: 2px solid #0B3F4F; padding: 4px 6px; }
QPushButton:pressed { background: #D5E0E4; }
)");
}

/// Adds the buttons of the style; which one answers the enter key is said by it too.
QList<QPushButton*> AddButtons(QMessageBox& box, int style) {
    const std::span<const BoxButton> row = ButtonsOf(style);
    const auto chosen = static_cast<std::size_t>((style & DefaultBits) >> DefaultShift);
    QList<QPushButton*> buttons;
    for (std::size_t i = 0; i < row.size(); ++i) {
        // One role for all keeps them in the order of the row.
        auto* button = box.addButton(QString::fromUtf8(row[i].caption), QMessageBox::ActionRole);
        button->setAutoDefault(true);
        if (i == chosen || i == 0) box.setDefaultButton(button);
        if (row[i].answer == BoxAnswer::Cancel || row.size() == 1) box.setEscapeButton(button);
        buttons.append(button);
    }
    return buttons;
}

void LayOut(QMessageBox& box) {
    box.layout()->setContentsMargins(Padding, Padding, Padding, Padding);
    if (auto* words = box.findChild<QLabel*>("qt_msgbox_label"))
        words->setAlignment(Qt::AlignVCenter | Qt::AlignLeading);
    // A row of its own keeps boxes of few words from being too narrow.
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(LeastWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

BoxAnswer QtBoxes::DoMsgBox(const std::string& text, int style, const std::string& title) {
    if (!WhyNoWindows().empty()) return ConsoleBoxes::DoMsgBox(text, style, title);
    RequireApplication();
    const UsualPointer pointer;
    QMessageBox box(QApplication::activeModalWidget());
    box.setWindowModality(Qt::ApplicationModal);
    box.setAttribute(Qt::WA_QuitOnClose, false);
    box.setFont(WindowFont());
    box.setPalette(HousePalette());
    box.setStyleSheet(BoxStyleSheet());
    box.setLayoutDirection(Qt::RightToLeft);
    box.setWindowIcon(Drawing("window"));
    SetTitle(box, title);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setText(KeptInOrderByLines(QString::fromStdString(text)));
    if (const QString icon = IconOf(style); !icon.isEmpty())
        box.setIconPixmap(Drawing(icon).pixmap(QSize(IconPixels, IconPixels), box.devicePixelRatio()));
    const QList<QPushButton*> buttons = AddButtons(box, style);
    LayOut(box);
    if (box.parentWidget() == nullptr) StandOverHost(box);
    box.exec();
    const auto clicked = buttons.indexOf(qobject_cast<QPushButton*>(box.clickedButton()));
    // Closed by the end of the application: the answer that gives up.
    if (clicked < 0) return buttons.size() == 1 ? BoxAnswer::Ok : BoxAnswer::Cancel;
    return ButtonsOf(style)[static_cast<std::size_t>(clicked)].answer;
}

} // namespace qbrpt::qt
