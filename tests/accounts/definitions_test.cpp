// Accounts are made and renamed, and the lists follow.
#include "accounts/window_fixture.h"

namespace qbrpt {
namespace {

using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(AccountWindowTest, OpensWithWhatStandsInTheTables) {
    FillLedger();
    Show([&] {
        EXPECT_EQ(form->caption, "الحسابات العامة");
        EXPECT_THAT(Items(), ElementsAre("1| Till/100.50", "2| البنك/40.00", "3| Safe/.00"));
        for (const char* combo : {"comboFrom", "comboTo", "comboAcc"}) {
            EXPECT_THAT(Combo(combo)->items, ElementsAre("Till", "البنك", "Safe"));
            EXPECT_THAT(Combo(combo)->itemData, ElementsAre(1, 2, 3));
            EXPECT_EQ(Combo(combo)->listIndex, -1);
        }
        EXPECT_EQ(Text("txtTotal")->text, "0.0");
        EXPECT_EQ(DefaultButton(), "");
    });
    EXPECT_THAT(Boxes(), IsEmpty());
}

struct TotalRow {
    const char* name;
    double amount;
    const char* shown;
};

class ShownTotals : public AccountWindowTest, public ::testing::WithParamInterface<TotalRow> {};

TEST_P(ShownTotals, FollowTheirPicture) {
    Native("INSERT INTO account_src VALUES (1, 'a'); INSERT INTO account_log VALUES (0, 1, " +
           std::to_string(GetParam().amount) + ", 37780, '')");
    Show([&] { EXPECT_EQ(List()->items.at(0).subItems.at(0), GetParam().shown); });
}

const TotalRow Totals[] = {{"Whole", 5, "5.00"},
                           {"Thousands", 1234567.891, "1,234,567.89"},
                           {"Fraction", 0.5, ".50"},
                           {"Negative", -12.25, "-12.25"},
                           {"Nothing", 0, ".00"}};
INSTANTIATE_TEST_SUITE_P(Rows, ShownTotals, ::testing::ValuesIn(Totals),
                         [](const auto& row) { return row.param.name; });

TEST_F(AccountWindowTest, TheFirstAccountIsNumberOne) {
    Show([&] {
        EXPECT_THAT(Items(), IsEmpty());
        Type("txtAccount", "الصندوق");
        Press("cmdAdd");
        EXPECT_THAT(Items(), ElementsAre("1| الصندوق/0.0"));
        EXPECT_EQ(Text("txtAccount")->text, "");
        EXPECT_EQ(Text("txtAccount")->focused, 1);
        EXPECT_FALSE(Button("cmdAdd")->enabled);
        EXPECT_THAT(Combo("comboFrom")->items, IsEmpty()) << "before the next change of tab";
    });
    EXPECT_EQ(Ask("SELECT * FROM account_src"), "1|الصندوق");
}

struct NumberRow {
    const char* name;
    const char* accounts; ///< values of the table; empty: none
    const char* removed;  ///< numbers that somebody else has taken out again
    const char* item;     ///< of the new account
};

class NewNumbers : public AccountWindowTest, public ::testing::WithParamInterface<NumberRow> {};

TEST_P(NewNumbers, AreOneAboveTheHighest) {
    const NumberRow& row = GetParam();
    if (*row.accounts != '\0') Native("INSERT INTO account_src VALUES " + std::string(row.accounts));
    Native("DELETE FROM account_src WHERE accid IN (" + std::string(row.removed) + ")");
    Show([&] {
        Type("txtAccount", "new");
        Press("cmdAdd");
        EXPECT_EQ(Items().back(), row.item);
    });
    EXPECT_EQ(Ask("SELECT accid || '| ' || name || '/0.0' FROM account_src WHERE name = 'new'"), row.item);
}

const NumberRow NewNumberRows[] = {
    {"First", "", "", "1| new/0.0"},
    {"GapsStayGaps", "(1, 'a'), (5, 'b')", "", "6| new/0.0"},
    {"OneInTheMiddleIsGone", "(1, 'a'), (2, 'b'), (3, 'c')", "2", "4| new/0.0"},
    {"TheHighestIsGone", "(1, 'a'), (2, 'b'), (3, 'c')", "3", "3| new/0.0"},
    {"AllAreGone", "(1, 'a'), (2, 'b')", "1, 2", "1| new/0.0"},
    {"NegativesAlone", "(-7, 'a'), (-3, 'b')", "", "-2| new/0.0"},
    {"MinusOneAlone", "(-1, 'a')", "", "0| new/0.0"},
};
INSTANTIATE_TEST_SUITE_P(Rows, NewNumbers, ::testing::ValuesIn(NewNumberRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(AccountWindowTest, ANewAccountReachesTheOtherListsWithTheTab) {
    FillLedger();
    Show([&] {
        Type("txtAccount", " Desk ");
        Press("cmdAdd");
        ChooseTab(1); // it is the current one
        EXPECT_EQ(Combo("comboFrom")->items.size(), 3U);
        ChooseTab(2);
        EXPECT_THAT(Combo("comboFrom")->items, ElementsAre("Till", "البنك", "Safe", " Desk "));
        EXPECT_THAT(Combo("comboAcc")->itemData, ElementsAre(1, 2, 3, 4));
        EXPECT_EQ(Items().at(3), "4|  Desk /.00") << "read again with its picture";
        const auto log = std::make_shared<fakes::CallLog>();
        fakes::FakePlatform::Observe(log);
        ChooseTab(3);
        EXPECT_THAT(log->LinesOf({"DAO."}), IsEmpty()) << "nothing has changed since";
    });
}

TEST_F(AccountWindowTest, ARenamedAccountKeepsItsOldNameInTheOtherLists) {
    FillLedger();
    Show([&] {
        ClickItem(2);
        EXPECT_EQ(Text("txtAccount")->text, "البنك");
        EXPECT_FALSE(Button("cmdUpdate")->enabled);
        Type("txtAccount", "Bank 2");
        Press("cmdUpdate");
        EXPECT_EQ(Items().at(1), "2| Bank 2/40.00");
        EXPECT_EQ(Text("txtAccount")->text, "");
        EXPECT_EQ(Text("txtAccount")->focused, 1);
        ChooseTab(2);
        EXPECT_THAT(Combo("comboFrom")->items, ElementsAre("Till", "البنك", "Safe"));
    });
    EXPECT_EQ(Ask("SELECT name FROM account_src WHERE accid = 2"), "Bank 2");
    EXPECT_EQ(Ask("SELECT count(*) FROM account_src"), "3");
}

TEST_F(AccountWindowTest, ARenameOfAnAccountThatIsGoneChangesNothing) {
    FillLedger();
    Show([&] {
        ClickItem(3);
        Type("txtAccount", "Other");
        Native("DELETE FROM account_src WHERE accid = 3");
        Press("cmdUpdate");
        EXPECT_EQ(Items().at(2), "3| Safe/.00");
        EXPECT_EQ(Text("txtAccount")->text, "Other");
        EXPECT_EQ(Text("txtAccount")->focused, 0);
    });
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(AccountWindowTest, AnApostropheInANameEndsInTheMessageAndLeavesAllAsItWas) {
    FillLedger();
    Show([&] {
        Type("txtAccount", "O'Brien");
        Press("cmdAdd");
        ASSERT_EQ(platform.messages->boxes.size(), 1U);
        EXPECT_EQ(platform.messages->boxes[0].style, 16);
        EXPECT_EQ(platform.messages->boxes[0].title, "qbrpt");
        EXPECT_EQ(Items().size(), 3U);
        EXPECT_EQ(Text("txtAccount")->text, "O'Brien");
        ClickItem(1);
        Type("txtAccount", "O'Brien");
        Press("cmdUpdate");
        EXPECT_EQ(platform.messages->boxes.size(), 2U);
        EXPECT_EQ(Items().at(0), "1| Till/100.50");
        EXPECT_EQ(Text("txtAccount")->text, "O'Brien");
    });
    EXPECT_EQ(Ask("SELECT name FROM account_src"), "Till البنك Safe");
}

TEST_F(AccountWindowTest, ItemsCannotBeEditedInPlaceAndADoubleClickGoesToTheName) {
    FillLedger();
    Show([&] {
        EXPECT_FALSE(form->events.BeforeLabelEdit("AccList"));
        form->events.DblClick("AccList");
        EXPECT_EQ(Text("txtAccount")->focused, 1);
        Text("txtAccount")->enabled = false;
        form->events.DblClick("AccList");
    });
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(AccountWindowTest, TheFocusSelectsTheWholeName) {
    Show([&] {
        for (const char* box : {"txtAccount", "txtAmount"}) {
            Type(box, "الصندوق 2");
            Text(box)->selStart = 4;
            form->events.GotFocus(box);
            EXPECT_EQ(Text(box)->selStart, 0);
            EXPECT_EQ(Text(box)->selLength, 9);
        }
    });
}

struct NameRow {
    const char* name;
    const char* there;
    const char* typed;
    bool known;
};

class TypedNames : public AccountWindowTest, public ::testing::WithParamInterface<NameRow> {};

TEST_P(TypedNames, AreFoundInAnyCase) {
    const NameRow& row = GetParam();
    Native("INSERT INTO account_src VALUES (1, 'Till'), (2, '" + std::string(row.there) + "')");
    Show([&] {
        ClickItem(1);
        Type("txtAccount", row.typed);
        EXPECT_EQ(Button("cmdAdd")->enabled, !row.known);
        EXPECT_EQ(Button("cmdUpdate")->enabled, !row.known);
    });
}

const NameRow TypedNameRows[] = {{"Latin", "Safe", "sAFE", true},
                                 {"Accent", "CAFÉ", "café", true},
                                 {"Cyrillic", "Сейф", "сейф", true},
                                 {"Greek", "ΑΒΓ", "αβγ", true},
                                 {"Arabic", "الخزنة", "الخزنة", true},
                                 {"ABlankMore", "Safe", "Safe ", false},
                                 {"NoAccent", "CAFÉ", "cafe", false},
                                 {"HamzaOnTheAlef", "احمد", "أحمد", false},
                                 {"TwoLettersForOne", "Straße", "Strasse", false}};
INSTANTIATE_TEST_SUITE_P(Rows, TypedNames, ::testing::ValuesIn(TypedNameRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(AccountWindowTest, WithoutItsTablesSaysSoAndOpensAllTheSame) {
    Native("DROP TABLE account_log");
    bool shown = false;
    Show([&] { shown = true; });
    EXPECT_TRUE(shown);
    ASSERT_EQ(platform.messages->boxes.size(), 1U);
    EXPECT_EQ(platform.messages->boxes[0].style, 16);
    EXPECT_THAT(Boxes()[0], ::testing::HasSubstr("account_log"));
}

TEST_F(AccountWindowTest, AnAccountWithoutANameStandsAmongTheOthersAndCanGetOne) {
    FillLedger();
    Native("INSERT INTO account_src VALUES (4, NULL), (5, 'Desk')");
    Show([&] {
        EXPECT_THAT(Items(),
                    ElementsAre("1| Till/100.50", "2| البنك/40.00", "3| Safe/.00", "4| /.00", "5| Desk/.00"));
        for (const char* combo : {"comboFrom", "comboTo", "comboAcc"}) {
            EXPECT_THAT(Combo(combo)->items, ElementsAre("Till", "البنك", "Safe", "", "Desk"));
            EXPECT_THAT(Combo(combo)->itemData, ElementsAre(1, 2, 3, 4, 5));
        }
        ClickItem(4);
        EXPECT_EQ(Text("txtAccount")->text, "");
        EXPECT_FALSE(Button("cmdAdd")->enabled);
        Type("txtAccount", "Petty cash");
        Press("cmdUpdate");
        EXPECT_EQ(Items().at(3), "4| Petty cash/.00");
    });
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Ask("SELECT name FROM account_src WHERE accid = 4"), "Petty cash");
}

TEST_F(AccountWindowTest, ANumberThatStandsTwiceStopsTheReadingOfTheLists) {
    Native("INSERT INTO account_src VALUES (4, 'a'), (4, 'b')");
    Show([&] { EXPECT_EQ(Items().size(), 1U); });
    ASSERT_EQ(Boxes().size(), 1U);
    EXPECT_THAT(Boxes()[0], ::testing::HasSubstr("4|"));
}

TEST_F(AccountWindowTest, ManyAccountsAreAllThere) {
    Native("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 10000) INSERT INTO "
           "account_src SELECT i, 'account ' || i FROM n");
    Show([&] {
        EXPECT_EQ(List()->items.size(), 10'000U);
        EXPECT_EQ(Combo("comboAcc")->itemData.back(), 10'000);
        Type("txtAccount", "ACCOUNT 10000");
        EXPECT_FALSE(Button("cmdAdd")->enabled);
    });
}

TEST_F(AccountWindowTest, IsLoadedAnewAtEachShowing) {
    FillLedger();
    Show([&] {
        ChooseTab(3);
        Type("txtAccount", "rest");
    });
    Show([&] {
        EXPECT_EQ(Text("txtAccount")->text, "");
        EXPECT_TRUE(Panel(0)->visible);
        EXPECT_FALSE(Panel(2)->visible);
    });
    EXPECT_EQ(platform.forms->built, 2);
}

TEST_F(AccountWindowTest, ASecondOneWhileItIsOpenIsRefused) {
    Show([&] { frmAccount::Instance().EditAccount(db); });
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"The window of the accounts is open already.", 16, "qbrpt"}));
    EXPECT_EQ(platform.forms->built, 1);
}

} // namespace
} // namespace qbrpt
