#include "service/frmMembersPrint.h"

#include "platform/form_rows.h"
#include "platform/platform.h"
#include "support/error_trap.h"

#include <array>

namespace qbrpt {

namespace {

using namespace rows;
using Kind = ControlKind;

constexpr ControlRow Day(std::string_view name, std::int16_t column, std::int16_t tabIndex) {
    ControlRow row = Picker(name, "Frame2", "dd/MM/yyyy", {.row = 0, .column = column}, tabIndex);
    row.canBeEmpty = true;
    return row;
}
constexpr std::array Controls = {
    Words(Kind::Frame, "Frame1", "", "نوع بيانات المشتركين المطلوبة",
          {.row = 0, .columns = 3, .stretch = true}),
    OnAtFirst(Words(Kind::OptionButton, "Option1(0)", "Frame1", "طباعة بيانات كل المشتركين بلا استثناء",
                    {.row = 0}, 1)),
    Words(Kind::OptionButton, "Option1(1)", "Frame1", "بيانات المشتركين المستمرين (اشتراكات فعالة)",
          {.row = 1}, 2),
    Words(Kind::OptionButton, "Option1(2)", "Frame1", "المشتركين المتبقية عليهم مبالغ غير مسددة", {.row = 2},
          3),
    Words(Kind::Frame, "Frame2", "", "الفترة الزمنية للبيانات حسب بدء استخدام الاشتراك",
          {.row = 1, .columns = 3, .stretch = true}),
    Words(Kind::Label, "Label1(0)", "Frame2", "من", {.row = 0, .column = 0}),
    Day("dtStart", 1, 4),
    Words(Kind::Label, "Label1(1)", "Frame2", "إلى", {.row = 0, .column = 2}),
    Day("dtEnd", 3, 5),
    Words(Kind::CheckBox, "chkGroup", "", "طباعة بيانات مجمعة", {.row = 2, .column = 0, .stretch = true}, 6),
    Default(Words(Kind::CommandButton, "cmdOk", "", "موافق", {.row = 2, .column = 1}, 7)),
    Cancels(Words(Kind::CommandButton, "Cancel", "", "إلغاء الأمر", {.row = 2, .column = 2}, 8)),
};

/// Lets go of a window, however its showing ends.
struct Closed {
    explicit Closed(Ref<Form>& shown) : form(shown) {}
    Closed(const Closed&) = delete;
    Closed& operator=(const Closed&) = delete;
    ~Closed() { form.Clear(); }
    Ref<Form>& form;
};

} // namespace

const FormTable& MembersPrintTable() {
    static constexpr FormTable table = {.name = "frmMembersPrint",
                                        .caption = "خيارات طباعة بيانات المشتركين",
                                        .clientWidth = 6900,
                                        .clientHeight = 4020,
                                        .controls = Controls,
                                        .designedRightToLeft = true,
                                        .isDialog = true};
    return table;
}

frmMembersPrint& frmMembersPrint::Instance() {
    static frmMembersPrint instance;
    return instance;
}

std::int32_t frmMembersPrint::GetPrintType() {
    if (!mForm.Empty())
        throw Failure(FailureNumber::InvalidArgument,
                      "The window that asks which subscriptions are meant is open already.");
    bAccepted = false;
    bGroupPrint = false;
    dStartDate = 0;
    dEndDate = 0;
    mForm = Platform::Current().forms->Load(MembersPrintTable(), *this);
    const Ref<Form> form = mForm;
    const Closed closed{mForm};
    for (const char* day : {"dtStart", "dtEnd"})
        form->Get<DatePicker>(day)->SetValue(std::nullopt);
    form->ShowModal();
    const std::int32_t type = bAccepted ? ReadChoice(*form) : Refused;
    form->Unload();
    return type;
}

std::int32_t frmMembersPrint::ReadChoice(Form& form) {
    dStartDate = form.Get<DatePicker>("dtStart")->Value().value_or(0);
    dEndDate = form.Get<DatePicker>("dtEnd")->Value().value_or(0);
    const auto isOn = [&](const char* name) { return form.Get<ToggleControl>(name)->Value(); };
    const std::int32_t type = isOn("Option1(2)") ? Owing : isOn("Option1(1)") ? Running : All;
    bGroupPrint = isOn("chkGroup");
    return type;
}

void frmMembersPrint::Click(const std::string& name) {
    if (name != "cmdOk" && name != "Cancel") return;
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    bAccepted = name == "cmdOk";
    trap.Step([&] { mForm->Hide(); });
}

} // namespace qbrpt
