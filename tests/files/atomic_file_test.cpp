#include "adapters/files/atomic_file.h"
#include "adapters/files/database_file.h"
#include "base/failure.h"
#include "tools/temp_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>

namespace qbrpt {
namespace {

namespace fs = std::filesystem;

using test::ContentOf;
using test::TempFolder;
using test::WriteContent;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

Failure FailureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure;
    }
    return {FailureNumber::InvalidArgument, "nothing failed"};
}

TEST(AtomicFile, StandsWholeAfterCommit) {
    const TempFolder folder;
    AtomicFile file(folder / "a.pdf");
    const std::string large(700'000, 'x');
    file.Write("head ");
    file.Write(large);
    file.Write(" tail");
    EXPECT_THAT(folder.Names(), IsEmpty()) << "nothing may be seen before the commit";
    file.Commit();
    EXPECT_EQ(ContentOf(folder / "a.pdf"), "head " + large + " tail");
    EXPECT_THAT(folder.Names(), ElementsAre("a.pdf"));
}

TEST(AtomicFile, LeavesNothingWithoutCommit) {
    const TempFolder folder;
    { AtomicFile(folder / "a.pdf").Write("half"); }
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(AtomicFile, KeepsTheOlderFileWithoutCommit) {
    const TempFolder folder;
    WriteContent(folder / "a.pdf", "older");
    { AtomicFile(folder / "a.pdf").Write("half"); }
    EXPECT_EQ(ContentOf(folder / "a.pdf"), "older");
    EXPECT_THAT(folder.Names(), ElementsAre("a.pdf"));
}

TEST(AtomicFile, LeavesADatabaseAlone) {
    using namespace std::string_literals;
    const TempFolder folder;
    const std::map<std::string, std::string> heads = {{"cafe.db", "SQLite format 3\0 and more"s},
                                                      {"cafe.mdb", "\0\1\0\0Standard Jet DB\0"s},
                                                      {"cafe.accdb", "\0\1\0\0Standard ACE DB\0"s}};
    for (const auto& [name, head] : heads) {
        WriteContent(folder / name, head);
        const Failure failure = FailureOf([&] { AtomicFile(folder / name); });
        EXPECT_EQ(failure.Number(), FailureNumber::FileAccess) << name;
        EXPECT_THAT(failure.Description(), HasSubstr("a database stands there")) << name;
    }
    fs::create_symlink(folder / "cafe.db", folder / "link.pdf");
    EXPECT_THAT(FailureOf([&] { AtomicFile(folder / "link.pdf"); }).Description(), HasSubstr("a database"));
    WriteContent(folder / "short", "SQLite");
    AtomicFile(folder / "short").Commit();
}

// Another handle that is closed would give the locks up.
TEST(HoldsDatabase, LeavesTheLocksOfThisProcessAlone) {
    const TempFolder folder;
    WriteContent(folder / "cafe.db", std::string("SQLite format 3\0", 16));
    const int handle = ::open((folder / "cafe.db").c_str(), O_RDWR | O_CLOEXEC);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    ASSERT_EQ(::fcntl(handle, F_SETLK, &lock), 0);
    EXPECT_TRUE(HoldsDatabase(folder / "cafe.db"));
    struct flock seen {};
    seen.l_type = F_WRLCK;
    const pid_t other = ::fork();
    if (other == 0) { // another process is asked: one's own locks are no hindrance
        ::fcntl(handle, F_GETLK, &seen);
        ::_exit(seen.l_type == F_WRLCK ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0) << "the lock is gone";
    ::close(handle);
}

TEST(AtomicFile, ReplacesAnOlderFileAndKeepsItsMode) {
    const TempFolder folder;
    WriteContent(folder / "a.pdf", "a longer older content");
    ::chmod((folder / "a.pdf").c_str(), 0640);
    AtomicFile file(folder / "a.pdf");
    file.Write("new");
    file.Commit();
    struct stat status {};
    ASSERT_EQ(::stat((folder / "a.pdf").c_str(), &status), 0);
    EXPECT_EQ(ContentOf(folder / "a.pdf"), "new");
    EXPECT_EQ(status.st_mode & 07777, 0640U);
    EXPECT_THAT(folder.Names(), ElementsAre("a.pdf"));
}

TEST(AtomicFile, NewFilesHonourTheMask) {
    const TempFolder folder;
    const mode_t before = ::umask(027);
    AtomicFile file(folder / "a.csv");
    file.Commit();
    ::umask(before);
    struct stat status {};
    ASSERT_EQ(::stat((folder / "a.csv").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST(AtomicFile, ALinkKeepsPointingAtItsFile) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "real");
    WriteContent(folder.Path() / "real" / "a.pdf", "older");
    std::filesystem::create_symlink(folder.Path() / "real" / "a.pdf", folder / "link.pdf");
    AtomicFile file(folder / "link.pdf");
    file.Write("new");
    file.Commit();
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.pdf"));
    EXPECT_EQ(ContentOf(folder.Path() / "real" / "a.pdf"), "new");
}

TEST(AtomicFile, CommitAsRefusesANameThatIsTaken) {
    const TempFolder folder;
    WriteContent(folder / "a.pdf", "older");
    AtomicFile file(folder / "a.pdf");
    file.Write("new");
    EXPECT_FALSE(file.CommitAs(folder / "a.pdf"));
    EXPECT_TRUE(file.CommitAs(folder / "a (2).pdf"));
    EXPECT_EQ(file.Target(), folder / "a (2).pdf");
    EXPECT_EQ(ContentOf(folder / "a.pdf"), "older");
    EXPECT_EQ(ContentOf(folder / "a (2).pdf"), "new");
    EXPECT_THAT(folder.Names(), ElementsAre("a (2).pdf", "a.pdf"));
}

TEST(AtomicFile, AFullDiskIsAFailureWithReasonAndAdvice) {
    AtomicFile file("/dev/full");
    const Failure failure = FailureOf([&] {
        file.Write(std::string(1'000'000, 'x'));
        file.Commit();
    });
    EXPECT_EQ(failure.Number(), FailureNumber::Output);
    EXPECT_THAT(failure.Description(), AllOf(HasSubstr("/dev/full"), HasSubstr("No space left on device"),
                                             HasSubstr("Free some space")));
}

TEST(AtomicFile, AFullDiskShowsAlsoForFewBytes) {
    AtomicFile file("/dev/full");
    file.Write("few");
    EXPECT_EQ(FailureOf([&] { file.Commit(); }).Number(), FailureNumber::Output);
}

TEST(AtomicFile, MissingFolder) {
    const TempFolder folder;
    const Failure failure = FailureOf([&] { AtomicFile(folder / "none/a.pdf"); });
    EXPECT_EQ(failure.Number(), FailureNumber::FileAccess);
    EXPECT_THAT(failure.Description(), AllOf(HasSubstr("none/a.pdf"), HasSubstr("Make the folder first")));
}

TEST(AtomicFile, AFolderInPlaceOfAFile) {
    const TempFolder folder;
    EXPECT_THAT(FailureOf([&] { AtomicFile{folder.Path()}; }).Description(),
                HasSubstr("a folder of that name"));
    EXPECT_THAT(FailureOf([&] { AtomicFile{""}; }).Description(), HasSubstr("no name"));
}

TEST(AtomicFile, AFolderThatMayNotBeWritten) {
    // Root may write anywhere but in the system's own trees.
    const Failure failure = FailureOf([&] { AtomicFile("/proc/a.pdf"); });
    EXPECT_EQ(failure.Number(), FailureNumber::FileAccess);
}

} // namespace
} // namespace qbrpt
