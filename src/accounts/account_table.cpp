#include "accounts/account_table.h"

#include "platform/form_rows.h"

#include <array>

namespace qbrpt {

namespace {

using namespace rows;
using Kind = ControlKind;

// All panels have one size, which the window moves into the tab strip.
constexpr ControlPlace PanelPlace = {.left = 0, .top = 0, .width = 8280, .height = 4740};
constexpr std::string_view Definitions = "TabPic(0)";
constexpr std::string_view NewEntry = "TabPic(1)";
constexpr std::string_view Reports = "TabPic(2)";
constexpr std::int16_t AmountDigits = 14;

constexpr ControlRow Tab(std::string_view caption, std::int16_t image) {
    return {.kind = Kind::Tab, .parent = "TabStrip1", .caption = caption, .image = image};
}
constexpr ControlRow Panel(std::string_view name) {
    return {.kind = Kind::PictureBox, .name = name, .place = PanelPlace, .hidden = true};
}
constexpr ControlRow Column(std::string_view caption) {
    return {.kind = Kind::ListColumn, .parent = "AccList", .caption = caption};
}
constexpr ControlRow Amount(std::string_view name, GridCell cell, std::int16_t tabIndex, bool locked) {
    ControlRow row = Field(Kind::TextBox, name, NewEntry, cell, tabIndex);
    row.widthInDigits = AmountDigits;
    row.locked = locked;
    return row;
}
constexpr ControlRow Lines(std::string_view name, GridCell cell, std::int16_t tabIndex) {
    ControlRow row = Field(Kind::TextBox, name, NewEntry, cell, tabIndex);
    row.multiLine = true;
    return row;
}
// The period's pickers show the month behind the hour, as they always have.
constexpr std::string_view EntryFormat = "dd/MM/yyyy hh:mmtt";
constexpr std::string_view PeriodFormat = "dd/MM/yyyy hh:MMtt";

constexpr std::array Controls = {
    Field(Kind::TabStrip, "TabStrip1", "", {.row = 0, .stretch = true}, 0),
    Tab("تعريف الحسابات", 1),
    Tab("إدراج قيد جديد", 2),
    Tab("تقارير البيانات", 3),

    Panel(Definitions),
    Field(Kind::ListView, "AccList", Definitions, {.row = 0, .columns = 4, .stretch = true}, 1),
    Column("تعريف الحساب"),
    Column("موجودات الحساب"),
    Words(Kind::Label, "Label1", Definitions, "تعريف الحساب", {.row = 1}),
    Field(Kind::TextBox, "txtAccount", Definitions, {.row = 1, .column = 1, .stretch = true}, 2),
    Words(Kind::CommandButton, "cmdAdd", Definitions, "إضافة", {.row = 1, .column = 2}, 3),
    Words(Kind::CommandButton, "cmdUpdate", Definitions, "تعديل", {.row = 1, .column = 3}, 4),

    Panel(NewEntry),
    Words(Kind::Label, "Label2", NewEntry, "من حساب", {.row = 0}),
    Field(Kind::ComboBox, "comboFrom", NewEntry, {.row = 0, .column = 1, .stretch = true}, 5),
    Words(Kind::Label, "Label3", NewEntry, "الرصيد", {.row = 0, .column = 2}),
    Amount("txtTotal", {.row = 0, .column = 3}, 6, true),
    Words(Kind::Label, "Label4", NewEntry, "إلى حساب", {.row = 1}),
    Field(Kind::ComboBox, "comboTo", NewEntry, {.row = 1, .column = 1, .stretch = true}, 7),
    Words(Kind::Label, "Label5", NewEntry, "المبلغ", {.row = 1, .column = 2}),
    Amount("txtAmount", {.row = 1, .column = 3}, 8, false),
    Words(Kind::Label, "Label6", NewEntry, "التاريخ", {.row = 2}),
    Picker("rDate", NewEntry, EntryFormat, {.row = 2, .column = 1}, 9),
    Words(Kind::Label, "Label7", NewEntry, "البيان", {.row = 3}),
    Lines("txtDescrip", {.row = 3, .column = 1, .columns = 3, .stretch = true}, 10),
    Words(Kind::CommandButton, "cmdAddReg", NewEntry, "إضافة", {.row = 4, .column = 3}, 11),

    Panel(Reports),
    Words(Kind::Frame, "Frame1", Reports, "محتويات التقرير", {.row = 0, .stretch = true}),
    OnAtFirst(
        Words(Kind::OptionButton, "rptOpt(0)", "Frame1", "كل حركات القيود", {.row = 0, .columns = 2}, 12)),
    Words(Kind::OptionButton, "rptOpt(1)", "Frame1", "فقط الخاصة بحساب", {.row = 1}, 13),
    Field(Kind::ComboBox, "comboAcc", "Frame1", {.row = 1, .column = 1, .stretch = true}, 14),
    Words(Kind::Frame, "Frame2", Reports, "الفترة الزمنية للتقرير", {.row = 1, .stretch = true}),
    Words(Kind::CheckBox, "chkAll", "Frame2", "الكل", {.row = 0, .columns = 4}, 15),
    Words(Kind::Label, "Label8", "Frame2", "من", {.row = 1}),
    Picker("dtMin", "Frame2", PeriodFormat, {.row = 1, .column = 1, .stretch = true}, 16),
    Words(Kind::Label, "Label9", "Frame2", "إلى", {.row = 1, .column = 2}),
    Picker("dtMax", "Frame2", PeriodFormat, {.row = 1, .column = 3, .stretch = true}, 17),
    Words(Kind::CommandButton, "cmdPrint", Reports, "طباعة", {.row = 2}, 18),
};

} // namespace

const FormTable& AccountTable() {
    static constexpr FormTable table = {.name = "frmAccount",
                                        .caption = "الحسابات العامة",
                                        .clientWidth = 9300,
                                        .clientHeight = 6250,
                                        .controls = Controls,
                                        .designedRightToLeft = true,
                                        .imageList = "ImageList1",
                                        .isDialog = true};
    return table;
}

} // namespace qbrpt
