// Text boxes of one line and of several.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "adapters/qt/dialog/typed.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

namespace qbrpt::qt {

class TextLine final : public Typed<QLineEdit> {
public:
    explicit TextLine(QWidget* parent);

private:
    void Put(const QString& text) override { insert(text); }
    [[nodiscard]] QString Content() const override { return text(); }
    /// The first line that has anything: two numbers in a row must not become one.
    [[nodiscard]] QString Lines(QString text) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};

class TextPage final : public Typed<QPlainTextEdit> {
public:
    explicit TextPage(QWidget* parent);
    /// Whether the enter key is somebody else's now; a line ends by it otherwise, and always together with
    /// the control key.
    std::function<bool()> enterIsTaken = [] { return false; };

private:
    void Put(const QString& text) override { insertPlainText(text); }
    [[nodiscard]] QString Content() const override { return toPlainText(); }
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
};

/// A text box in `parent`, as its row has it.
[[nodiscard]] BuiltControl BuildTextBox(QWidget& parent, const ControlRow& row, const ControlEvents& events,
                                        std::function<bool()> enterIsTaken);

} // namespace qbrpt::qt
