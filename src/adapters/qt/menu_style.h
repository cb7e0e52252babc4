// How menu bars and menus are drawn.
#pragma once

#include <QtWidgets/QProxyStyle>

namespace qbrpt::qt {

/// Captions where reading begins, shortcuts in grey at the other side, in either direction.
class MenuStyle final : public QProxyStyle {
public:
    /// The one for all of them.
    static MenuStyle& Instance();

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

private:
    MenuStyle();
};

} // namespace qbrpt::qt
