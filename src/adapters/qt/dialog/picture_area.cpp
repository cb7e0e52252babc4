#include "adapters/qt/dialog/picture_area.h"

#include "adapters/gdi/form_pictures.h"
#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"
#include "platform/platform.h"

#include <utility>

namespace qbrpt::qt {

namespace {

/// Null where drawing is somebody else's.
gdi::RasterGdi* Raster(const Ref<Gdi>& drawing) {
    return dynamic_cast<gdi::RasterGdi*>(drawing.Shared().get());
}

qbrpt::Picture PixelsOf(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888);
    qbrpt::Picture picture{pixels.width(), pixels.height(), {}};
    for (int line = 0; line < pixels.height(); ++line) {
        const uchar* row = pixels.constScanLine(line);
        picture.rgba.insert(picture.rgba.end(), row, row + 4 * static_cast<std::ptrdiff_t>(pixels.width()));
    }
    return picture;
}

QImage ImageOf(const qbrpt::Picture& picture) {
    return QImage(picture.rgba.data(), picture.width, picture.height, 4 * picture.width,
                  QImage::Format_RGBA8888)
        .copy();
}

class PicturePort final : public ControlOver<PictureBox, PictureArea> {
public:
    using ControlOver::ControlOver;

private:
    [[nodiscard]] DeviceContext DohDC() const override {
        return static_cast<DeviceContext>(Shown().Canvas());
    }
    [[nodiscard]] PictureHandle DoPicture() const override {
        return static_cast<PictureHandle>(Shown().Picture());
    }
    void DoSetBorderStyle(std::int16_t style) override { Shown().SetBorder(style != 0); }
    void DoRefresh() override { Shown().update(); }
};

} // namespace

PictureArea::PictureArea(QWidget* parent, std::string_view picture)
    : QWidget(parent), mGdi(Platform::Current().gdi) {
    const auto pixels = gdi::FormPicture(picture);
    if (!pixels) return;
    mShown = ImageOf(*pixels);
    if (auto* raster = Raster(mGdi)) mPicture = raster->MakeBitmap(*pixels);
}

PictureArea::~PictureArea() {
    if (auto* raster = Raster(mGdi); raster != nullptr && mPicture != 0) raster->DeleteObject(mPicture);
}

GdiHandle PictureArea::Canvas() {
    auto* raster = Raster(mGdi);
    if (mPainting && mCanvas == 0 && raster != nullptr) {
        QImage ground(size(), QImage::Format_RGBA8888);
        ground.fill(palette().color(QPalette::Window));
        mCanvas = raster->OpenCanvas(PixelsOf(ground));
    }
    return mCanvas;
}

void PictureArea::SetBorder(bool border) {
    mBorder = border;
    update();
}

void PictureArea::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!mShown.isNull()) painter.drawImage(0, 0, mShown);
    mPainting = true;
    painted();
    mPainting = false;
    if (const GdiHandle canvas = std::exchange(mCanvas, 0); canvas != 0)
        painter.drawImage(0, 0, ImageOf(Raster(mGdi)->CloseCanvas(canvas)));
    if (!mBorder) return;
    painter.setPen(QColor(DialogColor::FaintBorder));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

BuiltControl BuildPictureBox(QWidget& parent, const ControlRow& row, const ControlEvents& events) {
    auto* area = new PictureArea(&parent, row.picture);
    area->painted = [name = std::string(row.name), told = events.paint] { told(name); };
    return {area, std::make_shared<PicturePort>(*area)};
}

} // namespace qbrpt::qt
