// Each mistake in a layout file is told with its file, line and column, and what was expected.
#include "adapters/layout/library.h"
#include "base/failure.h"
#include "templates/field_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using qbrpt::Failure;
using qbrpt::FailureNumber;
using qbrpt::layout::Library;

constexpr std::string_view Good = R"(width_twips = 11178
columns = [
  { field = "pay_date", width = 96, caption = "التاريخ" },
  { field = "details", caption = "البيان" },
  { field = "amount", width = 84, format = "money", sum = true, caption = "المبلغ" },
]
[heading]
cafe  = "HotelNameText"
title = { name = "HeadTitleText", text = "المصروفات" }
[total]
label = "المجموع"
noun = "payment"
[sections]
A = ["first-heading", "captions"]
B = ["later-heading", "captions"]
C = "rows"
D = "total"
E = "footer"
)";

/// The good layout with one piece of its text replaced.
struct Mistake {
    const char* name;
    const char* replaced;
    const char* by;
    const char* told; ///< must stand in the description
};

void PrintTo(const Mistake& mistake, std::ostream* stream) {
    *stream << mistake.name;
}

std::string Replace(std::string text, const std::string& what, const std::string& by) {
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

auto Read(const std::string& text) {
    return Library().Read("Test", text, "cafe.toml", qbrpt::FactsOf("PayOutRpt").fields);
}

TEST(LayoutReader, TheGoodLayoutHasNoMistake) {
    const auto definition = Read(std::string(Good));
    EXPECT_EQ(definition->width, 11178);
    EXPECT_EQ(definition->sections.size(), 5U);
    EXPECT_EQ(definition->titleObject, "HeadTitleText");
}

class LayoutMistake : public testing::TestWithParam<Mistake> {};

TEST_P(LayoutMistake, IsToldWithItsPlace) {
    const std::string text = Replace(std::string(Good), GetParam().replaced, GetParam().by);
    try {
        static_cast<void>(Read(text));
        FAIL() << "the layout was taken";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::Layout);
        EXPECT_THAT(failure.Description(), testing::HasSubstr(GetParam().told));
    }
}

const Mistake Mistakes[] = {
    {"NotToml", "columns = [", "columns = [[", "cafe.toml:7:1: "},
    {"BrokenText", "\"HotelNameText\"", "\"HotelNameText", "cafe.toml:8:"},
    {"UnknownKeyAtTop", "width_twips = 11178", "width_twips = 11178\ncolour = 1",
     "cafe.toml:2:1: the layout has no key \"colour\"; did you mean \"color\"?"},
    {"UnknownKeyInColumn", "field = \"details\",", "field = \"details\", widht = 12,",
     "cafe.toml:4:24: a column has no key \"widht\"; did you mean \"width\"?"},
    {"UnknownField", "\"details\"", "\"detials\"",
     "cafe.toml:4:13: there is no field \"detials\"; did you mean \"details\"?"},
    {"UnknownFieldFarFromAll", "\"details\"", "\"zzzzzzzzzzz\"", "known are amount, pay_date, details"},
    {"UnknownFormat", "\"money\"", "\"mony\"",
     "cafe.toml:5:44: \"mony\" is no format; did you mean \"money\"?"},
    {"FormatAgainstKind", "field = \"pay_date\",", "field = \"pay_date\", format = \"money\",",
     "cafe.toml:3:34: the field is a date; this format does not go with it"},
    {"NumberWithoutFormat", "format = \"money\", ", "", "cafe.toml:5:3: a number needs a \"format\""},
    {"SumOfText", "field = \"details\",", "field = \"details\", sum = true,",
     "cafe.toml:4:30: only numbers have a sum or an average"},
    {"HidesRepeatedBehindOthers", "field = \"details\",", "field = \"details\", hide_repeated = true,",
     "cafe.toml:4:3: only the first columns can hide what repeats"},
    {"WrongKindOfValue", "width = 96", "width = \"wide\"",
     "cafe.toml:3:33: \"width\" must be a number, not a text"},
    {"WidthOutOfBounds", "width = 96", "width = 5000", "\"width\" must be a length in points, at most 2000"},
    {"ColumnsTooWide", "width = 96", "width = 600", "cafe.toml:2:11: the columns are 684 points wide"},
    {"ColumnTooNarrow", "width = 96", "width = 3", "cafe.toml:3:3: the column is narrower than 15 points"},
    {"TierNotForAll", "  { field = \"amount\"", "  { tier = \"x\" },\n  { field = \"amount\"",
     "cafe.toml:3:3: where some columns have a tier, all must have one"},
    {"TierWithoutColumns", "  { field = \"pay_date\"",
     "  { tier = \"a\" },\n  { tier = \"b\" },\n  { field = \"pay_date\"",
     "cafe.toml:3:3: a tier needs columns behind it"},
    {"NoWidth", "width_twips = 11178\n", "", "\"width_twips\" must be the template's page width"},
    {"NoSections", "[sections]", "[section]", "the layout needs a table \"sections\""},
    {"UnknownPart", "\"rows\"", "\"row\"", "there is no part \"row\"; did you mean \"rows\"?"},
    {"PartNowhere", "D = \"total\"\n", "", "no section shows the part \"total\""},
    {"PartsOfDifferentPlaces", "[\"first-heading\", \"captions\"]", "[\"first-heading\", \"rows\"]",
     "this part stands elsewhere on the page"},

    {"FirstBehindLater", "[\"first-heading\", \"captions\"]", "[\"later-heading\", \"first-heading\"]",
     "one part is for the first page, the other for later pages"},
    {"LaterBehindOthers", "[\"first-heading\", \"captions\"]",
     "[\"first-heading\", \"captions\", \"later-heading\"]",
     "one part is for the first page, the other for later pages"},
    {"SectionIsNumber", "C = \"rows\"", "C = 1", "a section is the name of a part, or a list of such names"},
    {"TwoOfOneName", "\"HeadTitleText\"", "\"HotelNameText\"",
     "the name \"HotelNameText\" is taken; see cafe.toml:8:9"},
    {"UnknownForm", "cafe  =", "form = \"reprot\"\ncafe  =",
     "there is no heading form \"reprot\"; did you mean \"report\"?"},
    {"UnknownNoun", "noun = \"payment\"", "noun = \"paymnt\"",
     "there is no noun \"paymnt\"; did you mean \"payment\"?"},
    {"UnknownStyle", "[total]", "[footer]\nstyle = \"foter\"\n[total]",
     "there is no style \"foter\"; did you mean \"footer\"?"},
    {"ColorOfBadForm", "[total]", "[color]\nink = \"black\"\n[total]",
     "cafe.toml:11:7: a colour is written as \"#RRGGBB\""},
    {"UnknownColor", "[total]", "[style]\ncafe = { size = 9, color = \"ikn\" }\n[total]",
     "there is no colour \"ikn\"; did you mean \"ink\"?"},
    {"SizeOutOfBounds", "[total]", "[style]\ncafe = { size = 900 }\n[total]",
     "\"size\" must be 4 to 200 points"},
    {"UnknownPlaceholder", "text = \"المصروفات\"", "text = \"{pagse}\"", "pagse"},
    {"UnknownTextObject", "text = \"المصروفات\"", "text = \"{text:Nobody}\"", "Nobody"},
    {"SumInFirstColumn", "field = \"pay_date\", width = 96,",
     "field = \"amount\", width = 96, format = \"money\", sum = true,",
     "the first column must not have a sum or an average"},
    {"DateInFile", "label = \"المجموع\"", "label = 2025-01-01",
     "cafe.toml:11:9: a date or a time stands here"},
    {"ObjectInUnknownSection", "[sections]",
     "[[object]]\nsection = \"Z\"\ntext = \"x\"\nright = 20\ntop = 0\n[sections]",
     "there is no section \"Z\""},
    {"ObjectNearEdge", "[sections]",
     "[[object]]\nsection = \"E\"\nname = \"note\"\ntext = \"x\"\nright = 12\ntop = 0\nwidth = 20\nheight = "
     "7\n[sections]",
     "cafe.toml:13:1: \"note\" stands within 13 points of the template's edge"},
    {"ObjectBeyondLeftEdge", "[sections]",
     "[[object]]\nsection = \"E\"\nname = \"note\"\ntext = \"x\"\nright = 500\ntop = 0\nwidth = 60\nheight = "
     "7\n[sections]",
     "\"note\" stands within 13 points of the template's edge"},
    {"ObjectOutOfSection", "[sections]",
     "[[object]]\nsection = \"C\"\nname = \"note\"\ntype = \"box\"\nfill = \"tint\"\nright = 20\ntop = "
     "10\nwidth = 20\nheight = 9\n[sections]",
     "\"note\" reaches out of its section \"C\""},
    {"ObjectsOverlap", "[sections]",
     "[[object]]\nsection = \"C\"\nname = \"note\"\ntext = \"x\"\nright = 20\ntop = 0\nwidth = 20\nheight = "
     "9\n[sections]",
     "\"note\""},
    {"LineWithoutStroke", "[sections]",
     "[[object]]\nsection = \"C\"\ntype = \"line\"\nright = 20\ntop = 0\nwidth = 20\n[sections]",
     "a line needs a \"stroke\""},
    {"BoxWithoutAll", "[sections]",
     "[[object]]\nsection = \"C\"\ntype = \"box\"\nright = 20\ntop = 0\nwidth = 20\nheight = 4\n[sections]",
     "a box needs a \"fill\" or a \"stroke\""},
    {"NegativeSize", "[sections]",
     "[[object]]\nsection = \"C\"\ntype = \"box\"\nfill = \"tint\"\nright = 40\ntop = 0\nwidth = -20\nheight "
     "= 4\n[sections]",
     "has a size below 0"},
};

INSTANTIATE_TEST_SUITE_P(Rows, LayoutMistake, testing::ValuesIn(Mistakes),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LayoutReader, TellsAllMistakesInTheOrderOfTheFile) {
    std::string text = Replace(std::string(Good), "\"details\"", "\"detials\"");
    text = Replace(text, "\"rows\"", "\"row\"");
    text = Replace(text, "width = 96", "width = true");
    try {
        static_cast<void>(Read(text));
        FAIL() << "the layout was taken";
    } catch (const Failure& failure) {
        const std::string words = failure.Description();
        EXPECT_LT(words.find("\"width\" must be"), words.find("detials"));
        EXPECT_LT(words.find("detials"), words.find("\"row\""));
    }
}

TEST(LayoutReader, TakesAnyBytesWithoutACrash) {
    for (int byte = 0; byte < 256; ++byte) {
        std::string text(Good);
        text[static_cast<std::size_t>(byte) * 3 % text.size()] = static_cast<char>(byte);
        try {
            static_cast<void>(Read(text));
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::Layout);
        }
    }
}

} // namespace
