// The accounts' window on a real screen, by keyboard alone and by mouse alone.
#include "accounts_fixture.h"

#include <QtWidgets/QPlainTextEdit>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* WrongAmount = "مبلغ التحويل غير صحيح";
constexpr const char* SameAccount = "لا يمكن التحويل إلى نفس الحساب مصدر التحويل.";

TEST_F(AccountsDesktop, IsWorkedByKeyboardAlone) {
    Show([&] {
        EXPECT_TRUE(Waits([] { return QApplication::focusWidget() != nullptr; }));
        Key({"Tab", "Tab"});
        User({"type", "Rent"});
        Key({"Return"});
        EXPECT_TRUE(Waits([] { return List().model()->rowCount() == 4; }));
        Key({"shift+Tab", "Down", "Down", "Tab"});
        EXPECT_TRUE(Waits([] { return Box("txtAccount").text() == "Bank"; }));
        User({"type", "Vault"});
        Key({"Tab", "Tab", "space"}); // past the button that adds
        EXPECT_TRUE(Waits([] { return Shown(1, 0) == "Vault"; }));
        Key({"ctrl+Tab"});
        EXPECT_TRUE(Waits([] { return In<QWidget>("TabPic(1)").isVisible(); }));
        Key({"Tab"});
        EXPECT_TRUE(Waits([] { return Focused() == "comboFrom"; })) << Focused();
        Key({"Down", "Tab", "Tab", "Down", "Down", "Down", "Tab"});
        User({"type", "10"});
        Key({"Return"});
        EXPECT_TRUE(Waits([this] { return NewEntries() == "1>3:10.0"; }));
        EXPECT_TRUE(Waits([] { return Focused() == "comboFrom"; }));
        Key({"ctrl+Page_Down"}); // from a list, which knows keys of this kind itself
        EXPECT_TRUE(Waits([] { return In<QWidget>("TabPic(2)").isVisible(); }));
        Key({"ctrl+shift+Tab"});
        EXPECT_TRUE(Waits([] { return In<QWidget>("TabPic(1)").isVisible(); }));
        UserClosesWindow();
        EXPECT_TRUE(Waits([] { return OpenForm() == nullptr; }));
    });
    EXPECT_EQ(Names(), "Till Vault Safe Rent");
}

TEST_F(AccountsDesktop, RefusesNamesByKeyboardAlone) {
    Show([&] {
        TabTo("txtAccount");
        KeyText("bANK");
        Key({"Return"});
        KeyText("O'Neil");
        Key({"Return"});
        EXPECT_TRUE(Waits([this] { return Said().size() == 1; }));
        KeyText("Oneil");
        Key({"Return"});
        EXPECT_TRUE(Waits([] { return List().model()->rowCount() == 4; }));
    });
    EXPECT_EQ(Names(), "Till Bank Safe Oneil");
}

TEST_F(AccountsDesktop, JudgesEntriesByKeyboardAlone) {
    Show([&] {
        Key({"ctrl+Tab"});
        EXPECT_TRUE(Waits([] { return In<QWidget>("TabPic(1)").isVisible(); }));
        const auto enter = [] {
            Key({"Return"});
            EXPECT_TRUE(Waits([] { return Focused() == "comboFrom"; })) << Focused();
            EXPECT_EQ(Box("txtAmount").text(), "0");
        };
        KeyEntry("comboFrom", 0); // 100.5
        KeyEntry("comboTo", 2);
        TabTo("txtAmount");
        std::size_t refused = 0;
        for (const char* above : {"101", "100.50", "100.25"}) {
            KeyText(above);
            Key({"Return"});
            EXPECT_TRUE(Waits([&] { return Said().size() == refused + 1; })) << above;
            ++refused;
            EXPECT_EQ(Focused(), "txtAmount");
        }
        KeyText("100");
        enter();
        KeyEntry("comboFrom", 1); // 40
        TabTo("txtAmount");
        KeyText("40");
        enter();
        KeyEntry("comboFrom", 2); // 140
        KeyEntry("comboTo", 0);
        TabTo("txtAmount");
        KeyText("5");
        TabTo("txtDescrip");
        User({"type", "it's lost"});
        EXPECT_TRUE(Waits([] { return In<QPlainTextEdit>("txtDescrip").toPlainText() == "it's lost"; }));
        enter();
        TabTo("txtAmount");
        KeyText("5");
        KeyEntry("comboTo", 2);
        Key({"Return"});
        EXPECT_TRUE(Waits([&] { return Said().size() == refused + 1; }));
        EXPECT_EQ(Focused(), "comboTo");
    });
    EXPECT_THAT(Said(), ElementsAre(WrongAmount, WrongAmount, WrongAmount, SameAccount));
    EXPECT_EQ(NewEntries(), "1>3:100.0 2>3:40.0");
}

TEST_F(AccountsDesktop, AnEmptyLedgerGetsItsFirstAccountByKeyboardAlone) {
    Native("DELETE FROM account_src; DELETE FROM account_log");
    Show([&] {
        TabTo("txtAccount");
        KeyText("Till");
        Key({"Return"});
        EXPECT_TRUE(Waits([] { return List().model()->rowCount() == 1; }));
        Key({"ctrl+Tab"});
        EXPECT_TRUE(Waits([] { return In<QComboBox>("comboTo").count() == 1; }));
        KeyEntry("comboFrom", 0);
        TabTo("txtAmount");
        KeyText("5");
        Key({"Return"});
        EXPECT_FALSE(Button("cmdAddReg").isEnabled());
    });
    EXPECT_EQ(Ask("SELECT accid || name FROM account_src"), "1Till");
    EXPECT_THAT(Said(), IsEmpty());
    EXPECT_EQ(NewEntries(), "");
}

TEST_F(AccountsDesktop, TenThousandAccountsAreWorkedByKeyboardAlone) {
    FillTenThousand();
    Show([&] {
        TabTo("txtAccount");
        KeyText("aCCOUNT 9999");
        Key({"Return"});
        KeyText("Account 10001");
        Key({"Return"});
        EXPECT_TRUE(Waits([] { return List().model()->rowCount() == 10'001; }));
        Key({"ctrl+Tab"});
        EXPECT_TRUE(Waits([] { return In<QComboBox>("comboTo").count() == 10'001; }));
        KeyEntry("comboFrom", 0);
        TabTo("comboTo");
        Key({"End"});
        TabTo("txtAmount");
        KeyText("1");
        Key({"Return"});
        EXPECT_TRUE(Waits([this] { return NewEntries() == "1>10001:1.0"; })) << NewEntries();
    });
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(AccountsDesktop, IsWorkedByMouseAlone) {
    Show([&] {
        UserClicks(*List().viewport(), List().visualRect(List().model()->index(2, 1)).center());
        EXPECT_TRUE(Waits([] { return Box("txtAccount").text() == "Safe"; }));
        for (const char* refused : {"bANK", "O'Neil"}) {
            UserWrites("txtAccount", refused);
            UserClicks(Button("cmdAdd"));
        }
        EXPECT_TRUE(Waits([this] { return Said().size() == 1; })) << "for the apostrophe";
        UserWrites("txtAccount", "Vault");
        UserClicks(Button("cmdUpdate"));
        EXPECT_TRUE(Waits([] { return Shown(2, 0) == "Vault"; }));
        UserWrites("txtAccount", "Rent");
        UserClicks(Button("cmdAdd"));
        EXPECT_TRUE(Waits([] { return List().model()->rowCount() == 4; }));
        UserClicksTab(2);
        UserClicks(In<QWidget>("chkAll"));
        EXPECT_TRUE(Waits([] { return !In<QWidget>("dtMin").isEnabled(); }));
    });
    EXPECT_EQ(Names(), "Till Bank Vault Rent");
}

TEST_F(AccountsDesktop, JudgesEntriesByMouseAlone) {
    Show([&] {
        UserClicksTab(1);
        UserOpens("comboFrom", 0);
        UserOpens("comboTo", 2);
        EXPECT_EQ(Box("txtTotal").text(), "100.5");
        UserWrites("txtAmount", "100.25");
        UserClicks(Button("cmdAddReg"));
        EXPECT_TRUE(Waits([this] { return Said().size() == 1; }));
        UserWrites("txtAmount", "11");
        UserClicks(In<QWidget>("txtDescrip"));
        User({"type", "rent"});
        EXPECT_TRUE(Waits([] { return In<QPlainTextEdit>("txtDescrip").toPlainText() == "rent"; }));
        UserClicks(Button("cmdAddReg"));
        EXPECT_TRUE(Waits([this] { return NewEntries() == "1>3:11.0"; }));
        UserOpens("comboFrom", 1);
        UserWrites("txtAmount", "40");
        UserClicks(Button("cmdAddReg"));
        EXPECT_TRUE(Waits([this] { return NewEntries() == "1>3:11.0 2>3:40.0"; }));
        UserOpens("comboFrom", 0);
        UserWrites("txtAmount", "5");
        UserClicks(In<QWidget>("txtDescrip"));
        User({"type", "it's lost"});
        EXPECT_TRUE(Waits([] { return In<QPlainTextEdit>("txtDescrip").toPlainText() == "it's lost"; }));
        UserClicks(Button("cmdAddReg"));
        EXPECT_TRUE(Waits([] { return Box("txtAmount").text() == "0"; }));
        UserWrites("txtAmount", "1");
        UserOpens("comboTo", 0);
        UserClicks(Button("cmdAddReg"));
        EXPECT_TRUE(Waits([this] { return Said().size() == 2; }));
    });
    EXPECT_THAT(Said(), ElementsAre(WrongAmount, SameAccount));
    EXPECT_EQ(NewEntries(), "1>3:11.0 2>3:40.0");
    EXPECT_EQ(Ask("SELECT descrip FROM account_log WHERE amount = 11"), "rent");
}

TEST_F(AccountsDesktop, AnEmptyLedgerGetsItsFirstAccountByMouseAlone) {
    Native("DELETE FROM account_src; DELETE FROM account_log");
    Show([&] {
        UserClicksTab(1);
        UserClicks(In<QWidget>("comboFrom")); // has nothing to show
        EXPECT_FALSE(In<QComboBox>("comboFrom").view()->isVisible());
        UserClicksTab(0);
        UserWrites("txtAccount", "Till");
        UserClicks(Button("cmdAdd"));
        EXPECT_TRUE(Waits([] { return List().model()->rowCount() == 1; }));
        UserClicksTab(1);
        UserOpens("comboTo", 0);
    });
    EXPECT_EQ(Ask("SELECT accid || name FROM account_src"), "1Till");
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(AccountsDesktop, TenThousandAccountsAreWorkedByMouseAlone) {
    FillTenThousand();
    Show([&] {
        UserClicksTab(1);
        UserOpens("comboFrom", 0);
        UserOpens("comboTo", 7);
        UserWrites("txtAmount", "1");
        UserClicks(Button("cmdAddReg"));
        EXPECT_TRUE(Waits([this] { return NewEntries() == "1>8:1.0"; })) << NewEntries();
        UserClicksTab(0);
        UserClicks(*List().viewport(), List().visualRect(List().model()->index(7, 0)).center());
        EXPECT_TRUE(Waits([] { return Box("txtAccount").text() == "Account 8"; }));
        EXPECT_EQ(Shown(7, 1), "1.00");
    });
    EXPECT_THAT(Said(), IsEmpty());
}

} // namespace
} // namespace qbrpt::test
