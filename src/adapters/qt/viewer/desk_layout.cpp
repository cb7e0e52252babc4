#include "adapters/qt/viewer/desk_layout.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::viewer {

namespace {

double ZoomToFit(Pixels room, report::Twips length) {
    const auto free = static_cast<double>(std::max<Pixels>(room - 2 * DeskMargin, 1));
    return std::clamp(free * TwipsPerPixel * 100 / std::max(length, 1), 1.0, 1000.0);
}

} // namespace

void DeskLayout::SetPages(std::int32_t count, report::Sheet sheet) {
    mPages = std::max(count, 0);
    mSheet = sheet;
}

void DeskLayout::SetView(Pixels width, Pixels height) {
    mViewWidth = std::max<Pixels>(width, 0);
    mViewHeight = std::max<Pixels>(height, 0);
}

void DeskLayout::SetZoom(double percent) {
    mZoom = std::max(percent, 1.0);
}

Pixels DeskLayout::PageWidth() const {
    return std::max<Pixels>(std::llround(mSheet.width * PixelsPerTwip()), 1);
}

Pixels DeskLayout::PageHeight() const {
    return std::max<Pixels>(std::llround(mSheet.height * PixelsPerTwip()), 1);
}

Pixels DeskLayout::Width() const {
    return PageWidth() + 2 * DeskMargin;
}

Pixels DeskLayout::Height() const {
    return DeskMargin + mPages * (PageHeight() + DeskMargin);
}

Pixels DeskLayout::LastTop() const {
    return std::max<Pixels>(Height() - mViewHeight, 0);
}

Pixels DeskLayout::LastLeft() const {
    return std::max<Pixels>(Width() - mViewWidth, 0);
}

DeskRect DeskLayout::PageRect(std::int32_t page) const {
    const Pixels desk = std::max(Width(), mViewWidth);
    return {(desk - PageWidth()) / 2, DeskMargin + page * (PageHeight() + DeskMargin), PageWidth(),
            PageHeight()};
}

std::int32_t DeskLayout::PageNear(Pixels y) const {
    const Pixels page = (y - DeskMargin / 2) / (PageHeight() + DeskMargin);
    return static_cast<std::int32_t>(std::clamp<Pixels>(page, 0, std::max(mPages - 1, 0)));
}

PageSpan DeskLayout::Visible(Pixels top) const {
    if (mPages == 0 || mViewHeight == 0) return {};
    PageSpan span{PageNear(top), PageNear(top + mViewHeight) + 1};
    if (span.first + 1 < span.end) {
        const DeskRect first = PageRect(span.first);
        if (first.y + first.height <= top) ++span.first;
    }
    if (span.first + 1 < span.end && PageRect(span.end - 1).y >= top + mViewHeight) --span.end;
    return span;
}

std::int32_t DeskLayout::CurrentPage(Pixels top, std::int32_t favourite) const {
    const PageSpan span = Visible(top);
    const auto seen = [&](std::int32_t page) {
        const DeskRect rect = PageRect(page);
        return std::min(rect.y + rect.height, top + mViewHeight) - std::max(rect.y, top);
    };
    std::int32_t current = span.first;
    for (std::int32_t page = span.first; page < span.end; ++page) {
        const bool favoured = page == favourite && seen(page) == seen(current);
        if (favoured || seen(page) > seen(current)) current = page;
    }
    return current;
}

Pixels DeskLayout::TopOf(std::int32_t page) const {
    return std::clamp<Pixels>(PageRect(page).y - DeskMargin, 0, LastTop());
}

PagePoint DeskLayout::PointAt(Pixels x, Pixels y) const {
    PagePoint point{PageNear(y), 0, 0};
    const DeskRect rect = PageRect(point.page);
    point.across = static_cast<double>(x - rect.x) / static_cast<double>(rect.width);
    point.down = static_cast<double>(y - rect.y) / static_cast<double>(rect.height);
    return point;
}

DeskRect DeskLayout::PlaceOf(const PagePoint& point) const {
    const DeskRect rect = PageRect(point.page);
    return {rect.x + std::llround(point.across * static_cast<double>(rect.width)),
            rect.y + std::llround(point.down * static_cast<double>(rect.height)), 0, 0};
}

double DeskLayout::ZoomToWidth() const {
    return ZoomToFit(mViewWidth, mSheet.width);
}

double DeskLayout::ZoomToPage() const {
    return std::min(ZoomToFit(mViewWidth, mSheet.width), ZoomToFit(mViewHeight, mSheet.height));
}

} // namespace qbrpt::viewer
