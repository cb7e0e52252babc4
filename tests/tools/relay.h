// A relay between a client and a server's socket, which falls silent at a word.
#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace qbrpt::test {

/// Hands everything on until a client says `word`: from then on it takes what comes and answers nothing, as a
/// server that has stopped does, until it is opened.
class Relay {
public:
    /// Listens at the socket `own` for those who want the one at `server`.
    Relay(std::string server, const std::string& own, std::string word);
    ~Relay();
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    /// Lets everything through from now on; what was kept back is lost.
    void Open() { mOpen = true; }
    /// Whether the word has come.
    [[nodiscard]] bool Silent() const { return mSilent && !mOpen; }

private:
    struct Pair {
        int client = -1;
        int server = -1;
        bool stuck = false;
    };
    void Run();
    void Accept();
    /// False where the connection is at its end.
    bool Move(Pair& pair, bool fromClient);

    std::string mServer;
    std::string mWord;
    int mListening = -1;
    std::vector<Pair> mPairs;
    std::atomic<bool> mOpen = false;
    std::atomic<bool> mSilent = false;
    std::atomic<bool> mEnd = false;
    std::thread mThread;
};

} // namespace qbrpt::test
