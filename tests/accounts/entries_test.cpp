// New entries of the journal: what is refused, what is written, and what becomes of the page.
#include "accounts/window_fixture.h"

namespace qbrpt {
namespace {

using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* SameAccount = "لا يمكن التحويل إلى نفس الحساب مصدر التحويل.";
constexpr const char* WrongAmount = "مبلغ التحويل غير صحيح";

class Entries : public AccountWindowTest {
protected:
    /// The page filled in, from entry 0 to entry 1; the button is clicked whether it is enabled or not.
    void Enter(const std::string& amount, const std::string& description = "بيان") const {
        Choose("comboFrom", 0);
        Choose("comboTo", 1);
        Type("txtAmount", amount);
        Type("txtDescrip", description);
        form->events.Click("cmdAddReg");
    }
    [[nodiscard]] std::string Entered() const {
        return Ask("SELECT acc_from, acc_to, amount, trans_date, descrip FROM account_log WHERE rowid > 2");
    }
    void ExpectFreshPage() const {
        EXPECT_EQ(Text("txtAmount")->text, "0");
        EXPECT_EQ(Text("txtDescrip")->text, "");
        EXPECT_EQ(Combo("comboFrom")->focused, 1);
        EXPECT_FALSE(Button("cmdAddReg")->enabled);
    }
};

struct AmountRow {
    const char* name;
    double balance;
    std::string typed;
    std::string written; ///< empty: refused
};

class Amounts : public Entries, public ::testing::WithParamInterface<AmountRow> {};

TEST_P(Amounts, AreComparedWithTheWholeBalance) {
    const AmountRow& row = GetParam();
    Native("INSERT INTO account_src VALUES (1, 'a'), (2, 'b'); INSERT INTO account_log VALUES (0, 1, " +
           std::to_string(row.balance) + ", 37780, '')");
    Show([&] {
        ChooseTab(2);
        Enter(row.typed);
        if (row.written.empty()) {
            EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{WrongAmount, 0x80010, "qbrpt"}));
            EXPECT_EQ(Text("txtAmount")->focused, 1);
            EXPECT_EQ(Text("txtAmount")->text, row.typed);
            EXPECT_EQ(Text("txtDescrip")->text, "بيان");
        } else {
            EXPECT_THAT(Boxes(), IsEmpty());
            ExpectFreshPage();
        }
    });
    EXPECT_EQ(Ask("SELECT amount FROM account_log WHERE rowid > 1"), row.written);
}

const AmountRow AmountRows[] = {
    {"Below", 100, "40", "40.0"},
    {"Equal", 100, "100", "100.0"},
    {"Above", 100, "101", ""},
    {"AFractionAbove", 100, "100.01", ""},
    {"Zero", 100, "0", ""},
    {"Nothing", 100, "", ""},
    {"APoint", 100, ".", ""},
    {"Words", 100, "ten", ""},
    {"NumberAtTheHead", 100, "12 pounds", "12.0"},
    {"AboveTheWholePartOfAHalf", 100.5, "100.25", ""},
    {"TheWholePartOfAHalf", 100.5, "100", "100.0"},
    {"AHalfThatRoundsUp", 101.5, "102", "102.0"},
    {"LessThanHalfIsNothing", 0.5, "0.25", ""},
    {"MoreThanHalfIsOne", 0.75, "1", "1.0"},
    {"FromNothing", 0, "1", ""},
    {"BelowNothing", -5, "1", ""},
    // The button sleeps on it; where the entry is made all the same, only 0 and too much are refused.
    {"Negative", 100, "-5", "-5.0"},
    {"NegativeFromNothing", 0, "-5", "-5.0"},
    {"TooLargeForANumber", 100, std::string(400, '9'), ""},
    {"TooLargeForANumberFromBelowNothing", -5, std::string(400, '9'), ""},
    {"TooSmallForANumber", 100, "." + std::string(400, '0') + "1", ""},
    {"FifteenDigits", 1000, "0.3000000000000001", "0.3"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Amounts, ::testing::ValuesIn(AmountRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(Entries, AreWrittenAsTheyStandThere) {
    FillLedger();
    platform.clock->now = 38'000.5;
    Show([&] {
        ChooseTab(2);
        Of<fakes::FakeDatePicker>("rDate")->value = 37'999.25;
        Enter("60", "إلى البنك");
        ExpectFreshPage();
        EXPECT_EQ(Text("txtTotal")->text, "40.5") << "what is left";
        EXPECT_EQ(Of<fakes::FakeDatePicker>("rDate")->value, 37'999.25) << "the next entry keeps the date";
        EXPECT_EQ(Items().at(0), "1| Till/100.50") << "before the next change of tab";
        ChooseTab(1);
        EXPECT_EQ(Items().at(0), "1| Till/40.50");
        EXPECT_EQ(Text("txtTotal")->text, "0.0");
    });
    EXPECT_EQ(Entered(), "1|2|60.0|37999.25|إلى البنك");
}

TEST_F(Entries, GoInTheirOrder) {
    FillLedger();
    Show([&] {
        ChooseTab(2);
        Choose("comboFrom", 0);
        Choose("comboTo", 1);
        Type("txtAmount", "60");
        const auto log = std::make_shared<fakes::CallLog>();
        fakes::FakePlatform::Observe(log);
        Press("cmdAddReg");
        const std::string balance =
            "DAO.Database.OpenRecordset(\"SELECT IIf(Sum(amount) Is Null, 0, "
            "Sum(amount))-(SELECT IIf(Sum(amount) Is Null, 0, Sum(amount)) FROM "
            "account_log WHERE acc_from = 1) FROM account_log WHERE acc_to = 1\", null)";
        EXPECT_THAT(log->LinesOf({"DAO.Database", "DAO.Transaction", "TextBox.SetText", "Control.SetFocus",
                                  "CommandButton.SetDefault"}),
                    ElementsAre("DAO.Database.BeginTrans()", balance,
                                "DAO.Database.Execute(\"INSERT INTO account_log(acc_from, acc_to, amount, "
                                "trans_date, descrip) VALUES(1, 2, 60, 38000.5, '')\")",
                                "DAO.Transaction.Commit()", "TextBox.SetText(\"0\")", "TextBox.SetText(\"\")",
                                balance, "TextBox.SetText(\"40.5\")", "Control.SetFocus()"));
    });
}

TEST_F(Entries, OfANegativeAmountDoNotWakeTheButton) {
    FillLedger();
    Show([&] {
        ChooseTab(2);
        Choose("comboFrom", 0);
        Choose("comboTo", 1);
        const std::pair<const char*, bool> amounts[] = {
            {"-5", false}, {"5", true}, {"0", false}, {"0.01", true}, {"-0", false}};
        for (const auto& [amount, awake] : amounts) {
            Type("txtAmount", amount);
            EXPECT_EQ(Button("cmdAddReg")->enabled, awake) << amount;
        }
        Type("txtAmount", std::string(400, '9'));
        EXPECT_TRUE(Button("cmdAddReg")->enabled)
            << "it is above 0; what is too much is said when it is entered";
    });
}

TEST_F(Entries, FromAnAccountToItselfAreRefused) {
    FillLedger();
    Show([&] {
        ChooseTab(2);
        Choose("comboFrom", 1);
        Choose("comboTo", 1);
        Type("txtAmount", "5");
        EXPECT_FALSE(Button("cmdAddReg")->enabled);
        form->events.Click("cmdAddReg");
        EXPECT_EQ(Combo("comboTo")->focused, 1);
        EXPECT_EQ(Text("txtAmount")->text, "5");
    });
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{SameAccount, 0x80010, "qbrpt"}));
    EXPECT_EQ(Entered(), "");
}

TEST_F(Entries, OfNoAccountsAtAllAreOfTheSameOne) {
    Show([&] {
        ChooseTab(2);
        form->events.Click("cmdAddReg");
    });
    EXPECT_THAT(Boxes(), ElementsAre(SameAccount));
}

// As told: the user is not bothered, and the entry is lost with all that was typed.
TEST_F(Entries, WithAnApostropheAreLostInSilence) {
    FillLedger();
    Show([&] {
        ChooseTab(2);
        Enter("60", "it's");
        ExpectFreshPage();
        EXPECT_EQ(Text("txtTotal")->text, "100.5");
        Enter("60", "it is");
    });
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Ask("SELECT descrip FROM account_log WHERE rowid > 2"), "it is");
    EXPECT_NE(sqlite3_get_autocommit(handle), 0);
}

// The box may show what somebody else has spent since.
TEST_F(Entries, AreJudgedByTheJournalAndNotByTheBox) {
    FillLedger();
    Show([&] {
        ChooseTab(2);
        Choose("comboFrom", 0);
        Choose("comboTo", 1);
        Type("txtAmount", "60");
        Native("INSERT INTO account_log VALUES (1, 3, 50, 37785, '')");
        EXPECT_EQ(Text("txtTotal")->text, "100.5");
        Press("cmdAddReg");
    });
    EXPECT_THAT(Boxes(), ElementsAre(WrongAmount));
}

TEST_F(Entries, EndTheirTransactionBeforeAnythingIsShown) {
    FillLedger();
    std::vector<bool> open;
    class Boxes final : public MessageBoxes {
    public:
        Boxes(sqlite3* database, std::vector<bool>& seen) : mDatabase(database), mSeen(seen) {}

    private:
        BoxAnswer DoMsgBox(const std::string&, int, const std::string&) override {
            mSeen.push_back(sqlite3_get_autocommit(mDatabase) == 0);
            return BoxAnswer::Ok;
        }
        sqlite3* mDatabase;
        std::vector<bool>& mSeen;
    };
    Platform::Current().messages = std::make_shared<Boxes>(handle, open);
    Show([&] {
        ChooseTab(2);
        Enter("1000");
    });
    EXPECT_THAT(open, ElementsAre(false));
}

TEST_F(Entries, ArePartOfTheHostsTransaction) {
    FillLedger();
    Native("BEGIN");
    Show([&] {
        ChooseTab(2);
        Enter("60");
        Enter("it", "refused: an amount of nothing");
        Enter("10", "it's lost");
        Enter("20");
    });
    EXPECT_EQ(sqlite3_get_autocommit(handle), 0);
    EXPECT_EQ(Ask("SELECT amount FROM account_log WHERE rowid > 2"), "60.0 20.0");
    Native("ROLLBACK");
    EXPECT_EQ(Entered(), "");
}

struct KeyRow {
    const char* name;
    std::string text;
    std::int16_t key, taken;
};

class AmountKeys : public Entries, public ::testing::WithParamInterface<KeyRow> {};

TEST_P(AmountKeys, AreDigitsAndOnePoint) {
    const KeyRow& row = GetParam();
    Show([&] {
        Type("txtAmount", row.text);
        EXPECT_EQ(form->events.KeyPress("txtAmount", row.key), row.taken);
        EXPECT_EQ(form->events.KeyPress("txtAccount", row.key), row.key) << "a name takes anything";
    });
}

const KeyRow Keys[] = {
    {"Digit", "12", '3', '3'}, {"Point", "12", '.', '.'}, {"SecondPoint", "1.2", '.', 0},
    {"Minus", "", '-', 0},     {"Letter", "1", 'a', 0},   {"Backspace", "1", 8, 8},
    {"Enter", "1", 13, 13},    {"Blank", "1", ' ', 0},    {"NoMaximum", "99999999999999", '9', '9'}};
INSTANTIATE_TEST_SUITE_P(Rows, AmountKeys, ::testing::ValuesIn(Keys),
                         [](const auto& row) { return row.param.name; });

struct BalanceRow {
    const char* name;
    double amount;
    const char* shown;
};

class ShownBalance : public Entries, public ::testing::WithParamInterface<BalanceRow> {};

TEST_P(ShownBalance, IsPlain) {
    Native("INSERT INTO account_src VALUES (1, 'a'); INSERT INTO account_log VALUES (0, 1, " +
           std::to_string(GetParam().amount) + ", 37780, '')");
    Show([&] {
        Choose("comboFrom", 0);
        EXPECT_EQ(Text("txtTotal")->text, GetParam().shown);
        EXPECT_FALSE(Button("cmdAddReg")->enabled);
    });
}

const BalanceRow Balances[] = {
    {"Whole", 1500, "1500"}, {"Half", 100.5, "100.5"}, {"Nothing", 0, "0"}, {"Below", -3.25, "-3.25"}};
INSTANTIATE_TEST_SUITE_P(Rows, ShownBalance, ::testing::ValuesIn(Balances),
                         [](const auto& row) { return row.param.name; });

TEST_F(Entries, ABalanceThatCannotBeReadIsSaid) {
    FillLedger();
    Show([&] {
        Native("DROP TABLE account_log");
        Choose("comboFrom", 0);
    });
    ASSERT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(platform.messages->boxes[0].style, 16);
}

} // namespace
} // namespace qbrpt
