#include "platform/printing.h"

namespace qbrpt {

namespace {
constexpr std::string_view PrintersPort = "Printers";
constexpr std::string_view CurrentPort = "Printer";
} // namespace

std::int32_t Printers::Count() {
    Announce(PrintersPort, "Count");
    return DoCount();
}

PrinterInfo Printers::Item(std::int32_t index) {
    Announce(PrintersPort, "Item", {std::int64_t{index}});
    return DoItem(index);
}

PrinterInfo Printers::Current() {
    Announce(CurrentPort, "Current");
    return DoCurrent();
}

std::int16_t Printers::Orientation() {
    Announce(CurrentPort, "Orientation");
    return DoCurrent().orientation;
}

void Printers::SetOrientation(std::int16_t orientation) {
    Announce(CurrentPort, "SetOrientation", {std::int64_t{orientation}});
    DoSetOrientation(orientation);
}

void Printers::SetCurrent(const std::string& deviceName) {
    Announce(CurrentPort, "SetCurrent", {deviceName});
    DoSetCurrent(deviceName);
}

void Printers::SetPaperSize(std::int16_t paperSize) {
    Announce(CurrentPort, "SetPaperSize", {std::int64_t{paperSize}});
    DoSetPaperSize(paperSize);
}

void Printers::SetPaperBin(std::int16_t paperBin) {
    Announce(CurrentPort, "SetPaperBin", {std::int64_t{paperBin}});
    DoSetPaperBin(paperBin);
}

} // namespace qbrpt
