#include "adapters/qt/menu_style.h"

#include "adapters/qt/caption_painter.h"
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
constexpr int BarItemPadding = 10;
constexpr int BarMargin = 8;

constexpr const char* Border = "#9AA4AB";
constexpr const char* Line = "#D5DBDF";
constexpr const char* Shortcut = "#3C444B";
constexpr const char* Hot = "#E6ECEF";

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
    painter.setFont(item.font);
    painter.setPen(ink);
    DrawCaption(painter, inside, CaptionPlace::Leading, item.direction, item.text.section('\t', 0, 0));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) return DrawArrow(painter, row, rightToLeft);
    if (enabled && !chosen) painter.setPen(QColor(Shortcut));
    // Keys are named left to right, at whichever side they stand.
    DrawCaption(painter, inside, rightToLeft ? CaptionPlace::Leading : CaptionPlace::Trailing,
                Qt::LeftToRight, item.text.section('\t', 1).replace('&', "&&"));
}

void DrawBarItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    const QPalette palette = HousePalette();
    painter.fillRect(item.rect, palette.window());
    const bool enabled = (item.state & QStyle::State_Enabled) != 0;
    const bool open = enabled && (item.state & QStyle::State_Sunken) != 0;
    const bool hot = enabled && (item.state & QStyle::State_Selected) != 0;
    if (open || hot) {
        constexpr qreal round = 3;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(open ? palette.highlight() : QBrush(QColor(Hot)));
        painter.drawRoundedRect(item.rect.adjusted(1, 1, -1, -1), round, round);
    }
    const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
    painter.setPen(palette.color(group, open ? QPalette::HighlightedText : QPalette::Text));
    painter.setFont(WindowFont());
    DrawCaption(painter, item.rect, CaptionPlace::Middle, item.direction, item.text);
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
    const bool ours = item != nullptr && (element == CE_MenuItem || element == CE_MenuBarItem);
    if (!ours && element != CE_MenuBarEmptyArea)
        return QProxyStyle::drawControl(element, option, painter, widget);
    painter->save();
    if (element == CE_MenuBarEmptyArea)
        painter->fillRect(option->rect, HousePalette().window());
    else if (element == CE_MenuBarItem)
        DrawBarItem(*painter, *item);
    else
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
    if (type == CT_MenuBarItem) return {size.width() + 2 * BarItemPadding, Measure::MenuRow};
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
    if (metric == PM_MenuBarHMargin) return BarMargin;
    if (metric == PM_MenuBarVMargin) return 1;
    if (metric == PM_MenuBarItemSpacing || metric == PM_MenuBarPanelWidth) return 0;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

} // namespace qbrpt::qt
