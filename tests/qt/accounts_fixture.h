// The accounts' window as a real one, over a real database.
#pragma once

#include "accounts/frmAccount.h"
#include "adapters/database/sqlite/sqlite_engine.h"
#include "adapters/qt/application.h"
#include "adapters/qt/dialog/combo_box.h"
#include "adapters/qt/dialog/list_view.h"
#include "adapters/qt/dialog/tab_strip.h"
#include "desktop_user.h"
#include "window_platform.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::test {
/// A control of the open form.
template <class W>
W& In(const char* name) {
    return dynamic_cast<W&>(*OpenForm()->findChild<QWidget*>(name));
}

/// Closes the window when `act` is done.
inline void OnceOpen(const std::function<void()>& act, const std::function<void()>& show) {
    qt::RequireApplication();
    const Meanwhile meanwhile({[&act] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(OpenForm()));
        act();
        if (OpenForm() != nullptr) OpenForm()->close();
    }});
    show();
}

class AccountsWindow : public ::testing::Test {
protected:
    explicit AccountsWindow(const char* qtPlatform = "offscreen") : platform(qtPlatform) {
        Platform::Current().messages = platform.messages;
        Platform::Current().screen = platform.screen;
        sqlite3_open(":memory:", &handle);
        Native(
            "CREATE TABLE account_src (accid INTEGER, name TEXT);"
            "CREATE TABLE account_log (acc_from INTEGER, acc_to INTEGER, amount REAL, trans_date DATETIME, "
            "descrip TEXT);"
            "INSERT INTO account_src VALUES (1, 'Till'), (2, 'Bank'), (3, 'Safe');"
            "INSERT INTO account_log VALUES (0, 1, 140.5, 37780.5, ''), (1, 2, 40, 37781.75, NULL)");
        db = WrapSqliteHandle(handle);
    }
    ~AccountsWindow() override {
        db.Clear();
        sqlite3_close_v2(handle);
    }
    AccountsWindow(const AccountsWindow&) = delete;
    AccountsWindow& operator=(const AccountsWindow&) = delete;

    void Native(const std::string& sql) const {
        if (sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(handle));
    }
    void FillTenThousand() const {
        Native("WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < 10000)"
               "INSERT INTO account_src SELECT i, 'Account ' || i FROM n");
    }
    /// The first cells of a query's rows, parted by blanks.
    [[nodiscard]] std::string Ask(const std::string& sql) const {
        std::string cells;
        const auto add = [](void* all, int, char** row, char**) {
            auto& text = *static_cast<std::string*>(all);
            text += (text.empty() ? "" : " ") + std::string(row[0] == nullptr ? "NULL" : row[0]);
            return 0;
        };
        sqlite3_exec(handle, sql.c_str(), add, &cells, nullptr);
        return cells;
    }
    [[nodiscard]] std::string Names() const { return Ask("SELECT name FROM account_src ORDER BY accid"); }
    [[nodiscard]] std::string NewEntries() const {
        return Ask("SELECT acc_from || '>' || acc_to || ':' || amount FROM account_log WHERE rowid > 2");
    }

    void Show(const std::function<void()>& act) {
        OnceOpen(act, [this] { frmAccount::Instance().EditAccount(db); });
    }
    static QPushButton& Button(const char* name) { return In<QPushButton>(name); }
    static QLineEdit& Box(const char* name) { return In<QLineEdit>(name); }
    static qt::ReportList& List() { return In<qt::ReportList>("AccList"); }
    static void Type(const char* box, const char* letters) {
        Box(box).setFocus(Qt::TabFocusReason);
        Box(box).selectAll();
        QTest::keyClick(&Box(box), Qt::Key_Delete);
        QTest::keyClicks(&Box(box), letters);
    }
    static void Click(const char* button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }
    static void ClickItem(int row) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                          List().visualRect(List().model()->index(row, 0)).center());
    }
    static void ClickTab(int tab) {
        qt::TabRow& tabs = In<qt::TabBox>("TabStrip1").Tabs();
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
    }
    /// By keys, as far as the entry.
    static void Choose(const char* combo, int entry) {
        In<QWidget>(combo).setFocus();
        QTest::keyClick(&In<QWidget>(combo), Qt::Key_Home);
        for (int step = 0; step < entry; ++step)
            QTest::keyClick(&In<QWidget>(combo), Qt::Key_Down);
    }
    [[nodiscard]] static std::string Focused() {
        const QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? "" : widget->objectName().toStdString();
    }
    /// Texts of the boxes that were shown so far.
    [[nodiscard]] std::vector<std::string> Said() const { return platform.messages->Texts(); }
    static std::string Shown(int row, int column) {
        return List().model()->index(row, column).data(Qt::EditRole).toString().toStdString();
    }

    WindowPlatform platform;
    sqlite3* handle = nullptr;
    Ref<DAO::Database> db;
};

/// The screen stands before the windows that come onto it.
struct Screened {
    Screened() { desktop.StartManager(); }
    XDesktop desktop;
};

class AccountsDesktop : private Screened, public AccountsWindow {
protected:
    AccountsDesktop() : AccountsWindow("") {}

    static void Key(std::vector<std::string> keys) {
        keys.insert(keys.begin(), "key");
        User(std::move(keys));
    }
    /// From control to control with the tab key, as far as this one.
    static void TabTo(const std::string& control) {
        constexpr int most = 20;
        for (int step = 0; step < most && Focused() != control; ++step) {
            const QWidget* before = QApplication::focusWidget();
            Key({"Tab"});
            EXPECT_TRUE(Waits([&] { return QApplication::focusWidget() != before; }));
        }
        EXPECT_EQ(Focused(), control);
    }
    static void KeyEntry(const char* combo, int entry) {
        TabTo(combo);
        std::vector<std::string> keys(static_cast<std::size_t>(entry), "Down");
        keys.insert(keys.begin(), "Home");
        Key(keys);
        EXPECT_TRUE(Waits([&] { return In<QComboBox>(combo).currentIndex() == entry; })) << combo;
    }
    /// In place of what stands in the box that has the focus.
    static void KeyText(const char* text) {
        auto& box = dynamic_cast<QLineEdit&>(*QApplication::focusWidget());
        Key({"ctrl+a"});
        User({"type", text});
        EXPECT_TRUE(Waits([&] { return box.text() == text; })) << box.text().toStdString();
    }

    static void UserOpens(const char* combo, int entry) {
        QApplication::setDoubleClickInterval(1); // a list takes a click as soon as it is down
        QAbstractItemView& list = *In<qt::DropDown>(combo).view();
        UserClicks(In<QWidget>(combo));
        EXPECT_TRUE(Waits([&] { return list.isVisible(); }));
        UserClicks(*list.viewport(), list.visualRect(list.model()->index(entry, 0)).center());
        EXPECT_TRUE(Waits([&] { return !list.isVisible() && In<QComboBox>(combo).currentIndex() == entry; }))
            << combo;
    }
    static void UserClicksTab(int tab) {
        qt::TabRow& tabs = In<qt::TabBox>("TabStrip1").Tabs();
        UserClicks(tabs, tabs.tabRect(tab).center());
        const std::string panel = "TabPic(" + std::to_string(tab) + ")";
        EXPECT_TRUE(Waits([&] { return In<QWidget>(panel.c_str()).isVisible(); }));
    }
    static void UserWrites(const char* box, const char* text) {
        UserClicks(Box(box));
        EXPECT_TRUE(Waits([&] { return Box(box).hasFocus(); }));
        KeyText(text);
    }
};

} // namespace qbrpt::test
