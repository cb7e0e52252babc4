#include "adapters/qt/dialog/container_grid.h"

#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/twips.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <array>

namespace qbrpt::qt {

namespace {

constexpr int FieldGap = 8;
constexpr int DigitPadding = 2 * DialogMeasure::FieldPadding + 4;

/// Room between and around, in pixels; a window that has been given little takes less and less.
struct Spacing {
    int blocks;  ///< between the rows of windows and panels
    int lines;   ///< between the rows of a frame
    int padding; ///< above and below the rows of a window
    int inner;   ///< above and below the rows of a frame
};
constexpr std::array Spacings = {
    Spacing{DialogMeasure::BlockGap, FieldGap, DialogMeasure::Padding, DialogMeasure::FrameInner},
    Spacing{12, 6, 13, 11}, Spacing{10, 4, 12, 9}, Spacing{8, 2, 10, 7}, Spacing{6, 1, 9, 6}};

/// What is to be free at the edges of a container.
QMargins MarginsOf(const QWidget& container, const Spacing& spacing) {
    constexpr int side = DialogMeasure::Padding;
    if (qobject_cast<const QGroupBox*>(&container) == nullptr)
        return {side, spacing.padding, side, spacing.padding};
    constexpr int inner = DialogMeasure::FrameInner;
    const int caption = container.fontMetrics().height() / 2;
    return {inner, spacing.inner + caption, inner, spacing.inner};
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

/// Where nothing else grows: buttons of the last row stand at its lower end, other rows at the top.
void LetLastRowGrow(QGridLayout& grid, int lastRow) {
    int growing = lastRow;
    for (int column = 0; column < grid.columnCount(); ++column) {
        const QLayoutItem* item = grid.itemAtPosition(lastRow, column);
        if (item != nullptr && qobject_cast<QPushButton*>(item->widget()) == nullptr) growing = lastRow + 1;
    }
    grid.setRowStretch(growing, 1);
}

/// Words beside something high stand at its first line.
void RaiseWords(QGridLayout& grid) {
    constexpr int firstLine = 4;
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (grid.rowStretch(row) == 0) continue;
        for (int column = 0; column < grid.columnCount(); ++column) {
            const QLayoutItem* item = grid.itemAtPosition(row, column);
            auto* words = item == nullptr ? nullptr : qobject_cast<QLabel*>(item->widget());
            if (words == nullptr) continue;
            words->setContentsMargins(0, firstLine, 0, 0);
            grid.setAlignment(words, Qt::AlignLeading | Qt::AlignTop);
        }
    }
}

} // namespace

void ContainerGrids::SpaceOut(QWidget& container, Filled& filled) const {
    const Spacing& spacing = Spacings[mTightness];
    // A panel with a place of its own stands apart by that.
    filled.grid->setContentsMargins(mPlaced.contains(&container) ? QMargins()
                                                                 : MarginsOf(container, spacing));
    filled.grid->setHorizontalSpacing(FieldGap);
    const bool inFrame = qobject_cast<const QGroupBox*>(&container) != nullptr;
    filled.grid->setVerticalSpacing(inFrame ? spacing.lines : spacing.blocks);
    // Whoever measures it next must not find what was measured before.
    for (QWidget* around = &container; around != nullptr; around = around->parentWidget()) {
        around->updateGeometry();
        if (around->layout() != nullptr) around->layout()->invalidate();
    }
}

ContainerGrids::Filled& ContainerGrids::GridOf(QWidget& container) {
    Filled& filled = mGrids[&container];
    if (filled.grid != nullptr) return filled;
    filled.grid = new QGridLayout(&container);
    SpaceOut(container, filled);
    return filled;
}

bool ContainerGrids::Tighten() {
    if (mTightness + 1 == Spacings.size()) return false;
    ++mTightness;
    for (auto& [container, filled] : mGrids)
        SpaceOut(*container, filled);
    return true;
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
    const bool widens = (widget.sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag) != 0;
    if (row.widthInDigits == 0 && (widens || row.cell.stretch)) filled.canWiden = true;
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
        if (!filled.canWiden) filled.grid->setColumnStretch(filled.grid->columnCount(), 1);
        if (filled.canGrow)
            RaiseWords(*filled.grid);
        else
            LetLastRowGrow(*filled.grid, filled.lastRow);
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
