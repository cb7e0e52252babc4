// What may be typed for the arguments of a member.
#include "account_commands.h"
#include "arguments.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace qbrpt::cli {
namespace {

using ::testing::HasSubstr;

struct GoodRow {
    const char* name;
    ArgumentKind kind;
    std::string typed;
    Argument value;
};

class GoodArgument : public ::testing::TestWithParam<GoodRow> {};

TEST_P(GoodArgument, IsRead) {
    EXPECT_EQ(ReadArgument(GetParam().kind, GetParam().typed), GetParam().value);
}

using Kind = ArgumentKind;

INSTANTIATE_TEST_SUITE_P(
    Rows, GoodArgument,
    ::testing::Values(GoodRow{"Short", Kind::Short, "32767", std::int16_t{32767}},
                      GoodRow{"ShortNegative", Kind::Short, "-32768", std::int16_t{-32768}},
                      GoodRow{"Long", Kind::Long, "2147483647", std::int32_t{2147483647}},
                      GoodRow{"LongNegative", Kind::Long, "-2147483648", std::int32_t{-2147483647 - 1}},
                      GoodRow{"DayNumber", Kind::Day, "38001", std::int32_t{38001}},
                      GoodRow{"DayOfCalendar", Kind::Day, "2004-01-15", std::int32_t{38001}},
                      GoodRow{"DayAtMidnight", Kind::Day, "2004-01-15T00:00", std::int32_t{38001}},
                      GoodRow{"DayBeforeTheFirst", Kind::Day, "1899-12-29", std::int32_t{-1}},
                      GoodRow{"LeapDay", Kind::Day, "2004-02-29", std::int32_t{38046}},
                      GoodRow{"DateNumber", Kind::DateNumber, "38001.25", 38001.25},
                      GoodRow{"DateNumberNegative", Kind::DateNumber, "-1.5", -1.5},
                      GoodRow{"DateOfCalendar", Kind::DateNumber, "2004-01-15", 38001.0},
                      GoodRow{"DateWithTime", Kind::DateNumber, "2004-01-15T06:00", 38001.25},
                      GoodRow{"DateLastMinute", Kind::DateNumber, "2004-01-15T23:59",
                              38001.0 + 1439.0 / 1440.0},
                      GoodRow{"Text", Kind::Text, " WHERE x = 'ب' ", std::string{" WHERE x = 'ب' "}},
                      GoodRow{"EmptyText", Kind::Text, "", std::string{}}),
    [](const auto& row) { return row.param.name; });

struct BadRow {
    const char* name;
    ArgumentKind kind;
    std::string typed;
};

class BadArgument : public ::testing::TestWithParam<BadRow> {};

TEST_P(BadArgument, IsRefusedWithItsText) {
    try {
        static_cast<void>(ReadArgument(GetParam().kind, GetParam().typed));
        FAIL() << "taken";
    } catch (const WrongUse& wrong) {
        EXPECT_THAT(wrong.what(), HasSubstr("\"" + GetParam().typed + "\""));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadArgument,
    ::testing::Values(
        BadRow{"ShortTooLarge", Kind::Short, "32768"}, BadRow{"ShortTooSmall", Kind::Short, "-32769"},
        BadRow{"LongTooLarge", Kind::Long, "2147483648"},
        BadRow{"LongHuge", Kind::Long, "99999999999999999999"}, BadRow{"LongWithFraction", Kind::Long, "5.5"},
        BadRow{"LongEmpty", Kind::Long, ""}, BadRow{"LongWord", Kind::Long, "five"},
        BadRow{"LongWithTail", Kind::Long, "5x"}, BadRow{"LongWithBlank", Kind::Long, " 5"},
        BadRow{"LongAsDate", Kind::Long, "2004-01-15"}, BadRow{"DayWithTime", Kind::Day, "2004-01-15T21:05"},
        BadRow{"DayWithFraction", Kind::Day, "38001.5"},
        BadRow{"ThirtyFirstOfFebruary", Kind::Day, "2004-02-31"},
        BadRow{"LeapDayOfACommonYear", Kind::Day, "2003-02-29"},
        BadRow{"MonthThirteen", Kind::Day, "2004-13-01"}, BadRow{"DayZero", Kind::Day, "2004-01-00"},
        BadRow{"YearTooEarly", Kind::Day, "0099-01-01"},
        BadRow{"DateSlashes", Kind::DateNumber, "2004/01/15"},
        BadRow{"DateLetters", Kind::DateNumber, "2004-0a-15"},
        BadRow{"Hour24", Kind::DateNumber, "2004-01-15T24:00"},
        BadRow{"Minute60", Kind::DateNumber, "2004-01-15T23:60"},
        BadRow{"Seconds", Kind::DateNumber, "2004-01-15T23:59:59"},
        BadRow{"Infinity", Kind::DateNumber, "inf"}, BadRow{"NotANumber", Kind::DateNumber, "nan"},
        BadRow{"NumberTooLarge", Kind::DateNumber, "1e999"}),
    [](const auto& row) { return row.param.name; });

TEST(MemberTable, HoldsTheInterfaceInItsOrder) {
    const std::vector<std::string> expected = {
        "IsDbValid",           "SetDatabase",       "SetDbInfo",        "CanPrint",     "SetMainTitle",
        "PrintBill",           "PrintIncome",       "PrintMemberUsage", "PrintPPUsage", "PrintPCUsage",
        "PrintInternetUsage",  "PrintMembersIncom", "PrintPayout",      "PrintUsage",   "PrintOtherIncome",
        "PrintServicesIncome", "PrintMembersInfo",  "PrintUsersIncome", "PrintPPCards", "PrintPPInfo",
        "PrintAudit",          "PrintPrintLog",     "EditAccount"};
    std::vector<std::string> names;
    for (const Member& member : Members())
        names.push_back(member.name);
    EXPECT_EQ(names, expected);
}

TEST(MemberTable, DefaultsAreThoseOfTheInterface) {
    const auto defaultsOf = [](const std::string& name) {
        const auto member =
            std::find_if(Members().begin(), Members().end(), [&](const Member& m) { return m.name == name; });
        std::string defaults;
        for (const MemberArgument& argument : member->arguments)
            defaults += argument.name + (argument.defaultText ? "=" + *argument.defaultText : "") + " ";
        return defaults;
    };
    EXPECT_EQ(defaultsOf("PrintIncome"), "date1 date2 bGroup bShow=1 ");
    EXPECT_EQ(defaultsOf("PrintPCUsage"), "date1 date2 pcID=0 bShow=1 ");
    EXPECT_EQ(defaultsOf("PrintInternetUsage"), "d1 d2 bGroup=1 bShow=1 ");
    EXPECT_EQ(defaultsOf("PrintUsage"), "date1 date2 pcID bShow=1 bDeleted=0 ");
    EXPECT_EQ(defaultsOf("PrintMembersInfo"), "szParam= ");
    EXPECT_EQ(defaultsOf("PrintPrintLog"), "workId1 workId2 ");
}

TEST(MemberTable, TooManyAndMissingArgumentsAreNamed) {
    const Member& bill = Members()[5];
    EXPECT_THROW(static_cast<void>(ReadArguments(bill, {})), WrongUse);
    EXPECT_THROW(static_cast<void>(ReadArguments(bill, {"1", "2"})), WrongUse);
    EXPECT_EQ(ReadArguments(bill, {"-7"}), std::vector<Argument>{std::int32_t{-7}});
}

TEST(LedgerTable, AnEndThatIsLeftOutIsTheBeginning) {
    const Member& all = LedgerReports()[1].member;
    using Values = std::vector<Argument>;
    EXPECT_EQ(ReadArguments(all, {}), (Values{0.0, 0.0}));
    EXPECT_EQ(ReadArguments(all, {"45668.5"}), (Values{45668.5, 45668.5}));
    EXPECT_EQ(ReadArguments(all, {"45668.5", "0"}), (Values{45668.5, 0.0}));
    EXPECT_EQ(ReadArguments(all, {"0", "45668.5"}), (Values{0.0, 45668.5}));
}

} // namespace
} // namespace qbrpt::cli
