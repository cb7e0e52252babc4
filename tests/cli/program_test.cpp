// What a script sees of the command: exit status, files, messages.
#include "cli/command_run.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace qbrpt::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

TEST(Program, WrongUseIsTwo) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                  {"PrintIncome"},
                                                  {"PrintIncome", "1", "2", "99999"},
                                                  {"Nonsense"},
                                                  {"--nonsense"}}) {
        const ProgramResult result = Qbrpt(words);
        EXPECT_EQ(result.status, 2) << result.err;
        EXPECT_THAT(result.err, StartsWith("qbrpt: "));
        EXPECT_THAT(result.out, IsEmpty());
    }
}

TEST(Program, HelpAndVersionGoToStandardOutput) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"},
                                                  {"--version"},
                                                  {"PrintIncome", "--help"},
                                                  {"sample", "--help"}}) {
        const ProgramResult result = Qbrpt(words);
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.out, HasSubstr("qbrpt"));
        EXPECT_THAT(result.err, IsEmpty());
    }
}

TEST(Program, AllFilesComeTogether) {
    const Cafe cafe;
    const ProgramResult result =
        cafe.Income({"--pdf", cafe.File("i.pdf"), "--csv", cafe.File("i.csv"), "--xlsx", cafe.File("i.xlsx"),
                     "--html", cafe.File("i.html"), "--title", "مقهى النخيل"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out + result.err, IsEmpty());
    EXPECT_THAT(ContentOf(cafe.File("i.pdf")), StartsWith("%PDF-"));
    EXPECT_THAT(ContentOf(cafe.File("i.csv")), StartsWith("\xEF\xBB\xBFmdate,edate,date,general_income,"));
    EXPECT_THAT(ContentOf(cafe.File("i.xlsx")), StartsWith("PK\x03\x04"));
    EXPECT_THAT(ContentOf(cafe.File("i.html")),
                AllOf(StartsWith("<!DOCTYPE html>\n<html lang=\"ar\" dir=\"rtl\">"), HasSubstr("مقهى النخيل"),
                      HasSubstr("الإجمالي"), EndsWith("</html>\n")));
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db", "i.csv", "i.html", "i.pdf", "i.xlsx"));
}

TEST(Program, FilesAreMadeWithoutAnyPrinter) {
    const Cafe cafe;
    EXPECT_EQ(cafe.Income({"--pdf", cafe.File("i.pdf")}, {{"QBRPT_PDF_PRINTER", "off"}}).status, 0);
    EXPECT_TRUE(cafe.Has("i.pdf"));
    EXPECT_EQ(cafe.Income({}, {{"QBRPT_PDF_PRINTER", "off"}}).status, 3)
        << "no printer: it leaves in silence";
    EXPECT_FALSE(cafe.Has("pages"));
}

TEST(Program, TheTableHoldsTheSumsOfTheDatabase) {
    const Cafe cafe(20, 30);
    ASSERT_EQ(cafe.Income({"--csv", cafe.File("i.csv")}).status, 0);
    const std::string sums =
        "select count(*), printf('%.2f', sum(total_income)), printf('%.2f', sum(members_income)) ";
    const ProgramResult table = RunProgram(
        {"sqlite3", ":memory:", "-cmd", ".import --csv '" + cafe.File("i.csv") + "' i",
         "select count(*), printf('%.2f', sum(total_income)), printf('%.2f', sum(member_income)) from i"});
    EXPECT_EQ(table.out, cafe.Ask(sums + "from daily_sheet") + "\n");
    EXPECT_THAT(table.out, StartsWith("20|"));
}

TEST(Program, NoRowsIsThreeAndLeavesNoFile) {
    const Cafe cafe;
    const ProgramResult result =
        Qbrpt({"PrintIncome", "99999", "0", "0", "--db", cafe.Database(), "--pdf", cafe.File("i.pdf")});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, HasSubstr("no rows"));
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db"));
}

TEST(Program, NoDatabaseIsThreeAndSaysHow) {
    const ProgramResult result = Qbrpt({"PrintIncome", "1", "2", "0"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, HasSubstr("--db"));
}

TEST(Program, BillsAlwaysSucceed) {
    EXPECT_EQ(Qbrpt({"PrintBill", "-1"}).status, 0);
    EXPECT_EQ(Qbrpt({"PrintBill", "0", "--pdf", "/nowhere/a.pdf"}).status, 0);
}

TEST(Program, AnAnswerThatCannotBeWrittenIsAnError) {
    const Cafe cafe;
    for (const std::vector<std::string>& words : {std::vector<std::string>{"CanPrint"},
                                                  {"printers", "--json"},
                                                  {"accounts", "--db", cafe.Database()}}) {
        std::vector<std::string> command = {"sh", "-c", "\"$0\" \"$@\" > /dev/full", QBRPT_COMMAND};
        command.insert(command.end(), words.begin(), words.end());
        const ProgramResult result = RunProgram(command);
        EXPECT_EQ(result.status, 1) << words.front();
        EXPECT_THAT(result.err, HasSubstr("could not be written")) << words.front();
    }
}

TEST(Program, NothingIsWrittenOverTheBooks) {
    const Cafe cafe;
    const std::string before = test::ContentOf(cafe.Database());
    std::filesystem::create_symlink(cafe.Database(), cafe.File("link.pdf"));
    std::filesystem::create_hard_link(cafe.Database(), cafe.File("other name.csv"));
    EXPECT_EQ(cafe.Income({"--pdf", cafe.File("link.pdf")}).status, 2);
    EXPECT_EQ(cafe.Income({"--csv", cafe.File("other name.csv")}).status, 1);
    const ProgramResult traced =
        cafe.Income({"--html", cafe.File("i.html"), "--trace", cafe.File("other name.csv")});
    EXPECT_EQ(traced.status, 0);
    EXPECT_THAT(traced.err, HasSubstr("cannot be written"));
    EXPECT_EQ(test::ContentOf(cafe.Database()), before);
}

TEST(Program, AnswersArePrinted) {
    const Cafe cafe;
    EXPECT_EQ(Qbrpt({"CanPrint"}).out, "1\n");
    EXPECT_EQ(Qbrpt({"CanPrint"}, {{"QBRPT_PDF_PRINTER", "off"}}).out, "0\n");
    EXPECT_EQ(Qbrpt({"IsDbValid"}).out, "false\n");
    EXPECT_EQ(Qbrpt({"IsDbValid", "--db", cafe.Database()}).out, "true\n");
    EXPECT_EQ(Qbrpt({"SetDbInfo", cafe.Database(), ""}).out, "1\n");
}

struct BadFileRow {
    const char* name;
    std::string content;
};

class BadDatabase : public ::testing::TestWithParam<BadFileRow> {};

TEST_P(BadDatabase, IsOneBoxAndStatusOne) {
    const TempFolder folder;
    const std::string file = (folder / "bad.db").string();
    if (GetParam().content != "(missing)") WriteContent(file, GetParam().content);
    const ProgramResult result =
        Qbrpt({"PrintIncome", "0", "0", "0", "--db", file, "--pdf", (folder / "i.pdf").string()});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, AllOf(StartsWith("qbrpt: "), HasSubstr("bad.db")));
    EXPECT_FALSE(fs::exists(folder / "i.pdf"));
}

INSTANTIATE_TEST_SUITE_P(Files, BadDatabase,
                         ::testing::Values(BadFileRow{"Missing", "(missing)"},
                                           BadFileRow{"Garbage", std::string(5000, '\xC3')},
                                           BadFileRow{"Jet", std::string("\0\1\0\0Standard Jet DB\0", 20) +
                                                                 std::string(5000, '\0')}),
                         [](const auto& row) { return row.param.name; });

TEST(Program, AFolderIsNoDatabase) {
    EXPECT_EQ(Qbrpt({"PrintIncome", "0", "0", "0", "--db", "/tmp"}).status, 1);
}

TEST(Program, AStatementThatFailsIsOneBoxOrTwoWithRetry) {
    const Cafe cafe;
    cafe.Change("drop table daily_sheet");
    const ProgramResult cancelled = cafe.Income({"--pdf", cafe.File("i.pdf")});
    EXPECT_EQ(cancelled.status, 1);
    EXPECT_THAT(cancelled.err, HasSubstr("daily_sheet"));
    const ProgramResult retried = cafe.Income({"--pdf", cafe.File("i.pdf"), "--on-error", "retry"});
    EXPECT_EQ(retried.status, 1);
    EXPECT_GT(retried.err.size(), cancelled.err.size())
        << "it goes on with the next statement, and fails again";
    const ProgramResult bySetting = cafe.Income({"--csv", cafe.File("i.csv")}, {{"QBRPT_ON_ERROR", "retry"}});
    EXPECT_EQ(bySetting.err, retried.err);
}

TEST(Program, PrintingGoesToTheFolderOfThePdfPrinter) {
    const Cafe cafe;
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{}, {"--print"}, {"--print", "--printer", "qbrpt PDF"}}) {
        fs::remove_all(cafe.File("pages"));
        const ProgramResult result = cafe.Income(words);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_THAT(result.err, HasSubstr(cafe.File("pages"))) << "it says where the file lies";
        EXPECT_EQ(std::distance(fs::directory_iterator(cafe.File("pages")), fs::directory_iterator()), 1);
    }
}

TEST(Program, AnUnknownPrinterIsWrongUse) {
    const ProgramResult result = Qbrpt({"PrintIncome", "0", "0", "0", "--print", "--printer", "none"});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("\"qbrpt PDF\""));
}

TEST(Program, AFullDiskIsAnErrorWithItsReason) {
    const Cafe cafe;
    for (const char* option : {"--pdf", "--csv", "--xlsx", "--html"}) {
        const ProgramResult result = cafe.Income({option, "/dev/full"});
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.err, HasSubstr("No space left on device"));
    }
}

TEST(Program, OneFileThatFailsTakesTheOtherWithIt) {
    const Cafe cafe;
    EXPECT_EQ(cafe.Income({"--pdf", cafe.File("i.pdf"), "--csv", "/dev/full"}).status, 1);
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db"));
}

TEST(Program, AFolderForLargeFilesThatIsNotThereIsToldOf) {
    const Cafe cafe;
    const ProgramResult result =
        cafe.Income({"--xlsx", cafe.File("i.xlsx")}, {{"TMPDIR", cafe.File("none")}});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, AllOf(HasSubstr("spreadsheet"), HasSubstr("TMPDIR")));
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db"));
}

TEST(Program, APlaceThatCannotBeWrittenShowsBeforeAnyWork) {
    const Cafe cafe;
    for (const std::string& place : {std::string{"/proc/i.pdf"}, cafe.File("none/i.pdf"), cafe.File("")}) {
        const ProgramResult result = cafe.Income({"--pdf", place, "--trace", cafe.File("t")});
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.err, HasSubstr("cannot be written"));
        EXPECT_FALSE(cafe.Has("t"));
    }
}

TEST(Program, DevicesTakeTheTableAsItComes) {
    const Cafe cafe;
    const ProgramResult result = cafe.Income({"--csv", "/dev/stdout"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, StartsWith("\xEF\xBB\xBFmdate,"));
}

TEST(Program, ATerminalSeesHowFarItIs) {
    const Cafe cafe;
    const std::string command = "'" + std::string{QBRPT_COMMAND} + "' PrintIncome 0 0 0 --db '" +
                                cafe.Database() + "' --csv '" + cafe.File("i.csv") + "'";
    const ProgramResult result = RunProgram({"script", "-qec", command, "/dev/null"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("reading rows"));
    EXPECT_TRUE(result.out.ends_with("\r\033[K")) << "the line is wiped away: " << result.out;
}

TEST(Program, SampleRefusesAFileThatIsNoDatabase) {
    const TempFolder folder;
    WriteContent(folder / "letter.txt", "dear");
    const ProgramResult result = Qbrpt({"sample", (folder / "letter.txt").string()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(ContentOf(folder / "letter.txt"), "dear");
    EXPECT_EQ(Qbrpt({"sample", (folder / "none" / "x.db").string()}).status, 1);
}

} // namespace
} // namespace qbrpt::test
