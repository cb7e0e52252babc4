// The printer collection and the printer object of the process.
#pragma once

#include "platform/port.h"

#include <cstdint>
#include <string>

namespace qbrpt {

constexpr std::int16_t OrientationPortrait = 1;
constexpr std::int16_t OrientationLandscape = 2;

/// A printer as the collection lists it. Paper and bin are the usual numbers (A4 = 9).
struct PrinterInfo {
    std::string deviceName;
    std::string driverName;
    std::string port; ///< the folder of the PDF file printer; the spooler's name of the device for others
    std::int16_t orientation = OrientationPortrait;
    std::int16_t paperSize = 9;
    std::int16_t paperBin = 7;
    std::int32_t width = 11906; ///< width of the sheet as it is turned, in twips
};

/// The printer collection, and the one current printer of the process: the only place that holds the
/// choice of printer and paper. It begins as the system's default printer and ends with the process.
class Printers : public Port {
public:
    [[nodiscard]] std::int32_t Count();
    /// Printer `index`, counted from 0.
    [[nodiscard]] PrinterInfo Item(std::int32_t index);

    /// The current printer. With no printer at all, reading it is a failure.
    [[nodiscard]] PrinterInfo Current();
    [[nodiscard]] std::int16_t Orientation();
    void SetOrientation(std::int16_t orientation);
    /// Makes the printer of this name the current one, with its own defaults.
    void SetCurrent(const std::string& deviceName);
    void SetPaperSize(std::int16_t paperSize);
    void SetPaperBin(std::int16_t paperBin);

private:
    virtual std::int32_t DoCount() = 0;
    virtual PrinterInfo DoItem(std::int32_t index) = 0;
    virtual PrinterInfo DoCurrent() = 0;
    virtual void DoSetOrientation(std::int16_t orientation) = 0;
    virtual void DoSetCurrent(const std::string& deviceName) = 0;
    virtual void DoSetPaperSize(std::int16_t paperSize) = 0;
    virtual void DoSetPaperBin(std::int16_t paperBin) = 0;
};

} // namespace qbrpt
