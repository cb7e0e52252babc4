#include "adapters/qt/dialog/list_view.h"

#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/dialog/row_delegate.h"
#include "adapters/qt/shown_text.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QHeaderView>

#include <memory>

namespace qbrpt::qt {

namespace {

constexpr int RowsShown = 8;
constexpr int LeastColumn = 120;

class ListViewPort final : public ControlOver<ListView, ReportList> {
public:
    using ControlOver::ControlOver;

private:
    void DoClear() override { Shown().Items().Clear(); }
    void DoAdd(const std::string& key, const std::string& text) override {
        Shown().Items().Add(QString::fromStdString(key), QString::fromStdString(text));
    }
    [[nodiscard]] std::int32_t DoItemCount() const override { return Shown().Items().Count(); }
    [[nodiscard]] std::string DoItemKey(std::int32_t index) const override {
        return Shown().Items().KeyOf(index).toStdString();
    }
    [[nodiscard]] std::string DoItemText(std::int32_t index) const override {
        return Shown().Items().TextOf(index, 0).toStdString();
    }
    void DoSetItemText(std::int32_t index, const std::string& text) override {
        Shown().Items().SetText(index, 0, QString::fromStdString(text));
    }
    [[nodiscard]] std::string DoSubItem(std::int32_t index, std::int16_t column) const override {
        return Shown().Items().TextOf(index, column).toStdString();
    }
    void DoSetSubItem(std::int32_t index, std::int16_t column, const std::string& text) override {
        Shown().Items().SetText(index, column, QString::fromStdString(text));
    }
    [[nodiscard]] std::int32_t DoSelectedItem() const override { return Shown().Selected(); }
};

QStringList CaptionsOf(const FormTable& table, std::string_view list) {
    QStringList captions;
    for (const ControlRow& row : table.controls) {
        if (row.kind == ControlKind::ListColumn && row.parent == list) captions.append(Text(row.caption));
    }
    return captions;
}

} // namespace

ReportList::ReportList(QWidget* parent, const QStringList& captions)
    : QTreeView(parent), mItems(new ListItems(captions, this)) {
    setRootIsDecorated(false);
    setUniformRowHeights(true); // thousands of items are not measured one by one
    setAllColumnsShowFocus(true);
    setItemsExpandable(false);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setItemDelegate(new RowDelegate(this));
    setModel(mItems);
    header()->setFixedHeight(DialogMeasure::ListHead);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(false);
    header()->setHighlightSections(false);
    header()->setStretchLastSection(true);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setMinimumSectionSize(1);
    setMinimumSize(LeastColumn * static_cast<int>(captions.size()),
                   DialogMeasure::ListHead + RowsShown * DialogMeasure::ListRow + 2);
}

std::int32_t ReportList::Selected() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : rows.front().row() + 1;
}

void ReportList::keyPressEvent(QKeyEvent* event) {
    // The first step selects the item that one stands on.
    const bool steps = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (!steps || Selected() != 0) return QTreeView::keyPressEvent(event);
    const QModelIndex item = currentIndex().isValid() ? currentIndex() : mItems->index(0, 0);
    selectionModel()->setCurrentIndex(item, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ReportList::mousePressEvent(QMouseEvent* event) {
    mPressing = true;
    QTreeView::mousePressEvent(event);
    mPressing = false;
    if (indexAt(event->pos()).isValid()) itemClicked(); // also the one that was selected
}

void ReportList::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeView::mouseDoubleClickEvent(event);
    doubleClicked();
}

void ReportList::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    // Alike again at each size; the last takes what is left.
    const int count = header()->count();
    for (int column = 0; column + 1 < count; ++column)
        header()->resizeSection(column, viewport()->width() / count);
}

void ReportList::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() != QEvent::LayoutDirectionChange) return;
    const Qt::Alignment side = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    header()->setDefaultAlignment(side | Qt::AlignAbsolute | Qt::AlignVCenter);
}

void ReportList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (!mPressing && !selected.isEmpty()) itemClicked();
}

bool ReportList::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool wanted = (trigger & editTriggers()) != 0 && index.isValid() && index.column() == 0;
    if (wanted && !mayEdit()) return false;
    return QTreeView::edit(index, trigger, event);
}

BuiltControl BuildListView(QWidget& parent, const ControlRow& row, const FormTable& table,
                           const ControlEvents& events) {
    auto* list = new ReportList(&parent, CaptionsOf(table, row.name));
    const std::string name(row.name);
    list->itemClicked = [name, told = events.itemClick] { told(name); };
    list->doubleClicked = [name, told = events.dblClick] { told(name); };
    list->mayEdit = [name, told = events.beforeLabelEdit] { return told(name); };
    return {list, std::make_shared<ListViewPort>(*list)};
}

} // namespace qbrpt::qt
