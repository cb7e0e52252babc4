// How the rows of lists are painted.
#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace qbrpt::qt {

/// Rows of one height; a thin line parts columns, and a whole row is chosen.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace qbrpt::qt
