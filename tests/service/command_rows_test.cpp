#include "command_rows.h"

namespace qbrpt {
namespace {

std::string Opened(const std::string& statement, std::optional<int> type) {
    return "DAO.Database.OpenRecordset(\"" + statement + "\", " + (type ? std::to_string(*type) : "null") +
           ")";
}

/// Everything that is watched, in the order in which it must happen.
std::vector<std::string> ExpectedEvents(const CommandRow& row) {
    std::vector<std::string> events;
    for (const std::string& statement : row.before)
        events.push_back(Opened(statement, std::nullopt));
    events.push_back(Opened(row.statement, row.type));
    // The name of a host belongs to the title.
    const std::string host = "SELECT name FROM host_src WHERE id = ";
    const auto nameLookUp = [&host](const std::string& event) {
        return event.find(host) != std::string::npos;
    };
    std::stable_partition(events.begin(), events.end(),
                          [&](const auto& event) { return !nameLookUp(event); });
    if (row.landscape) events.emplace_back("Printer.SetOrientation(2)");
    events.push_back("CrystalRuntime.Runtime.NewReport(\"" + std::string(row.templateName) + "\")");
    for (const std::string& member : row.members)
        events.push_back("member " + member);
    events.emplace_back("Screen.MousePointer(11)");
    events.emplace_back("member SetHotelInfo(\"مقهى النجوم\", \"شارع الملك\", \"هاتف 123\")");
    events.emplace_back("CrystalRuntime.Report.SetDataSource(3)");
    events.emplace_back("CrystalRuntime.Report.ReadRecords()");
    if (row.preview) {
        events.emplace_back("Screen.MousePointer(11)");
        events.emplace_back("CRViewer.ViewReport(true)");
        events.emplace_back("Screen.MousePointer(0)");
        events.emplace_back("Screen.MousePointer(0)");
    } else {
        events.emplace_back("CrystalRuntime.Report.PrintOut(false, \"Lazer\", null, null, null)");
    }
    events.emplace_back("Screen.MousePointer(0)");
    if (row.landscape) events.emplace_back("Printer.SetOrientation(1)");
    return events;
}

const std::vector<std::string> Watched = {"DAO.Database.",
                                          "CrystalRuntime.Runtime.",
                                          "member ",
                                          "Printer.SetOrientation",
                                          "Screen.MousePointer",
                                          "CRViewer.ViewReport",
                                          "CrystalRuntime.Report.SetDataSource",
                                          "CrystalRuntime.Report.ReadRecords",
                                          "CrystalRuntime.Report.PrintOut"};

TEST_P(CommandCase, GoesInItsOrder) {
    const CommandRow& row = GetParam();
    GiveDatabase();
    cls.SetMainTitle("مقهى النجوم", "شارع الملك", "هاتف 123");
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    row.call(cls);
    EXPECT_EQ(log->LinesOf(Watched), ExpectedEvents(row));
    EXPECT_THAT(platform.messages->boxes, ::testing::IsEmpty());
    // The row test is the first question to the report's rows.
    const auto& lines = log->Lines();
    auto opened = std::find(lines.begin(), lines.end(), Opened(row.statement, row.type));
    ASSERT_NE(opened, lines.end());
    EXPECT_EQ(*++opened, "DAO.Recordset." + std::string(row.rowTest) + "()");
}

TEST_P(CommandCase, MakesNothingWithoutRows) {
    const CommandRow& row = GetParam();
    GiveDatabase();
    db->Answer(row.statement, {});
    row.call(cls);
    EXPECT_THAT(platform.runtime->made, ::testing::IsEmpty());
    EXPECT_THAT(platform.printers->orientations, ::testing::IsEmpty());
    EXPECT_THAT(platform.screen->pointers, ::testing::IsEmpty());
    EXPECT_EQ(platform.viewer->views, 0);
    using fakes::ShownBox;
    std::vector<ShownBox> boxes;
    if (std::string(row.templateName) == "MembersPay") boxes = {{"No Data", 0, "qbrpt"}};
    if (std::string(row.templateName) == "MembersInfo")
        boxes = {{"لا توجد بيانات للطباعة.", 1'573'120, "qbrpt"}};
    EXPECT_EQ(platform.messages->boxes, boxes);
}

} // namespace
} // namespace qbrpt
