// A spreadsheet file while it is written.
#pragma once

#include "adapters/files/spill_file.h"
#include "base/byte_sink.h"

#include <compare>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace qbrpt {

/// How a cell looks. Equal looks share one format of the file.
struct CellLook {
    std::string numberFormat{};
    enum class Align : std::uint8_t { Right, Centre, Left } align = Align::Right;
    enum class Rule : std::uint8_t { None, Hair, Thin, Double } above = Rule::None, below = Rule::None;
    std::uint32_t color = 0;
    std::uint32_t ruleColor = 0; ///< of rules that are no hairlines
    std::uint32_t fill = White;
    double size = 11; ///< points
    bool bold = false;
    bool wrap = false;
    auto operator<=>(const CellLook&) const = default;

    static constexpr std::uint32_t White = 0xFFFFFF;
};

/// What the file says about itself.
struct BookFacts {
    std::string title;
    double madeAt = 0; ///< day number
};

/// Collects sheets in files without names; rows of a sheet come from its top to its bottom.
class XlsxBook {
public:
    explicit XlsxBook(const BookFacts& facts);

    /// A sheet that reads from right to left. A name that is taken gets a number.
    [[nodiscard]] lxw_worksheet* AddSheet(const std::string& name);
    [[nodiscard]] static std::string NameOf(const lxw_worksheet& sheet);
    [[nodiscard]] lxw_format* Format(const CellLook& look);

    /// Writes the file to `sink`; nothing can be added after that. Raises FailureNumber::Output.
    void Finish(ByteSink& sink);

private:
    struct Free {
        void operator()(lxw_workbook* book) const;
    };

    void CheckRoom() const;

    SpillFile mFile;
    std::string mFolder;
    std::unique_ptr<lxw_workbook, Free> mBook;
    std::map<CellLook, lxw_format*> mFormats;
};

/// Raises FailureNumber::Output unless `error` is LXW_NO_ERROR.
void CheckXlsx(int error);

} // namespace qbrpt
