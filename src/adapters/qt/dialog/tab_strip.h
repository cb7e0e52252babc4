// Tabs around a client area.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtWidgets/QTabBar>

namespace qbrpt::qt {

/// The row of tabs.
class TabRow final : public QTabBar {
public:
    explicit TabRow(QWidget* parent);

private:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent* event) override;
    void PaintTab(QPainter& painter, int index) const;
};

class TabBox final : public QWidget {
public:
    explicit TabBox(QWidget* parent);
    [[nodiscard]] TabRow& Tabs() { return *mTabs; }
    /// The client area in the strip's container.
    [[nodiscard]] QRect Client() const;
    /// The strip around a client area of this size.
    [[nodiscard]] QSize SizeAround(const QSize& client) const;

    std::function<void()> clicked = [] {};
    std::function<void()> resized = [] {};

private:
    [[nodiscard]] QRect Pane() const;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void PlaceTabs();

    TabRow* mTabs;
};

[[nodiscard]] BuiltControl BuildTabStrip(QWidget& parent, const ControlRow& row, const FormTable& table,
                                         const ControlEvents& events);

} // namespace qbrpt::qt
