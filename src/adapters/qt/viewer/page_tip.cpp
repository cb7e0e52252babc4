#include "adapters/qt/viewer/page_tip.h"

#include <QtWidgets/QStyle>

namespace qbrpt::viewer {

namespace {

constexpr int Milliseconds = 1100;
constexpr int Distance = 10;

} // namespace

PageTip::PageTip(QWidget* desk) : QLabel(desk) {
    setStyleSheet("background: #20262B; color: white; border-radius: 4px; padding: 5px 10px;");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    mEnd.setSingleShot(true);
    mEnd.setInterval(Milliseconds);
    QObject::connect(&mEnd, &QTimer::timeout, this, [this] { hide(); });
}

void PageTip::ShowAt(const QString& text, double part, bool atLeft) {
    setText(text);
    adjustSize();
    const int room = parentWidget()->height() - height() - 2 * Distance;
    const int x = atLeft ? Distance : parentWidget()->width() - width() - Distance;
    move(x, Distance + static_cast<int>(part * std::max(room, 0)));
    show();
    raise();
    mEnd.start();
}

} // namespace qbrpt::viewer
