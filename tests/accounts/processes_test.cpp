// Entries of several processes in one file: those that die in the middle, and those that enter at once.
#include "accounts/window_fixture.h"
#include "tools/temp_folder.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace qbrpt {
namespace {

/// The window over a file, as another process has it.
class Enterer : public AccountWindowTest {
public:
    explicit Enterer(const std::filesystem::path& file) {
        db = MakeSqliteEngine()->OpenDatabase(file.string(), false, false, "");
    }

    /// Enters `count` transfers of 1 from the first account to the second; `entered` hears of each that is
    /// in the file. Returns how many were refused.
    std::size_t Enter(int count, const std::string& who,
                      const std::function<void(const std::string&)>& entered) {
        Show([&] {
            ChooseTab(2);
            for (int number = 0; number < count; ++number) {
                const std::string description = who + "-" + std::to_string(number);
                Choose("comboFrom", 0);
                Choose("comboTo", 1);
                Type("txtAmount", "1");
                Type("txtDescrip", description);
                form->events.Click("cmdAddReg");
                const auto found = db->OpenRecordset("SELECT descrip FROM account_log WHERE descrip = '" +
                                                     description + "'");
                if (!found->Eof()) entered(description + "\n");
            }
        });
        return Boxes().size();
    }

private:
    void TestBody() override {}
};

/// A process of our own that writes to a pipe what it has done.
class Child {
public:
    template <class Work>
    explicit Child(Work&& work) {
        int ends[2];
        if (pipe(ends) != 0) throw std::runtime_error("no pipe");
        mPid = fork();
        if (mPid == 0) {
            close(ends[0]);
            const auto say = [end = ends[1]](const std::string& line) {
                if (write(end, line.data(), line.size()) < 0) _exit(3);
            };
            int status = 2;
            try {
                work(say);
                status = 0;
            } catch (...) { // the status tells
            }
            _exit(status);
        }
        close(ends[1]);
        mRead = ends[0];
    }
    ~Child() { close(mRead); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Waits until it has begun to write.
    void AwaitWords() {
        char letter = 0;
        if (read(mRead, &letter, 1) != 1) throw std::runtime_error("the child has died");
        mWritten = letter;
    }
    void Kill() const { kill(mPid, SIGKILL); }
    /// All that it has written, when it has ended.
    std::string Wait() {
        std::string all = mWritten;
        char bytes[4096];
        for (ssize_t count = 0; (count = read(mRead, bytes, sizeof bytes)) > 0;)
            all.append(bytes, static_cast<std::size_t>(count));
        waitpid(mPid, &mStatus, 0);
        return all;
    }
    [[nodiscard]] bool EndedWell() const { return WIFEXITED(mStatus) && WEXITSTATUS(mStatus) == 0; }

private:
    std::string mWritten;
    pid_t mPid = 0;
    int mRead = -1;
    int mStatus = 0;
};

class Processes : public AccountWindowTest, public ::testing::WithParamInterface<const char*> {
protected:
    void MakeFile(int balance) {
        Reopen();
        Native(std::string("PRAGMA journal_mode = ") + GetParam() +
               "; CREATE TABLE account_src (accid INTEGER, name TEXT); CREATE TABLE account_log (acc_from "
               "INTEGER, acc_to INTEGER, amount REAL, trans_date DATETIME, descrip TEXT);"
               "INSERT INTO account_src VALUES (1, 'a'), (2, 'b'); INSERT INTO account_log VALUES (0, 1, " +
               std::to_string(balance) + ", 37780, 'takings')");
        Close();
    }
    /// The file, while no other process works on it.
    void Reopen() {
        Close();
        sqlite3_open(file.c_str(), &handle);
    }
    void Close() {
        db.Clear();
        sqlite3_close_v2(handle);
        handle = nullptr;
    }
    [[nodiscard]] std::string Entered() {
        Reopen();
        return Ask("SELECT descrip FROM account_log WHERE acc_from = 1 ORDER BY rowid");
    }

    test::TempFolder folder;
    std::string file = (folder / "cafe.db").string();
};

INSTANTIATE_TEST_SUITE_P(Journals, Processes, ::testing::Values("wal", "delete"),
                         [](const auto& mode) { return std::string(mode.param); });

// A hundred in each of both kinds of journal.
TEST_P(Processes, ThatAreKilledLeaveEachDoneEntryWhole) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    MakeFile(1'000'000);
    std::string told;
    constexpr int kills = 100;
    for (int turn = 0; turn < kills; ++turn) {
        Child child([&](const auto& say) {
            Enterer enterer(file);
            enterer.Enter(1'000'000, "t" + std::to_string(turn), say);
        });
        child.AwaitWords();
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 15'000));
        child.Kill();
        told += child.Wait();
    }
    EXPECT_GE(std::count(told.begin(), told.end(), '\n'), kills);
    Reopen();
    EXPECT_EQ(Ask("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(
        Ask("SELECT count(*) FROM account_log WHERE descrip <> 'takings' AND NOT (acc_from = 1 AND acc_to "
            "= 2 AND amount = 1 AND trans_date = 38000.5 AND descrip LIKE 't%-%')"),
        "0");
    EXPECT_EQ(Ask("SELECT count(*) - count(DISTINCT descrip) FROM account_log"), "0");
    // One that was not told of any more may be there: its process died between the commit and the word.
    std::string entered = " " + Ask("SELECT descrip FROM account_log") + " ";
    std::size_t missing = 0;
    for (std::size_t at = 0, end = 0; (end = told.find('\n', at)) != std::string::npos; at = end + 1)
        if (entered.find(" " + told.substr(at, end - at) + " ") == std::string::npos) ++missing;
    EXPECT_EQ(missing, 0U);
}

// There are 200 to spend, and 300 are asked for.
TEST_P(Processes, ThatEnterAtOnceSpendWhatIsThereAndNoMore) {
    MakeFile(200);
    constexpr int each = 150;
    const auto work = [&](const std::string& who) {
        return [&, who](const auto& say) {
            Enterer enterer(file);
            const std::size_t refused = enterer.Enter(each, who, say);
            for (std::size_t box = 0; box < refused; ++box)
                say("refused\n");
        };
    };
    Child one(work("one"));
    Child other(work("other"));
    const std::string told = one.Wait() + other.Wait();
    EXPECT_TRUE(one.EndedWell());
    EXPECT_TRUE(other.EndedWell());
    Reopen();
    EXPECT_EQ(Ask("SELECT count(*), sum(amount) FROM account_log WHERE acc_from = 1"), "200|200.0");
    std::size_t refused = 0;
    for (std::size_t at = 0; (at = told.find("refused\n", at)) != std::string::npos; ++at)
        ++refused;
    // Each was either entered or refused with words: none was lost to the other's lock.
    EXPECT_EQ(refused, 100U);
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 300);
}

} // namespace
} // namespace qbrpt
