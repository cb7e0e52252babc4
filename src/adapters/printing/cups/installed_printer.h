// A printer of this machine with all that it offers.
#pragma once

#include "platform/printing.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qbrpt {

/// A paper that a printer takes; its size in hundredths of a millimetre, upright, as the printer tells it.
struct PrinterPaper {
    std::int16_t code = 0;
    std::string name;
    std::string keyword; ///< the spooler's word for it
    int width = 0;
    int height = 0;
};

/// A tray that a printer takes paper from.
struct PrinterBin {
    std::int16_t code = 0;
    std::string name;
    std::string keyword;
};

/// Bits of the status word.
namespace PrinterStatus {
constexpr std::uint32_t Paused = 0x1;
constexpr std::uint32_t Error = 0x2;
constexpr std::uint32_t PaperJam = 0x8;
constexpr std::uint32_t PaperOut = 0x10;
constexpr std::uint32_t Offline = 0x80;
constexpr std::uint32_t Printing = 0x400;
constexpr std::uint32_t OutputFull = 0x800;
constexpr std::uint32_t NotAvailable = 0x1000;
constexpr std::uint32_t TonerLow = 0x20000;
constexpr std::uint32_t NoToner = 0x40000;
constexpr std::uint32_t DoorOpen = 0x400000;
} // namespace PrinterStatus

struct InstalledPrinter {
    PrinterInfo info;
    std::string place;
    std::string comment;
    std::uint32_t status = 0;
    std::vector<PrinterPaper> papers;
    std::vector<PrinterBin> bins;
    bool twoSided = false; ///< prints on both sides
    bool isDefault = false;
    /// How the spooler finds it; empty for the PDF printer.
    std::vector<std::pair<std::string, std::string>> destination;

    [[nodiscard]] const PrinterPaper* PaperOf(std::int16_t code) const;
    [[nodiscard]] const PrinterBin* BinOf(std::int16_t code) const;
    /// By its name or the spooler's word, capital letters or not.
    [[nodiscard]] const PrinterPaper* PaperNamed(std::string_view name) const;
    [[nodiscard]] const PrinterBin* BinNamed(std::string_view name) const;
};

/// What asking the spooler has brought.
struct PrinterListing {
    std::vector<InstalledPrinter> printers;
    std::string trouble;   ///< why there are none, or not all; empty where all went well
    bool hung = false;     ///< the spooler was waited for in vain
    bool underWay = false; ///< it may answer yet: nothing is known so far
};

/// No longer than this is the spooler waited for when it is asked what printers there are.
constexpr std::chrono::milliseconds ListingPatience{2000};

} // namespace qbrpt
