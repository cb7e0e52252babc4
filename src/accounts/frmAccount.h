// The window of the general accounts: their names, new entries of the journal, and the reports on it.
#pragma once

#include "platform/DAO.h"
#include "platform/forms.h"

#include <cstdint>
#include <string>

namespace qbrpt {

/// One instance a process; its window is loaded anew for each showing. Failures end in its routines' own
/// boxes; nothing is thrown to a caller.
class frmAccount : private FormEvents {
public:
    /// The instance; created where there is none.
    [[nodiscard]] static frmAccount& Instance();

    /// Shows the accounts of `db` and returns when the user has closed the window.
    void EditAccount(const Ref<DAO::Database>& db);

private:
    // Events.
    void Click(const std::string& name) override;
    void DblClick(const std::string& name) override;
    void ItemClick(const std::string& name) override;
    [[nodiscard]] bool BeforeLabelEdit(const std::string& name) override;
    void Change(const std::string& name) override;
    [[nodiscard]] std::int16_t KeyPress(const std::string& name, std::int16_t key) override;
    void GotFocus(const std::string& name) override;

    /// The window, loaded at its first use.
    [[nodiscard]] Form& Window();
    void Load();
    void Unload();
    template <class Kind>
    [[nodiscard]] Ref<Kind> Get(const char* name) {
        return Window().Get<Kind>(name);
    }
    [[nodiscard]] Ref<TextBox> Text(const char* name) { return Get<TextBox>(name); }
    [[nodiscard]] Ref<ListControl> Combo(const char* name) { return Get<ListControl>(name); }
    [[nodiscard]] std::int32_t AccountIn(const char* combo);
    /// A focus that cannot be had is no failure.
    void FocusOn(const char* name);

    // All pages.
    void RefreshCommands();
    void LoadAccounts();
    void LoadList();
    void LoadCombos();
    void ChangeTab();
    void SelectTab(std::int32_t nTab);
    static void AlignTabClient(TabStrip& tabs, PictureBox& pic);
    static void OnTextFocus(TextBox& txt);

    // The definition of accounts.
    [[nodiscard]] bool FindInList(const std::string& s);
    void AddAccount();
    void RenameAccount();
    void TakeNameOfItem();

    // New entries.
    void ShowBalance();
    void AddEntry();
    void RefuseEntry(const char* words, const char* control);

    // Reports.
    void PeriodSwitched();
    void PeriodMoved();
    void AccountReportChosen();
    void PrintReport();

    Ref<Form> mForm;
    Ref<DAO::Database> mDb;       ///< empty outside of EditAccount
    bool AccountsChanged = false; ///< the lists must be read again at the next change of tab
    std::int32_t CurrentTab = 0;  ///< 0 before the first
    bool mOpen = false;           ///< inside EditAccount
};

} // namespace qbrpt
