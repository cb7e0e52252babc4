// The general accounts from the command line, and the answers to the question about subscribers.
#include "cli/command_run.h"

#include <gmock/gmock.h>

namespace qbrpt::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Words = std::vector<std::string>;

constexpr const char* Mark = "\xEF\xBB\xBF";

/// The till has 100.5 from a day's takings, gave 40 to the bank and 10 to the safe, which gave 4 back.
class Ledger {
public:
    Ledger() {
        cafe.Change(
            "DELETE FROM account_src; DELETE FROM account_log;"
            "INSERT INTO account_src VALUES (1, 'الصندوق'), (2, 'البنك'), (3, 'Safe'), (10, 'Idle');"
            "INSERT INTO account_log VALUES (0, 1, 1100.5, 45667.5, 'x'), (1, 2, 40, 45668.25, NULL), "
            "(1, 3, 10, 45669.5, ''), (3, 1, 4, 45670.75, 'back')");
    }
    [[nodiscard]] ProgramResult Run(Words words) const {
        words.insert(words.end(), {"--db", cafe.Database()});
        return Qbrpt(words);
    }
    Cafe cafe{1, 1};
};

TEST(AccountsCommand, ListsWhatAccountsHold) {
    const Ledger ledger;
    const ProgramResult list = ledger.Run({"accounts"});
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(list.err, "");
    EXPECT_EQ(list.out,
              " 1  1,054.50  الصندوق\n 2     40.00  البنك\n 3      6.00  Safe\n10      0.00  Idle\n");
}

TEST(AccountsCommand, ListsAsCommaSeparatedValues) {
    const Ledger ledger;
    const std::string table = std::string(Mark) + "accid,name,total\r\n1,الصندوق,1054.5\r\n2,البنك,40\r\n"
                                                  "3,Safe,6\r\n10,Idle,0\r\n";
    EXPECT_EQ(ledger.Run({"accounts", "--csv"}).out, table);
    const ProgramResult toFile = ledger.Run({"accounts", "--csv", ledger.cafe.File("a.csv")});
    EXPECT_EQ(toFile.status, 0);
    EXPECT_EQ(toFile.out + toFile.err, "");
    EXPECT_EQ(ContentOf(ledger.cafe.File("a.csv")), table);
}

TEST(AccountsCommand, ListsOneWithoutANameToo) {
    const Ledger ledger;
    ledger.cafe.Change("UPDATE account_src SET name = NULL WHERE accid = 2");
    EXPECT_EQ(ledger.Run({"accounts"}).out,
              " 1  1,054.50  الصندوق\n 2     40.00  \n 3      6.00  Safe\n10      0.00  Idle\n");
    EXPECT_THAT(ledger.Run({"accounts", "--csv"}).out, HasSubstr("\r\n2,,40\r\n3,Safe,6\r\n"));
    const ProgramResult moves = ledger.Run({"PrintAccountMoves", "2", "--csv", ledger.cafe.File("m.csv")});
    EXPECT_EQ(moves.status, 0) << moves.err;
    EXPECT_EQ(moves.err, "");
}

TEST(AccountsCommand, SaysWhatIsWrong) {
    EXPECT_EQ(Qbrpt({"accounts"}).status, 2);
    const ProgramResult missing = Qbrpt({"accounts", "--db", "none.db"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err, HasSubstr("none.db"));
    const Ledger ledger;
    EXPECT_EQ(ledger.Run({"accounts", "--csv", "/dev/full"}).status, 1);
}

struct MovesRow {
    const char* name;
    Words words;
    std::string table, inside; ///< the rows below the head; "-": no such file
};

class Moves : public ::testing::TestWithParam<MovesRow> {};

TEST_P(Moves, MakeTheirTables) {
    const MovesRow& row = GetParam();
    const Ledger ledger;
    Words words = row.words;
    words.insert(words.end(), {"--csv", ledger.cafe.File("m.csv"), "--pdf", ledger.cafe.File("m.pdf"),
                               "--trace", ledger.cafe.File("m.trace")});
    const ProgramResult result = ledger.Run(words);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out + result.err, "");
    const auto rows = [&](const std::string& name) -> std::string {
        if (!ledger.cafe.Has(name)) return "-";
        const std::string table = ContentOf(ledger.cafe.File(name));
        EXPECT_THAT(table, StartsWith(Mark));
        return table.substr(table.find("\r\n") + 2);
    };
    EXPECT_EQ(rows("m.csv"), row.table);
    EXPECT_EQ(rows("m.rptFrom.csv"), row.inside);
    EXPECT_THAT(ContentOf(ledger.cafe.File("m.pdf")), StartsWith("%PDF-"));
    EXPECT_THAT(ContentOf(ledger.cafe.File("m.trace")), HasSubstr("\"SetTitle\""));
}

const std::string Takings = "صافي الإيراد ليوم 10-01-2025 12:01,1100.5,x,2025-01-10 12:00:00\r\n";
const std::string Back = "Safe,4,back,2025-01-13 18:00:00\r\n";
const std::string ToBank = "البنك,40,,2025-01-11 06:00:00\r\n";
const std::string ToSafe = "Safe,10,,2025-01-12 12:00:00\r\n";

INSTANTIATE_TEST_SUITE_P(
    Rows, Moves,
    ::testing::Values(
        MovesRow{"OfOne", {"PrintAccountMoves", "1"}, Takings + Back, ToBank + ToSafe},
        MovesRow{"OfOneZeroAndZero", {"PrintAccountMoves", "1", "0", "0"}, Takings + Back, ToBank + ToSafe},
        MovesRow{"OfOneInATime",
                 {"PrintAccountMoves", "1", "2025-01-11", "2025-01-12T23:59"},
                 "",
                 ToBank + ToSafe},
        // The end has its time of day: noon lies behind nine o'clock.
        MovesRow{"OfOneUpToAnHour", {"PrintAccountMoves", "1", "2025-01-11", "2025-01-12T09:00"}, "", ToBank},
        MovesRow{"OfOneUpToABound", {"PrintAccountMoves", "1", "45668.25", "45669.5"}, "", ToBank + ToSafe},
        // Noon of the day before rounds to the even day, this one.
        MovesRow{"OfOneDay", {"PrintAccountMoves", "1", "2025-01-11"}, Takings, ToBank},
        // An end of 0 is an end; the bounds of a time may stand in either order.
        MovesRow{"OfOneDownToZero", {"PrintAccountMoves", "1", "45668", "0"}, Takings, ""},
        MovesRow{"OfOneUpToItsBeginning", {"PrintAccountMoves", "1", "45668", "45668"}, Takings, ToBank},
        MovesRow{"IncomingAlone", {"PrintAccountMoves", "2"}, "الصندوق,40,,2025-01-11 06:00:00\r\n", ""},
        MovesRow{"All",
                 {"PrintAllMoves"},
                 "صافي الإيراد ليوم 10-01-2025,الصندوق,1100.5,x,2025-01-10 12:00:00\r\n"
                 "الصندوق,البنك,40,,2025-01-11 06:00:00\r\nالصندوق,Safe,10,,2025-01-12 12:00:00\r\n"
                 "Safe,الصندوق,4,back,2025-01-13 18:00:00\r\n",
                 "-"},
        MovesRow{"AllOfADay",
                 {"PrintAllMoves", "2025-01-11"},
                 "صافي الإيراد ليوم 10-01-2025,الصندوق,1100.5,x,2025-01-10 12:00:00\r\n"
                 "الصندوق,البنك,40,,2025-01-11 06:00:00\r\n",
                 "-"},
        MovesRow{"AllDownToZero",
                 {"PrintAllMoves", "2025-01-11", "0"},
                 "صافي الإيراد ليوم 10-01-2025,الصندوق,1100.5,x,2025-01-10 12:00:00\r\n",
                 "-"},
        MovesRow{"AllUpToAnHour",
                 {"PrintAllMoves", "2025-01-11", "2025-01-12T09:00"},
                 "الصندوق,البنك,40,,2025-01-11 06:00:00\r\n",
                 "-"},
        MovesRow{"AllOfATime",
                 {"PrintAllMoves", "2025-01-11", "2025-01-12"},
                 "الصندوق,البنك,40,,2025-01-11 06:00:00\r\n",
                 "-"}),
    [](const auto& row) { return row.param.name; });

TEST(MovesCommand, NamesTheAccountInTheTitle) {
    const Ledger ledger;
    ASSERT_EQ(ledger.Run({"PrintAccountMoves", "3", "--html", ledger.cafe.File("m.html")}).status, 0);
    EXPECT_THAT(ContentOf(ledger.cafe.File("m.html")), HasSubstr("حركة القيد الخاصة بحساب Safe"));
}

TEST(MovesCommand, WithoutEntriesMakesNothing) {
    const Ledger ledger;
    for (const Words& words : {Words{"PrintAccountMoves", "10"}, Words{"PrintAllMoves", "2030-01-01"}}) {
        Words all = words;
        all.insert(all.end(), {"--csv", ledger.cafe.File("m.csv")});
        EXPECT_EQ(ledger.Run(all).status, 3);
        EXPECT_THAT(ledger.cafe.Names(), ElementsAre("café 1.db"));
    }
    const ProgramResult none = Qbrpt({"PrintAllMoves", "--csv", "-"});
    EXPECT_EQ(none.status, 3);
    EXPECT_THAT(none.err, HasSubstr("no database was given"));
}

TEST(MovesCommand, ATableInADeviceStandsAlone) {
    const Ledger ledger;
    const ProgramResult result = ledger.Run({"PrintAccountMoves", "1", "--csv", "/dev/stdout"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("1100.5"));
}

TEST(MovesCommand, WrongWordsAreWrongUse) {
    const Ledger ledger;
    EXPECT_EQ(ledger.Run({"PrintAccountMoves"}).status, 2);
    EXPECT_EQ(ledger.Run({"PrintAccountMoves", "till"}).status, 2);
    EXPECT_EQ(ledger.Run({"PrintAllMoves", "yesterday"}).status, 2);
    EXPECT_THAT(Qbrpt({"--help"}).out,
                AllOf(HasSubstr("accounts"), HasSubstr("PrintAccountMoves"), HasSubstr("PrintAllMoves")));
    EXPECT_THAT(Qbrpt({"PrintAllMoves", "--help"}).out, HasSubstr("23:59"));
}

struct ChoiceRow {
    const char* name;
    Words words;
    std::string statement; ///< a part of it, as the trace has it
};

class ChooseMembers : public ::testing::TestWithParam<ChoiceRow> {};

TEST_P(ChooseMembers, AnswersTheWindow) {
    const Cafe cafe(30, 8);
    Words words = {"PrintMembersInfo"};
    words.insert(words.end(), GetParam().words.begin(), GetParam().words.end());
    words.insert(words.end(),
                 {"--db", cafe.Database(), "--csv", cafe.File("m.csv"), "--trace", cafe.File("m.trace")});
    const ProgramResult result = Qbrpt(words);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(ContentOf(cafe.File("m.trace")), HasSubstr(GetParam().statement));
    EXPECT_THAT(ContentOf(cafe.File("m.csv")), StartsWith(Mark));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ChooseMembers,
    ::testing::Values(ChoiceRow{"All", {"--choose", "0"}, "mm.id = mi.member_id \\rORDER BY"},
                      ChoiceRow{"Running", {"--choose", "1"}, "WHERE Not mi.ended\\rORDER BY"},
                      ChoiceRow{
                          "RunningFrom",
                          {"--choose", "1", "--from", "2024-12-01", "--to", "2025-02-01"},
                          "WHERE Not mi.ended AND CLng(mi.begindate) BETWEEN 45627 AND 45689\\rORDER BY"},
                      ChoiceRow{"AllGrouped",
                                {"--choose", "0", "--group"},
                                "mi.member_id \\rGROUP BY mm.name, mi.accountname, mm.id\\rORDER BY mm.id;"}),
    [](const auto& row) { return row.param.name; });

TEST(ChooseMembersWrongly, IsWrongUse) {
    const Cafe cafe(1, 1);
    const Words rows[] = {{},
                          {"--choose", "3"},
                          {"--choose", "-1"},
                          {"--from", "2025-01-01"},
                          {"--group"},
                          {"WHERE 1 = 1", "--choose", "0"},
                          {"--choose", "0", "--from", "soon"}};
    for (const Words& row : rows) {
        Words words = {"PrintMembersInfo", "--db", cafe.Database(), "--csv", cafe.File("m.csv")};
        words.insert(words.begin() + 1, row.begin(), row.end());
        EXPECT_EQ(Qbrpt(words).status, 2) << ::testing::PrintToString(row);
    }
    EXPECT_EQ(Qbrpt({"PrintIncome", "0", "0", "0", "--choose", "0"}).status, 2);
}

TEST(EditAccountCommand, NeedsADisplayAndMakesNoFile) {
    const Cafe cafe(1, 1);
    const ProgramResult unseen = Qbrpt({"EditAccount", "--db", cafe.Database()});
    EXPECT_EQ(unseen.status, 1);
    EXPECT_THAT(unseen.err, AllOf(HasSubstr("display"), Not(HasSubstr("Object variable"))));
    EXPECT_EQ(Qbrpt({"EditAccount", "--db", cafe.Database(), "--pdf", cafe.File("a.pdf")}).status, 2);
    EXPECT_EQ(Qbrpt({"EditAccount"}).status, 3);
}

} // namespace
} // namespace qbrpt::test
