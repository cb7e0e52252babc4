// Every report is shown over the host's window, from the host's own fields.
#include "host_stage.h"

namespace qbrpt::test {
namespace {

struct ReportRow {
    const char* member;
    std::vector<std::pair<const char*, int>> numbers{}; ///< beside the defaults
    bool example = false;                               ///< takes the statement that the host proposes
};

void PrintTo(const ReportRow& row, std::ostream* stream) {
    *stream << row.member;
}

class EveryReport : public HostStage, public ::testing::WithParamInterface<ReportRow> {};

TEST_P(EveryReport, IsShownOverTheHost) {
    const Cafe cafe(4, 12);
    Open(cafe.Database());
    Choose(GetParam().member);
    for (const auto& [name, number] : GetParam().numbers) {
        const bool card = number < 0;
        const std::string value =
            card ? cafe.Ask("SELECT min(active_membership) FROM local_log WHERE utype = 1")
                 : std::to_string(number);
        Part<QSpinBox>(name)->setValue(std::stoi(value));
    }
    if (GetParam().example) Part<QPushButton>("example")->click();
    const Meanwhile meanwhile([&] { return Preview() != nullptr || OpenBox() != nullptr; },
                              [&] {
                                  if (OpenBox() != nullptr) {
                                      ADD_FAILURE() << OpenBox()->text().toStdString();
                                      return OpenBox()->reject();
                                  }
                                  EXPECT_FALSE(window->isVisible());
                                  Preview()->close();
                              });
    ClickRun();
    EXPECT_TRUE(meanwhile.Done()) << "nothing was shown";
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Status(), QString("انتهى الأمر %1.").arg(GetParam().member));
    EXPECT_FALSE(std::filesystem::exists(folder / "pages")) << "nothing was printed";
}

constexpr int ACard = -1;

INSTANTIATE_TEST_SUITE_P(Members, EveryReport,
                         ::testing::Values(ReportRow{"PrintIncome"}, ReportRow{"PrintMemberUsage"},
                                           ReportRow{"PrintPPUsage", {{"memberID", ACard}}},
                                           ReportRow{"PrintPCUsage"}, ReportRow{"PrintInternetUsage"},
                                           ReportRow{"PrintMembersIncom"}, ReportRow{"PrintPayout"},
                                           ReportRow{"PrintUsage"}, ReportRow{"PrintOtherIncome"},
                                           ReportRow{"PrintServicesIncome"},
                                           ReportRow{"PrintMembersInfo", {}, true},
                                           ReportRow{"PrintUsersIncome"}, ReportRow{"PrintPPCards", {}, true},
                                           ReportRow{"PrintPPInfo", {}, true}, ReportRow{"PrintAudit"},
                                           ReportRow{"PrintPrintLog"}),
                         [](const auto& row) { return row.param.member; });

} // namespace
} // namespace qbrpt::test
