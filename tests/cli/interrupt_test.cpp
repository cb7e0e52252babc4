// Ctrl+C ends a run cleanly, wherever it is.
#include "cli/command_run.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int StatusOfInterrupt = 128 + SIGINT;

bool Soon(const std::function<bool()>& holds) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > until) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

TEST(Interrupt, OfASampleLeavesNothing) {
    const TempFolder folder;
    ChildProcess sample(
        CommandOf({"sample", (folder / "big.db").string(), "--days", "3000", "--sessions-per-day", "3000"}));
    ASSERT_TRUE(Soon([&] { return !folder.Names().empty(); })) << "it makes its file beside its place";
    sample.Signal(SIGINT);
    const ProgramResult result = sample.Wait();
    EXPECT_EQ(result.status, StatusOfInterrupt);
    EXPECT_THAT(result.err, IsEmpty());
    EXPECT_THAT(folder.Names(), IsEmpty());
}

/// A pipe by name, which takes what a pipe takes and then lets its writer wait.
class SlowReader {
public:
    explicit SlowReader(const std::string& name) {
        ::mkfifo(name.c_str(), 0600);
        mHandle = ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    }
    ~SlowReader() { ::close(mHandle); }
    SlowReader(const SlowReader&) = delete;
    SlowReader& operator=(const SlowReader&) = delete;

    /// What has come since the last call.
    std::size_t Take() const {
        char buffer[4096];
        const ssize_t taken = ::read(mHandle, buffer, sizeof buffer);
        return taken > 0 ? static_cast<std::size_t>(taken) : 0;
    }

private:
    int mHandle = -1;
};

struct Interrupted {
    const char* table; ///< goes into the pipe
    int signal;
};
class InterruptOfAReport : public ::testing::TestWithParam<Interrupted> {};

TEST_P(InterruptOfAReport, LeavesNothingHalfWritten) {
    const Cafe cafe(6000, 1);
    const SlowReader reader(cafe.File("pipe"));
    ChildProcess command(CommandOf({"PrintIncome", "0", "0", "0", "--db", cafe.Database(), "--pdf",
                                    cafe.File("i.pdf"), "--xlsx", cafe.File("i.xlsx"), GetParam().table,
                                    cafe.File("pipe"), "--on-error", "retry"}));
    // The table's first bytes are in the pipe: its writer is in the middle of the work.
    ASSERT_TRUE(Soon([&] { return reader.Take() > 0; })) << command.ErrSoFar();
    command.Signal(GetParam().signal);
    ASSERT_TRUE(Soon([&] { return reader.Take() == 0 && !command.Running(); }));
    const ProgramResult result = command.Wait();
    EXPECT_EQ(result.status, 128 + GetParam().signal);
    EXPECT_THAT(result.err, IsEmpty()) << "the user knows that he stopped it";
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db", "pipe"));
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptOfAReport,
                         ::testing::Values(Interrupted{"--csv", SIGINT}, Interrupted{"--csv", SIGTERM},
                                           Interrupted{"--csv", SIGHUP}, Interrupted{"--html", SIGINT}),
                         [](const auto& row) {
                             return std::string{row.param.table + 2} + std::to_string(row.param.signal);
                         });

TEST(Interrupt, OfAPrintLeavesNothing) {
    const Cafe cafe(20'000, 1);
    ChildProcess command(CommandOf({"PrintIncome", "0", "0", "0", "0", "--db", cafe.Database()}),
                         {{"QBRPT_PDF_FOLDER", cafe.File("pages")}, {"QBRPT_TRACE", cafe.File("t")}});
    ASSERT_TRUE(Soon([&] { return ContentOf(cafe.File("t")).find("HotelAddr2Text") != std::string::npos; }))
        << "the heading is written; printing comes next";
    command.Signal(SIGINT);
    EXPECT_EQ(command.Wait().status, StatusOfInterrupt);
    EXPECT_TRUE(!cafe.Has("pages") || std::filesystem::is_empty(cafe.File("pages")));
}

TEST(Interrupt, AReaderThatHasGoneIsAnErrorWithWords) {
    const Cafe cafe(6000, 1);
    auto reader = std::make_unique<SlowReader>(cafe.File("pipe"));
    ChildProcess command(
        CommandOf({"PrintIncome", "0", "0", "0", "--db", cafe.Database(), "--csv", cafe.File("pipe")}));
    ASSERT_TRUE(Soon([&] { return reader->Take() > 0; })) << command.ErrSoFar();
    reader.reset();
    const ProgramResult result = command.Wait();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, ::testing::HasSubstr("Broken pipe"));
}

} // namespace
} // namespace qbrpt::test
