#include "adapters/qt/dialog/text_boxes.h"

#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/menus.h"
#include "adapters/qt/shown_text.h"

#include <QtCore/QMimeData>
#include <QtGui/QAction>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QMenu>

#include <algorithm>
#include <memory>
#include <utility>

namespace qbrpt::qt {

namespace {

constexpr int LinesShown = 3;

/// Units of the text before its character `position`.
qsizetype UnitsBefore(const QString& text, std::int32_t position) {
    qsizetype units = 0;
    for (std::int32_t passed = 0; passed < position && units < text.size(); ++passed)
        units += text[units].isHighSurrogate() ? 2 : 1;
    return std::min(units, text.size());
}

std::int32_t CharactersIn(QStringView text) {
    return static_cast<std::int32_t>(
        std::count_if(text.begin(), text.end(), [](QChar unit) { return !unit.isLowSurrogate(); }));
}

class LinePort final : public ControlOver<TextBox, TextLine> {
public:
    using ControlOver::ControlOver;

private:
    [[nodiscard]] std::string DoText() const override { return Shown().text().toStdString(); }
    void DoSetText(const std::string& text) override { Shown().setText(QString::fromStdString(text)); }
    [[nodiscard]] std::int32_t DoSelStart() const override {
        const qsizetype start =
            Shown().hasSelectedText() ? Shown().selectionStart() : Shown().cursorPosition();
        return CharactersIn(QStringView(Shown().text()).first(start));
    }
    void DoSetSelStart(std::int32_t start) override { Select(start, 0); }
    [[nodiscard]] std::int32_t DoSelLength() const override { return CharactersIn(Shown().selectedText()); }
    void DoSetSelLength(std::int32_t length) override { Select(DoSelStart(), length); }

    void Select(std::int32_t start, std::int32_t length) const {
        const QString text = Shown().text();
        const qsizetype from = UnitsBefore(text, start);
        const qsizetype to = UnitsBefore(text, start + length);
        if (to == from) return Shown().setCursorPosition(static_cast<int>(from));
        Shown().setSelection(static_cast<int>(from), static_cast<int>(to - from));
    }
};

/// Lines of its text end with a carriage return and a line feed, which count as two characters.
class PagePort final : public ControlOver<TextBox, TextPage> {
public:
    using ControlOver::ControlOver;

private:
    static QString WithReturns(QString text) { return text.replace('\n', QStringLiteral("\r\n")); }
    [[nodiscard]] QString Before(int position) const {
        return WithReturns(Shown().toPlainText().first(position));
    }
    [[nodiscard]] std::string DoText() const override {
        return WithReturns(Shown().toPlainText()).toStdString();
    }
    void DoSetText(const std::string& text) override {
        Shown().setPlainText(
            QString::fromStdString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    }
    [[nodiscard]] std::int32_t DoSelStart() const override {
        return CharactersIn(Before(Shown().textCursor().selectionStart()));
    }
    void DoSetSelStart(std::int32_t start) override { Select(start, 0); }
    [[nodiscard]] std::int32_t DoSelLength() const override {
        return CharactersIn(Before(Shown().textCursor().selectionEnd())) - DoSelStart();
    }
    void DoSetSelLength(std::int32_t length) override { Select(DoSelStart(), length); }

    [[nodiscard]] int PositionOf(std::int32_t character) const {
        const QString text = WithReturns(Shown().toPlainText());
        return static_cast<int>(text.first(UnitsBefore(text, character)).remove('\r').size());
    }
    void Select(std::int32_t start, std::int32_t length) const {
        QTextCursor cursor = Shown().textCursor();
        cursor.setPosition(PositionOf(start));
        cursor.setPosition(PositionOf(start + length), QTextCursor::KeepAnchor);
        Shown().setTextCursor(cursor);
    }
};

template <class Edit>
void OpenMenu(Edit& edit, const QPoint& place, const std::function<void()>& paste) {
    const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
    DressMenu(*menu);
    menu->setLayoutDirection(edit.layoutDirection());
    if (auto* action = menu->findChild<QAction*>("edit-paste")) {
        QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
        QObject::connect(action, &QAction::triggered, &edit, paste);
    }
    menu->exec(place);
}

} // namespace

TextLine::TextLine(QWidget* parent) : Typed<QLineEdit>(parent) {
    setFixedHeight(DialogMeasure::Field);
    setAcceptDrops(false);
    connect(this, &QLineEdit::textChanged, this, [this] { TellOfChange(); });
}

QString TextLine::Lines(QString text) const {
    const QString lines = Typed::Lines(std::move(text));
    return lines.section('\n', 0, 0, QString::SectionSkipEmpty);
}

void TextLine::contextMenuEvent(QContextMenuEvent* event) {
    OpenMenu(*this, event->globalPos(), [this] { Take(QGuiApplication::clipboard()->text()); });
}

void TextLine::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) return Typed::mouseReleaseEvent(event);
    if (QGuiApplication::clipboard()->supportsSelection())
        Take(QGuiApplication::clipboard()->text(QClipboard::Selection));
}

TextPage::TextPage(QWidget* parent) : Typed<QPlainTextEdit>(parent) {
    setTabChangesFocus(true);
    const int around = 2 * (DialogMeasure::FieldPadding - 1);
    setMinimumHeight(LinesShown * fontMetrics().lineSpacing() + around);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { TellOfChange(); });
}

void TextPage::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter) return Typed::keyPressEvent(event);
    if ((event->modifiers() & Qt::ControlModifier) == 0 && enterIsTaken()) return event->ignore();
    Take(QStringLiteral("\n"));
}

void TextPage::contextMenuEvent(QContextMenuEvent* event) {
    OpenMenu(*this, event->globalPos(), [this] { Take(QGuiApplication::clipboard()->text()); });
}

void TextPage::insertFromMimeData(const QMimeData* source) {
    Take(source->text());
}

BuiltControl BuildTextBox(QWidget& parent, const ControlRow& row, const ControlEvents& events,
                          std::function<bool()> enterIsTaken) {
    const auto wire = [&, name = std::string(row.name)](auto& box) {
        box.setReadOnly(row.locked);
        box.keyPress = [name, told = events.keyPress](std::int16_t key) { return told(name, key); };
        box.changed = [name, told = events.change] { told(name); };
    };
    if (row.multiLine) {
        auto* page = new TextPage(&parent);
        page->setPlainText(Text(row.text));
        page->enterIsTaken = std::move(enterIsTaken);
        wire(*page);
        return {page, std::make_shared<PagePort>(*page)};
    }
    auto* line = new TextLine(&parent);
    line->setText(Text(row.text));
    if (row.centred) line->setAlignment(Qt::AlignCenter);
    wire(*line);
    return {line, std::make_shared<LinePort>(*line)};
}

} // namespace qbrpt::qt
