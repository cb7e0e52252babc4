// A private print service: a scheduler on a socket of its own, with queues of a test.
#pragma once

#include "tools/child_process.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt::test {

/// A size as a queue's description lists it, in points.
struct QueueSize {
    std::string name; ///< "A4", or "w600h1200"
    int width = 0;
    int height = 0;
};

/// A sheet of paper queue and what else it can do.
struct QueueKind {
    std::vector<QueueSize> sizes = {
        {"A4", 595, 842}, {"A5", 420, 595}, {"Letter", 612, 792}, {"w600h1200", 600, 1200}};
    std::string defaultSize = "A4";
    std::vector<std::string> trays = {"Auto", "Manual", "Tray2"};
    bool twoSided = true;
};

/// What came out of a printer.
struct PrintedJob {
    std::filesystem::path file; ///< the document as the printer got it
    std::string words;          ///< its command line, a word a line, or its attributes as NAME=value lines
    [[nodiscard]] bool Has(const std::string& word) const { return words.find(word) != std::string::npos; }
};

/// The scheduler; gone with the object, with all that it has started. The process prints through it as long
/// as it lives (CUPS_SERVER).
class PrintService {
public:
    PrintService();
    ~PrintService();
    PrintService(const PrintService&) = delete;
    PrintService& operator=(const PrintService&) = delete;

    /// A queue that saves what it gets in a folder.
    void AddFolderQueue(const std::string& name, const QueueKind& kind = {});
    /// A queue without a driver, which saves what it gets in a folder.
    void AddRawQueue(const std::string& name);
    /// A driverless printer behind a queue.
    void AddDriverlessQueue(const std::string& name);

    /// The user's own option of a queue, "InputSlot=Manual".
    void SetUserOption(const std::string& queue, const std::string& option) const;

    /// Runs one of the scheduler's own programs against it.
    ProgramResult Tell(std::vector<std::string> command) const;
    /// The scheduler stops in the middle of whatever it does, or goes on.
    void Freeze() const;
    void Thaw() const;
    void Kill();
    void Start();

    /// Waits for job `count` of a printer, counted from 1, and returns it.
    [[nodiscard]] PrintedJob Printed(const std::string& queue, std::size_t count = 1) const;
    [[nodiscard]] std::size_t PrintedCount(const std::string& queue) const;
    /// Jobs that are neither done nor cancelled.
    [[nodiscard]] std::size_t JobsUnderWay() const;
    /// The documents that the scheduler holds.
    [[nodiscard]] std::size_t Documents() const;
    [[nodiscard]] std::string Socket() const { return (mRoot / "state" / "cups.sock").string(); }
    [[nodiscard]] std::string Log() const;

private:
    void AddSavingQueue(const std::string& name, const std::vector<std::string>& driver);
    void WriteSettings() const;
    void WriteBackend() const;

    TempFolder mRoot;
    std::string mServer; ///< as it was before, like the home
    std::string mHome;
    std::unique_ptr<ChildProcess> mScheduler;
    std::unique_ptr<ChildProcess> mBus;
    std::vector<std::unique_ptr<ChildProcess>> mPrinters;
};

} // namespace qbrpt::test
