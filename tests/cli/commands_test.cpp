// Every report command of the built program: its files and its trace, no rows, and host queries gone wrong.
#include "cli/command_run.h"
#include "fakes/card_queries.h"

#include <gmock/gmock.h>

#include <ostream>

namespace qbrpt::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Words = std::vector<std::string>;

struct CommandRow {
    const char* name;
    Words words;
    const char* templateName;
    const char* head; ///< of the table
};

void PrintTo(const CommandRow& row, std::ostream* stream) {
    *stream << row.name;
}

class EveryCommand : public ::testing::TestWithParam<CommandRow> {};

TEST_P(EveryCommand, MakesItsFiles) {
    const Cafe cafe(4, 12);
    Words words = GetParam().words;
    for (std::string& word : words)
        if (word == "(card)") word = cafe.Ask("SELECT min(active_membership) FROM local_log WHERE utype = 1");
    words.insert(words.end(),
                 {"--db", cafe.Database(), "--pdf", cafe.File("r.pdf"), "--csv", cafe.File("r.csv"),
                  "--trace", cafe.File("r.trace"), "--title", "مقهى النخيل"});
    const ProgramResult result = Qbrpt(words);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db", "r.csv", "r.pdf", "r.trace"));
    EXPECT_THAT(ContentOf(cafe.File("r.pdf")), StartsWith("%PDF-"));
    const std::string table = ContentOf(cafe.File("r.csv"));
    EXPECT_THAT(table, StartsWith("\xEF\xBB\xBF" + std::string(GetParam().head)));
    EXPECT_NE(table.find('\n'), table.size() - 1) << "a row under the head";
    EXPECT_THAT(ContentOf(cafe.File("r.trace")),
                AllOf(HasSubstr("\"" + std::string(GetParam().templateName) + "\""),
                      HasSubstr("\"SetHotelInfo\""), HasSubstr("مقهى النخيل")));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EveryCommand,
    ::testing::Values(
        CommandRow{"PrintIncome", {"PrintIncome", "1", "3", "0"}, "IncomeGrpRpt", "mdate,edate,date,"},
        CommandRow{
            "PrintMemberUsage", {"PrintMemberUsage", "0", "0"}, "MemberUseRpt", "user_name,membership,"},
        CommandRow{"PrintPPUsage", {"PrintPPUsage", "0", "(card)"}, "MemberUseRpt", "user_name,membership,"},
        CommandRow{"PrintPCUsage",
                   {"PrintPCUsage", "2025-01-01", "2025-01-04T12:30"},
                   "pcIncomeRpt",
                   "pcname,memb_time,"},
        CommandRow{
            "PrintPCUsageAllTime", {"PrintPCUsage", "0", "0", "1"}, "pcIncomeRpt", "pcname,memb_time,"},
        CommandRow{"PrintInternetUsage",
                   {"PrintInternetUsage", "2025-01-01", "2025-01-04"},
                   "InternetTimerpt",
                   "device_name,use_Date,use_time"},
        CommandRow{"PrintInternetUsageByDay",
                   {"PrintInternetUsage", "0", "0", "0"},
                   "InternetTimerpt",
                   "device_name,use_Date,use_time"},
        CommandRow{
            "PrintMembersIncom", {"PrintMembersIncom", "0", "0"}, "MembersPay", "paydate,name,amount,"},
        CommandRow{"PrintPayout", {"PrintPayout", "0", "0"}, "PayOutRpt", "amount,pay_date,details"},
        CommandRow{"PrintUsage", {"PrintUsage", "1", "3", "0"}, "UsageRpt", "host_name,user_name,use_begin,"},
        CommandRow{
            "PrintOtherIncome", {"PrintOtherIncome", "0", "0"}, "OutIncome", "amount,pay_date,details"},
        CommandRow{"PrintServicesIncome",
                   {"PrintServicesIncome", "0", "0"},
                   "ServicesRpt",
                   "details,itemCount,Price,"},
        CommandRow{"PrintMembersInfo",
                   {"PrintMembersInfo", "WHERE Not members_info.ended"},
                   "MembersInfo",
                   "Name,membership,begindate,"},
        CommandRow{
            "PrintUsersIncome", {"PrintUsersIncome", "1", "4"}, "SPVIncome", "userid,usedate,spvname,"},
        CommandRow{
            "PrintPPCards", {"PrintPPCards", fakes::CardsQuery}, "rptPPCards", "account,serial1,id1,pass1,"},
        CommandRow{"PrintPPInfo",
                   {"PrintPPInfo", fakes::CardListQuery, "بطاقات"},
                   "rptPPIncome",
                   "acctid,name,srcdisabled,"},
        CommandRow{"PrintAudit", {"PrintAudit"}, "rptAudit", "type,date,user_name,details"},
        CommandRow{"PrintPrintLog", {"PrintPrintLog", "0", "0"}, "rptPrintLog", "printer,machine,date,"}),
    [](const auto& row) { return row.param.name; });

TEST(Commands, WithoutRowsMakeNothing) {
    const Cafe cafe;
    struct Row {
        Words words;
        const char* said;
    };
    for (const Row& row :
         {Row{{"PrintMembersIncom", "999", "999"}, "qbrpt: No Data\n"},
          Row{{"PrintMembersInfo", "WHERE members.id < 0"}, "qbrpt: لا توجد بيانات للطباعة.\n"},
          Row{{"PrintPayout", "999", "999"}, ""}, Row{{"PrintPCUsage", "0", "0", "999"}, ""},
          Row{{"PrintUsersIncome", "999", "999"}, ""},
          Row{{"PrintPPCards", "SELECT name FROM members WHERE id < 0"}, ""},
          Row{{"PrintPrintLog", "999", "0"}, ""}}) {
        Words words = row.words;
        words.insert(words.end(), {"--db", cafe.Database(), "--pdf", cafe.File("r.pdf")});
        const ProgramResult result = Qbrpt(words);
        EXPECT_EQ(result.status, 3) << row.words[0];
        EXPECT_EQ(result.err, row.said + std::string("qbrpt: no rows, nothing was made.\n"));
        EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db"));
    }
}

struct BadQueryRow {
    const char* name;
    Words words;
    const char* said;
};

class BadQuery : public ::testing::TestWithParam<BadQueryRow> {};

TEST_P(BadQuery, IsToldWithItsPlaceAndLeavesNothing) {
    const Cafe cafe;
    const std::string count = "SELECT (SELECT count(*) FROM pp_dat) || ' ' || (SELECT count(*) FROM members)";
    const std::string before = cafe.Ask(count);
    Words words = GetParam().words;
    if (words[0] == "PrintPPInfo") words.emplace_back("بطاقات");
    words.insert(words.end(),
                 {"--db", cafe.Database(), "--pdf", cafe.File("r.pdf"), "--csv", cafe.File("r.csv")});
    const ProgramResult result = Qbrpt(words);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "qbrpt: " + std::string(GetParam().said) + "\n");
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db"));
    EXPECT_EQ(cafe.Ask(count), before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadQuery,
    ::testing::Values(
        BadQueryRow{"UnknownTable",
                    {"PrintPPCards", "SELECT * FROM nowhere"},
                    "The database has no table or query \"nowhere\" (line 1, column 15, at \"nowhere\")."},
        BadQueryRow{"UnknownColumn",
                    {"PrintPPInfo", "SELECT p.nonsense\nFROM pp_dat AS p"},
                    "\"p\" has no column \"nonsense\" (line 1, column 10, at \"nonsense\")."},
        BadQueryRow{"NoStatement",
                    {"PrintPPCards", "SELEC 1"},
                    "Expected SELECT, INSERT, UPDATE or DELETE (line 1, column 1, at \"SELEC\")."},
        BadQueryRow{"Nothing",
                    {"PrintPPCards", ""},
                    "The statement is empty (line 1, column 1, at the end of the statement)."},
        BadQueryRow{
            "Delete",
            {"PrintPPCards", "DELETE FROM pp_dat"},
            "A report query only reads: DELETE is refused. Only a SELECT can be opened as a record set."},
        BadQueryRow{
            "Update",
            {"PrintPPInfo", "UPDATE pp_dat SET se_id = 1"},
            "A report query only reads: UPDATE is refused. Only a SELECT can be opened as a record set."},
        BadQueryRow{
            "Insert",
            {"PrintPPInfo", "INSERT INTO pp_dat (pp_id) VALUES (99999)"},
            "A report query only reads: INSERT is refused. Only a SELECT can be opened as a record set."},
        BadQueryRow{"Drop",
                    {"PrintPPInfo", "DROP TABLE pp_dat"},
                    "DROP is refused: a statement reads with SELECT, or writes rows with INSERT, UPDATE or "
                    "DELETE (line 1, column 1, at \"DROP\")."},
        BadQueryRow{"Into",
                    {"PrintPPCards", "SELECT * INTO copied FROM pp_dat"},
                    "SELECT with INTO is refused: a SELECT reads rows and makes no table (line 1, column 10, "
                    "at \"INTO\")."},
        BadQueryRow{"SecondStatement",
                    {"PrintPPCards", "SELECT pp_id FROM pp_dat; DELETE FROM pp_dat"},
                    "One statement at a time: a second one begins here (line 1, column 27, at \"DELETE\")."},
        BadQueryRow{"ConditionUnknownColumn",
                    {"PrintMembersInfo", "WHERE members_info.nonsense = 1"},
                    "\"mi\" has no column \"nonsense\" (line 2, column 84, at \"nonsense\")."},
        BadQueryRow{"ConditionSecondStatement",
                    {"PrintMembersInfo", "WHERE 1 = 1; DROP TABLE members"},
                    "One statement at a time: a second one begins here (line 2, column 88, at \"DROP\")."},
        BadQueryRow{"ConditionWithAnApostrophe",
                    {"PrintMembersInfo", "WHERE members.name = 'O'Neil'"},
                    "The statement should end here (line 2, column 94, at \"Neil\")."},
        BadQueryRow{"ConditionWithoutItsWord",
                    {"PrintMembersInfo", "nonsense"},
                    "The statement should end here (line 2, column 75, at \"nonsense\")."}),
    [](const auto& row) { return row.param.name; });

/// The blocks between ```sh and ```.
std::string CommandsOf(const std::string& document) {
    std::string commands;
    const std::string begin = "```sh\n";
    for (std::size_t at = document.find(begin); at != std::string::npos; at = document.find(begin, at)) {
        at += begin.size();
        commands += document.substr(at, document.find("```", at) - at);
    }
    return commands;
}

TEST(Commands, OfTheDocumentAllMakeTheirReports) {
    const TempFolder folder;
    const std::string commands = CommandsOf(ContentOf(QBRPT_SOURCE_DIR "/docs/reports.md"));
    const ProgramResult result =
        RunProgram({"sh", "-ec", "cd \"$1\"; qbrpt() { \"$0\" \"$@\"; }\n" + commands, QBRPT_COMMAND,
                    folder.Path().string()},
                   {{"DISPLAY", ""}});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(folder.Names().size(), 24U) << "21 reports, two tables of them and the database";
}

} // namespace
} // namespace qbrpt::test
