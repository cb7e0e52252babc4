// Where the pages lie on the desk: one below the other, each in the middle.
#pragma once

#include "report/document.h"

#include <cstdint>

namespace qbrpt::viewer {

/// Pixels of the desk, before any scaling by the screen. A long report at a large zoom needs more than 32
/// bits.
using Pixels = std::int64_t;

/// From a page to the next, and to the edges of the desk.
constexpr Pixels DeskMargin = 24;

/// Pages on a screen of 96 dots to the inch at 100 percent.
constexpr double TwipsPerPixel = 15;

struct DeskRect {
    Pixels x = 0;
    Pixels y = 0;
    Pixels width = 0;
    Pixels height = 0;
    friend bool operator==(const DeskRect&, const DeskRect&) = default;
};

/// A point of a page, in parts of its width and height.
struct PagePoint {
    std::int32_t page = 0; ///< from 0
    double across = 0;
    double down = 0;
};

/// Pages from `first` to before `end`.
struct PageSpan {
    std::int32_t first = 0;
    std::int32_t end = 0;
};

class DeskLayout {
public:
    void SetPages(std::int32_t count, report::Sheet sheet);
    /// The part of the desk that is seen.
    void SetView(Pixels width, Pixels height);
    /// In percent; below 1 counts as 1.
    void SetZoom(double percent);

    [[nodiscard]] double Zoom() const { return mZoom; }
    [[nodiscard]] double PixelsPerTwip() const { return mZoom / 100 / TwipsPerPixel; }
    [[nodiscard]] std::int32_t PageCount() const { return mPages; }
    [[nodiscard]] Pixels Width() const;
    [[nodiscard]] Pixels Height() const;
    [[nodiscard]] Pixels ViewWidth() const { return mViewWidth; }
    [[nodiscard]] Pixels ViewHeight() const { return mViewHeight; }
    /// How far down and across the view can go.
    [[nodiscard]] Pixels LastTop() const;
    [[nodiscard]] Pixels LastLeft() const;

    [[nodiscard]] DeskRect PageRect(std::int32_t page) const;
    /// The pages of which something is seen while the view begins at `top`.
    [[nodiscard]] PageSpan Visible(Pixels top) const;
    /// The page that fills most of the view. Of those that fill it alike it is `favourite`, else the first.
    [[nodiscard]] std::int32_t CurrentPage(Pixels top, std::int32_t favourite) const;
    /// The view's top that shows a page from its top on.
    [[nodiscard]] Pixels TopOf(std::int32_t page) const;

    /// The place of a point of the desk on the page that lies nearest.
    [[nodiscard]] PagePoint PointAt(Pixels x, Pixels y) const;
    [[nodiscard]] DeskRect PlaceOf(const PagePoint& point) const;

    /// The zoom at which a page is as wide as the view, or is seen whole.
    [[nodiscard]] double ZoomToWidth() const;
    [[nodiscard]] double ZoomToPage() const;

private:
    [[nodiscard]] Pixels PageWidth() const;
    [[nodiscard]] Pixels PageHeight() const;
    [[nodiscard]] std::int32_t PageNear(Pixels y) const;

    std::int32_t mPages = 0;
    report::Sheet mSheet;
    Pixels mViewWidth = 0;
    Pixels mViewHeight = 0;
    double mZoom = 100;
};

} // namespace qbrpt::viewer
