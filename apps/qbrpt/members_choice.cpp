#include "members_choice.h"

#include "adapters/console/quiet_forms.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace qbrpt::cli {

namespace {

std::optional<double> DayOf(const char* option, const std::string& typed) {
    if (typed.empty()) return std::nullopt;
    try {
        return std::get<double>(ReadArgument(ArgumentKind::DateNumber, typed));
    } catch (const WrongUse& wrong) {
        throw WrongUse(std::string{option} + ": " + wrong.what());
    }
}

} // namespace

bool AsksForMembers(const Member& member) {
    return member.name == "PrintMembersInfo";
}

void AddMembersChoice(CLI::App& command, TypedMembersChoice& typed) {
    command.add_option("--choose", typed.type, "0 all subscribers, 1 running subscriptions, 2 money owed")
        ->check(CLI::Range(0, 2))
        ->type_name("NUMBER");
    command.add_option("--from", typed.from, "first day of use; goes with --choose")->type_name("DATE");
    command.add_option("--to", typed.to, "last day of use; goes with --choose")->type_name("DATE");
    command.add_flag("--group", typed.group, "one line for alike subscriptions of a subscriber");
}

std::optional<MembersChoice> ReadMembersChoice(const CLI::App& command, const TypedMembersChoice& typed) {
    if (command.get_option("--choose")->count() == 0) {
        if (!typed.from.empty() || !typed.to.empty() || typed.group)
            throw WrongUse("--from, --to and --group go with --choose.");
        return std::nullopt;
    }
    return MembersChoice{typed.type, DayOf("--from", typed.from), DayOf("--to", typed.to), typed.group};
}

void AnswerMembersWindow(Platform& platform, const MembersChoice& choice) {
    const FormAnswer answer = [choice](Form& form, FormEvents& events) {
        for (const int option : {0, 1, 2})
            form.Get<ToggleControl>("Option1(" + std::to_string(option) + ")")
                ->SetValue(option == choice.type);
        form.Get<DatePicker>("dtStart")->SetValue(choice.from);
        form.Get<DatePicker>("dtEnd")->SetValue(choice.to);
        form.Get<ToggleControl>("chkGroup")->SetValue(choice.group);
        events.Click("cmdOk");
    };
    platform.forms = std::make_shared<AnsweredForms>(platform.forms, "frmMembersPrint", answer);
}

} // namespace qbrpt::cli
