// The page number that shows for a moment while pages pass by.
#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QLabel>

namespace qbrpt::viewer {

class PageTip final : public QLabel {
public:
    explicit PageTip(QWidget* desk);
    /// Beside the scroll bar, at a part of the desk's height.
    void ShowAt(const QString& text, double part, bool atLeft);

private:
    QTimer mEnd;
};

} // namespace qbrpt::viewer
