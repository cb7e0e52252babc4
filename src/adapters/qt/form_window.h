// The frame of a form: a window with a menu bar and a place for controls below it.
#pragma once

#include <QtCore/QMargins>
#include <QtWidgets/QWidget>

#include <functional>

class QMenuBar;

namespace qbrpt::qt {

class FormWindow final : public QWidget {
public:
    /// A dialog has a fixed frame.
    explicit FormWindow(bool isDialog = false);

    [[nodiscard]] QMenuBar& MenuBar() { return *mMenuBar; }
    /// Where controls stand, each at its own place.
    [[nodiscard]] QWidget& Client() { return *mClient; }

    /// The size of the client area; the window around it follows.
    void SetClientSize(const QSize& size);
    void CentreOnScreen();
    /// A dialog keeps the size that it has now.
    void FixSize();
    /// Places the window with its frame, at its least size where it is given less. Before it is first shown
    /// `frame` tells how wide that will be.
    void PlaceOuter(const QRect& outer, const QMargins& frame);
    [[nodiscard]] QMargins Frame() const;

    std::function<void()> resized;           ///< also minimised and shown again
    std::function<void()> closing;           ///< by its frame; the window goes when this returns
    std::function<void()> activated = [] {}; ///< each time
    std::function<bool(QKeyEvent&)> takesKey = [](QKeyEvent&) {
        return false;
    }; ///< that no control has taken

private:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    QMenuBar* mMenuBar;
    QWidget* mClient;
    bool mIsDialog;
};

} // namespace qbrpt::qt
