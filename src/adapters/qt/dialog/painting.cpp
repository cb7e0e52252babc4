#include "adapters/qt/dialog/painting.h"

#include <QtGui/QPolygonF>

namespace qbrpt::qt {

void PaintBox(QPainter& painter, const QRect& box, QRgb ground, Edge edge) {
    const qreal width = edge == Edge::Strong ? 2 : 1;
    const QRgb border = edge == Edge::Strong  ? DialogColor::Accent
                        : edge == Edge::Faint ? DialogColor::FaintBorder
                                              : DialogColor::Border;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(border), width));
    painter.setBrush(QColor::fromRgba(ground));
    const qreal inset = width / 2;
    painter.drawRoundedRect(QRectF(box).adjusted(inset, inset, -inset, -inset), DialogMeasure::Radius,
                            DialogMeasure::Radius);
    painter.restore();
}

void PaintArrow(QPainter& painter, const QPointF& middle, Arrow arrow, QRgb color) {
    constexpr qreal along = 3.5;
    constexpr qreal across = 1.75;
    QPolygonF shape({QPointF(-along, -across), QPointF(0, across), QPointF(along, -across)}); // down
    QTransform turn;
    turn.translate(middle.x(), middle.y());
    if (arrow == Arrow::Up) turn.rotate(180);
    if (arrow == Arrow::Left) turn.rotate(90);
    if (arrow == Arrow::Right) turn.rotate(-90);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(color), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(turn.map(shape));
    painter.restore();
}

void PaintTick(QPainter& painter, const QRect& box, QRgb color) {
    const QRectF room(box);
    const auto at = [&](qreal x, qreal y) {
        return QPointF(room.x() + room.width() * x, room.y() + room.height() * y);
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(color), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.70), at(0.76, 0.31)}));
    painter.restore();
}

} // namespace qbrpt::qt
