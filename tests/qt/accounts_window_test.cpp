// The pages of the accounts' window, and how they are worked.
#include "accounts_fixture.h"

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QPlainTextEdit>

namespace qbrpt::test {
namespace {

using ::testing::IsEmpty;

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

struct Turn {
    Qt::Key key;
    Qt::KeyboardModifiers with;
    int step;
};

constexpr Turn Turns[] = {{Qt::Key_Tab, Qt::ControlModifier, 1},
                          {Qt::Key_PageDown, Qt::ControlModifier, 1},
                          {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 2},
                          {Qt::Key_PageUp, Qt::ControlModifier, 2}};

/// What can have the focus while a page is shown.
std::vector<QWidget*> FocusableOn(int page) {
    std::vector<QWidget*> found = {&In<qt::TabBox>("TabStrip1").Tabs()};
    const std::string panel = "TabPic(" + std::to_string(page) + ")";
    for (QWidget* widget : In<QWidget>(panel.c_str()).findChildren<QWidget*>())
        if (widget->focusPolicy() != Qt::NoFocus && widget->isVisible() && widget->isEnabled())
            found.push_back(widget);
    return found;
}

TEST_F(AccountsWindow, KeysTurnTheTabsWhateverHasTheFocus) {
    Show([&] {
        ClickItem(0);
        Type("txtAccount", "Rent"); // wakes the buttons
        ClickTab(1);
        Choose("comboTo", 1);
        Choose("comboFrom", 0);
        Type("txtAmount", "10");
        const qt::TabRow& tabs = In<qt::TabBox>("TabStrip1").Tabs();
        std::string walked;
        for (const int page : {0, 1, 2}) {
            ClickTab(page);
            for (QWidget* widget : FocusableOn(page)) {
                walked += widget->objectName().toStdString() + " ";
                for (const auto& [key, with, step] : Turns) {
                    ClickTab(page);
                    widget->setFocus();
                    ASSERT_EQ(QApplication::focusWidget(), widget) << walked;
                    QTest::keyClick(widget, key, with);
                    EXPECT_EQ(tabs.currentIndex(), (page + step) % 3) << walked << key;
                }
            }
        }
        EXPECT_EQ(walked, " AccList txtAccount cmdAdd cmdUpdate  comboFrom txtTotal comboTo txtAmount rDate "
                          "txtDescrip cmdAddReg  rptOpt(0) rptOpt(1) comboAcc chkAll dtMin dtMax cmdPrint ");
    });
    EXPECT_EQ(NewEntries(), "");
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
    FillTenThousand();
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

} // namespace
} // namespace qbrpt::test
