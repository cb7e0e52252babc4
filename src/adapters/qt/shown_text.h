// Texts of the system as windows show them.
#pragma once

#include <QtCore/QString>

#include <string>
#include <string_view>

class QWidget;

namespace qbrpt::qt {

[[nodiscard]] inline QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text that does not begin with an Arabic letter ("400 %", "No Data") keeps its order in Arabic windows.
[[nodiscard]] QString KeptInOrder(const QString& text);

/// The same for each line of a text, whichever way its lines are parted.
[[nodiscard]] QString KeptInOrderByLines(QString text);

/// The title of a window, letter for letter: Qt has a use of its own for "[*]".
void SetTitle(QWidget& window, std::string_view title);
[[nodiscard]] std::string TitleOf(const QWidget& window);

} // namespace qbrpt::qt
