#include "preview/print_dialog_tables.h"

#include "platform/form_rows.h"

#include <array>
#include <limits>

namespace qbrpt {

namespace {

using namespace rows;
using Kind = ControlKind;

/// A box for a number.
constexpr ControlRow Digits(std::string_view name, std::string_view parent, std::string_view text,
                            GridCell cell, std::int16_t tabIndex) {
    constexpr std::int16_t digits = 5;
    ControlRow row = Field(Kind::TextBox, name, parent, cell, tabIndex);
    row.text = text;
    row.centred = true;
    row.widthInDigits = digits;
    return row;
}
constexpr ControlRow Locked(ControlRow row) {
    row.locked = true;
    return row;
}
constexpr ControlRow Limited(ControlRow row, std::int16_t minimum, std::int16_t maximum) {
    row.minimum = minimum;
    row.maximum = maximum;
    return row;
}
constexpr ControlRow Sheet(std::string_view name, std::string_view picture, ControlPlace place) {
    return {.kind = Kind::PictureBox,
            .name = name,
            .parent = "Frame3",
            .place = place,
            .picture = picture,
            .hidden = true};
}

constexpr std::array PrintOptions = {
    Words(Kind::Label, "Label1(0)", "", "الطابعة", {.row = 0}, 5),
    Locked(Field(Kind::TextBox, "prName", "", {.row = 0, .column = 1, .columns = 3}, 9)),
    Words(Kind::CommandButton, "cmdPrntSetup", "", "إ&عداد الطابعة", {.row = 0, .column = 4}, 4),

    Words(Kind::Frame, "Frame1", "", "نطاق الطباعة", {.row = 1, .columns = 5}, 10),
    Words(Kind::Label, "Label1(1)", "Frame1", "من الصفحة", {.row = 0}, 6),
    Digits("printFrom", "Frame1", "1", {.row = 0, .column = 1}, 0),
    Words(Kind::Label, "Label1(2)", "Frame1", "إلى ", {.row = 0, .column = 2}, 7),
    Digits("printTo", "Frame1", "", {.row = 0, .column = 3, .stretch = true}, 1),
    Words(Kind::CheckBox, "printAllChk", "Frame1", "طباعة الكل", {.row = 0, .column = 4}, 2),

    Words(Kind::Label, "Label2", "", "عدد النسخ", {.row = 2}, 8),
    Digits("copyCount", "", "1", {.row = 2, .column = 1}, 3),
    Limited(Field(Kind::VScrollBar, "VScroll1", "", {.row = 2, .column = 2}, 11), 1,
            std::numeric_limits<std::int16_t>::max()),

    Default(Words(Kind::CommandButton, "cmdOk", "", "موافق", {.row = 3, .column = 3, .stretch = true}, 12)),
    Cancels(Words(Kind::CommandButton, "Cancel", "", "إلغاء الأمر", {.row = 3, .column = 4}, 13)),
};

// The painted sheet stands where the hidden picture of its direction lies.
constexpr ControlPlace UprightPlace = {.left = 570, .top = 420, .width = 390, .height = 480};
constexpr ControlPlace TurnedPlace = {.left = 533, .top = 488, .width = 465, .height = 345};

constexpr ControlRow PaintedSheet() {
    return {.kind = Kind::PictureBox, .name = "PicDrw", .parent = "Frame3", .place = UprightPlace};
}

constexpr std::array PrinterSetup = {
    Words(Kind::Frame, "Frame1", "", "الطابعة", {.row = 0, .columns = 3}, 7),
    Words(Kind::Label, "Label1", "Frame1", "الاسم", {.row = 0}, 8),
    Field(Kind::ComboBox, "comboPrinter", "Frame1", {.row = 0, .column = 1, .stretch = true}, 0),
    Words(Kind::Label, "Label2(0)", "Frame1", "النوع", {.row = 1}, 9),
    Words(Kind::Label, "driveLable", "Frame1", "", {.row = 1, .column = 1, .stretch = true}, 10),
    Words(Kind::Label, "Label2(1)", "Frame1", "المنفذ", {.row = 2}, 11),
    Words(Kind::Label, "portLab", "Frame1", "", {.row = 2, .column = 1, .stretch = true}, 12),
    Words(Kind::Label, "Label2(2)", "Frame1", "تعليق", {.row = 3}, 13),
    Words(Kind::Label, "labCommet", "Frame1", "", {.row = 3, .column = 1, .stretch = true}, 14),

    Words(Kind::Frame, "Frame2", "", "الورق", {.row = 1, .stretch = true}, 15),
    Words(Kind::Label, "Label3(0)", "Frame2", "الحجم", {.row = 0}, 16),
    Field(Kind::ComboBox, "comboPaper", "Frame2", {.row = 0, .column = 1, .stretch = true}, 1),
    Words(Kind::Label, "Label3(1)", "Frame2", "المصدر", {.row = 1}, 17),
    Field(Kind::ComboBox, "comboSource", "Frame2", {.row = 1, .column = 1, .stretch = true}, 2),

    Words(Kind::Frame, "Frame3", "", "اتجاه الطباعة", {.row = 1, .column = 1, .columns = 2}, 18),
    OnAtFirst(Words(Kind::OptionButton, "OrignOpt(0)", "Frame3", "عمودي", {.row = 0}, 3)),
    Words(Kind::OptionButton, "OrignOpt(1)", "Frame3", "أفقي", {.row = 1}, 4),
    Sheet("Pic2", "sheet-portrait", UprightPlace),
    Sheet("Pic1", "sheet-landscape", TurnedPlace),
    PaintedSheet(),

    Default(Words(Kind::CommandButton, "cmdOk", "", "موافق", {.row = 2, .column = 1}, 5)),
    Cancels(Words(Kind::CommandButton, "Cancel", "", "إلغاء الأمر", {.row = 2, .column = 2}, 6)),
};

} // namespace

const FormTable& PrintOptionsTable() {
    static constexpr FormTable table = {.name = "frmPrint",
                                        .caption = "طباعة",
                                        .clientWidth = 6405,
                                        .clientHeight = 3255,
                                        .controls = PrintOptions,
                                        .designedRightToLeft = true,
                                        .isDialog = true};
    return table;
}

const FormTable& PrinterSetupTable() {
    static constexpr FormTable table = {.name = "frmPrinterSetup",
                                        .caption = "إعداد الطابعة",
                                        .clientWidth = 6615,
                                        .clientHeight = 4290,
                                        .controls = PrinterSetup,
                                        .designedRightToLeft = true,
                                        .isDialog = true};
    return table;
}

} // namespace qbrpt
