#include "adapters/qt/viewer/viewer_port.h"

#include "adapters/qt/viewer/viewer_widget.h"
#include "base/failure.h"

#include <cmath>

namespace qbrpt::qt {

namespace {

int PixelsOf(std::int32_t twips) {
    return static_cast<int>(std::lround(twips / viewer::TwipsPerPixel));
}

} // namespace

ViewerPort::ViewerPort(ViewerWidget& widget) : mWidget(&widget) {}

ViewerWidget& ViewerPort::Widget() const {
    if (mWidget.isNull()) throw Failure(FailureNumber::ObjectNotSet, "The window of the viewer is closed.");
    return static_cast<ViewerWidget&>(*mWidget);
}

void ViewerPort::DoSetReportSource(const Ref<CrystalRuntime::Report>& report) {
    mReport = report;
    Widget().SetReport(report);
}

CRViewer::Shown ViewerPort::DoViewReport(bool arabic) {
    const std::int32_t pages = Widget().View(arabic);
    return {mReport->PrinterName(), pages};
}

bool ViewerPort::DoIsBusy() {
    return Widget().IsBusy();
}

void ViewerPort::DoRefresh() {
    Widget().Renew();
}

std::int32_t ViewerPort::DoGetCurrentPageNumber() {
    return Widget().Desk().CurrentPage() + 1;
}

void ViewerPort::DoShowNthPage(std::int16_t page) {
    Widget().Desk().ShowPage(page - 1);
}

void ViewerPort::DoZoom(std::int16_t level) {
    Widget().Desk().SetZoom(level);
}

void ViewerPort::DoMove(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    Widget().setGeometry(PixelsOf(left), PixelsOf(top), PixelsOf(width), PixelsOf(height));
}

} // namespace qbrpt::qt
