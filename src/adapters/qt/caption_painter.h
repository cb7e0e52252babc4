// Captions with an underlined letter.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QPainter>

namespace qbrpt::qt {

enum class CaptionPlace : std::uint8_t { Leading, Trailing, Middle };

/// Draws a caption with the painter's font and pen. Letters stay joined over the underlined one, which a
/// painter's own way of underlining takes out of its word.
void DrawCaption(QPainter& painter, const QRect& room, CaptionPlace place, Qt::LayoutDirection direction,
                 const QString& caption);

} // namespace qbrpt::qt
