#include "adapters/qt/style_words.h"

#include <QtGui/QTextOption>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

namespace qbrpt::qt {

namespace {

Qt::LayoutDirection Direction(bool rightToLeft) {
    return rightToLeft ? Qt::RightToLeft : Qt::LeftToRight;
}

/// The side is meant as it is seen: a widget's own direction must not turn it round once more. What stands in
/// the middle stays there.
Qt::Alignment Side(bool right, Qt::Alignment before) {
    if ((before & Qt::AlignHCenter) != 0) return before;
    return (before & Qt::AlignVertical_Mask) | Qt::AlignAbsolute | (right ? Qt::AlignRight : Qt::AlignLeft);
}

} // namespace

void ApplyStyles(QWidget& widget, std::uint32_t style, std::uint32_t extendedStyle) {
    const auto has = [&](std::uint32_t bits) { return (extendedStyle & bits) != 0; };
    const bool mirrored = has(StyleBit::RightLayout);
    const bool reading = mirrored || has(StyleBit::RightReading);
    // Set on each window by itself, so that none takes its direction from the one around it.
    widget.setLayoutDirection(Direction(reading));
    const bool right = mirrored != has(StyleBit::Right);
    if (auto* label = qobject_cast<QLabel*>(&widget)) label->setAlignment(Side(right, label->alignment()));
    if (auto* edit = qobject_cast<QLineEdit*>(&widget)) edit->setAlignment(Side(right, edit->alignment()));
    if (auto* page = qobject_cast<QPlainTextEdit*>(&widget)) {
        QTextOption option = page->document()->defaultTextOption();
        option.setTextDirection(Direction(reading));
        option.setAlignment(Side(right, option.alignment()));
        page->document()->setDefaultTextOption(option);
    }
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&widget)) {
        area->setLayoutDirection(Direction(reading || has(StyleBit::LeftScrollBar)));
        area->viewport()->setLayoutDirection(Direction(reading));
    }
    // Of check boxes and the like the button stands where reading begins, also without reading order.
    if (qobject_cast<QAbstractButton*>(&widget) != nullptr && (style & StyleBit::ButtonAtRight) != 0)
        widget.setLayoutDirection(Qt::RightToLeft);
}

} // namespace qbrpt::qt
