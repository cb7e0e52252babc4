// The dialog that asks for pages and copies before a print.
#pragma once

#include "platform/forms.h"

#include <cstdint>
#include <string>

namespace qbrpt {

/// Made for one question and dropped after it, so that nothing of an earlier choice is shown again.
class frmPrint : private FormEvents {
public:
    [[nodiscard]] bool ShowPrintDlg(std::int32_t pCount, std::int32_t& pFrom, std::int32_t& pTo,
                                    std::int32_t& pCopies, bool& pPrintAll);

private:
    // Events.
    void Activate() override;
    void Click(const std::string& name) override;
    void Change(const std::string& name) override;
    [[nodiscard]] std::int16_t KeyPress(const std::string& name, std::int16_t key) override;

    /// The window, loaded at its first use.
    [[nodiscard]] Form& Window();
    void Close(bool accepted);
    void ChoosePrinter();
    void EnableRange();
    void CountTyped();
    void CountScrolled();
    /// The number that a box holds.
    [[nodiscard]] double Val(const std::string& box);

    Ref<Form> mForm;
    bool mOk = false;            ///< the dialog was confirmed
    std::int16_t mPageCount = 0; ///< of the document
};

} // namespace qbrpt
