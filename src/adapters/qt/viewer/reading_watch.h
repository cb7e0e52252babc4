// Lets the user stop a long report while it is read.
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>

namespace qbrpt::viewer {

/// For as long as it lives the component's windows are painted as needed, and answer to nothing but the
/// escape key: whoever clicks meanwhile would change what is being read.
class ReadingWatch final : public QObject {
public:
    ReadingWatch();
    ~ReadingWatch() override;
    ReadingWatch(const ReadingWatch&) = delete;
    ReadingWatch& operator=(const ReadingWatch&) = delete;

    /// Called often; looks now and then. Raises Cancelled once the user has pressed escape.
    void Look();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QElapsedTimer mSinceLook;
    bool mStopped = false;
};

} // namespace qbrpt::viewer
