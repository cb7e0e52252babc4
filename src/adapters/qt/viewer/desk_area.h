// The reading area: pages that can be scrolled, enlarged and selected from.
#pragma once

#include "adapters/qt/viewer/desk_layout.h"
#include "adapters/qt/viewer/desk_painter.h"
#include "adapters/qt/viewer/finder.h"
#include "adapters/qt/viewer/page_store.h"
#include "adapters/qt/viewer/page_tip.h"
#include "adapters/qt/viewer/text_selection.h"

#include <QtCore/QTimer>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractScrollArea>

#include <functional>
#include <memory>
#include <optional>

namespace qbrpt::viewer {

class DeskArea final : public QAbstractScrollArea {
public:
    enum class Fit { None, Width, Page };

    /// `finder` tells what is marked on the pages.
    DeskArea(QWidget* parent, Finder& finder);
    ~DeskArea() override;

    /// Another page fills most of the view.
    std::function<void()> pageChanged;
    /// The wheel asks for another zoom level.
    std::function<void(bool in)> zoomStep;

    void SetLanguage(bool arabic);
    void Show(std::shared_ptr<PageStore> pages);
    /// There are no pages; nothing is asked of a report until others are shown.
    void Empty();
    /// The report's pages are other ones now; the page number stays.
    void Renew();

    [[nodiscard]] std::int32_t PageCount() const { return mLayout.PageCount(); }
    /// A frozen desk asks nothing of the report; what stands on the screen stays there.
    void Freeze(bool frozen);

    /// From 0.
    [[nodiscard]] std::int32_t CurrentPage() const { return mCurrent; }
    /// From its top on; the nearest page where there is none of that number.
    void ShowPage(std::int32_t page);
    /// Keeps the middle of the view.
    void SetZoom(double percent);
    /// The same by the viewer's own doing.
    void SetFit(Fit fit);
    [[nodiscard]] double Zoom() const { return mLayout.Zoom(); }
    void ShowHit(const HitPlace& place);

    [[nodiscard]] bool HasSelection() const { return !mSelection.Empty(); }
    [[nodiscard]] QString SelectedText() const;

    [[nodiscard]] const DeskLayout& Layout() const { return mLayout; }
    [[nodiscard]] Pixels Top() const { return mTop; }
    [[nodiscard]] Pixels Left() const { return mLeft; }
    /// Bytes that pictures of pages take.
    [[nodiscard]] std::size_t PictureBytes() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] DeskView View() const;
    void TakeView();
    void ApplyZoom(double percent);
    void SetBars();
    void GoTo(Pixels left, Pixels top);
    void GlideTo(Pixels top);
    /// The view stands elsewhere; see DeskLayout::CurrentPage for `favourite`.
    void Moved(std::int32_t favourite = -1);
    void TakeCurrentPage(std::int32_t favourite);
    void ShowTip();
    void Prepare();
    [[nodiscard]] std::optional<TextPlace> PlaceAt(QPointF position) const;
    void Drag(QPointF position);
    void ScrollWhileDragging();

    Finder& mFinder;
    std::shared_ptr<PageStore> mPages;
    std::unique_ptr<DeskPainter> mPainter;
    DeskLayout mLayout;
    Fit mFit = Fit::None;
    Pixels mTop = 0;
    Pixels mLeft = 0;
    std::int32_t mCurrent = 0;
    Pixels mBarUnit =
        1; ///< pixels to a step of the vertical bar; more than one where a bar cannot count so far
    bool mFrozen = false;
    bool mSettingBars = false;
    bool mArabic = true;
    PageTip* mTip;

    QVariantAnimation mGlide;
    Pixels mGlideFrom = 0;
    Pixels mGlideTo = 0;
    QTimer mPrepare;
    int mWheel = 0; ///< of Ctrl+wheel, not yet a step

    TextSelection mSelection;
    std::optional<TextPlace> mPressed; ///< a drag of the left button may begin here
    QPointF mPressedAt;
    QPointF mDragAt;
    bool mDragging = false;
    bool mPanning = false;
    QPointF mPanAt;
    QTimer mDragScroll;
};

} // namespace qbrpt::viewer
