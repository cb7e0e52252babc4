#include "adapters/qt/dialog/words.h"

#include "adapters/qt/caption_painter.h"
#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/shown_text.h"

#include <memory>

namespace qbrpt::qt {

namespace {

constexpr int CaptionInset = 12;
constexpr int CaptionGap = 5;

class LabelPort final : public ControlOver<Label, WordsLabel> {
public:
    using ControlOver::ControlOver;

private:
    void DoSetCaption(const std::string& caption) override {
        Shown().SetWords(QString::fromStdString(caption));
    }
};

class FramePort final : public ControlOver<Control, FrameBox> {
public:
    using ControlOver::ControlOver;
};

} // namespace

WordsLabel::WordsLabel(QWidget* parent) : QLabel(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setTextFormat(Qt::PlainText);
}

void WordsLabel::TakeAnyLength() {
    mAnyLength = true;
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMinimumHeight(fontMetrics().height());
}

void WordsLabel::SetWords(const QString& words) {
    mWords = words;
    setAccessibleName(words);
    Fit();
}

void WordsLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (mAnyLength) Fit();
}

void WordsLabel::Fit() {
    QString shown = mWords;
    if (mAnyLength) shown = fontMetrics().elidedText(mWords, Qt::ElideRight, width());
    setToolTip(shown == mWords ? QString() : mWords);
    setText(KeptInOrder(shown));
}

FrameBox::FrameBox(QWidget* parent, const QString& caption) : QGroupBox(caption, parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    setContentsMargins(0, 0, 0, 0);
}

void FrameBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int over = metrics.height() / 2;
    const int wide = metrics.horizontalAdvance(title()) + 2 * CaptionGap;
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    const QRect room(fromRight ? width() - CaptionInset - wide : CaptionInset, 0, wide, metrics.height());
    painter.setClipRegion(QRegion(rect()).subtracted(room)); // whatever ground lies behind the caption stays
    PaintBox(painter, rect().adjusted(0, over, 0, 0), DialogColor::NoGround, Edge::Faint);
    painter.setClipping(false);
    painter.setFont(bold);
    painter.setPen(QColor(isEnabled() ? DialogColor::Accent : DialogColor::Faint));
    DrawCaption(painter, room, CaptionPlace::Middle, layoutDirection(), title());
}

// Qt's own frame leaves room for a caption that stands elsewhere in ours; the grid inside knows its own.
void FrameBox::changeEvent(QEvent* event) {
    QGroupBox::changeEvent(event);
    setContentsMargins(0, 0, 0, 0);
}

void FrameBox::resizeEvent(QResizeEvent* event) {
    QGroupBox::resizeEvent(event);
    setContentsMargins(0, 0, 0, 0);
}

BuiltControl BuildLabel(QWidget& parent, const ControlRow& row) {
    auto* label = new WordsLabel(&parent);
    if (row.caption.empty()) label->TakeAnyLength();
    label->SetWords(Text(row.caption));
    return {label, std::make_shared<LabelPort>(*label)};
}

BuiltControl BuildFrame(QWidget& parent, const ControlRow& row) {
    auto* frame = new FrameBox(&parent, Text(row.caption));
    return {frame, std::make_shared<FramePort>(*frame)};
}

} // namespace qbrpt::qt
