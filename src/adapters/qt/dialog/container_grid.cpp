#include "adapters/qt/dialog/container_grid.h"

#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/twips.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace qbrpt::qt {

namespace {

constexpr int FieldGap = 8;
constexpr int DigitPadding = 2 * DialogMeasure::FieldPadding + 4;

/// What is to be free at the edges of a container, beside what its frame keeps free by itself.
QMargins MarginsOf(const QWidget& container, bool hasPlace) {
    if (hasPlace) return {}; // it stands apart from others by its place
    constexpr int padding = DialogMeasure::Padding;
    if (qobject_cast<const QGroupBox*>(&container) == nullptr) return {padding, padding, padding, padding};
    constexpr int inner = DialogMeasure::FrameInner;
    const int caption = container.fontMetrics().height() / 2;
    const QMargins own = container.contentsMargins();
    const auto beside = [](int wanted, int kept) { return std::max(0, wanted - kept); };
    return {beside(inner, own.left()), beside(inner + caption, own.top()), beside(inner, own.right()),
            beside(inner, own.bottom())};
}

/// Buttons stand at the far side of their cell, words and marks at the near one; fields fill it.
Qt::Alignment AlignmentOf(const QWidget& widget, const ControlRow& row) {
    if (row.kind == ControlKind::CommandButton) return Qt::AlignTrailing | Qt::AlignBottom;
    if (row.kind == ControlKind::Label && row.caption.empty()) return Qt::AlignVCenter;
    const bool narrow = widget.sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
    const bool low = widget.sizePolicy().verticalPolicy() == QSizePolicy::Fixed;
    Qt::Alignment alignment;
    if (narrow) alignment |= Qt::AlignLeading;
    if (low) alignment |= Qt::AlignVCenter;
    return alignment;
}

bool GrowsDown(const QWidget& widget) {
    return (widget.sizePolicy().verticalPolicy() & QSizePolicy::ExpandFlag) != 0;
}

} // namespace

ContainerGrids::Filled& ContainerGrids::GridOf(QWidget& container) {
    Filled& filled = mGrids[&container];
    if (filled.grid != nullptr) return filled;
    filled.grid = new QGridLayout(&container);
    filled.grid->setContentsMargins(MarginsOf(container, mPlaced.contains(&container)));
    filled.grid->setHorizontalSpacing(FieldGap);
    const bool inFrame = qobject_cast<const QGroupBox*>(&container) != nullptr;
    filled.grid->setVerticalSpacing(inFrame ? FieldGap : DialogMeasure::BlockGap);
    return filled;
}

void ContainerGrids::Place(QWidget& container, QWidget& widget, const ControlRow& row) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing jumps when it comes and goes
    widget.setSizePolicy(policy);
    if (row.widthInDigits > 0) {
        const int digit = widget.fontMetrics().horizontalAdvance('0');
        widget.setFixedWidth(row.widthInDigits * digit + DigitPadding);
    }
    if (row.place.width > 0 && row.place.height > 0) {
        widget.setGeometry(Pixels(row.place.left), Pixels(row.place.top), Pixels(row.place.width),
                           Pixels(row.place.height));
        mPlaced.insert(&widget);
        return;
    }
    if (row.cell.row < 0) return;
    Filled& filled = GridOf(container);
    const int columns = std::max<int>(row.cell.columns, 1);
    const int rows = std::max<int>(row.cell.rows, 1);
    const Qt::Alignment alignment =
        row.widthInDigits > 0 ? Qt::AlignLeading | Qt::AlignVCenter : AlignmentOf(widget, row);
    filled.grid->addWidget(&widget, row.cell.row, row.cell.column, rows, columns, alignment);
    filled.lastRow = std::max(filled.lastRow, row.cell.row + rows - 1);
    if (row.cell.stretch && columns == 1) filled.grid->setColumnStretch(row.cell.column, 1);
    if (GrowsDown(widget)) {
        filled.canGrow = true;
        filled.grid->setRowStretch(row.cell.row, 1);
    }
}

/// Buttons one above the other are as wide as the widest; where fields fill the column they keep their size.
void ContainerGrids::WidenButtons(QGridLayout& grid) {
    for (int index = 0; index < grid.count(); ++index) {
        QWidget* button = qobject_cast<QPushButton*>(grid.itemAt(index)->widget());
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid.getItemPosition(index, &row, &column, &rows, &columns);
        if (button == nullptr || columns > 1 || grid.columnStretch(column) > 0) continue;
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
        grid.setAlignment(button, Qt::AlignBottom);
    }
}

void ContainerGrids::Finish() {
    for (auto& [container, filled] : mGrids) {
        WidenButtons(*filled.grid);
        if (filled.canGrow) continue;
        // Buttons of the last row stand at its lower end.
        filled.grid->setRowStretch(filled.lastRow, 1);
        for (int column = 0; column < filled.grid->columnCount(); ++column) {
            const QLayoutItem* item = filled.grid->itemAtPosition(filled.lastRow, column);
            const bool isButton = item != nullptr && qobject_cast<QPushButton*>(item->widget()) != nullptr;
            if (item == nullptr || isButton) continue;
            filled.grid->setRowStretch(filled.lastRow, 0);
            filled.grid->setRowStretch(filled.lastRow + 1, 1);
            break;
        }
    }
}

void Settle(QWidget& top) {
    if (QLayout* layout = top.layout()) {
        layout->invalidate();
        layout->activate();
    }
    for (QObject* child : top.children()) {
        if (auto* widget = qobject_cast<QWidget*>(child); widget != nullptr && !widget->isWindow())
            Settle(*widget);
    }
}

} // namespace qbrpt::qt
