// Tells which control of a form has got the focus.
#pragma once

#include <QtCore/QMap>
#include <QtCore/QObject>

#include <functional>
#include <string>

namespace qbrpt::qt {

/// Coming back to the window, or from a menu or a list that dropped down, gives nothing a new focus.
class FocusWatch final : public QObject {
public:
    explicit FocusWatch(std::function<void(const std::string& name)> gotFocus);
    void Add(QWidget& widget, const std::string& name);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<void(const std::string&)> mGotFocus;
    QMap<QObject*, std::string> mNames;
    std::string mFocused;
};

} // namespace qbrpt::qt
