// The dialog in which printer, paper and orientation are chosen.
#pragma once

#include "platform/forms.h"
#include "platform/printing.h"
#include "preview/printer_capabilities.h"

#include <string>

namespace qbrpt {

/// Made for one choice and dropped after it. What is chosen lives in the current printer alone.
class frmPrinterSetup : private FormEvents {
public:
    [[nodiscard]] bool GetPrinterSetup();

private:
    // Events.
    void Activate() override;
    void Click(const std::string& name) override;
    void Paint(const std::string& name) override;

    /// The window, loaded at its first use.
    [[nodiscard]] Form& Window();
    void Load();
    void Close(bool accepted);
    /// A printer was selected: its papers, bins, words and orientation come in.
    void comboPrinter_Click();
    /// Fills a list with names and codes and selects the entry of `current`.
    void Fill(const std::string& combo, const CapabilityRows& rows, std::int16_t current);
    /// A list without entries is disabled; in one with entries one is always selected.
    void EnableFilled(const std::string& combo, bool filled);
    void OrignOpt_Click(int index);
    void PaintSheet();
    [[nodiscard]] bool IsUpright();
    [[nodiscard]] Ref<ListControl> Combo(const std::string& name) { return Window().Get<ListControl>(name); }
    void SetWords(const std::string& label, const std::string& words);

    Ref<Form> mForm;
    bool mOk = false; ///< the dialog was confirmed
};

} // namespace qbrpt
