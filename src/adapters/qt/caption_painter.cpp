#include "adapters/qt/caption_painter.h"

#include <QtGui/QTextLayout>
#include <QtGui/QTextOption>

#include <algorithm>
#include <cmath>

namespace qbrpt::qt {

namespace {

constexpr qreal UnderlineGap = 2;
constexpr qreal Endless = 1 << 20;

struct PlainCaption {
    QString text;
    int underlined = -1; ///< position of a letter; -1: none
};

PlainCaption WithoutMarks(const QString& caption) {
    PlainCaption plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) {
            ++i;
            if (caption[i] != '&' && plain.underlined < 0)
                plain.underlined = static_cast<int>(plain.text.size());
        }
        plain.text += caption[i];
    }
    return plain;
}

qreal LeftOf(const QRect& room, CaptionPlace place, bool rightToLeft, qreal width) {
    if (place == CaptionPlace::Middle) return room.left() + std::floor((room.width() - width) / 2);
    const bool atRight = (place == CaptionPlace::Leading) == rightToLeft;
    return atRight ? room.right() + 1 - width : room.left();
}

} // namespace

void DrawCaption(QPainter& painter, const QRect& room, CaptionPlace place, Qt::LayoutDirection direction,
                 const QString& caption) {
    const PlainCaption plain = WithoutMarks(caption);
    QTextLayout layout(plain.text, painter.font(), painter.device());
    QTextOption option;
    option.setTextDirection(direction);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (!line.isValid()) return; // nothing to draw
    line.setLineWidth(Endless);
    const qreal width = std::ceil(line.naturalTextWidth());
    line.setLineWidth(width); // so that it begins at 0 in either direction
    layout.endLayout();
    const QPointF corner(LeftOf(room, place, direction == Qt::RightToLeft, width),
                         room.top() + std::floor((room.height() - line.height()) / 2));
    layout.draw(&painter, corner);
    if (plain.underlined < 0) return;
    const qreal one = line.cursorToX(plain.underlined);
    const qreal other = line.cursorToX(plain.underlined + 1);
    const qreal below = std::floor(corner.y() + line.y() + line.ascent() + UnderlineGap);
    painter.fillRect(QRectF(corner.x() + std::min(one, other), below, std::abs(one - other), 1),
                     painter.pen().color());
}

} // namespace qbrpt::qt
