// Every command on the real adapters, with port calls failing in their turn.
#include "adapters/real/real_platform.h"
#include "fakes/all_commands.h"
#include "fakes/call_log.h"
#include "fakes/fake_desktop.h"
#include "fakes/fault_observer.h"
#include "fakes/fault_plan.h"
#include "sample/sample.h"
#include "service/VantlowCls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace qbrpt {
namespace {

using fakes::CallLog;
using fakes::CommandCall;
using fakes::FaultObserver;
using fakes::FaultOutcome;
using fakes::FaultPlan;
using ::testing::IsEmpty;

class RealFaults : public ::testing::TestWithParam<CommandCall> {
protected:
    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "qbrpt-faults-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        mFolder = name;
        setenv("QBRPT_PDF_FOLDER", (mFolder / "pdf").c_str(), 1);
        sample::MakeSampleDatabase({.file = Database().string(), .days = 4, .sessionsPerDay = 8});
        Platform::Install(MakeRealPlatform({}));
        const auto used = Platform::Current()
                              .engine->OpenDatabase(Database().string(), false, false, "")
                              ->OpenRecordset("SELECT Min(active_membership) FROM local_log WHERE utype = 1");
        mCard = static_cast<std::int32_t>(std::get<std::int64_t>(used->Fields(0)));
    }
    void TearDown() override {
        Platform::Install(nullptr);
        std::error_code ignored;
        std::filesystem::remove_all(mFolder, ignored);
    }

    [[nodiscard]] std::filesystem::path Database() const { return mFolder / "cafe.db"; }

    FaultOutcome Run(std::size_t position, FaultObserver::Reach reach, BoxAnswer answer,
                     const std::shared_ptr<CallLog>& log = nullptr) {
        const auto messages = std::make_shared<fakes::FakeMessageBoxes>();
        messages->usual = answer;
        const auto screen = std::make_shared<fakes::FakeScreen>();
        RealParts parts;
        parts.messages = messages;
        auto platform = MakeRealPlatform(std::move(parts));
        platform->screen = screen;
        const Ref<Printers> printers = platform->printers;
        Platform::Install(std::move(platform));

        VantlowCls cls;
        EXPECT_EQ(cls.SetDbInfo(Database().string(), ""), 1);
        cls.SetMainTitle("مقهى النجوم", "شارع الملك", "هاتف 555");
        const auto fault = std::make_shared<FaultObserver>(position, reach);
        if (log) Platform::Current().observers.Add(log);
        Platform::Current().observers.Add(fault);
        GetParam().run(cls, mCard);
        Platform::Current().observers = {};
        return {fault->Failed(), messages->boxes, screen->Current(), printers->Orientation()};
    }

    /// The calls of a run without a fault, the font table standing already.
    FaultPlan Plan() {
        Run(0, FaultObserver::Reach::Once, Cancel);
        const auto log = std::make_shared<CallLog>();
        const FaultOutcome clean = Run(0, FaultObserver::Reach::Once, Cancel, log);
        EXPECT_THAT(clean.boxes, IsEmpty());
        EXPECT_EQ(Files().size(), 2U);
        for (const auto& file : Files())
            std::filesystem::remove(file);
        return FaultPlan(log->Lines());
    }

    /// Every file in the printer's folder.
    [[nodiscard]] std::vector<std::filesystem::path> Files() const {
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::directory_iterator(mFolder / "pdf"))
            files.push_back(entry.path());
        return files;
    }

    /// What stands in the folder is whole; it is emptied for the next run.
    void ExpectWholeFilesOnly() const {
        const auto files = Files();
        EXPECT_LE(files.size(), 1U);
        for (const auto& file : files) {
            EXPECT_EQ(file.extension(), ".pdf") << file;
            std::ifstream stream(file, std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
            EXPECT_TRUE(bytes.starts_with("%PDF-")) << file;
            EXPECT_NE(bytes.rfind("%%EOF"), std::string::npos) << file;
            std::filesystem::remove(file);
        }
    }

    /// The font pass does the same to hundreds of objects, format events to every row.
    static std::vector<std::size_t> PositionsToFail(const FaultPlan& plan) {
        constexpr std::size_t step = 37;
        const std::vector<std::size_t> positions = plan.Sample(step);
        EXPECT_GT(positions.size(), 15U);
        return positions;
    }

    static constexpr BoxAnswer Cancel = BoxAnswer::Cancel;
    static constexpr BoxAnswer Retry = BoxAnswer::Retry;

private:
    std::filesystem::path mFolder;
    std::int32_t mCard = 0; ///< one that was used
};

TEST_P(RealFaults, Once) {
    const FaultPlan plan = Plan();
    for (const BoxAnswer answer : {Cancel, Retry}) {
        for (const std::size_t position : PositionsToFail(plan)) {
            SCOPED_TRACE(plan.Call(position) + (answer == Retry ? ", Retry" : ", Cancel"));
            const FaultOutcome outcome = Run(position, FaultObserver::Reach::Once, answer);
            ExpectWholeFilesOnly();
            plan.ExpectEnd(position, answer, outcome);
        }
    }
}

TEST_P(RealFaults, FromThenOn) {
    const FaultPlan plan = Plan();
    for (const std::size_t position : PositionsToFail(plan)) {
        SCOPED_TRACE(plan.Call(position));
        const FaultOutcome outcome = Run(position, FaultObserver::Reach::FromThenOn, Retry);
        EXPECT_GE(outcome.failed, 1U);
        EXPECT_THAT(outcome.boxes, IsEmpty());
        ExpectWholeFilesOnly();
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, RealFaults, ::testing::ValuesIn(fakes::AllCommands()),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
