#include "adapters/qt/look.h"

#include <QtGui/QColor>

namespace qbrpt::qt {

namespace {

constexpr int FontPixels = 12;

// Colours of the house style.
constexpr const char* Ground = "#F1F3F4";
constexpr const char* Field = "#FFFFFF";
constexpr const char* Ink = "#14191D";
constexpr const char* Chosen = "#1C6680";
constexpr const char* Faint = "#8D969D";

} // namespace

QFont WindowFont() {
    QFont font;
    font.setFamilies({"Noto Sans Arabic UI", "Noto Sans", "DejaVu Sans Condensed", "DejaVu Sans"});
    font.setPixelSize(FontPixels);
    font.setKerning(false); // this face kerns reh and ain so far apart that words break in two
    return font;
}

QPalette HousePalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, Ground);
    palette.setColor(QPalette::Button, "#FBFCFC");
    palette.setColor(QPalette::Base, Field);
    palette.setColor(QPalette::AlternateBase, "#F1F5F6");
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(role, Ink);
        palette.setColor(QPalette::Disabled, role, Faint);
    }
    palette.setColor(QPalette::Highlight, Chosen);
    palette.setColor(QPalette::HighlightedText, Field);
    palette.setColor(QPalette::ToolTipBase, "#23292F");
    palette.setColor(QPalette::ToolTipText, Field);
    return palette;
}

QString HouseStyleSheet() {
    return QStringLiteral(R"(
#qbrptWindow { background: #F1F3F4; }
#strip { background: #F8FAFB; border-top: 1px solid #DDE2E5; border-bottom: 1px solid #C4CBCF; }
#buttonBar { background: transparent; }
#buttonBar QFrame { background: #C4CBCF; border: none; }
#buttonBar QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 0; }
#buttonBar QToolButton:hover:enabled { background: #E6ECEF; border-color: #C4CFD4; }
#buttonBar QToolButton:checked, #buttonBar QToolButton:pressed {
    background: #D5E0E4; border-color: #9FB3BB; }
QToolTip { background: #23292F; color: #FFFFFF; border: 1px solid #23292F; padding: 1px 3px; }
)");
}

} // namespace qbrpt::qt
