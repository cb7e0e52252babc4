// Pages on the desk are what the page painter draws, whatever the screen's density.
#include "adapters/qt/viewer/desk_painter.h"
#include "viewer_fixture.h"

#include <cmath>
#include <ostream>

namespace qbrpt {
namespace {

struct DensityRow {
    const char* name;
    double screenScale;
};

void PrintTo(const DensityRow& row, std::ostream* stream) {
    *stream << row.name;
}

class Densities : public Viewers, public ::testing::WithParamInterface<DensityRow> {};

TEST_P(Densities, ShowNoSeamsBetweenTheTilesOfAPage) {
    const double scale = GetParam().screenScale;
    const auto report = Filled("PayOutRpt", NamedPayments(60));
    const auto pages = std::make_shared<viewer::PageStore>(report);
    viewer::DeskPainter desk(pages);
    viewer::DeskLayout layout;
    layout.SetPages(pages->Source().PageCount(), pages->Source().SheetSize());
    constexpr int width = 900;
    constexpr int height = 1100;
    constexpr int left = 120;    // the first tiles begin outside
    constexpr double half = 0.5; // of a pixel of the screen, as beside a scroll bar of odd width
    layout.SetView(width, height);

    QImage seen(static_cast<int>(std::ceil(width * scale)), static_cast<int>(std::ceil(height * scale)),
                QImage::Format_RGB32);
    seen.setDevicePixelRatio(scale);
    {
        QPainter painter(&seen);
        painter.translate(half / scale, half / scale);
        const viewer::Finder finder;
        desk.Draw(painter, {layout, left, 0, scale}, {}, finder);
    }

    const viewer::DeskRect sheet = layout.PageRect(0);
    const auto screen = [scale](viewer::Pixels length) {
        return static_cast<int>(std::lround(static_cast<double>(length) * scale));
    };
    const QRect place(screen(sheet.x - left) + 1, screen(sheet.y) + 1, screen(sheet.width),
                      screen(sheet.height));
    ASSERT_GT(place.width(), viewer::TileStore::Side) << "one tile has no neighbours";
    QImage page(place.size(), QImage::Format_RGB32);
    page.fill(Qt::white);
    viewer::GlyphFonts fonts(pages->Fonts());
    viewer::PagePainter(fonts).Paint(page, pages->At(0)->Page(), {}, layout.PixelsPerTwip() * scale);

    seen.setDevicePixelRatio(1);
    const QRect inside = place.intersected(seen.rect()).adjusted(2, 2, -2, -2);
    const QImage drawn = seen.copy(inside);
    const QImage wanted = page.copy(inside.translated(-place.topLeft()));
    int different = 0;
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x)
            different += (drawn.pixel(x, y) & RGB_MASK) != (wanted.pixel(x, y) & RGB_MASK) ? 1 : 0;
    EXPECT_EQ(different, 0) << "of " << drawn.width() * drawn.height() << " pixels";
}

INSTANTIATE_TEST_SUITE_P(Rows, Densities,
                         ::testing::Values(DensityRow{"One", 1}, DensityRow{"OneAndAQuarter", 1.25},
                                           DensityRow{"OneAndAHalf", 1.5}, DensityRow{"Two", 2}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
