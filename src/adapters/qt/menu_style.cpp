#include "adapters/qt/menu_style.h"

#include "adapters/qt/look.h"

#include <QtGui/QPainter>
#include <QtGui/QPolygonF>
#include <QtWidgets/QStyleOptionMenuItem>

namespace qbrpt::qt {

namespace {

constexpr int BeforeCaption = 26;
constexpr int AfterShortcut = 14;
constexpr int Between = 36;
constexpr int SeparatorRow = 9;
constexpr int ArrowSize = 4;

constexpr const char* Border = "#9AA4AB";
constexpr const char* Line = "#D5DBDF";
constexpr const char* Shortcut = "#3C444B";

void DrawArrow(QPainter& painter, const QRect& row, bool rightToLeft) {
    const qreal side = rightToLeft ? -1 : 1;
    const QPointF middle(rightToLeft ? row.left() + AfterShortcut : row.right() - AfterShortcut,
                         row.center().y() + 0.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(painter.pen().color(), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({middle + QPointF(-side * ArrowSize / 2, -ArrowSize),
                                    middle + QPointF(side * ArrowSize / 2, 0),
                                    middle + QPointF(-side * ArrowSize / 2, ArrowSize)}));
}

void DrawItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    const QRect& row = item.rect;
    const bool enabled = (item.state & QStyle::State_Enabled) != 0;
    const bool chosen = enabled && (item.state & QStyle::State_Selected) != 0;
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(row.left(), row.center().y(), row.width(), 1, QColor(Line));
        return;
    }
    const QPalette palette = HousePalette();
    if (chosen) painter.fillRect(row, palette.highlight());
    const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette.color(group, chosen ? QPalette::HighlightedText : QPalette::Text);
    const bool rightToLeft = item.direction == Qt::RightToLeft;
    const QRect inside = rightToLeft ? row.adjusted(AfterShortcut, 0, -BeforeCaption, 0)
                                     : row.adjusted(BeforeCaption, 0, -AfterShortcut, 0);
    const auto side = [&](bool leading) {
        return Qt::AlignVCenter | Qt::AlignAbsolute |
               (leading == rightToLeft ? Qt::AlignRight : Qt::AlignLeft) | Qt::TextSingleLine;
    };
    painter.setFont(item.font);
    painter.setLayoutDirection(item.direction);
    painter.setPen(ink);
    painter.drawText(inside, static_cast<int>(side(true)) | Qt::TextShowMnemonic,
                     item.text.section('\t', 0, 0));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) return DrawArrow(painter, row, rightToLeft);
    if (enabled && !chosen) painter.setPen(QColor(Shortcut));
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.drawText(inside, static_cast<int>(side(false)), item.text.section('\t', 1));
}

} // namespace

MenuStyle::MenuStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

MenuStyle& MenuStyle::Instance() {
    // As long-lived as the application whose menus it draws.
    static auto* style = new MenuStyle;
    return *style;
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuItem || item == nullptr)
        return QProxyStyle::drawControl(element, option, painter, widget);
    painter->save();
    DrawItem(*painter, *item);
    painter->restore();
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == PE_PanelMenu) {
        painter->fillRect(option->rect, Qt::white);
        return;
    }
    if (element == PE_FrameMenu) {
        painter->save();
        painter->setPen(QColor(Border));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore();
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    const int height =
        item->menuItemType == QStyleOptionMenuItem::Separator ? SeparatorRow : Measure::MenuRow;
    return {BeforeCaption + size.width() + Between + AfterShortcut, height};
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    if (metric == PM_MenuVMargin) return 4;
    if (metric == PM_MenuHMargin) return 0;
    if (metric == PM_MenuPanelWidth) return 1;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

} // namespace qbrpt::qt
