// Lists in report view.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "adapters/qt/dialog/list_items.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtWidgets/QTreeView>

namespace qbrpt::qt {

class ReportList final : public QTreeView {
public:
    ReportList(QWidget* parent, const QStringList& captions);
    [[nodiscard]] ListItems& Items() { return *mItems; }
    /// From 1; 0 for none.
    [[nodiscard]] std::int32_t Selected() const;

    std::function<void()> itemClicked = [] {};
    std::function<void()> doubleClicked = [] {};
    std::function<bool()> mayEdit = [] { return true; };

private:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

    ListItems* mItems;
    bool mPressing = false;
};

[[nodiscard]] BuiltControl BuildListView(QWidget& parent, const ControlRow& row, const FormTable& table,
                                         const ControlEvents& events);

} // namespace qbrpt::qt
