#include "adapters/qt/dialog/tab_strip.h"

#include "adapters/qt/caption_painter.h"
#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/icons.h"
#include "adapters/qt/shown_text.h"
#include "adapters/qt/twips.h"

#include <QtCore/QEvent>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyle>

#include <memory>

namespace qbrpt::qt {

namespace {

constexpr int TabHeight = 34;
constexpr int TabPadding = 16;
constexpr int TabIcon = 18;
constexpr int IconGap = 8;
constexpr int BeforeFirst = 10;
constexpr int LowerBy = 2; ///< tabs behind stand lower than the one in front

class TabsPort final : public ControlOver<TabStrip, TabBox> {
public:
    using ControlOver::ControlOver;

private:
    [[nodiscard]] std::int16_t DoTabCount() const override {
        return static_cast<std::int16_t>(Shown().Tabs().count());
    }
    [[nodiscard]] bool DoTabSelected(std::int16_t index) const override {
        return Shown().Tabs().currentIndex() + 1 == index;
    }
    [[nodiscard]] double DoTabTop(std::int16_t index) const override {
        return Twips(Shown().y() + Shown().Tabs().y() + Shown().Tabs().tabRect(index - 1).y());
    }
    [[nodiscard]] TabStyle DoStyle() const override { return TabStyle::Tabs; }
    [[nodiscard]] ControlPlace DoClientPlace() const override {
        const QRect client = Shown().Client();
        const bool mirrored = Shown().layoutDirection() == Qt::RightToLeft;
        return {.left = static_cast<double>(Twips(mirrored ? client.right() + 1 : client.left())),
                .top = static_cast<double>(Twips(client.top())),
                .width = static_cast<double>(Twips(client.width())),
                .height = static_cast<double>(Twips(client.height()))};
    }
};

QPainterPath TabShape(const QRectF& tab) {
    constexpr qreal round = 4;
    QPainterPath shape(tab.bottomLeft());
    shape.lineTo(tab.left(), tab.top() + round);
    shape.quadTo(tab.topLeft(), {tab.left() + round, tab.top()});
    shape.lineTo(tab.right() - round, tab.top());
    shape.quadTo(tab.topRight(), {tab.right(), tab.top() + round});
    shape.lineTo(tab.bottomRight());
    return shape;
}

} // namespace

TabRow::TabRow(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setExpanding(false);
    setIconSize({TabIcon, TabIcon});
    setAttribute(Qt::WA_Hover);
}

QSize TabRow::tabSizeHint(int index) const {
    QFont bold = font();
    bold.setBold(true);
    const int icon = tabIcon(index).isNull() ? 0 : TabIcon + IconGap;
    return {QFontMetrics(bold).horizontalAdvance(tabText(index)) + icon + 2 * TabPadding, TabHeight};
}

void TabRow::PaintTab(QPainter& painter, int index) const {
    const bool front = index == currentIndex();
    QRect room = tabRect(index);
    if (!front) room.adjust(1, LowerBy, -1, 0);
    painter.setPen(QColor(DialogColor::FaintBorder));
    const QRgb behind = isTabEnabled(index) ? DialogColor::TabBehind : DialogColor::ReadOnly;
    painter.setBrush(QColor(front ? DialogColor::Pane : behind));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPath(TabShape(QRectF(room).adjusted(0.5, 0.5, -0.5, front ? 1 : -0.5)));
    QFont face = font();
    face.setBold(front);
    painter.setFont(face);
    QRect inner = room.adjusted(TabPadding, 0, -TabPadding, 0);
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    if (!tabIcon(index).isNull()) {
        const QSize size(TabIcon, TabIcon);
        const Qt::Alignment side = fromRight ? Qt::AlignRight : Qt::AlignLeft;
        tabIcon(index).paint(&painter,
                             QStyle::alignedRect(Qt::LeftToRight, side | Qt::AlignVCenter, size, inner));
        inner.adjust(fromRight ? 0 : TabIcon + IconGap, 0, fromRight ? -TabIcon - IconGap : 0, 0);
    }
    painter.setPen(QColor(front ? DialogColor::Accent : DialogColor::Ink));
    DrawCaption(painter, inner, CaptionPlace::Leading, layoutDirection(), tabText(index));
    if (front && hasFocus())
        painter.fillRect(QRect(inner.left(), room.bottom() - 5, inner.width(), 2),
                         QColor(DialogColor::Accent));
}

void TabRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int index = 0; index < count(); ++index) {
        if (index != currentIndex()) PaintTab(painter, index);
    }
    if (currentIndex() >= 0) PaintTab(painter, currentIndex());
}

TabBox::TabBox(QWidget* parent) : QWidget(parent), mTabs(new TabRow(this)) {
    setFocusProxy(mTabs);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QRect TabBox::Pane() const {
    return rect().adjusted(0, TabHeight - 1, 0, 0);
}

QRect TabBox::Client() const {
    return Pane().adjusted(1, 1, -1, -1).translated(pos());
}

QSize TabBox::SizeAround(const QSize& client) const {
    const int wide = std::max(client.width() + 2, mTabs->sizeHint().width() + 2 * BeforeFirst);
    return {wide, client.height() + 2 + TabHeight - 1};
}

void TabBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintBox(painter, Pane(), DialogColor::Pane, Edge::Faint);
}

void TabBox::PlaceTabs() {
    const int wide = std::min(mTabs->sizeHint().width(), width() - 2 * BeforeFirst);
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    mTabs->setGeometry(fromRight ? width() - BeforeFirst - wide : BeforeFirst, 0, wide, TabHeight);
}

void TabBox::resizeEvent(QResizeEvent*) {
    PlaceTabs();
    resized();
}

void TabBox::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange) PlaceTabs();
}

BuiltControl BuildTabStrip(QWidget& parent, const ControlRow& row, const FormTable& table,
                           const ControlEvents& events) {
    auto* strip = new TabBox(&parent);
    for (const ControlRow& tab : table.controls) {
        if (tab.kind != ControlKind::Tab || tab.parent != row.name) continue;
        const int index = strip->Tabs().addTab(Text(tab.caption));
        strip->Tabs().setTabIcon(index, TabPicture(table.name, tab.image));
    }
    const auto told = [name = std::string(row.name), told = events.click] { told(name); };
    QObject::connect(&strip->Tabs(), &QTabBar::currentChanged, strip, told);
    QObject::connect(&strip->Tabs(), &QTabBar::tabBarClicked, strip, [strip, told](int index) {
        if (index >= 0 && index == strip->Tabs().currentIndex()) told();
    });
    return {strip, std::make_shared<TabsPort>(*strip)};
}

} // namespace qbrpt::qt
