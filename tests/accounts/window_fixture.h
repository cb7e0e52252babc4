// The accounts' window of fakes over a real database.
#pragma once

#include "accounts/frmAccount.h"
#include "adapters/database/sqlite/sqlite_engine.h"
#include "adapters/locale/locale_adapter.h"
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "fakes/fault_observer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt {

class AccountWindowTest : public ::testing::Test {
protected:
    AccountWindowTest() {
        Platform::Current().locale = MakeLocale();
        sqlite3_open(":memory:", &handle);
        Native(
            "CREATE TABLE account_src (accid INTEGER, name TEXT);"
            "CREATE TABLE account_log (acc_from INTEGER, acc_to INTEGER, amount REAL, trans_date DATETIME, "
            "descrip TEXT)");
        db = WrapSqliteHandle(handle);
    }
    ~AccountWindowTest() override {
        db.Clear();
        sqlite3_close_v2(handle);
    }
    AccountWindowTest(const AccountWindowTest&) = delete;
    AccountWindowTest& operator=(const AccountWindowTest&) = delete;

    void Native(const std::string& sql) const {
        if (sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(handle));
    }
    /// The rows of a query of SQLite's own, cells parted by "|" and rows by blanks.
    [[nodiscard]] std::string Ask(const std::string& sql) const {
        std::string rows;
        const auto add = [](void* text, int count, char** cells, char**) {
            auto& all = *static_cast<std::string*>(text);
            for (int i = 0; i < count; ++i)
                all += (i > 0 ? "|" : all.empty() ? "" : " ") + std::string(cells[i] ? cells[i] : "NULL");
            return 0;
        };
        sqlite3_exec(handle, sql.c_str(), add, &rows, nullptr);
        return rows;
    }
    /// The till holds 100.5, the bank 40, the safe nothing.
    void FillLedger() const {
        Native("INSERT INTO account_src VALUES (1, 'Till'), (2, 'البنك'), (3, 'Safe');"
               "INSERT INTO account_log VALUES (0, 1, 140.5, 37780.5, ''), (1, 2, 40, 37781.75, NULL)");
    }

    /// Shows the window and does `act` while it is open.
    void Show(const std::function<void()>& act = [] {}) {
        platform.forms->shown = [&](fakes::FakeForm& shownForm) {
            form = &shownForm;
            act();
        };
        frmAccount::Instance().EditAccount(db);
        form = nullptr;
    }

    template <class Fake>
    [[nodiscard]] std::shared_ptr<Fake> Of(const std::string& name) const {
        return form->controls.Of<Fake>(name);
    }
    [[nodiscard]] auto Text(const std::string& name) const { return Of<fakes::FakeTextBox>(name); }
    [[nodiscard]] auto Button(const std::string& name) const { return Of<fakes::FakeCommandButton>(name); }
    [[nodiscard]] auto Combo(const std::string& name) const { return Of<fakes::FakeList>(name); }
    [[nodiscard]] auto List() const { return Of<fakes::FakeListView>("AccList"); }
    [[nodiscard]] auto Tabs() const { return Of<fakes::FakeTabs>("TabStrip1"); }
    [[nodiscard]] auto Panel(int number) const {
        return Of<fakes::FakePictureBox>("TabPic(" + std::to_string(number) + ")");
    }

    // What a user does; none of it is a call of a port.
    void Type(const std::string& box, const std::string& text) const {
        if (std::exchange(Text(box)->text, text) != text) form->events.Change(box);
    }
    void Choose(const std::string& combo, std::int32_t entry) const {
        if (entry >= static_cast<std::int32_t>(Combo(combo)->items.size())) return;
        Combo(combo)->listIndex = entry;
        form->events.Click(combo);
    }
    void ClickItem(std::int32_t item) const {
        List()->selected = item;
        form->events.ItemClick("AccList");
    }
    /// Nothing for a button that is disabled.
    void Press(const std::string& button) const {
        if (Button(button)->enabled) form->events.Click(button);
    }
    void ChooseTab(std::int16_t tab) const {
        Tabs()->selected = tab;
        form->events.Click("TabStrip1");
    }

    /// "key text/sub-item" of each item.
    [[nodiscard]] std::vector<std::string> Items() const {
        std::vector<std::string> items;
        for (const auto& item : List()->items)
            items.push_back(item.key + " " + item.text + "/" +
                            (item.subItems.empty() ? "" : item.subItems[0]));
        return items;
    }
    [[nodiscard]] std::string DefaultButton() const {
        for (const char* name : {"cmdAdd", "cmdUpdate", "cmdAddReg"})
            if (Button(name)->isDefault) return name;
        return "";
    }
    [[nodiscard]] std::vector<std::string> Boxes() const { return platform.messages->Texts(); }

    fakes::FakePlatform platform;
    sqlite3* handle = nullptr;
    Ref<DAO::Database> db;
    fakes::FakeForm* form = nullptr; ///< while it is open
};

} // namespace qbrpt
