#include "adapters/qt/dialog/row_delegate.h"

#include "adapters/qt/caption_painter.h"
#include "adapters/qt/dialog/painting.h"

namespace qbrpt::qt {

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const bool chosen = (option.state & QStyle::State_Selected) != 0;
    const bool fromRight = option.direction == Qt::RightToLeft;
    const QRect& cell = option.rect;
    painter->save();
    if (chosen) painter->fillRect(cell, QColor(DialogColor::Chosen));
    if (index.column() > 0 && !chosen) {
        const int side = fromRight ? cell.right() : cell.left();
        painter->fillRect(QRect(side, cell.top(), 1, cell.height()), QColor(DialogColor::Line));
    }
    const QRect room = cell.adjusted(DialogMeasure::FieldPadding, 0, -DialogMeasure::FieldPadding, 0);
    painter->setFont(option.font);
    painter->setPen(QColor(chosen ? DialogColor::Field : DialogColor::Ink));
    QString text = option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, room.width());
    DrawCaption(*painter, room, CaptionPlace::Leading, option.direction, text.replace('&', "&&"));
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, DialogMeasure::ListRow};
}

} // namespace qbrpt::qt
