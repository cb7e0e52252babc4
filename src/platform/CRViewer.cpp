#include "platform/CRViewer.h"

namespace qbrpt {

namespace {

constexpr std::string_view PortName = "CRViewer";

} // namespace

void CRViewer::SetReportSource(const Ref<CrystalRuntime::Report>& report) {
    Announce(PortName, "SetReportSource");
    DoSetReportSource(report);
}

void CRViewer::ViewReport(bool arabic) {
    Announce(PortName, "ViewReport", {arabic});
    const Shown shown = DoViewReport(arabic);
    Answer(PortName, "ViewReport", {arabic, shown.printer}, Number(shown.pages));
}

bool CRViewer::IsBusy() {
    Announce(PortName, "IsBusy");
    return DoIsBusy();
}

void CRViewer::Refresh() {
    Announce(PortName, "Refresh");
    DoRefresh();
}

std::int32_t CRViewer::GetCurrentPageNumber() {
    Announce(PortName, "GetCurrentPageNumber");
    return DoGetCurrentPageNumber();
}

void CRViewer::ShowNthPage(std::int16_t page) {
    Announce(PortName, "ShowNthPage", {Number(page)});
    DoShowNthPage(page);
}

void CRViewer::Zoom(std::int16_t level) {
    Announce(PortName, "Zoom", {Number(level)});
    DoZoom(level);
}

void CRViewer::Move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    Announce(PortName, "Move", {Number(left), Number(top), Number(width), Number(height)});
    DoMove(left, top, width, height);
}

} // namespace qbrpt
