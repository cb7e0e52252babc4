// Which buttons can be pressed, and which one answers to the enter key.
#include "accounts/window_fixture.h"

namespace qbrpt {
namespace {

struct CommandRow {
    const char* name;
    std::string typed;     ///< into txtAccount
    std::int32_t item;     ///< selected in the list; 0: none
    std::int32_t from, to; ///< entries; -1: none
    std::string total, amount;
    std::int16_t tab;
    std::string enabled; ///< the first letters of Add, Update, Post
    std::string isDefault;
};

class RefreshCommands : public AccountWindowTest, public ::testing::WithParamInterface<CommandRow> {};

TEST_P(RefreshCommands, FollowsFromWhatStandsThere) {
    const CommandRow& row = GetParam();
    FillLedger();
    Show([&] {
        ChooseTab(row.tab);
        List()->selected = row.item;
        Combo("comboFrom")->listIndex = row.from;
        Combo("comboTo")->listIndex = row.to;
        Text("txtTotal")->text = row.total;
        Text("txtAmount")->text = row.amount;
        Type("txtAccount", "?"); // so that the next is a change
        for (const char* button : {"cmdAdd", "cmdUpdate", "cmdAddReg"})
            Button(button)->isDefault = false;
        Type("txtAccount", row.typed);
        std::string enabled;
        if (Button("cmdAdd")->enabled) enabled += "A";
        if (Button("cmdUpdate")->enabled) enabled += "U";
        if (Button("cmdAddReg")->enabled) enabled += "P";
        EXPECT_EQ(enabled, row.enabled);
        EXPECT_EQ(DefaultButton(), row.isDefault);
    });
    EXPECT_THAT(Boxes(), ::testing::IsEmpty());
}

const CommandRow Rows[] = {
    {"NothingTyped", "", 0, -1, -1, "0.0", "", 1, "", ""},
    {"NothingTypedItemSelected", "", 1, -1, -1, "0.0", "", 1, "", ""},
    {"BlanksOnly", "   ", 1, -1, -1, "0.0", "", 1, "", ""},
    {"NewName", "Desk", 0, -1, -1, "0.0", "", 1, "A", "cmdAdd"},
    {"NewNameItemSelected", "Desk", 2, -1, -1, "0.0", "", 1, "AU", "cmdAdd"},
    {"NewNameWithBlanksAround", " Desk ", 2, -1, -1, "0.0", "", 1, "AU", "cmdAdd"},
    {"KnownName", "Safe", 1, -1, -1, "0.0", "", 1, "", ""},
    {"KnownNameInOtherLetters", "sAFE", 1, -1, -1, "0.0", "", 1, "", ""},
    {"KnownNameThatComesFirst", "TILL", 1, -1, -1, "0.0", "", 1, "", ""},
    {"KnownArabicName", "البنك", 1, -1, -1, "0.0", "", 1, "", ""},
    {"KnownNameWithABlankMore", "Safe ", 1, -1, -1, "0.0", "", 1, "AU", "cmdAdd"},
    {"PartOfAKnownName", "Saf", 0, -1, -1, "0.0", "", 1, "A", "cmdAdd"},
    {"Transfer", "", 0, 0, 1, "100.5", "5", 2, "P", "cmdAddReg"},
    {"TransferOnTheFirstPage", "", 0, 0, 1, "100.5", "5", 1, "P", ""},
    {"TransferOnTheThirdPage", "", 0, 0, 1, "100.5", "5", 3, "P", ""},
    {"TransferAboveTheBalanceIsForTheClickToRefuse", "", 0, 0, 1, "100.5", "500", 2, "P", "cmdAddReg"},
    {"TransferAndNewName", "Desk", 2, 0, 1, "100.5", "5", 2, "AUP", "cmdAddReg"},
    {"TransferAndNewNameOnTheFirstPage", "Desk", 2, 0, 1, "100.5", "5", 1, "AUP", "cmdAdd"},
    {"NewNameWithoutATransfer", "Desk", 0, 0, 1, "100.5", "0", 2, "A", "cmdAdd"},
    {"SameAccountTwice", "", 0, 1, 1, "100.5", "5", 2, "", ""},
    {"NoReceiver", "", 0, 1, -1, "100.5", "5", 2, "", ""},
    {"NoGiver", "", 0, -1, 1, "100.5", "5", 2, "P", "cmdAddReg"},
    {"NoAccounts", "", 0, -1, -1, "100.5", "5", 2, "", ""},
    {"NothingThere", "", 0, 0, 1, "0", "5", 2, "", ""},
    {"NothingReadYet", "", 0, 0, 1, "0.0", "5", 2, "", ""},
    {"LessThanNothingThere", "", 0, 0, 1, "-3", "5", 2, "", ""},
    {"BalanceInWords", "", 0, 0, 1, "much", "5", 2, "", ""},
    {"AmountOfZero", "", 0, 0, 1, "100.5", "0", 2, "", ""},
    {"NoAmount", "", 0, 0, 1, "100.5", "", 2, "", ""},
    {"APointAlone", "", 0, 0, 1, "100.5", ".", 2, "", ""},
    {"AFraction", "", 0, 0, 1, "0.5", ".25", 2, "P", "cmdAddReg"},
};
INSTANTIATE_TEST_SUITE_P(Rows, RefreshCommands, ::testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.name; });

class Receivers : public AccountWindowTest {};

// The rule asks for an account's number of 1 or more, whatever entry that is.
TEST_F(Receivers, BelowOneAreNone) {
    Native("INSERT INTO account_src VALUES (5, 'a'), (0, 'zero'), (-2, 'below'), (1, 'one')");
    Show([&] {
        const std::pair<std::int32_t, bool> rows[] = {{1, false}, {2, false}, {3, true}};
        for (const auto& [entry, enabled] : rows) {
            Choose("comboFrom", 0);
            Choose("comboTo", entry);
            Text("txtTotal")->text = "10";
            Type("txtAmount", "");
            Type("txtAmount", "1");
            EXPECT_EQ(Button("cmdAddReg")->enabled, enabled) << entry;
        }
    });
}

// Choosing accounts does not wake the button: the amount must be touched.
TEST_F(AccountWindowTest, ChoosingAccountsAloneDoesNotWakeTheButton) {
    FillLedger();
    Show([&] {
        ChooseTab(2);
        Type("txtAmount", "5");
        Choose("comboFrom", 0);
        Choose("comboTo", 1);
        EXPECT_FALSE(Button("cmdAddReg")->enabled);
        Type("txtAmount", "50");
        EXPECT_TRUE(Button("cmdAddReg")->enabled);
    });
}

} // namespace
} // namespace qbrpt
