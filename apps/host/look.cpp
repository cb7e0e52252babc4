#include "look.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

#include <functional>

namespace cafe {

namespace {

constexpr int FontPixels = 12;
constexpr const char* Accent = "#0B3F4F";

QPalette Colours() {
    QPalette palette;
    palette.setColor(QPalette::Window, "#F1F3F4");
    palette.setColor(QPalette::Button, "#FBFCFC");
    palette.setColor(QPalette::Base, "#FFFFFF");
    palette.setColor(QPalette::AlternateBase, "#F1F5F6");
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(role, "#14191D");
        palette.setColor(QPalette::Disabled, role, "#8D969D");
    }
    palette.setColor(QPalette::PlaceholderText, "#8D969D");
    palette.setColor(QPalette::Highlight, "#1C6680");
    palette.setColor(QPalette::HighlightedText, "#FFFFFF");
    palette.setColor(QPalette::ToolTipBase, "#23292F");
    palette.setColor(QPalette::ToolTipText, "#FFFFFF");
    return palette;
}

// On the café's windows alone: the component's look after themselves.
constexpr const char* Sheet = R"(
#cafeWindow QGroupBox { border: 1px solid #C4CBCF; border-radius: 4px; margin-top: 10px; background: #F8FAFB;
    font-weight: bold; }
#cafeWindow QGroupBox QWidget { font-weight: normal; }
#cafeWindow QGroupBox::title {
    subcontrol-origin: margin; subcontrol-position: top left; left: 12px; padding: 0 5px; color: #0B3F4F; }
#cafeWindow QLineEdit, #cafeWindow QAbstractSpinBox {
    min-height: 24px; border: 1px solid #9AA4AB; border-radius: 3px; background: #FFFFFF; padding: 0 6px; }
#cafeWindow QPlainTextEdit { border: 1px solid #9AA4AB; border-radius: 3px; background: #FFFFFF; padding: 2px; }
#cafeWindow QLineEdit:focus, #cafeWindow QAbstractSpinBox:focus, #cafeWindow QPlainTextEdit:focus {
    border: 2px solid #0B3F4F; padding: 0 5px; }
#cafeWindow QPlainTextEdit:focus { padding: 1px; }
#cafeWindow QLineEdit[readOnly="true"] { background: #E6EAEC; }
#cafeWindow QPushButton, #cafeWindow QToolButton {
    min-height: 26px; border: 1px solid #9AA4AB; border-radius: 4px; background: #FFFFFF; }
#cafeWindow QPushButton { min-width: 70px; padding: 0 7px; }
#cafeWindow QToolButton { min-width: 28px; min-height: 24px; }
#cafeWindow QPushButton:hover, #cafeWindow QToolButton:hover { background: #E6ECEF; }
#cafeWindow QPushButton:pressed, #cafeWindow QToolButton:pressed { background: #D5E0E4; }
#cafeWindow QPushButton:focus, #cafeWindow QToolButton:focus, #cafeWindow QPushButton:default {
    border: 2px solid #0B3F4F; }
#cafeWindow QPushButton:default { font-weight: bold; }
#cafeWindow QPushButton:disabled { color: #8D969D; border-color: #C4CBCF; }
#cafeWindow #members { border: 1px solid #9AA4AB; border-radius: 3px; background: #FFFFFF; }
#cafeWindow #memberTitle { color: #0B3F4F; font-size: 17px; font-weight: bold; }
#cafeWindow #signature, #cafeWindow #more, #cafeWindow #argument { color: #3C444B; }
#cafeWindow #formArea, #cafeWindow #formArea > QWidget > QWidget { background: transparent; }
#cafeWindow #chip { border-radius: 9px; padding: 3px 10px; background: #E4EBEE; color: #0B3F4F; font-weight: bold; }
#cafeWindow #chip[wanting="true"] { background: #F6E1DC; color: #8C1010; }
#cafeWindow QStatusBar { background: #F8FAFB; border-top: 1px solid #C4CBCF; }
#cafeWindow QStatusBar::item { border: none; }
#calendarPopup { background: #FFFFFF; border: 1px solid #9AA4AB; }
#calendarPopup #qt_calendar_navigationbar { background: #E4EBEE; }
#calendarPopup QAbstractSpinBox { min-height: 24px; min-width: 60px; border: 1px solid #9AA4AB; border-radius: 3px; }
#calendarPopup QToolButton { color: #0B3F4F; background: transparent; border: none; padding: 4px; font-weight: bold; }
#calendarPopup QToolButton:hover { background: #D5E0E4; border-radius: 3px; }
#calendarPopup QToolButton::menu-indicator { image: none; }
)";

/// Drawn on a grid of 24, sharp at every size.
QIcon Drawn(const std::function<void(QPainter&)>& draw) {
    QIcon icon;
    constexpr double grid = 24.0;
    for (const int size : {16, 24, 32, 48, 64}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / grid, size / grid);
        draw(painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

QPen Stroke(const QColor& colour) {
    constexpr double width = 1.7;
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

} // namespace

void SetLook(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(Colours());
    QApplication::setLayoutDirection(Qt::RightToLeft);
    QFont font;
    font.setFamilies({"Noto Sans Arabic UI", "Noto Sans", "DejaVu Sans Condensed", "DejaVu Sans"});
    font.setPixelSize(FontPixels);
    font.setKerning(false); // the first face kerns reh and ain so far apart that a word seems to be two
    QApplication::setFont(font);
    QApplication::setWindowIcon(CafeIcon());
    application.setStyleSheet(Sheet);
}

QIcon CafeIcon() {
    return Drawn([](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(Accent));
        painter.drawRoundedRect(QRectF(1, 1, 22, 22), 5, 5);
        painter.setPen(Stroke(Qt::white));
        painter.setBrush(Qt::NoBrush);
        QPainterPath cup(QPointF(5.5, 10));
        cup.lineTo(15.5, 10);
        cup.lineTo(15.5, 14);
        cup.arcTo(QRectF(9.5, 12, 6, 6), 0, -90);
        cup.lineTo(8.5, 18);
        cup.arcTo(QRectF(5.5, 12, 6, 6), -90, -90);
        cup.closeSubpath();
        painter.drawPath(cup);
        painter.drawArc(QRectF(13.5, 11, 5, 4), -90 * 16, 180 * 16);
        painter.drawLine(QPointF(8.5, 5), QPointF(8.5, 7));
        painter.drawLine(QPointF(12.5, 5), QPointF(12.5, 7));
    });
}

QIcon CalendarIcon() {
    return Drawn([](QPainter& painter) {
        painter.setPen(Stroke("#23292F"));
        painter.drawRoundedRect(QRectF(3.5, 5, 17, 15.5), 2, 2);
        painter.drawLine(QPointF(3.5, 10), QPointF(20.5, 10));
        painter.drawLine(QPointF(8, 3), QPointF(8, 6.5));
        painter.drawLine(QPointF(16, 3), QPointF(16, 6.5));
        for (const double x : {8.0, 12.0, 16.0})
            painter.drawPoint(QPointF(x, 14));
        for (const double x : {8.0, 12.0})
            painter.drawPoint(QPointF(x, 17.3));
    });
}

QIcon ChevronIcon(Chevron side) {
    const double tip = side == Chevron::Left ? 9 : 15;
    return Drawn([tip](QPainter& painter) {
        painter.setPen(Stroke("#23292F"));
        const double back = 24 - tip;
        painter.drawPolyline(QPolygonF({QPointF(back, 6), QPointF(tip, 12), QPointF(back, 18)}));
    });
}

} // namespace cafe
