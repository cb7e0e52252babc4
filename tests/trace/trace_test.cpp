#include "adapters/trace/trace_events.h"
#include "adapters/trace/trace_writer.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace qbrpt {
namespace {

using test::ContentOf;
using test::TempFolder;

struct CallRow {
    const char* name;
    std::string port;
    std::string operation;
    std::vector<Value> arguments;
    std::optional<Value> answer;
    std::string line; ///< empty: no event
};

class TraceEvent : public ::testing::TestWithParam<CallRow> {};

TEST_P(TraceEvent, IsOneLine) {
    const CallRow& row = GetParam();
    const PortCall call{row.port, row.operation, row.arguments};
    const auto line = row.answer ? EventOfAnswer(call, *row.answer) : EventOfCall(call);
    EXPECT_EQ(line.value_or(""), row.line);
}

using V = std::vector<Value>;

INSTANTIATE_TEST_SUITE_P(
    Calls, TraceEvent,
    ::testing::Values(
        CallRow{"StatementWithType",
                "DAO.Database",
                "OpenRecordset",
                V{"SELECT 'سعر' \"x\"", std::int64_t{2}},
                {},
                R"({"event":"statement","sql":"SELECT 'سعر' \"x\"","type":2})"},
        CallRow{"StatementWithoutType",
                "DAO.Database",
                "OpenRecordset",
                V{"SELECT  1 ", Null{}},
                {},
                R"({"event":"statement","sql":"SELECT  1 ","type":null})"},
        CallRow{"StatementThatWrites",
                "DAO.Database",
                "Execute",
                V{"DELETE FROM t"},
                {},
                R"({"event":"statement","sql":"DELETE FROM t","type":null})"},
        CallRow{"ParameterDate",
                "DAO.QueryDef",
                "Parameters",
                V{"users_income", std::int64_t{1}, Date{38001.5}},
                {},
                R"({"event":"parameter","query":"users_income","index":1,"value":38001.5})"},
        CallRow{"ParameterNull",
                "DAO.QueryDef",
                "Parameters",
                V{"users_income", std::int64_t{0}, Null{}},
                {},
                R"({"event":"parameter","query":"users_income","index":0,"value":null})"},
        CallRow{"Template",
                "CrystalRuntime.Runtime",
                "NewReport",
                V{"PayOutRpt"},
                {},
                R"({"event":"template","name":"PayOutRpt"})"},
        CallRow{"Text",
                "CrystalRuntime.ReportObject",
                "SetText",
                V{"Title", "سطر\n"},
                {},
                R"({"event":"text","object":"Title","text":"سطر\n"})"},
        CallRow{"Orientation",
                "Printer",
                "SetOrientation",
                V{std::int64_t{2}},
                {},
                R"({"event":"orientation","value":2})"},
        CallRow{"Pointer",
                "Screen",
                "MousePointer",
                V{std::int64_t{11}},
                {},
                R"({"event":"pointer","value":11})"},
        CallRow{"MessageAnswered", "MessageBoxes", "MsgBox", V{"No Data", std::int64_t{0}, "qbrpt"},
                Value{std::int64_t{1}},
                R"({"event":"message","text":"No Data","style":0,"title":"qbrpt","answer":1})"},
        CallRow{"MessageNotYetAnswered",
                "MessageBoxes",
                "MsgBox",
                V{"No Data", std::int64_t{0}, "qbrpt"},
                {},
                ""},
        CallRow{"Preview", "CRViewer", "ViewReport", V{true, "qbrpt PDF"}, Value{std::int64_t{3}},
                R"({"event":"preview","arabic":true,"printer":"qbrpt PDF","pages":3})"},
        CallRow{
            "Print", "CrystalRuntime.Report", "PrintOut", V{false, "p", Null{}, std::int64_t{2}, Null{}},
            Value{std::int64_t{7}},
            R"({"event":"print","prompt":false,"printer":"p","copies":null,"startPage":2,"stopPage":null,"pages":7})"},
        CallRow{"OtherCalls", "DAO.Recordset", "MoveNext", V{}, {}, ""},
        CallRow{"InvalidBytesAreReplaced",
                "DAO.Database",
                "Execute",
                V{"a\xFFz"},
                {},
                "{\"event\":\"statement\",\"sql\":\"a\xEF\xBF\xBDz\",\"type\":null}"}),
    [](const auto& row) { return row.param.name; });

TEST(TraceEventOfMember, HasItsArguments) {
    EXPECT_EQ(EventOfMember("SetHotelInfo", V{"مقهى", "", true, 1.5}),
              R"({"event":"member","name":"SetHotelInfo","arguments":["مقهى","",true,1.5]})");
    EXPECT_EQ(EventOfMember("SetLogo", V{}), R"({"event":"member","name":"SetLogo","arguments":[]})");
}

TEST(TraceWriterTest, WritesEachLineAtOnceInOrder) {
    const TempFolder folder;
    TraceWriter trace((folder / "t.jsonl").string());
    const V pointer{std::int64_t{11}};
    trace.Called({"Screen", "MousePointer", pointer});
    EXPECT_EQ(ContentOf(folder / "t.jsonl"), "{\"event\":\"pointer\",\"value\":11}\n");
    trace.MemberCalled("M", {});
    const V box{"t", std::int64_t{21}, "qbrpt"};
    trace.Called({"MessageBoxes", "MsgBox", box});
    trace.Answered({"MessageBoxes", "MsgBox", box}, std::int64_t{2});
    EXPECT_EQ(ContentOf(folder / "t.jsonl"),
              "{\"event\":\"pointer\",\"value\":11}\n"
              "{\"event\":\"member\",\"name\":\"M\",\"arguments\":[]}\n"
              "{\"event\":\"message\",\"text\":\"t\",\"style\":21,\"title\":\"qbrpt\",\"answer\":2}\n");
}

TEST(TraceWriterTest, AFileThatCannotBeWrittenIsOneWarning) {
    for (const char* file : {"/dev/full", "/none/at/all"}) {
        SCOPED_TRACE(file);
        ::testing::internal::CaptureStderr();
        TraceWriter trace(file);
        trace.MemberCalled("M", {});
        trace.MemberCalled("M", {});
        EXPECT_EQ(::testing::internal::GetCapturedStderr(),
                  "qbrpt: the trace \"" + std::string{file} +
                      "\" cannot be written; the run goes on without it.\n");
    }
}

TEST(TraceWriterTest, ADatabaseIsNotWrittenOver) {
    const TempFolder folder;
    const std::string content("SQLite format 3\0 and the books", 31);
    test::WriteContent(folder / "cafe.db", content);
    ::testing::internal::CaptureStderr();
    TraceWriter((folder / "cafe.db").string()).MemberCalled("M", {});
    EXPECT_NE(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(ContentOf(folder / "cafe.db"), content);
}

TEST(TraceWriterTest, TheSettingNamesTheFile) {
    const TempFolder folder;
    ::unsetenv("QBRPT_TRACE");
    EXPECT_EQ(TraceFromSettings(), nullptr);
    ::setenv("QBRPT_TRACE", "", 1);
    EXPECT_EQ(TraceFromSettings(), nullptr);
    ::setenv("QBRPT_TRACE", (folder / "t").c_str(), 1);
    EXPECT_NE(TraceFromSettings(), nullptr);
}

} // namespace
} // namespace qbrpt
