// The report runtime: report objects on layouts, laid out by the engine, written as PDF and tables.
#pragma once

#include "adapters/layout/library.h"
#include "adapters/output/report_output.h"
#include "platform/CrystalRuntime.h"
#include "report/text_port.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt {

namespace text {
class FontBook;
class TextEngine;
} // namespace text

/// What the runtime stands on.
struct RuntimeServices {
    std::shared_ptr<report::TextPort> text;
    /// The faces behind `text`, for PDF files; without them a report can be counted but not written.
    std::shared_ptr<const text::FontBook> fonts;
    /// Characters that no face has, those met since the last call; may be empty.
    std::function<std::vector<std::string>()> missingGlyphs;
    /// Takes a warning for the user; empty: standard error.
    std::function<void(const std::string&)> warn;
    std::shared_ptr<Delivery> delivery;
    /// The printers that reports are bound to; without them papers have their usual sizes only.
    std::shared_ptr<PrinterFacts> printers;
    layout::Library layouts = layout::Library::FromEnvironment();
};

/// The services of a process: shaping and faces of one text engine, and a way to paper.
[[nodiscard]] RuntimeServices ServicesOf(std::shared_ptr<text::TextEngine> engine,
                                         std::shared_ptr<Delivery> delivery);

/// Reports of this runtime are ReportOutputs too (see OutputOf).
[[nodiscard]] Ref<CrystalRuntime::Runtime> MakeRuntime(RuntimeServices services);

} // namespace qbrpt
