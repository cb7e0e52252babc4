#include "adapters/export/xlsx_book.h"

#include "adapters/export/plain_text.h"
#include "base/failure.h"
#include "base/utf8.h"

#include <xlsxwriter.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string_view>

namespace qbrpt {

namespace {

constexpr std::size_t LongestSheetName = 31;
constexpr double UnixDayZero = 25'569; // 1 January 1970
constexpr double SecondsInDay = 86'400;
constexpr std::uint32_t HairColor = 0xA3ACB3;
constexpr std::uint8_t RightToLeftReading = 2;

[[noreturn]] void Refuse(const std::string& reason) {
    throw Failure(FailureNumber::Output, "The spreadsheet could not be written: " + reason);
}

std::string SheetName(const std::string& wanted, unsigned copy) {
    std::string name;
    for (const char c : PlainText(wanted))
        name += std::string_view("[]:*?/\\'\n").find(c) == std::string_view::npos ? c : ' ';
    const std::string number = copy < 2 ? "" : " " + std::to_string(copy);
    return std::string(FirstCharacters(name, LongestSheetName - number.size())) + number;
}

lxw_format_alignments AlignOf(CellLook::Align align) {
    switch (align) {
    case CellLook::Align::Centre:
        return LXW_ALIGN_CENTER;
    case CellLook::Align::Left:
        return LXW_ALIGN_LEFT;
    default:
        return LXW_ALIGN_RIGHT;
    }
}

lxw_format_borders BorderOf(CellLook::Rule rule) {
    switch (rule) {
    case CellLook::Rule::Hair:
        return LXW_BORDER_HAIR;
    case CellLook::Rule::Thin:
        return LXW_BORDER_THIN;
    case CellLook::Rule::Double:
        return LXW_BORDER_DOUBLE;
    default:
        return LXW_BORDER_NONE;
    }
}

std::uint32_t ColorOf(CellLook::Rule rule, const CellLook& look) {
    return rule == CellLook::Rule::Hair ? HairColor : look.ruleColor;
}

void Dress(lxw_format* format, const CellLook& look) {
    if (!look.numberFormat.empty()) format_set_num_format(format, look.numberFormat.c_str());
    format_set_align(format, static_cast<std::uint8_t>(AlignOf(look.align)));
    format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
    format_set_font_size(format, look.size);
    if (look.bold) format_set_bold(format);
    if (look.wrap) format_set_text_wrap(format);
    if (look.color != 0) format_set_font_color(format, look.color);
    if (look.fill != CellLook::White) format_set_bg_color(format, look.fill);
    if (look.numberFormat.empty()) format_set_reading_order(format, RightToLeftReading);
    if (look.above != CellLook::Rule::None) {
        format_set_top(format, static_cast<std::uint8_t>(BorderOf(look.above)));
        format_set_top_color(format, ColorOf(look.above, look));
    }
    if (look.below != CellLook::Rule::None) {
        format_set_bottom(format, static_cast<std::uint8_t>(BorderOf(look.below)));
        format_set_bottom_color(format, ColorOf(look.below, look));
    }
}

} // namespace

void CheckXlsx(int error) {
    if (error != LXW_NO_ERROR) Refuse(lxw_strerror(static_cast<lxw_error>(error)));
}

void XlsxBook::Free::operator()(lxw_workbook* book) const {
    lxw_workbook_free(book);
}

XlsxBook::XlsxBook(const BookFacts& facts)
    : mFile("", "The file for a spreadsheet"), mFolder(mFile.Folder()) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = mFolder.data();
    options.use_zip64 = LXW_TRUE;
    mBook.reset(workbook_new_opt(mFile.Path().c_str(), &options));
    if (!mBook) Refuse("there is no memory left.");
    std::string title = PlainText(facts.title);
    lxw_doc_properties properties{};
    properties.title = title.data();
    properties.created = static_cast<time_t>(std::llround((facts.madeAt - UnixDayZero) * SecondsInDay));
    CheckXlsx(workbook_set_properties(mBook.get(), &properties));
}

lxw_worksheet* XlsxBook::AddSheet(const std::string& name) {
    std::string free = SheetName(name, 1);
    for (unsigned copy = 2; workbook_get_worksheet_by_name(mBook.get(), free.c_str()) != nullptr; ++copy)
        free = SheetName(name, copy);
    lxw_worksheet* sheet = workbook_add_worksheet(mBook.get(), free.c_str());
    if (sheet == nullptr) Refuse("there is no room for a further sheet.");
    worksheet_right_to_left(sheet);
    return sheet;
}

std::string XlsxBook::NameOf(const lxw_worksheet& sheet) {
    return sheet.name;
}

lxw_format* XlsxBook::Format(const CellLook& look) {
    lxw_format*& format = mFormats[look];
    if (format == nullptr) {
        format = workbook_add_format(mBook.get());
        if (format == nullptr) Refuse("there is no memory left.");
        Dress(format, look);
    }
    return format;
}

/// The library writes rows without asking whether they arrived, so that is asked here; finishing copies
/// them once more before they are packed.
void XlsxBook::CheckRoom() const {
    std::uintmax_t needed = 0;
    lxw_worksheet* sheet = nullptr;
    STAILQ_FOREACH(sheet, mBook->worksheets, list_pointers) {
        if (sheet->optimize_tmpfile == nullptr) continue;
        const bool written =
            std::fflush(sheet->optimize_tmpfile) == 0 && std::ferror(sheet->optimize_tmpfile) == 0;
        const long size = std::ftell(sheet->optimize_tmpfile);
        if (!written || size < 0) Refuse("the folder \"" + mFolder + "\" (TMPDIR) is full.");
        needed += static_cast<std::uintmax_t>(size);
    }
    std::error_code unknown;
    const auto room = std::filesystem::space(mFolder, unknown);
    if (!unknown && room.available < needed + needed / 4)
        Refuse("the folder \"" + mFolder + "\" (TMPDIR) has too little room.");
}

void XlsxBook::Finish(ByteSink& sink) {
    CheckRoom();
    const lxw_error error = workbook_close(mBook.release()); // frees it, whatever happens
    CheckXlsx(error);
    mFile.CopyTo(sink);
}

} // namespace qbrpt
