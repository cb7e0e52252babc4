// The windows of the accounts and of the subscribers' options as real ones, over a real database.
#include "accounts/frmAccount.h"
#include "adapters/database/sqlite/sqlite_engine.h"
#include "adapters/qt/application.h"
#include "adapters/qt/dialog/combo_box.h"
#include "adapters/qt/dialog/date_field.h"
#include "adapters/qt/dialog/list_view.h"
#include "adapters/qt/dialog/month_view.h"
#include "adapters/qt/dialog/tab_strip.h"
#include "desktop_user.h"
#include "service/frmMembersPrint.h"
#include "window_platform.h"

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <stdexcept>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <class W>
W& In(const char* name) {
    return dynamic_cast<W&>(*OpenForm()->findChild<QWidget*>(name));
}

/// Closes the window when `act` is done.
void OnceOpen(const std::function<void()>& act, const std::function<void()>& show) {
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
    static std::string Shown(int row, int column) {
        return List().model()->index(row, column).data(Qt::EditRole).toString().toStdString();
    }

    WindowPlatform platform;
    sqlite3* handle = nullptr;
    Ref<DAO::Database> db;
};

TEST_F(AccountsWindow, OpensMirroredWithItsFirstPageWhole) {
    Show([&] {
        EXPECT_EQ(OpenForm()->windowTitle(), "الحسابات العامة");
        EXPECT_EQ(List().model()->rowCount(), 3);
        EXPECT_EQ(Shown(0, 1), "100.50");
        EXPECT_EQ(List().layoutDirection(), Qt::RightToLeft);
        qt::TabRow& tabs = In<qt::TabBox>("TabStrip1").Tabs();
        EXPECT_GT(tabs.tabRect(0).x(), tabs.tabRect(2).x());
        EXPECT_FALSE(Button("cmdAdd").isEnabled());
        const QRect client = In<qt::TabBox>("TabStrip1").Client();
        for (const char* panel : {"TabPic(0)", "TabPic(1)", "TabPic(2)"})
            EXPECT_GE(In<QWidget>(panel).height(), In<QWidget>(panel).layout()->totalMinimumSize().height())
                << panel;
        EXPECT_TRUE(client.contains(In<QWidget>("TabPic(0)").geometry()));
        EXPECT_FALSE(In<QWidget>("TabPic(1)").isVisible());
    });
}

TEST_F(AccountsWindow, AccountsAreAddedAndRenamed) {
    Show([&] {
        Type("txtAccount", "Rent");
        QTest::keyClick(&Box("txtAccount"), Qt::Key_Return); // the default button
        EXPECT_EQ(Box("txtAccount").text(), "");
        EXPECT_EQ(Shown(3, 0), "Rent");
        ClickItem(1);
        EXPECT_EQ(Box("txtAccount").text(), "Bank");
        EXPECT_FALSE(Button("cmdUpdate").isEnabled()) << "its own name is in the list";
        Type("txtAccount", "Vault");
        EXPECT_TRUE(Button("cmdUpdate").isEnabled());
        Click("cmdUpdate");
        EXPECT_EQ(Shown(1, 0), "Vault");
    });
    EXPECT_EQ(Names(), "Till Vault Safe Rent");
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(AccountsWindow, ANameThatIsThereInAnotherCaseIsNone) {
    Show([&] {
        ClickItem(0);
        for (const char* name : {"sAfE", "   "}) {
            Type("txtAccount", name);
            EXPECT_FALSE(Button("cmdAdd").isEnabled()) << name;
            EXPECT_FALSE(Button("cmdUpdate").isEnabled()) << name;
            QTest::keyClick(&Box("txtAccount"), Qt::Key_Return);
            Click("cmdAdd");
        }
    });
    EXPECT_EQ(Names(), "Till Bank Safe");
}

TEST_F(AccountsWindow, AnApostropheInANameIsRefusedByABox) {
    Show([&] {
        Type("txtAccount", "O'Neil");
        Click("cmdAdd");
        EXPECT_EQ(Box("txtAccount").text(), "O'Neil");
        EXPECT_EQ(List().model()->rowCount(), 3);
    });
    EXPECT_EQ(platform.messages->boxes.size(), 1U);
    EXPECT_EQ(Names(), "Till Bank Safe");
}

TEST_F(AccountsWindow, ANewAccountReachesTheCombosWithTheNextTab) {
    Show([&] {
        Type("txtAccount", "Rent");
        Click("cmdAdd");
        EXPECT_EQ(In<QComboBox>("comboTo").count(), 3);
        ClickTab(1);
        EXPECT_EQ(In<QComboBox>("comboTo").count(), 4);
        EXPECT_TRUE(In<QWidget>("TabPic(1)").isVisible());
        EXPECT_FALSE(In<QWidget>("TabPic(0)").isVisible());
    });
}

struct EntryRow {
    const char* name;
    int from; ///< entry of the list
    int to;
    const char* amount;
    const char* entries; ///< new ones in the journal
    const char* box;     ///< empty: none
    const char* focus;   ///< where the window leaves it
};

class Entries : public AccountsWindow, public ::testing::WithParamInterface<EntryRow> {};

TEST_P(Entries, MoveWhatTheBalanceHolds) {
    const EntryRow& row = GetParam();
    Show([&] {
        ClickTab(1);
        Choose("comboTo", row.to == row.from ? (row.from + 1) % 3 : row.to);
        Choose("comboFrom", row.from);
        Type("txtAmount", row.amount);
        Choose("comboTo", row.to); // the button stays as it is
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), row.focus);
    });
    EXPECT_EQ(NewEntries(), row.entries);
    EXPECT_EQ(platform.messages->boxes.empty() ? "" : platform.messages->boxes[0].text, row.box);
}

constexpr const char* WrongAmount = "مبلغ التحويل غير صحيح";

INSTANTIATE_TEST_SUITE_P(
    Rows, Entries,
    ::testing::Values(EntryRow{"Below", 0, 2, "25.5", "1>3:25.5", "", "comboFrom"},
                      EntryRow{"Equal", 1, 2, "40", "2>3:40.0", "", "comboFrom"},
                      EntryRow{"Above", 1, 2, "41", "", WrongAmount, "txtAmount"},
                      EntryRow{"FractionAboveTheWholeBalance", 0, 2, "100.25", "", WrongAmount, "txtAmount"},
                      EntryRow{"ThatIsTheWholeBalance", 0, 2, "100", "1>3:100.0", "", "comboFrom"},
                      EntryRow{"SameAccount", 0, 0, "5", "", "لا يمكن التحويل إلى نفس الحساب مصدر التحويل.",
                               "comboTo"},
                      EntryRow{"OnlyAPoint", 0, 2, ".", "", "", "comboTo"},
                      EntryRow{"LettersAreNotTaken", 0, 2, "1x2y", "1>3:12.0", "", "comboFrom"},
                      EntryRow{"NothingToGive", 2, 0, "5", "", "", "comboTo"}),
    [](const auto& row) { return row.param.name; });

TEST_F(AccountsWindow, AfterAnEntryTheBalanceIsFreshAndTheAmountNone) {
    Show([&] {
        ClickTab(1);
        Choose("comboTo", 1);
        Choose("comboFrom", 0);
        EXPECT_EQ(Box("txtTotal").text(), "100.5");
        Type("txtAmount", "60");
        In<QPlainTextEdit>("txtDescrip").setPlainText("rent\nof March");
        Click("cmdAddReg");
        EXPECT_EQ(Box("txtTotal").text(), "40.5");
        EXPECT_EQ(Box("txtAmount").text(), "0");
        EXPECT_EQ(In<QPlainTextEdit>("txtDescrip").toPlainText(), "");
        EXPECT_FALSE(Button("cmdAddReg").isEnabled());
        Type("txtAmount", "1");
        In<QPlainTextEdit>("txtDescrip").setPlainText("O'Neil");
        Click("cmdAddReg"); // lost without a word
    });
    EXPECT_EQ(NewEntries(), "1>2:60.0");
    EXPECT_EQ(Ask("SELECT descrip FROM account_log WHERE amount = 60"), "rent\r\nof March");
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(AccountsWindow, AnEmptyLedgerLeavesEverythingQuiet) {
    Native("DELETE FROM account_src; DELETE FROM account_log");
    Show([&] {
        EXPECT_EQ(List().model()->rowCount(), 0);
        ClickTab(1);
        Type("txtAmount", "5");
        EXPECT_FALSE(Button("cmdAddReg").isEnabled());
        ClickTab(0);
        Type("txtAccount", "Till");
        Click("cmdAdd");
    });
    EXPECT_EQ(Names(), "Till");
    EXPECT_EQ(Ask("SELECT accid FROM account_src"), "1");
}

TEST_F(AccountsWindow, TenThousandAccountsStayQuick) {
    Native("WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < 10000)"
           "INSERT INTO account_src SELECT i, 'Account ' || i FROM n");
    Show([&] {
        EXPECT_EQ(List().model()->rowCount(), 10'000);
        QElapsedTimer clock;
        clock.start();
        Type("txtAccount", "Account 100");
        EXPECT_LT(clock.elapsed(), 3000) << "milliseconds, for eleven letters";
        Click("cmdAdd");
    });
    EXPECT_EQ(Ask("SELECT COUNT(*) FROM account_src WHERE name = 'Account 100'"), "1")
        << "it is there already";
}

/// The screen stands before the windows that come onto it.
struct Screened {
    Screened() { desktop.StartManager(); }
    XDesktop desktop;
};

class AccountsDesktop : private Screened, public AccountsWindow {
protected:
    AccountsDesktop() : AccountsWindow("") {}
    static void UserOpens(const char* combo, int entry) {
        QAbstractItemView& list = *In<qt::DropDown>(combo).view();
        UserClicks(In<QWidget>(combo));
        EXPECT_TRUE(Waits([&] { return list.isVisible(); }));
        QTest::qWait(300); // a list that has just dropped down takes no click
        UserClicks(*list.viewport(), list.visualRect(list.model()->index(entry, 0)).center());
        EXPECT_TRUE(Waits([&] { return !list.isVisible(); }));
    }
};

TEST_F(AccountsDesktop, IsWorkedByKeyboardAlone) {
    Show([&] {
        EXPECT_TRUE(Waits([] { return QApplication::focusWidget() != nullptr; }));
        User({"key", "Tab", "Tab"});
        User({"type", "Rent"});
        User({"key", "Return"});
        EXPECT_TRUE(Waits([] { return List().model()->rowCount() == 4; }));
        User({"key", "shift+Tab", "Down", "Down", "Tab"});
        EXPECT_TRUE(Waits([] { return Box("txtAccount").text() == "Bank"; }));
        User({"type", "Vault"});
        User({"key", "Tab", "Tab", "space"}); // past the button that adds
        EXPECT_TRUE(Waits([] { return Shown(1, 0) == "Vault"; }));
        User({"key", "ctrl+Tab"});
        EXPECT_TRUE(Waits([] { return In<QWidget>("TabPic(1)").isVisible(); }));
        In<QWidget>("comboFrom").setFocus();
        User({"key", "Down", "Tab", "Tab", "Down", "Down", "Down", "Tab"});
        User({"type", "10"});
        User({"key", "Return"});
        EXPECT_TRUE(Waits([this] { return NewEntries() == "1>3:10.0"; }));
        User({"key", "alt+F4"});
        EXPECT_TRUE(Waits([] { return OpenForm() == nullptr; }));
    });
    EXPECT_EQ(Names(), "Till Vault Safe Rent");
}

TEST_F(AccountsDesktop, IsWorkedByMouseAlone) {
    Show([&] {
        Box("txtAmount").setText("10"); // a number must come from somewhere
        UserClicks(*List().viewport(), List().visualRect(List().model()->index(2, 1)).center());
        EXPECT_TRUE(Waits([] { return Box("txtAccount").text() == "Safe"; }));
        qt::TabRow& tabs = In<qt::TabBox>("TabStrip1").Tabs();
        UserClicks(tabs, tabs.tabRect(1).center());
        EXPECT_TRUE(Waits([] { return In<QWidget>("TabPic(1)").isVisible(); }));
        UserOpens("comboFrom", 0);
        UserOpens("comboTo", 2);
        EXPECT_EQ(Box("txtTotal").text(), "100.5");
        Box("txtAmount").setText("11");
        UserClicks(Button("cmdAddReg"));
        EXPECT_TRUE(Waits([this] { return NewEntries() == "1>3:11.0"; }));
        UserClicks(tabs, tabs.tabRect(2).center());
        EXPECT_TRUE(Waits([] { return In<QWidget>("TabPic(2)").isVisible(); }));
        UserClicks(In<QWidget>("chkAll"));
        EXPECT_TRUE(Waits([] { return !In<QWidget>("dtMin").isEnabled(); }));
    });
}

class MembersWindow : public ::testing::Test {
protected:
    explicit MembersWindow(const char* qtPlatform = "offscreen") : platform(qtPlatform) {}
    std::int32_t Ask(const std::function<void()>& act) {
        std::int32_t type = 0;
        OnceOpen(act, [&] { type = options.GetPrintType(); });
        return type;
    }
    WindowPlatform platform;
    frmMembersPrint options;
};

TEST_F(MembersWindow, OpensWithAllAndNoPeriod) {
    EXPECT_EQ(Ask([] {
                  EXPECT_EQ(OpenForm()->windowTitle(), "خيارات طباعة بيانات المشتركين");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
              }),
              frmMembersPrint::All);
    EXPECT_EQ(options.dStartDate, 0);
    EXPECT_EQ(options.dEndDate, 0);
    EXPECT_FALSE(options.bGroupPrint);
}

TEST_F(MembersWindow, EndsAsFarBelowItsButtonsAsBesideThem) {
    Ask([] {
        const QRect button = In<QWidget>("Cancel").geometry();
        EXPECT_NEAR(OpenForm()->rect().bottom() - button.bottom(), button.left(), 2);
    });
}

TEST_F(MembersWindow, GivesWhatIsChosenByKeys) {
    EXPECT_EQ(Ask([] {
                  const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
                  press(Qt::Key_Down);
                  press(Qt::Key_Down);
                  press(Qt::Key_Tab);
                  press(Qt::Key_Space); // takes a date
                  QTest::keyClicks(QApplication::focusWidget(), "15032025");
                  press(Qt::Key_Tab);
                  press(Qt::Key_Tab);
                  press(Qt::Key_Space);
                  press(Qt::Key_Return);
              }),
              frmMembersPrint::Owing);
    EXPECT_EQ(options.dStartDate, 45731);
    EXPECT_EQ(options.dEndDate, 0);
    EXPECT_TRUE(options.bGroupPrint);
}

TEST_F(MembersWindow, RefusesByEscapeByItsButtonAndByItsFrame) {
    EXPECT_EQ(Ask([] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }),
              frmMembersPrint::Refused);
    EXPECT_EQ(Ask([] { QTest::mouseClick(&In<QWidget>("Cancel"), Qt::LeftButton); }),
              frmMembersPrint::Refused);
    EXPECT_EQ(Ask([] { OpenForm()->close(); }), frmMembersPrint::Refused);
}

class MembersDesktop : private Screened, public MembersWindow {
protected:
    MembersDesktop() : MembersWindow("") {}
};

TEST_F(MembersDesktop, GivesWhatIsChosenByMouseAlone) {
    const std::int32_t type = Ask([] {
        UserClicks(In<QWidget>("Option1(1)"));
        auto& start = In<qt::DateField>("dtStart");
        UserClicks(start, start.CheckRect().center());
        EXPECT_TRUE(Waits([&] { return start.Value().has_value(); }));
        UserClicks(start, start.DropRect().center());
        EXPECT_TRUE(Waits([&] { return start.Month().isVisible(); }));
        const Moment now = MomentOf(*start.Value());
        UserClicks(start.Month(), start.Month().CellOf({now.year, now.month, 9}).center());
        EXPECT_TRUE(Waits([&] { return MomentOf(*start.Value()).day == 9; }));
        UserClicks(In<QWidget>("chkGroup"));
        UserClicks(In<QWidget>("cmdOk"));
        EXPECT_TRUE(Waits([] { return OpenForm() == nullptr; }));
    });
    EXPECT_EQ(type, frmMembersPrint::Running);
    EXPECT_EQ(MomentOf(options.dStartDate).day, 9);
    EXPECT_TRUE(options.bGroupPrint);
}

} // namespace
} // namespace qbrpt::test
