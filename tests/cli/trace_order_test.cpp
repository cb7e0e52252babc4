// The events of a real run, in their order.
#include "cli/command_run.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>

namespace qbrpt::test {
namespace {

using Json = nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<Json> EventsOf(const std::string& file) {
    std::vector<Json> events;
    std::istringstream lines(ContentOf(file));
    for (std::string line; std::getline(lines, line);) {
        EXPECT_THAT(line, ::testing::StartsWith("{\"event\":"));
        events.push_back(Json::parse(line));
    }
    return events;
}

/// An event in a word or two.
std::string Short(const Json& event) {
    std::string text = event.at("event");
    for (const char* key : {"name", "object", "value"})
        if (event.contains(key))
            text += " " + (event[key].is_string() ? event[key].get<std::string>() : event[key].dump());
    return text;
}

std::vector<std::string> Shortened(const std::vector<Json>& events) {
    std::vector<std::string> texts;
    for (const Json& event : events)
        texts.push_back(Short(event));
    return texts;
}

TEST(TraceOfARun, FollowsTheStepsOfTheCommand) {
    const Cafe cafe;
    ASSERT_EQ(Qbrpt({"PrintIncome", "1", "3", "0", "0", "--db", cafe.Database(), "--pdf", cafe.File("i.pdf"),
                     "--title", "مقهى", "--trace", cafe.File("t")})
                  .status,
              0);
    const std::vector<Json> events = EventsOf(cafe.File("t"));
    ASSERT_THAT(Shortened(events),
                ElementsAre("statement", "statement", "statement", "template IncomeGrpRpt",
                            "member SetOtherTitle", "text IncomeTitleText", "orientation 2", "pointer 11",
                            "member SetHotelInfo", "text HotelNameTextTop", "text HotelNameTextBottom",
                            "text HotelAddr1Text", "text HotelAddr2Text", "print", "pointer 0",
                            "orientation 1"));
    EXPECT_EQ(events[0]["sql"], "SELECT use_date FROM host_log_time WHERE id = 1");
    EXPECT_TRUE(events[0]["type"].is_null());
    EXPECT_THAT(events[2]["sql"].get<std::string>(),
                HasSubstr(" WHERE(h.id BETWEEN 1 AND 3)  ORDER BY h.id "));
    EXPECT_EQ(events[2]["type"], 2);
    EXPECT_EQ(events[8]["arguments"], Json({"مقهى", "", ""}));
    EXPECT_EQ(events[13]["pages"], 1);
    EXPECT_EQ(events[13]["printer"], "qbrpt PDF");
}

TEST(TraceOfARun, ShowsThePreviewAndTheMessages) {
    const Cafe cafe;
    const ChildProcess::Environment settings = {{"QBRPT_TRACE", cafe.File("t")},
                                                {"QBRPT_PDF_FOLDER", cafe.File("p")}};
    ASSERT_EQ(Qbrpt({"PrintIncome", "1", "1", "0", "--db", cafe.Database()}, settings).status, 0);
    std::vector<std::string> texts = Shortened(EventsOf(cafe.File("t")));
    EXPECT_THAT(texts, ::testing::Contains("preview"));
    EXPECT_THAT(texts, ::testing::Not(::testing::Contains("print")));

    cafe.Change("drop table host_log_time");
    ASSERT_EQ(Qbrpt({"PrintIncome", "1", "1", "0", "--db", cafe.Database()}, settings).status, 1);
    const std::vector<Json> events = EventsOf(cafe.File("t"));
    ASSERT_THAT(Shortened(events), ElementsAre("statement", "message"));
    EXPECT_EQ(events[1]["style"], 21);
    EXPECT_EQ(events[1]["title"], "qbrpt");
    EXPECT_EQ(events[1]["answer"], 2);
}

TEST(TraceOfARun, ATraceThatCannotBeWrittenDisturbsNothing) {
    const Cafe cafe;
    const ProgramResult result = cafe.Income({"--csv", cafe.File("i.csv"), "--trace", "/nowhere/t"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("the trace \"/nowhere/t\" cannot be written"));
    EXPECT_TRUE(cafe.Has("i.csv"));
}

} // namespace
} // namespace qbrpt::test
