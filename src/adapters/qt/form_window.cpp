#include "adapters/qt/form_window.h"

#include "adapters/qt/icons.h"
#include "adapters/qt/look.h"
#include "adapters/qt/menu_style.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QVBoxLayout>

namespace qbrpt::qt {

namespace {

constexpr Qt::WindowFlags DialogFrame = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                        Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

} // namespace

FormWindow::FormWindow(bool isDialog)
    : QWidget(nullptr, isDialog ? DialogFrame : Qt::Window), mMenuBar(new QMenuBar(this)),
      mClient(new QWidget(this)), mIsDialog(isDialog) {
    setObjectName("qbrptWindow");
    // A host's last window may be hidden while this one is open: its closing must not end the host.
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowModality(Qt::ApplicationModal);
    setWindowIcon(Drawing("window"));
    setFont(WindowFont());
    setPalette(HousePalette());
    setStyleSheet(HouseStyleSheet());

    mMenuBar->setNativeMenuBar(false);
    mMenuBar->setStyle(&MenuStyle::Instance());
    mMenuBar->setFixedHeight(Measure::MenuBar);
    mMenuBar->setLayoutDirection(Qt::LeftToRight);
    // Dialogs lay their controls out from where reading begins; others place them as they are told.
    if (!mIsDialog) mClient->setLayoutDirection(Qt::LeftToRight);
    mClient->installEventFilter(this);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->setSizeConstraint(QLayout::SetNoConstraint); // smaller than what stands in it, but not than this:
    if (!mIsDialog) setMinimumSize(Measure::LeastWidth, Measure::LeastHeight);
    rows->addWidget(mMenuBar);
    rows->addWidget(mClient, 1);
}

void FormWindow::SetClientSize(const QSize& size) {
    const bool hasMenu = !mMenuBar->actions().isEmpty();
    mMenuBar->setVisible(hasMenu);
    resize(size.width(), size.height() + (hasMenu ? Measure::MenuBar : 0));
    layout()->activate(); // so that the client has its size before the window is first shown
}

void FormWindow::CentreOnScreen() {
    const QRect room = screen()->availableGeometry();
    resize(size().boundedTo(room.size()));
    move(room.center() - QRect(QPoint(0, 0), size()).center());
}

void FormWindow::FixSize() {
    if (mIsDialog) setFixedSize(size());
}

QMargins FormWindow::Frame() const {
    return windowHandle() == nullptr ? QMargins() : windowHandle()->frameMargins();
}

void FormWindow::PlaceOuter(const QRect& outer, const QMargins& frame) {
    const QMargins around = isVisible() ? Frame() : frame;
    resize(outer.marginsRemoved(around).size());
    move(outer.topLeft());
    layout()->activate();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    closing();
    event->accept();
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible()) resized();
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) activated();
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && !mMenuBar->actions().isEmpty())
        return mMenuBar->setActiveAction(mMenuBar->actions().front());
    if (!takesKey(*event)) QWidget::keyPressEvent(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mClient && event->type() == QEvent::Resize) resized();
    return QWidget::eventFilter(watched, event);
}

} // namespace qbrpt::qt
