// Where the reader types what he looks for.
#pragma once

#include "adapters/qt/viewer/finder.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QWidget>

#include <functional>

namespace qbrpt::viewer {

/// Enter steps to the next place, Shift+Enter to the one before; Esc stops a search that is under way, then
/// closes the bar.
class FindBar final : public QWidget {
public:
    FindBar(QWidget* parent, Finder& finder);

    std::function<void(const QString& text)> typed;
    std::function<void()> closed;

    void SetLanguage(bool arabic);
    void Open();
    /// Esc: stops or closes.
    void Escape();
    void ShowCounts();
    [[nodiscard]] QString Text() const { return mField->text(); }
    [[nodiscard]] QString Counts() const { return mCounts->text(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Finder& mFinder;
    QLineEdit* mField;
    QToolButton* mNext;
    QToolButton* mBefore;
    QLabel* mCounts;
    QToolButton* mClose;
    bool mArabic = true;
};

} // namespace qbrpt::viewer
