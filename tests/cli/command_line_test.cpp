// How a command line is understood.
#include "command_line.h"
#include "suggestion.h"

#include <gmock/gmock.h>

namespace qbrpt::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

Request Read(std::vector<std::string> words) {
    words.insert(words.begin(), "qbrpt");
    std::vector<const char*> pointers;
    for (const std::string& word : words)
        pointers.push_back(word.c_str());
    return ReadCommandLine(static_cast<int>(pointers.size()), pointers.data());
}

MemberCall Call(const std::vector<std::string>& words) {
    return std::get<MemberCall>(Read(words));
}

TEST(CommandLine, FillsArgumentsAndDefaults) {
    const MemberCall call = Call({"PrintIncome", "5", "9", "0"});
    EXPECT_EQ(call.member->name, "PrintIncome");
    EXPECT_THAT(call.arguments, ElementsAre(Argument{std::int32_t{5}}, Argument{std::int32_t{9}},
                                            Argument{std::int16_t{0}}, Argument{std::int16_t{1}}));
    EXPECT_EQ(call.destination, Destination::AsCalled);
    EXPECT_FALSE(call.onError.has_value());
}

TEST(CommandLine, NegativeNumbersAreArguments) {
    EXPECT_THAT(Call({"PrintIncome", "-1", "-9", "-0", "-1"}).arguments,
                ElementsAre(Argument{std::int32_t{-1}}, Argument{std::int32_t{-9}}, Argument{std::int16_t{0}},
                            Argument{std::int16_t{-1}}));
    EXPECT_THAT(
        Call({"PrintPCUsage", "-1.5", "-0.5"}).arguments,
        ElementsAre(Argument{-1.5}, Argument{-0.5}, Argument{std::int32_t{0}}, Argument{std::int16_t{1}}));
    EXPECT_THAT(
        Call({"PrintPCUsage", "-.5", "-.25e1"}).arguments,
        ElementsAre(Argument{-0.5}, Argument{-2.5}, Argument{std::int32_t{0}}, Argument{std::int16_t{1}}));
}

TEST(CommandLine, OptionsMayStandAnywhereBehindTheMember) {
    const MemberCall call =
        Call({"PrintIncome", "--db", "a b.db",     "5",     "--pdf=out.pdf", "9",      "--csv",   "out.csv",
              "0",           "0",    "--title",    "مقهى",  "--addr1",       "",       "--addr2", "-",
              "--trace",     "t",    "--on-error", "retry", "--connect",     "x=1;y=2"});
    EXPECT_EQ(call.database, "a b.db");
    EXPECT_EQ(call.connect, "x=1;y=2");
    EXPECT_EQ(call.files.at(OutputKind::Pdf), "out.pdf");
    EXPECT_EQ(call.files.at(OutputKind::Csv), "out.csv");
    EXPECT_EQ(call.title, "مقهى");
    EXPECT_EQ(call.addr1, "");
    EXPECT_EQ(call.addr2, "-");
    EXPECT_EQ(call.traceFile, "t");
    EXPECT_EQ(call.onError, BoxAnswer::Retry);
    EXPECT_EQ(call.destination, Destination::Files);
    EXPECT_EQ(call.arguments.size(), 4U);
}

TEST(CommandLine, Destinations) {
    EXPECT_EQ(Call({"PrintAudit", "--print", "--printer", "p"}).destination, Destination::Printer);
    EXPECT_EQ(Call({"PrintAudit", "--preview"}).destination, Destination::Preview);
    EXPECT_EQ(Call({"PrintAudit", "--csv", "a"}).destination, Destination::Files);
}

TEST(CommandLine, WhatIsToBePrinted) {
    const PrintChoice choice = Call({"PrintAudit", "--print", "--printer", "p", "--paper", "A4", "--bin",
                                     "Manual", "--pages", "2-3", "--copies", "2", "--duplex", "short"})
                                   .print;
    EXPECT_EQ(choice.printer, "p");
    EXPECT_EQ(choice.paper, "A4");
    EXPECT_EQ(choice.bin, "Manual");
    EXPECT_EQ(choice.pages.first, 2);
    EXPECT_EQ(choice.pages.last, 3);
    EXPECT_EQ(choice.copies, 2);
    EXPECT_EQ(choice.sides, Sides::ShortEdge);
    EXPECT_EQ(Call({"PrintAudit", "--print", "--duplex", "long"}).print.sides, Sides::LongEdge);
    EXPECT_TRUE(std::get<PrintersCall>(Read({"printers", "--json"})).json);
    EXPECT_FALSE(std::get<PrintersCall>(Read({"printers"})).json);
}

struct PagesRow {
    const char* typed;
    std::optional<std::int32_t> first; ///< nothing: refused
    std::optional<std::int32_t> last;
};

TEST(CommandLine, PagesAreReadOrRefused) {
    const std::vector<PagesRow> rows = {
        {"1", 1, 1},
        {"2-3", 2, 3},
        {"7-7", 7, 7},
        {"2-", 2, {}},
        {"40000", 40'000, 40'000},
        {"2147483647", 2'147'483'647, 2'147'483'647},
        {"", {}, {}},
        {"0", {}, {}},
        {"0-3", {}, {}},
        {"3-2", {}, {}},
        {"-3", {}, {}},
        {"-", {}, {}},
        {"all", {}, {}},
        {"1,3", {}, {}},
        {"1-2-3", {}, {}},
        {"1 - 2", {}, {}},
        {" 1", {}, {}},
        {"+1", {}, {}},
        {"1.5", {}, {}},
        {"1-x", {}, {}},
        {"٢", {}, {}},
        {"2147483648", {}, {}},
        {"99999999999999999999", {}, {}},
    };
    for (const PagesRow& row : rows) {
        SCOPED_TRACE(row.typed);
        if (!row.first) {
            EXPECT_THROW(static_cast<void>(ReadPages(row.typed)), WrongUse);
            continue;
        }
        EXPECT_EQ(ReadPages(row.typed).first, row.first);
        EXPECT_EQ(ReadPages(row.typed).last, row.last);
    }
}

TEST(CommandLine, TextsAreTakenAsTheyStand) {
    EXPECT_THAT(Call({"PrintPPInfo", "SELECT  'a b' ", ""}).arguments,
                ElementsAre(Argument{std::string{"SELECT  'a b' "}}, Argument{std::string{}}));
    EXPECT_THAT(Call({"PrintMembersInfo", "--preview"}).arguments, ElementsAre(Argument{std::string{}}));
    EXPECT_THAT(Call({"PrintMembersInfo", "[a]=1,(2)"}).arguments,
                ElementsAre(Argument{std::string{"[a]=1,(2)"}}));
}

TEST(CommandLine, Sample) {
    const auto options = std::get<sample::SampleOptions>(
        Read({"sample", "f.db", "--days", "400", "--sessions-per-day", "2500", "--seed", "7"}));
    EXPECT_EQ(options.file, "f.db");
    EXPECT_EQ(options.days, 400);
    EXPECT_EQ(options.sessionsPerDay, 2500);
    EXPECT_EQ(options.seed, 7U);
}

TEST(CommandLine, HelpIsThereOnEveryLevel) {
    const auto help = [](const std::vector<std::string>& words) {
        return std::get<Information>(Read(words)).text;
    };
    for (const Member& member : Members()) {
        if (!CanBeTyped(member)) continue;
        EXPECT_THAT(help({"--help"}), HasSubstr(member.name));
        const std::string own = help({member.name, "--help"});
        EXPECT_THAT(own, HasSubstr("--on-error"));
        for (const MemberArgument& argument : member.arguments)
            EXPECT_THAT(own, HasSubstr(argument.name));
    }
    EXPECT_THAT(help({"sample", "--help"}), HasSubstr("--sessions-per-day"));
    EXPECT_THAT(help({"--version"}), HasSubstr("qbrpt "));
}

struct WrongRow {
    const char* name;
    std::vector<std::string> words;
    std::string says;
};

class WrongCommandLine : public ::testing::TestWithParam<WrongRow> {};

TEST_P(WrongCommandLine, IsRefusedWithWords) {
    try {
        static_cast<void>(Read(GetParam().words));
        FAIL() << "taken";
    } catch (const WrongUse& wrong) {
        EXPECT_THAT(wrong.what(), HasSubstr(GetParam().says));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongCommandLine,
    ::testing::Values(
        WrongRow{"Nothing", {}, "--help"},
        WrongRow{"UnknownMember", {"PrintIncom", "1"}, "did you mean PrintIncome?"},
        WrongRow{"NothingLikeIt", {"frobnicate"}, "no member or command \"frobnicate\""},
        WrongRow{"OpenDatabase", {"SetDatabase", "x"}, "use --db"},
        WrongRow{"MissingArgument", {"PrintIncome", "1", "2"}, "bGroup"},
        WrongRow{"OneTooMany", {"PrintIncome", "1", "2", "3", "4", "5"}, "5"},
        WrongRow{"NumberThatDoesNotFit", {"PrintIncome", "1", "2", "70000"}, "70000"},
        WrongRow{"UnknownOption", {"PrintAudit", "--pfd", "x"}, "--pfd"},
        WrongRow{"OptionWithoutValue", {"PrintAudit", "--pdf"}, "--pdf"},
        WrongRow{"EmptyFileName", {"PrintAudit", "--pdf", ""}, "--pdf is given without a name"},
        WrongRow{"FileAndPrint", {"PrintAudit", "--pdf", "x", "--print"}, "cannot be asked for together"},
        WrongRow{"PrintAndPreview", {"PrintAudit", "--print", "--preview"}, "cannot be asked for together"},
        WrongRow{"PrinterWithoutPrint", {"PrintAudit", "--printer", "x"}, "--printer goes with --print"},
        WrongRow{"PaperWithoutPrint", {"PrintAudit", "--paper", "A4"}, "--paper goes with --print"},
        WrongRow{"PagesWithFiles", {"PrintAudit", "--pages", "1", "--pdf", "x"}, "--pages goes with --print"},
        WrongRow{"NoCopies", {"PrintAudit", "--print", "--copies", "0"}, "--copies"},
        WrongRow{"TooManyCopies", {"PrintAudit", "--print", "--copies", "10000"}, "--copies"},
        WrongRow{"OddEdge", {"PrintAudit", "--print", "--duplex", "wide"}, "wide"},
        WrongRow{"EmptyTray", {"PrintAudit", "--print", "--bin", ""}, "--bin is given without a name"},
        WrongRow{"PrintersOfWords", {"printers", "all"}, "all"},
        WrongRow{"OneFileForBoth", {"PrintAudit", "--pdf", "x", "--csv", "x"}, "the same file"},
        WrongRow{"OneFileInTwoWays", {"PrintAudit", "--pdf", "x", "--csv", "./y/../x"}, "the same file"},
        WrongRow{
            "FileOverDatabase", {"PrintAudit", "--db", "/x/a.db", "--pdf", "/x/./a.db"}, "--db and --pdf"},
        WrongRow{"TraceOverDatabase", {"PrintAudit", "--db", "a.db", "--trace", "a.db"}, "--db and --trace"},
        WrongRow{"TraceOverFile", {"PrintAudit", "--trace", "a", "--html", "a"}, "--trace and --html"},
        WrongRow{"OddAnswer", {"PrintAudit", "--on-error", "maybe"}, "maybe"},
        WrongRow{"OptionTwice", {"PrintAudit", "--pdf", "x", "--pdf", "y"}, "--pdf"},
        WrongRow{"SampleWithoutFile", {"sample"}, "file"},
        WrongRow{"SampleOfNoDays", {"sample", "x", "--days", "0"}, "--days"},
        WrongRow{
            "SampleOfNegativeSessions", {"sample", "x", "--sessions-per-day", "-1"}, "--sessions-per-day"},
        WrongRow{"SampleOfWords", {"sample", "x", "--days", "many"}, "many"}),
    [](const auto& row) { return row.param.name; });

TEST(Suggestion, FindsTheNearestOrNone) {
    const std::vector<std::string> names = {"PrintIncome", "PrintPayout", "sample"};
    EXPECT_EQ(NearestName("printpayout", names), "PrintPayout");
    EXPECT_EQ(NearestName("smaple", names), "sample");
    EXPECT_EQ(NearestName("x", names), "");
    EXPECT_EQ(NearestName(std::string(100'000, 'x'), names), "");
}

} // namespace
} // namespace qbrpt::cli
