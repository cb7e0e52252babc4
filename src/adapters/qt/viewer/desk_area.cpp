#include "adapters/qt/viewer/desk_area.h"

#include "adapters/qt/viewer/page_hits.h"
#include "adapters/qt/viewer/viewer_words.h"
#include "base/failure.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace qbrpt::viewer {

namespace {

constexpr int GlideMilliseconds = 130;
constexpr int DragScrollMilliseconds = 25;

// Slim and calm beside the pages.
constexpr const char* BarStyle = R"(
    QScrollBar { background: #E9ECEE; border: none; }
    QScrollBar:vertical { width: 15px; }
    QScrollBar:horizontal { height: 15px; }
    QScrollBar::handle { background: #9AA7AE; border-radius: 4px; margin: 3px; }
    QScrollBar::handle:vertical { min-height: 36px; }
    QScrollBar::handle:horizontal { min-width: 36px; }
    QScrollBar::handle:hover, QScrollBar::handle:pressed { background: #7E8C94; }
    QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
    QScrollBar::add-page, QScrollBar::sub-page { background: none; }
)";

void SetBar(QScrollBar& bar, Pixels last, Pixels screen, Pixels value) {
    bar.setRange(0, static_cast<int>(last));
    bar.setPageStep(static_cast<int>(std::max<Pixels>(screen, 1)));
    bar.setValue(static_cast<int>(value));
}

} // namespace

DeskArea::DeskArea(QWidget* parent, Finder& finder)
    : QAbstractScrollArea(parent), mFinder(finder), mTip(new PageTip(viewport())) {
    setFrameShape(QFrame::NoFrame);
    for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()})
        bar->setStyleSheet(BarStyle);
    auto* corner = new QWidget(this);
    corner->setStyleSheet("background: #E9ECEE;");
    setCornerWidget(corner);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    // The view's left edge is counted from the desk's left edge in both languages.
    horizontalScrollBar()->setLayoutDirection(Qt::LeftToRight);
    mGlide.setDuration(GlideMilliseconds);
    mGlide.setEasingCurve(QEasingCurve::OutCubic);
    mGlide.setStartValue(0.0);
    mGlide.setEndValue(1.0);
    connect(&mGlide, &QVariantAnimation::valueChanged, this, [this](const QVariant& part) {
        const auto way = static_cast<double>(mGlideTo - mGlideFrom);
        GoTo(mLeft, mGlideFrom + std::llround(way * part.toDouble()));
        Moved();
        ShowTip();
    });
    mPrepare.setSingleShot(true);
    connect(&mPrepare, &QTimer::timeout, this, [this] { Prepare(); });
    mDragScroll.setInterval(DragScrollMilliseconds);
    connect(&mDragScroll, &QTimer::timeout, this, [this] { ScrollWhileDragging(); });
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    SetLanguage(true);
}

DeskArea::~DeskArea() = default;

void DeskArea::SetLanguage(bool arabic) {
    mArabic = arabic;
    setAccessibleName(QString::fromUtf8(WordsOf(arabic).pages));
}

void DeskArea::Show(std::shared_ptr<PageStore> pages) {
    Empty();
    mPages = std::move(pages);
    mPainter = std::make_unique<DeskPainter>(mPages);
    Renew();
}

void DeskArea::Empty() {
    mGlide.stop();
    mPrepare.stop();
    mDragScroll.stop();
    mSelection.Clear();
    mPressed.reset();
    mPainter.reset();
    mPages.reset();
    mCurrent = 0;
    mLayout.SetPages(0, {});
    setAccessibleDescription({});
    GoTo(0, 0);
}

void DeskArea::Renew() {
    if (!mPages) return;
    mSelection.Clear();
    mPainter->Forget();
    const bool fresh = mLayout.PageCount() == 0;
    const std::int32_t page = mCurrent;
    mLayout.SetPages(mPages->Source().PageCount(), mPages->Source().SheetSize());
    TakeView();
    ShowPage(page);
    if (fresh) GoTo(mArabic ? mLayout.LastLeft() : 0, mTop);
    viewport()->update();
}

void DeskArea::Freeze(bool frozen) {
    mFrozen = frozen;
    setUpdatesEnabled(!frozen);
}

std::size_t DeskArea::PictureBytes() const {
    return mPainter ? mPainter->Tiles().Bytes() : 0;
}

DeskView DeskArea::View() const {
    return {mLayout, mLeft, mTop, viewport()->devicePixelRatioF()};
}

void DeskArea::TakeView() {
    mLayout.SetView(viewport()->width(), viewport()->height());
    if (mFit == Fit::Width) mLayout.SetZoom(mLayout.ZoomToWidth());
    if (mFit == Fit::Page) mLayout.SetZoom(mLayout.ZoomToPage());
    SetBars();
}

void DeskArea::SetBars() {
    const bool outer = std::exchange(mSettingBars, true); // a bar that comes or goes resizes the view
    mTop = std::clamp<Pixels>(mTop, 0, mLayout.LastTop());
    // A page narrower than the view lies in its middle; a wider one is moved under it.
    mLeft = std::clamp<Pixels>(mLeft, 0, mLayout.LastLeft());
    mBarUnit = mLayout.LastTop() / std::numeric_limits<int>::max() + 1;
    SetBar(*verticalScrollBar(), mLayout.LastTop() / mBarUnit, mLayout.ViewHeight() / mBarUnit,
           mTop / mBarUnit);
    SetBar(*horizontalScrollBar(), mLayout.LastLeft(), mLayout.ViewWidth(), mLeft);
    mSettingBars = outer;
}

void DeskArea::resizeEvent(QResizeEvent*) {
    const PagePoint middle = mLayout.PointAt(mLeft + mLayout.ViewWidth() / 2, mTop);
    const bool hadView = mLayout.ViewHeight() > 0 && mPages;
    TakeView();
    if (hadView) {
        const DeskRect place = mLayout.PlaceOf(middle);
        GoTo(place.x - mLayout.ViewWidth() / 2, place.y);
    }
    Moved(mCurrent);
}

void DeskArea::scrollContentsBy(int, int) {
    if (mSettingBars) return;
    mGlide.stop();
    mTop = verticalScrollBar()->value() * mBarUnit;
    mLeft = horizontalScrollBar()->value();
    Moved();
    ShowTip();
}

void DeskArea::GoTo(Pixels left, Pixels top) {
    mLeft = left;
    mTop = top;
    SetBars();
    viewport()->update();
}

void DeskArea::GlideTo(Pixels top) {
    mGlide.stop();
    mGlideFrom = mTop;
    mGlideTo = std::clamp<Pixels>(top, 0, mLayout.LastTop());
    if (mGlideTo != mGlideFrom) mGlide.start();
    ShowTip();
}

void DeskArea::Moved(std::int32_t favourite) {
    viewport()->update();
    const std::int32_t before = mCurrent;
    TakeCurrentPage(favourite);
    if (before != mCurrent && pageChanged) pageChanged();
}

void DeskArea::TakeCurrentPage(std::int32_t favourite) {
    mCurrent = mLayout.CurrentPage(mTop, favourite);
    setAccessibleDescription(PageOf(WordsOf(mArabic), mCurrent + 1, PageCount()));
}

void DeskArea::ShowPage(std::int32_t page) {
    mGlide.stop();
    const std::int32_t shown = std::clamp(page, 0, std::max(PageCount() - 1, 0));
    GoTo(mLeft, mLayout.TopOf(shown));
    TakeCurrentPage(shown);
}

void DeskArea::ApplyZoom(double percent) {
    mGlide.stop();
    const std::int32_t page = mCurrent;
    const PagePoint middle =
        mLayout.PointAt(mLeft + mLayout.ViewWidth() / 2, mTop + mLayout.ViewHeight() / 2);
    mLayout.SetZoom(percent);
    SetBars(); // the new ranges first
    const DeskRect place = mLayout.PlaceOf(middle);
    GoTo(place.x - mLayout.ViewWidth() / 2, place.y - mLayout.ViewHeight() / 2);
    TakeCurrentPage(page);
}

void DeskArea::SetZoom(double percent) {
    mFit = Fit::None;
    ApplyZoom(percent);
}

void DeskArea::SetFit(Fit fit) {
    mFit = fit;
    const std::int32_t before = mCurrent;
    // Once more where a scroll bar came or went with the first.
    for (int i = 0; i < 2 && fit != Fit::None; ++i)
        ApplyZoom(fit == Fit::Width ? mLayout.ZoomToWidth() : mLayout.ZoomToPage());
    if (before != mCurrent && pageChanged) pageChanged();
}

void DeskArea::ShowHit(const HitPlace& place) {
    if (!mPages || !mFinder.Course()) return;
    const std::vector<PageHit> hits = HitsOn(mPages->At(place.page)->Reading(), mFinder.Query());
    if (place.hit >= hits.size() || hits[place.hit].boxes.empty()) return;
    const PageBox& box = hits[place.hit].boxes.front();
    const DeskRect page = mLayout.PageRect(place.page);
    const auto desk = [this](report::Twips twips) {
        return static_cast<Pixels>(std::llround(twips * mLayout.PixelsPerTwip()));
    };
    const Pixels top = page.y + desk(box.top);
    const Pixels left = page.x + desk(box.left);
    const bool seen = top >= mTop && page.y + desk(box.bottom) <= mTop + mLayout.ViewHeight() &&
                      left >= mLeft && page.x + desk(box.right) <= mLeft + mLayout.ViewWidth();
    if (!seen) {
        mGlide.stop();
        GoTo(left - mLayout.ViewWidth() / 2, top - mLayout.ViewHeight() / 3);
        Moved();
        ShowTip();
    }
    viewport()->update();
}

void DeskArea::ShowTip() {
    if (PageCount() < 2) return;
    const double part =
        mLayout.LastTop() > 0 ? static_cast<double>(mTop) / static_cast<double>(mLayout.LastTop()) : 0;
    mTip->ShowAt(PageOf(WordsOf(mArabic), mCurrent + 1, PageCount()), part, isRightToLeft());
}

void DeskArea::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.setClipRegion(event->region());
    if (!mPainter) {
        painter.fillRect(event->rect(), QColor(DeskGround));
        return;
    }
    mPainter->Draw(painter, View(), mSelection, mFinder);
    mPrepare.start(0);
}

void DeskArea::Prepare() {
    if (mFrozen) return;
    try {
        if (mPainter && mPainter->PrepareOne(View())) mPrepare.start(0);
    } catch (const Failure&) { // told of when the page is drawn
    }
}

} // namespace qbrpt::viewer
