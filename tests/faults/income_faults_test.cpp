// The income sheet on the real adapters, with every port call failing in its turn.
#include "adapters/real/real_platform.h"
#include "fakes/call_log.h"
#include "fakes/fake_desktop.h"
#include "fakes/fault_observer.h"
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
using fakes::FaultObserver;
using ::testing::Each;
using ::testing::Field;
using ::testing::SizeIs;

struct ShowRow {
    const char* name;
    std::int16_t show;
};

class RealIncomeFaults : public ::testing::TestWithParam<ShowRow> {
protected:
    struct Outcome {
        std::size_t failed = 0;
        std::vector<fakes::ShownBox> boxes;
        Pointer pointer = Pointer::Default;
        std::int16_t orientation = 0;
    };

    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "qbrpt-faults-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        mFolder = name;
        setenv("QBRPT_PDF_FOLDER", (mFolder / "pdf").c_str(), 1);
        sample::MakeSampleDatabase({.file = Database().string(), .days = 4, .sessionsPerDay = 5});
    }
    void TearDown() override {
        Platform::Install(nullptr);
        std::error_code ignored;
        std::filesystem::remove_all(mFolder, ignored);
    }

    [[nodiscard]] std::filesystem::path Database() const { return mFolder / "cafe.db"; }

    Outcome Run(std::size_t position, FaultObserver::Reach reach, BoxAnswer answer,
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
        cls.PrintIncome(1, 4, 0, GetParam().show);
        Platform::Current().observers = {};
        return {fault->Failed(), messages->boxes, screen->Current(), printers->Orientation()};
    }

    /// The names of the calls of a run without a fault, the font table standing already.
    std::vector<std::string> CleanCalls() {
        Run(0, FaultObserver::Reach::Once, Cancel);
        const auto log = std::make_shared<CallLog>();
        const Outcome clean = Run(0, FaultObserver::Reach::Once, Cancel, log);
        EXPECT_TRUE(clean.boxes.empty());
        EXPECT_EQ(Files().size(), 2U);
        for (const auto& file : Files())
            std::filesystem::remove(file);
        std::vector<std::string> calls;
        for (const std::string& line : log->Lines()) {
            if (!line.starts_with("member ")) calls.push_back(line);
        }
        return calls;
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

    static std::size_t LastOf(const std::vector<std::string>& calls, const std::string& head) {
        std::size_t last = 0;
        for (std::size_t index = 0; index < calls.size(); ++index) {
            if (calls[index].starts_with(head)) last = index + 1;
        }
        return last;
    }

    /// Whether a call belongs to the font pass of the new report.
    static bool InFontPass(const std::vector<std::string>& calls, std::size_t position) {
        return position > LastOf(calls, "CrystalRuntime.Runtime.NewReport(") &&
               position + 1 < LastOf(calls, "CrystalRuntime.Section.Height(");
    }

    /// Every call, but of the font pass, which does the same to hundreds of objects, only every seventh.
    static std::vector<std::size_t> PositionsToFail(const std::vector<std::string>& calls) {
        std::vector<std::size_t> positions;
        for (std::size_t position = 1; position <= calls.size(); ++position) {
            if (!InFontPass(calls, position) || position % 7 == 0) positions.push_back(position);
        }
        EXPECT_GT(positions.size(), 40U);
        return positions;
    }

    static constexpr BoxAnswer Cancel = BoxAnswer::Cancel;
    static constexpr BoxAnswer Retry = BoxAnswer::Retry;

private:
    std::filesystem::path mFolder;
};

TEST_P(RealIncomeFaults, Once) {
    const auto calls = CleanCalls();
    const std::size_t lastPointer = LastOf(calls, "Screen.MousePointer(0)");
    const std::size_t restore = LastOf(calls, "Printer.SetOrientation(");
    for (const BoxAnswer answer : {Cancel, Retry}) {
        for (const std::size_t position : PositionsToFail(calls)) {
            SCOPED_TRACE(calls[position - 1] + (answer == Retry ? ", Retry" : ", Cancel"));
            const Outcome outcome = Run(position, FaultObserver::Reach::Once, answer);
            EXPECT_EQ(outcome.failed, 1U);
            ExpectWholeFilesOnly();
            if (position != lastPointer) {
                EXPECT_EQ(outcome.pointer, Pointer::Default);
            }
            if (position != restore) {
                EXPECT_EQ(outcome.orientation, OrientationPortrait);
            }
            // A format event may end its own failure; all else goes through a trap with Retry.
            if (!calls[position - 1].starts_with("CrystalRuntime.Report.PrintingStatus")) {
                EXPECT_THAT(outcome.boxes, Each(Field(&fakes::ShownBox::style, 21)));
            }
            if (InFontPass(calls, position) && outcome.boxes.empty()) continue; // passed over there
            if (answer == Cancel) {
                EXPECT_THAT(outcome.boxes, SizeIs(1));
            } else {
                EXPECT_FALSE(outcome.boxes.empty());
            }
        }
    }
}

TEST_P(RealIncomeFaults, FromThenOn) {
    const auto calls = CleanCalls();
    for (const std::size_t position : PositionsToFail(calls)) {
        SCOPED_TRACE(calls[position - 1]);
        const Outcome outcome = Run(position, FaultObserver::Reach::FromThenOn, Retry);
        EXPECT_GE(outcome.failed, 1U);
        EXPECT_TRUE(outcome.boxes.empty());
        ExpectWholeFilesOnly();
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, RealIncomeFaults,
                         ::testing::Values(ShowRow{"Preview", 1}, ShowRow{"Print", 0}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
