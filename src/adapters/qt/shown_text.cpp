#include "adapters/qt/shown_text.h"

#include <QtCore/QChar>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

namespace qbrpt::qt {

namespace {

constexpr QChar LeftToRightIsolate(0x2066);
constexpr QChar PopIsolate(0x2069);

// Stands for the star of a changed document, and twice for itself.
const QString Placeholder = QStringLiteral("[*]");

bool BeginsFromTheRight(const QString& text) {
    for (const QChar letter : text) {
        if (letter.direction() == QChar::DirL) return false;
        if (letter.direction() == QChar::DirAL || letter.direction() == QChar::DirR) return true;
    }
    return false;
}

} // namespace

QString KeptInOrder(const QString& text) {
    return text.isEmpty() || BeginsFromTheRight(text) ? text : LeftToRightIsolate + text + PopIsolate;
}

QString KeptInOrderByLines(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace('\r', '\n');
    QStringList lines = text.split('\n');
    for (QString& line : lines)
        line = KeptInOrder(line);
    return lines.join('\n');
}

void SetTitle(QWidget& window, std::string_view title) {
    window.setWindowTitle(Text(title).replace(Placeholder, Placeholder + Placeholder));
}

std::string TitleOf(const QWidget& window) {
    return window.windowTitle().replace(Placeholder + Placeholder, Placeholder).toStdString();
}

} // namespace qbrpt::qt
