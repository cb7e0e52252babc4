#include "adapters/printing/cups/listed_printer.h"

#include "adapters/printing/cups/offers.h"
#include "base/latin.h"
#include "base/paper.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::cups {

namespace {

constexpr int MediaFlags = CUPS_MEDIA_FLAGS_DEFAULT;

std::string OptionOf(const cups_dest_t* printer, const char* name) {
    const char* value = ::cupsGetOption(name, printer->num_options, printer->options);
    return value == nullptr ? std::string{} : std::string{value};
}

/// All keywords of a list.
std::vector<std::string> Keywords(ipp_attribute_t* attribute) {
    std::vector<std::string> keywords;
    for (int i = 0; i < ::ippGetCount(attribute); ++i)
        if (const char* keyword = ::ippGetString(attribute, i, nullptr)) keywords.emplace_back(keyword);
    return keywords;
}

/// One printer as it is being asked.
class Asked {
public:
    Asked(http_t* connection, cups_dest_t* printer)
        : mConnection(connection), mPrinter(printer), mInfo(::cupsCopyDestInfo(connection, printer)) {}

    [[nodiscard]] bool Answers() const { return mInfo != nullptr; }

    [[nodiscard]] ipp_attribute_t* Supported(const char* name) const {
        return ::cupsFindDestSupported(mConnection, mPrinter, mInfo.get(), name);
    }
    [[nodiscard]] ipp_attribute_t* Default(const char* name) const {
        return ::cupsFindDestDefault(mConnection, mPrinter, mInfo.get(), name);
    }
    [[nodiscard]] std::vector<ListedMedia> Media() const {
        std::vector<ListedMedia> media;
        const int count = ::cupsGetDestMediaCount(mConnection, mPrinter, mInfo.get(), MediaFlags);
        for (int i = 0; i < count; ++i) {
            cups_size_t size{};
            if (::cupsGetDestMediaByIndex(mConnection, mPrinter, mInfo.get(), i, MediaFlags, &size) == 0)
                continue;
            const std::string_view keyword = size.media;
            // The bounds of what may be cut from a roll are no papers.
            if (keyword.starts_with("custom_min") || keyword.starts_with("custom_max")) continue;
            media.push_back({size.media, size.width, size.length});
        }
        return media;
    }

private:
    http_t* mConnection;
    cups_dest_t* mPrinter;
    DestInfo mInfo;
};

std::string FirstKeyword(ipp_attribute_t* attribute) {
    const std::vector<std::string> keywords = Keywords(attribute);
    return keywords.empty() ? std::string{} : keywords.front();
}

/// The default paper's keyword: the user's own choice before the printer's.
std::string DefaultMedia(const cups_dest_t* printer, const Asked& asked) {
    for (const char* option : {"media", "PageSize"}) {
        const std::string chosen = OptionOf(printer, option);
        if (!chosen.empty()) return chosen.substr(0, chosen.find(','));
    }
    return FirstKeyword(asked.Default("media"));
}

/// Letters and digits alone, small ones: "Tray2" and "tray-2" are one tray.
std::string Bare(std::string_view word) {
    std::string bare;
    for (const char c : word)
        if (c != '-' && c != '_' && c != ' ') bare += SmallLatin(c);
    return bare;
}

/// Trays that the spooler calls by another word than drivers do; by how a driver's word begins.
struct RenamedTray {
    std::string_view slot;
    std::string_view keyword;
};
constexpr auto RenamedTrays = std::to_array<RenamedTray>({
    {"auto", "auto"},
    {"default", "auto"},
    {"cassette", "main"},
    {"phototray", "photo"},
    {"cdtray", "disc"},
    {"multipurpose", "by-pass-tray"},
    {"mp", "by-pass-tray"},
    {"lower", "bottom"},
    {"middle", "middle"},
    {"upper", "top"},
    {"side", "side"},
    {"roll", "main-roll"},
});

/// The keyword of the tray that a user calls `word`, by its driver's name or the spooler's; empty where the
/// printer has no such tray.
std::string TrayCalled(const std::vector<PrinterBin>& bins, const std::string& word) {
    const std::string bare = Bare(word);
    for (const PrinterBin& bin : bins)
        if (Bare(bin.keyword) == bare) return bin.keyword;
    for (const RenamedTray& renamed : RenamedTrays)
        for (const PrinterBin& bin : bins)
            if (bare.starts_with(renamed.slot) && bin.keyword == renamed.keyword) return bin.keyword;
    return {};
}

/// The default tray's keyword: the user's own choice before the printer's.
std::string DefaultTray(const cups_dest_t* printer, const Asked& asked, const std::vector<PrinterBin>& bins) {
    for (const char* option : {"media-source", "InputSlot"})
        if (std::string chosen = TrayCalled(bins, OptionOf(printer, option)); !chosen.empty()) return chosen;
    if (ipp_attribute_t* media = asked.Default("media-col");
        ::ippGetValueTag(media) == IPP_TAG_BEGIN_COLLECTION) {
        ipp_t* values = ::ippGetCollection(media, 0);
        const std::string tray = FirstKeyword(::ippFindAttribute(values, "media-source", IPP_TAG_ZERO));
        if (!tray.empty()) return tray;
    }
    return FirstKeyword(asked.Default("media-source"));
}

std::int16_t CodeOfMedia(const InstalledPrinter& printer, const std::string& keyword) {
    for (const PrinterPaper& paper : printer.papers)
        if (paper.keyword == keyword) return paper.code;
    const pwg_media_t* size = ::pwgMediaForPWG(keyword.c_str());
    if (size == nullptr) size = ::pwgMediaForPPD(keyword.c_str());
    if (size != nullptr) {
        const std::vector<PrinterPaper> known = PapersOf({{keyword, size->width, size->length}});
        if (!known.empty() && printer.PaperOf(known.front().code) != nullptr) return known.front().code;
    }
    if (printer.papers.empty() || printer.PaperOf(PaperA4) != nullptr) return PaperA4;
    return printer.papers.front().code;
}

std::int16_t CodeOfTray(const InstalledPrinter& printer, const std::string& keyword) {
    for (const PrinterBin& bin : printer.bins)
        if (bin.keyword == keyword) return bin.code;
    if (printer.bins.empty() || printer.BinOf(AutomaticBin) != nullptr) return AutomaticBin;
    return printer.bins.front().code;
}

std::uint32_t StatusOf(const cups_dest_t* printer) {
    struct Reason {
        std::string_view word;
        std::uint32_t bit;
    };
    constexpr Reason reasons[] = {
        {"paused", PrinterStatus::Paused},        {"media-jam", PrinterStatus::PaperJam},
        {"media-empty", PrinterStatus::PaperOut}, {"media-needed", PrinterStatus::PaperOut},
        {"offline", PrinterStatus::Offline},      {"output-area-full", PrinterStatus::OutputFull},
        {"toner-low", PrinterStatus::TonerLow},   {"marker-supply-low", PrinterStatus::TonerLow},
        {"toner-empty", PrinterStatus::NoToner},  {"marker-supply-empty", PrinterStatus::NoToner},
        {"cover-open", PrinterStatus::DoorOpen},  {"door-open", PrinterStatus::DoorOpen},
        {"-error", PrinterStatus::Error},
    };
    std::uint32_t status = 0;
    const std::string told = OptionOf(printer, "printer-state-reasons");
    for (const Reason& reason : reasons)
        if (told.find(reason.word) != std::string::npos) status |= reason.bit;
    const int state = std::atoi(OptionOf(printer, "printer-state").c_str());
    if (state == IPP_PSTATE_PROCESSING) status |= PrinterStatus::Printing;
    if (state == IPP_PSTATE_STOPPED) status |= PrinterStatus::Paused;
    if (OptionOf(printer, "printer-is-accepting-jobs") == "false") status |= PrinterStatus::NotAvailable;
    return status;
}

bool IsTurned(const std::string& orientation) {
    return orientation == "4" || orientation == "5" || orientation == "landscape";
}

} // namespace

InstalledPrinter Listed(const cups_dest_t* printer) {
    InstalledPrinter listed;
    listed.info.deviceName = printer->name;
    listed.info.driverName = OptionOf(printer, "printer-make-and-model");
    listed.info.port = OptionOf(printer, "device-uri");
    listed.place = OptionOf(printer, "printer-location");
    listed.comment = OptionOf(printer, "printer-info");
    listed.status = StatusOf(printer);
    listed.isDefault = printer->is_default != 0;
    for (int i = 0; i < printer->num_options; ++i)
        listed.destination.emplace_back(printer->options[i].name, printer->options[i].value);
    return listed;
}

bool Complete(InstalledPrinter& listed, http_t* connection, cups_dest_t* printer) {
    const Asked asked(connection, printer);
    if (!asked.Answers()) return false;
    listed.papers = PapersOf(asked.Media());
    // A queue without a driver knows of no papers, and hands on whatever it gets.
    if (listed.papers.empty()) listed.papers = UsualPapers();
    listed.bins = BinsOf(Keywords(asked.Supported("media-source")));
    const std::vector<std::string> sides = Keywords(asked.Supported("sides"));
    listed.twoSided = std::find(sides.begin(), sides.end(), "two-sided-long-edge") != sides.end();
    listed.info.paperSize = CodeOfMedia(listed, DefaultMedia(printer, asked));
    listed.info.paperBin = CodeOfTray(listed, DefaultTray(printer, asked, listed.bins));
    std::string orientation = OptionOf(printer, "orientation-requested");
    if (ipp_attribute_t* own = asked.Default("orientation-requested"); orientation.empty() && own != nullptr)
        orientation = std::to_string(::ippGetInteger(own, 0));
    if (IsTurned(orientation)) listed.info.orientation = OrientationLandscape;
    return true;
}

} // namespace qbrpt::cups
