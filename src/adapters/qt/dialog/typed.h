// Edits that ask before each character goes into them.
#pragma once

#include "platform/desktop.h"
#include "platform/platform.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>

#include <cstdint>
#include <functional>

namespace qbrpt::qt {

/// `Edit` is QLineEdit or QPlainTextEdit. Text that is pasted, dropped or composed is asked for character by
/// character, as if it were typed; what is refused is left out.
template <class Edit>
class Typed : public Edit {
public:
    using Edit::Edit;

    /// The character that the box takes in the place of `key`; 0 for none.
    std::function<std::int16_t(std::int16_t key)> keyPress = [](std::int16_t key) { return key; };
    std::function<void()> changed = [] {}; ///< once for all that comes at one go

    /// However much of it is refused, it beeps once at most.
    void Take(const QString& given) {
        if (this->isReadOnly()) return;
        const OneBeep once(*Platform::Current().screen);
        const QString text = Lines(given);
        mTaking = true;
        for (qsizetype at = 0; at < text.size(); ++at) {
            QString piece(text[at]);
            if (text[at].isHighSurrogate() && at + 1 < text.size()) piece += text[++at];
            if (const QString passed = Passed(piece); !passed.isEmpty()) Put(passed);
        }
        mTaking = false;
        TellOfChange();
    }

protected:
    /// Inserts in place of the selection.
    virtual void Put(const QString& text) = 0;
    [[nodiscard]] virtual QString Content() const = 0;
    /// As much of a text as the box has lines for; each line ends with a line feed.
    [[nodiscard]] virtual QString Lines(QString text) const {
        return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace('\r', '\n');
    }

    /// To be called whenever the text may have changed.
    void TellOfChange() {
        if (mTaking || mLast == Content()) return;
        mLast = Content();
        changed();
    }

    /// Whether a key is left to the rules and dealt with here.
    bool Typing(QKeyEvent& event) {
        constexpr std::int16_t backspace = 8;
        if (this->isReadOnly()) return false;
        if (event.matches(QKeySequence::Paste)) {
            Take(QGuiApplication::clipboard()->text());
            return true;
        }
        if (event.key() == Qt::Key_Backspace) return keyPress(backspace) == 0;
        const bool command = (event.modifiers() & Qt::ControlModifier) != 0 &&
                             (event.modifiers() & Qt::AltModifier) == 0; // both together make letters
        if (command || event.text().isEmpty() || !event.text().front().isPrint()) return false;
        Take(event.text());
        return true;
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (!Typing(*event)) Edit::keyPressEvent(event);
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        if (event->commitString().isEmpty() || event->replacementLength() != 0)
            return Edit::inputMethodEvent(event);
        QInputMethodEvent done;
        Edit::inputMethodEvent(&done);
        Take(event->commitString());
        if (event->preeditString().isEmpty()) return;
        QInputMethodEvent next(event->preeditString(), event->attributes());
        Edit::inputMethodEvent(&next);
    }

private:
    QString Passed(const QString& piece) {
        constexpr char16_t enter = 13;
        QString passed;
        for (const QChar unit : piece) {
            const char16_t code = unit == '\n' ? enter : unit.unicode();
            const std::int16_t taken = keyPress(static_cast<std::int16_t>(code));
            if (taken == 0) return {}; // half a character is none
            passed += taken == enter ? QChar('\n') : QChar(static_cast<char16_t>(taken));
        }
        return passed;
    }

    QString mLast;
    bool mTaking = false;
};

} // namespace qbrpt::qt
