// Labels and frames.
#pragma once

#include "adapters/qt/dialog/built_control.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>

namespace qbrpt::qt {

/// Its words keep their order in Arabic windows. Those that have no room end in dots, and stand in the tip.
class WordsLabel final : public QLabel {
public:
    explicit WordsLabel(QWidget* parent);
    /// For words that come later, of any length.
    void TakeAnyLength();
    void SetWords(const QString& words);

private:
    void resizeEvent(QResizeEvent* event) override;
    void Fit();

    QString mWords;
    bool mAnyLength = false;
};

/// A border with its caption on it.
class FrameBox final : public QGroupBox {
public:
    FrameBox(QWidget* parent, const QString& caption);

private:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

[[nodiscard]] BuiltControl BuildLabel(QWidget& parent, const ControlRow& row);
[[nodiscard]] BuiltControl BuildFrame(QWidget& parent, const ControlRow& row);

} // namespace qbrpt::qt
