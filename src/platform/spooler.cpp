#include "platform/spooler.h"

#include "base/numbers.h"
#include "base/utf8.h"

#include <algorithm>
#include <cstring>

namespace qbrpt {

namespace {

constexpr std::string_view SpoolerPort = "Spooler";
constexpr std::size_t WordBytes = sizeof(std::uint32_t);

void FillFields(std::span<char32_t> output, const std::vector<std::string>& names, std::size_t field) {
    for (std::size_t i = 0; i < names.size() && (i + 1) * field <= output.size(); ++i) {
        std::size_t position = 0;
        for (char32_t& place : output.subspan(i * field, field))
            place = position < names[i].size() ? NextCharacter(names[i], position) : U'\0';
    }
}

/// A record as it is laid out: words, then the texts that some of them point to.
class RecordLayout {
public:
    explicit RecordLayout(std::size_t words) : mWords(words, 0) {}

    /// `word` is counted from 1.
    void Put(std::size_t word, std::uint32_t value) { mWords[word - 1] = value; }
    void PutText(std::size_t word, const std::string& text) {
        Put(word, static_cast<std::uint32_t>(mWords.size() * WordBytes + mTexts.size()));
        mTexts.append(text.c_str(), text.size() + 1);
    }

    [[nodiscard]] std::size_t Bytes() const { return mWords.size() * WordBytes + mTexts.size(); }
    void CopyTo(std::span<std::uint32_t> record) const {
        auto* bytes = reinterpret_cast<char*>(record.data());
        std::memcpy(bytes, mWords.data(), mWords.size() * WordBytes);
        std::memcpy(bytes + mWords.size() * WordBytes, mTexts.data(), mTexts.size());
    }

private:
    std::vector<std::uint32_t> mWords;
    std::string mTexts;
};

RecordLayout LayoutOf(const PrinterRecord& printer, std::int32_t level) {
    if (level == 1) {
        RecordLayout record(4);
        record.PutText(2, printer.description);
        record.PutText(3, printer.name);
        record.PutText(4, printer.comment);
        return record;
    }
    RecordLayout record(21);
    record.PutText(2, printer.name);
    record.PutText(4, printer.port);
    record.PutText(5, printer.driver);
    record.PutText(6, printer.comment);
    record.PutText(7, printer.location);
    record.Put(19, printer.status);
    record.Put(20, printer.jobs);
    return record;
}

bool AsksForNames(DeviceCapability capability) {
    return capability == DeviceCapability::PaperNames || capability == DeviceCapability::BinNames;
}

bool AsksForPapers(DeviceCapability capability) {
    return capability == DeviceCapability::PaperNames || capability == DeviceCapability::Papers;
}

} // namespace

std::int32_t Spooler::DeviceCapabilitiesA(const std::string& device, const std::string& port,
                                          DeviceCapability capability, const CapabilityBuffer& output,
                                          const DeviceMode&) {
    Announce(SpoolerPort, "DeviceCapabilitiesA", {device, port, static_cast<std::int64_t>(capability)});
    const bool papers = AsksForPapers(capability);
    const CapabilityLists lists = papers ? DoPapers(device, port) : DoBins(device, port);
    if (AsksForNames(capability)) {
        if (const auto* fields = std::get_if<std::span<char32_t>>(&output))
            FillFields(*fields, lists.names, papers ? PaperNameField : BinNameField);
        return CheckedLong(static_cast<std::int64_t>(lists.names.size()));
    }
    if (const auto* codes = std::get_if<std::span<std::int16_t>>(&output))
        std::copy_n(lists.codes.begin(), std::min(lists.codes.size(), codes->size()), codes->begin());
    return CheckedLong(static_cast<std::int64_t>(lists.codes.size()));
}

bool Spooler::OpenPrinterA(const std::string& name, PrinterHandle& handle) {
    Announce(SpoolerPort, "OpenPrinterA", {name});
    handle = DoOpenPrinter(name);
    return handle != 0;
}

bool Spooler::GetPrinterA(PrinterHandle handle, std::int32_t level, std::span<std::uint32_t> record,
                          std::int32_t& needed) {
    Announce(SpoolerPort, "GetPrinterA",
             {std::int64_t{handle}, std::int64_t{level}, static_cast<std::int64_t>(record.size_bytes())});
    needed = 0;
    const std::optional<PrinterRecord> printer = DoGetPrinter(handle);
    if (!printer) return false;
    const RecordLayout layout = LayoutOf(*printer, level);
    needed = CheckedLong(static_cast<std::int64_t>(layout.Bytes()));
    if (layout.Bytes() > record.size_bytes()) return false;
    layout.CopyTo(record);
    return true;
}

void Spooler::ClosePrinter(PrinterHandle handle) {
    Announce(SpoolerPort, "ClosePrinter", {std::int64_t{handle}});
    DoClosePrinter(handle);
}

std::size_t Spooler::lstrlenA(std::span<const std::uint32_t> record, std::uint32_t text) {
    return lstrcpyA(record, text).size();
}

std::string Spooler::lstrcpyA(std::span<const std::uint32_t> record, std::uint32_t text) {
    const std::string_view bytes(reinterpret_cast<const char*>(record.data()), record.size_bytes());
    if (text == 0 || text >= bytes.size()) return {};
    const std::string_view behind = bytes.substr(text);
    return std::string(behind.substr(0, behind.find('\0')));
}

} // namespace qbrpt
