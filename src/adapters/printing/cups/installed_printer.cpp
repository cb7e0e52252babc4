#include "adapters/printing/cups/installed_printer.h"

#include "base/latin.h"

#include <algorithm>

namespace qbrpt {

namespace {

template <class Offer>
const Offer* Find(const std::vector<Offer>& offers, std::int16_t code) {
    const auto found =
        std::find_if(offers.begin(), offers.end(), [code](const Offer& offer) { return offer.code == code; });
    return found == offers.end() ? nullptr : &*found;
}

template <class Offer>
const Offer* FindNamed(const std::vector<Offer>& offers, std::string_view name) {
    const auto found = std::find_if(offers.begin(), offers.end(), [&](const Offer& offer) {
        return SameAnyCase(offer.name, name) || (!offer.keyword.empty() && SameAnyCase(offer.keyword, name));
    });
    return found == offers.end() ? nullptr : &*found;
}

} // namespace

const PrinterPaper* InstalledPrinter::PaperOf(std::int16_t code) const {
    return Find(papers, code);
}

const PrinterBin* InstalledPrinter::BinOf(std::int16_t code) const {
    return Find(bins, code);
}

const PrinterPaper* InstalledPrinter::PaperNamed(std::string_view name) const {
    return FindNamed(papers, name);
}

const PrinterBin* InstalledPrinter::BinNamed(std::string_view name) const {
    return FindNamed(bins, name);
}

} // namespace qbrpt
