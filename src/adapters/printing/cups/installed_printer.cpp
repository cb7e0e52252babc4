#include "adapters/printing/cups/installed_printer.h"

#include <algorithm>

namespace qbrpt {

namespace {

template <class Offer>
const Offer* Find(const std::vector<Offer>& offers, std::int16_t code) {
    const auto found =
        std::find_if(offers.begin(), offers.end(), [code](const Offer& offer) { return offer.code == code; });
    return found == offers.end() ? nullptr : &*found;
}

} // namespace

const PrinterPaper* InstalledPrinter::PaperOf(std::int16_t code) const {
    return Find(papers, code);
}

const PrinterBin* InstalledPrinter::BinOf(std::int16_t code) const {
    return Find(bins, code);
}

} // namespace qbrpt
