#include "adapters/qt/shown_text.h"

#include <QtCore/QChar>
#include <QtCore/QStringList>

namespace qbrpt::qt {

namespace {

constexpr QChar LeftToRightIsolate(0x2066);
constexpr QChar PopIsolate(0x2069);

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

} // namespace qbrpt::qt
