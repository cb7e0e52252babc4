// A finished report seen from outside: its pages as PDF, its rows as tables.
#pragma once

#include "adapters/output/printer_facts.h"
#include "base/byte_sink.h"
#include "base/ref.h"
#include "platform/CrystalRuntime.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qbrpt {

/// Pages to make, counted from 1, both included; nothing stands for the first and the last page.
struct PageRange {
    std::optional<std::int32_t> first;
    std::optional<std::int32_t> last;
};

/// Called now and then with the pages done; may raise Failure Cancelled.
using PageProgress = std::function<void(std::size_t done, std::size_t all)>;

/// Called now and then with the rows done; may raise Failure Cancelled.
using TableProgress = std::function<void(std::size_t done, std::size_t all)>;

enum class TableKind : std::uint8_t {
    Csv,  ///< the bound rows: UTF-8 with byte order mark, a header line of the field names
    Xlsx, ///< a spreadsheet with the layout's captions, groups and totals
    Html  ///< the same as one web page
};

/// The report runtime's reports can be written out.
class ReportOutput {
public:
    virtual ~ReportOutput() = default;
    [[nodiscard]] virtual std::string Title() = 0;
    [[nodiscard]] virtual std::int32_t PageCount() = 0;
    /// The printer that SelectPrinter named; empty before that.
    [[nodiscard]] virtual std::string Device() = 0;
    virtual void WritePdf(ByteSink& sink, const PageRange& range, const PageProgress& progress) = 0;
    /// The rows as a table; `progress` is called with the rows done.
    virtual void WriteTable(TableKind kind, ByteSink& sink, const TableProgress& progress) = 0;
    /// The names of the reports inside, whose rows a CSV table of the report itself leaves out.
    [[nodiscard]] virtual std::vector<std::string> Subreports() { return {}; }
    /// The rows of one of them as a CSV table; the head alone where it has none.
    virtual void WriteSubreport(const std::string& name, ByteSink& sink, const TableProgress& progress);
};

/// The output side of a report; a report that has none is a Failure.
[[nodiscard]] ReportOutput& OutputOf(const Ref<CrystalRuntime::Report>& report);

/// What PrintOut asks of the printer.
struct PrintJob {
    std::string device;
    std::string application; ///< the name that jobs bear before the title; empty where none was given
    std::string title;
    std::int16_t paperSize = 9;
    std::int16_t orientation = 1;
    std::optional<std::int16_t> bin; ///< nothing: as the printer chooses
    Sides sides = Sides::AsThePrinterHas;
    std::int32_t copies = 1;
    PageRange pages;
};

/// Takes a report to paper. The default hands the PDF to the printer of the job; a command-line host
/// writes files in its place.
class Delivery {
public:
    virtual ~Delivery() = default;
    virtual void Print(ReportOutput& report, const PrintJob& job) = 0;
};

} // namespace qbrpt
