// The spooler's own questions about a printer, in fixed fields and records.
#pragma once

#include "platform/port.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace qbrpt {

/// An open printer; 0 is none.
using PrinterHandle = std::uint32_t;

/// What DeviceCapabilitiesA can be asked for.
enum class DeviceCapability : std::int16_t { Papers = 2, Bins = 6, BinNames = 12, PaperNames = 16 };

/// Characters of a name's field; a shorter name is padded with NULs, a longer one cut.
constexpr std::size_t PaperNameField = 64;
constexpr std::size_t BinNameField = 24;

/// The settings record that goes with each capability call, in its short form.
struct DeviceMode {
    std::array<std::uint8_t, 124> bytes{};
};

/// Where an answer goes: nowhere, where only the count is wanted; into fields of names; into codes.
using CapabilityBuffer = std::variant<std::monostate, std::span<char32_t>, std::span<std::int16_t>>;

/// What a printer offers of one kind. Names and codes are lists of their own, and need not be of one length.
struct CapabilityLists {
    std::vector<std::string> names;
    std::vector<std::int16_t> codes;
};

/// What the spooler keeps of a printer, whatever record it is told in.
struct PrinterRecord {
    std::string description; ///< name, driver and place, comma-separated
    std::string name;
    std::string port;
    std::string driver;
    std::string comment;
    std::string location;
    std::uint32_t status = 0;
    std::uint32_t jobs = 0;
};

/// The adapter tells lists and records; the fields and words that they fill are laid out here. Texts are
/// UTF-8, but for the fields of names. Nothing here fails: a count or a handle of 0 says that there is
/// nothing.
class Spooler : public Port {
public:
    /// The number of names or codes that `device` has; fills as much of `output` as it holds.
    std::int32_t DeviceCapabilitiesA(const std::string& device, const std::string& port,
                                     DeviceCapability capability, const CapabilityBuffer& output,
                                     const DeviceMode& mode);

    bool OpenPrinterA(const std::string& name, PrinterHandle& handle);
    /// Fills `record` with the record of `level` (1 or 2), its texts behind its words; a text is told by its
    /// place in the record, in bytes, 0 for none. False, and nothing is filled, where `record` is too small;
    /// `needed` is the bytes that it takes.
    bool GetPrinterA(PrinterHandle handle, std::int32_t level, std::span<std::uint32_t> record,
                     std::int32_t& needed);
    void ClosePrinter(PrinterHandle handle);

    /// Bytes of the text at `text` of a record; 0 where there is none.
    [[nodiscard]] static std::size_t lstrlenA(std::span<const std::uint32_t> record, std::uint32_t text);
    [[nodiscard]] static std::string lstrcpyA(std::span<const std::uint32_t> record, std::uint32_t text);

private:
    virtual CapabilityLists DoPapers(const std::string& device, const std::string& port) = 0;
    virtual CapabilityLists DoBins(const std::string& device, const std::string& port) = 0;
    virtual PrinterHandle DoOpenPrinter(const std::string& name) = 0;
    virtual std::optional<PrinterRecord> DoGetPrinter(PrinterHandle handle) = 0;
    virtual void DoClosePrinter(PrinterHandle handle) = 0;
};

} // namespace qbrpt
