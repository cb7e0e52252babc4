// The window that asks which subscriptions are to be printed.
#pragma once

#include "platform/forms.h"

#include <cstdint>
#include <string>

namespace qbrpt {

/// As it is built.
[[nodiscard]] const FormTable& MembersPrintTable();

/// One instance a process; opens with the same choices each time.
class frmMembersPrint : private FormEvents {
public:
    static constexpr std::int32_t Refused = -1;
    static constexpr std::int32_t All = 0;
    static constexpr std::int32_t Running = 1;
    static constexpr std::int32_t Owing = 2;

    /// The instance; created where there is none.
    [[nodiscard]] static frmMembersPrint& Instance();

    /// Shows the window and gives what was chosen; closing it is refusing. Has no trap: a failure is the
    /// caller's statement, and so is a second showing while the window is open.
    [[nodiscard]] std::int32_t GetPrintType();

    // Valid once it has been accepted.
    bool bGroupPrint = false; ///< a subscriber's subscriptions of one kind in one line
    double dStartDate = 0;    ///< day number; 0 for none
    double dEndDate = 0;

private:
    void Click(const std::string& name) override;
    /// What was chosen in the window that was accepted.
    [[nodiscard]] std::int32_t ReadChoice(Form& form);

    Ref<Form> mForm; ///< while it is open
    bool bAccepted = false;
};

} // namespace qbrpt
