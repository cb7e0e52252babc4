#include "preview/printer_capabilities.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "platform/platform.h"

#include <span>

namespace qbrpt {

namespace {

struct CapabilityKind {
    DeviceCapability names;
    DeviceCapability codes;
    std::size_t field;
};

constexpr CapabilityKind PapersKind{DeviceCapability::PaperNames, DeviceCapability::Papers, PaperNameField};
constexpr CapabilityKind BinsKind{DeviceCapability::BinNames, DeviceCapability::Bins, BinNameField};

/// Row `row` of the names. The position is reckoned in 16 bits, which ends long lists.
std::string FieldOf(std::u32string_view names, std::int16_t row, std::size_t field) {
    const std::int16_t position = CheckedShort(std::int64_t{row} * static_cast<std::int64_t>(field));
    const auto start = static_cast<std::size_t>(position);
    std::string text;
    if (start < names.size())
        for (const char32_t character : names.substr(start, field))
            AppendCharacter(text, character);
    return text;
}

std::int32_t GetData(const CapabilityKind& kind, const std::string& device, const std::string& port,
                     CapabilityRows& vdat) {
    const DeviceMode mode;
    const auto ask = [&](DeviceCapability capability, const CapabilityBuffer& output) {
        return Platform::Current().spooler->DeviceCapabilitiesA(device, port, capability, output, mode);
    };
    const std::int32_t nameCount = ask(kind.names, {});
    if (nameCount == 0) return 0;
    std::u32string names(static_cast<std::size_t>(nameCount) * kind.field, U' ');
    ask(kind.names, std::span<char32_t>(names));

    std::int16_t single = 0;
    const std::int32_t codeCount = ask(kind.codes, std::span<std::int16_t>(&single, 1));
    if (codeCount == 0) return 0;
    std::vector<std::int16_t> codes(static_cast<std::size_t>(codeCount));
    const std::int32_t n = ask(kind.codes, std::span<std::int16_t>(codes));
    if (n == 0) return 0;

    vdat.assign(static_cast<std::size_t>(n), {});
    const std::int16_t last = CheckedShort(std::int64_t{n} - 1);
    for (std::int16_t i = 0; i <= last; ++i) {
        CapabilityRow& row = vdat[static_cast<std::size_t>(i)];
        row.name = sTerminator(FieldOf(names, i, kind.field));
        row.code = codes.at(static_cast<std::size_t>(i));
    }
    return n;
}

/// The words that a printer's records are read into, numbered from 1.
class RecordWords {
public:
    explicit RecordWords(PrinterHandle printer) : mPrinter(printer), mWords(InitialBytes / WordBytes) {}

    void Get(std::int32_t level) {
        Platform::Current().spooler->GetPrinterA(mPrinter, level, mWords, mNeeded);
    }
    /// Whether the last record did not fit.
    [[nodiscard]] bool TooSmall() const { return mNeeded > Bytes(); }
    void Grow() {
        mWords.assign(static_cast<std::size_t>(RoundToLong(mNeeded / static_cast<double>(WordBytes))), 0);
        while (TooSmall())
            mWords.push_back(0);
    }
    [[nodiscard]] std::uint32_t Word(std::size_t number) const { return mWords[number - 1]; }
    [[nodiscard]] std::string Text(std::size_t number) const {
        if (Spooler::lstrlenA(mWords, Word(number)) == 0) return {};
        return Spooler::lstrcpyA(mWords, Word(number));
    }

private:
    static constexpr std::size_t WordBytes = sizeof(std::uint32_t);
    static constexpr std::size_t InitialBytes = 1000;

    [[nodiscard]] std::int32_t Bytes() const { return static_cast<std::int32_t>(mWords.size() * WordBytes); }

    PrinterHandle mPrinter;
    std::vector<std::uint32_t> mWords;
    std::int32_t mNeeded = 0;
};

constexpr std::size_t DescriptionWord = 2;
constexpr std::size_t CommentWord = 4;
constexpr std::size_t StatusWord = 19;

std::int32_t ReadStatus(RecordWords& words) {
    words.Get(2);
    if (words.TooSmall()) {
        words.Grow();
        words.Get(2);
    }
    return static_cast<std::int32_t>(words.Word(StatusWord));
}

/// The second of the parts between commas; the whole where there is one only.
std::string DriverIn(const std::string& description) {
    const std::size_t comma = description.find(',');
    if (comma == std::string::npos) return description;
    const std::string behind = description.substr(comma + 1);
    return behind.substr(0, behind.find(','));
}

} // namespace

std::int32_t GetPapersData(const std::string& DevName, const std::string& devPort, CapabilityRows& vdat) {
    return GetData(PapersKind, DevName, devPort, vdat);
}

std::int32_t GetBinsData(const std::string& DevName, const std::string& devPort, CapabilityRows& vdat) {
    return GetData(BinsKind, DevName, devPort, vdat);
}

std::string sTerminator(std::string_view s) {
    return std::string(s.substr(0, s.find('\0')));
}

void GetPrinterInfo(const std::string& name, std::string& driver, std::string& comment,
                    std::int32_t& status) {
    PrinterHandle handle = 0;
    Platform::Current().spooler->OpenPrinterA(name, handle);
    if (handle == 0) return;
    RecordWords words(handle);
    words.Get(1);
    if (words.TooSmall()) {
        words.Grow();
        words.Get(2); // and read as the short record all the same
    }
    driver = DriverIn(words.Text(DescriptionWord));
    comment = words.Text(CommentWord);
    status = ReadStatus(words);
    Platform::Current().spooler->ClosePrinter(handle);
}

std::int32_t PrinterStatuse(PrinterHandle hPrinter) {
    RecordWords words(hPrinter);
    return ReadStatus(words);
}

} // namespace qbrpt
