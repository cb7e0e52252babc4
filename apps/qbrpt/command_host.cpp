#include "command_host.h"

#include "adapters/console/console_boxes.h"
#include "adapters/console/quiet_forms.h"
#include "adapters/printing/pdf_folder.h"
#include "adapters/real/real_platform.h"
#include "adapters/trace/trace_writer.h"
#include "base/failure.h"
#include "file_output.h"
#include "interrupt.h"
#include "printer_choice.h"
#include "progress_line.h"
#include "support/error_trap.h"

#include <filesystem>
#include <iostream>
#include <utility>

namespace qbrpt::cli {

namespace {

/// Boxes on standard error, below the line of progress.
class CommandBoxes : public ConsoleBoxes {
public:
    CommandBoxes(BoxAnswer onError, ProgressLine& line) : ConsoleBoxes(std::cerr, onError), mLine(line) {}

private:
    BoxAnswer DoMsgBox(const std::string& text, int style, const std::string& title) override {
        // The user knows that he stopped it.
        if (InterruptSignal() != 0) return BoxAnswer::Cancel;
        mLine.Wipe();
        return ConsoleBoxes::DoMsgBox(text, style, title);
    }
    ProgressLine& mLine;
};

/// Remembers what the user got to see, on the terminal or in windows.
class SeenObserver : public PortObserver {
public:
    SeenObserver(ProgressLine& line, bool showsWindows) : mLine(line), mShowsWindows(showsWindows) {}
    [[nodiscard]] bool Error() const { return mError; }
    [[nodiscard]] bool Window() const { return mWindow; }

    void Called(const PortCall& call) override {
        if (call.operation == "MsgBox") {
            const auto style = std::get<std::int64_t>(call.arguments[1]);
            if (style == BoxStyle::Critical || style == BoxStyle::CriticalRetryCancel) mError = true;
        }
        // Where no window is shown a file is written at that moment, which an interrupt must not cut short.
        if (mShowsWindows && call.port == "Form" && call.operation == "ShowModal") {
            mWindow = true;
            mLine.Wipe();
            ForgetInterrupts();
        }
    }

private:
    ProgressLine& mLine;
    bool mShowsWindows;
    bool mError = false;
    bool mWindow = false;
};

/// Says on the terminal what takes so long.
class ProgressObserver : public PortObserver {
public:
    explicit ProgressObserver(ProgressLine& line) : mLine(line) {}
    void Called(const PortCall& call) override {
        if (call.operation == "OpenRecordset") mLine.Begin("reading rows");
    }

private:
    ProgressLine& mLine;
};

/// One call with all that belongs to it. Undoes the platform at its end.
class Run {
public:
    explicit Run(const MemberCall& call) : mCall(call) {}
    ~Run() { Platform::Install(nullptr); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    int Execute() {
        if (mCall.layoutsFolder && !std::filesystem::is_directory(*mCall.layoutsFolder))
            throw WrongUse("--layouts: there is no folder \"" + *mCall.layoutsFolder + "\".");
        InstallPlatform();
        if (mCall.destination == Destination::Printer) ChoosePrinter(mCall.print, *mPrinters);
        if (mCall.ledger != nullptr)
            PrintLedger();
        else
            CallMember();
        mLine.Wipe();
        return Status();
    }

private:
    void InstallPlatform() {
        RealParts parts;
        parts.onError = mCall.onError.value_or(AnswerFromSettings());
        if (mCall.destination != Destination::Preview)
            parts.messages = std::make_shared<CommandBoxes>(parts.onError, mLine);
        const PageProgress progress = [this](std::size_t done, std::size_t all) { ShowPages(done, all); };
        const PdfPrinter pdfPrinter(PdfFolder(), progress);
        if (mCall.destination == Destination::Files) {
            mFiles = std::make_shared<FileOutput>(
                mCall.files, progress, [this](std::size_t done, std::size_t all) { ShowRows(done, all); });
            if (mCall.member->outcome == Outcome::Report) mFiles->Begin();
            parts.delivery = mFiles;
            parts.forms =
                std::make_shared<QuietForms>([files = mFiles](const Ref<CrystalRuntime::Report>& report) {
                    files->Write(OutputOf(report), {});
                });
            parts.printers = std::make_shared<InstalledPrinters>(pdfPrinter, nullptr);
        } else {
            const FileMade teller = [this](const std::filesystem::path& file) { TellOf(file); };
            mPrinters = PrintersOfThisMachine();
            parts.printers = mPrinters;
            parts.delivery = std::make_shared<PrinterDelivery>(pdfPrinter, parts.printers, teller,
                                                               [this](const PrintJob&) { mMade = true; });
            parts.sides = mCall.print.sides;
            if (mCall.destination == Destination::Printer) {
                parts.delivery = std::make_shared<ChosenPages>(mCall.print, parts.delivery);
                parts.forms = std::make_shared<QuietForms>(
                    [](const Ref<CrystalRuntime::Report>& report) { report->PrintOut(false); });
            } else if (mCall.destination == Destination::Preview) {
                parts.needsDisplay = true;
            } else {
                parts.forms = MakeFileForms(pdfPrinter, teller);
            }
        }
        parts.layoutsFolder = mCall.layoutsFolder;
        if (!mCall.traceFile.empty()) parts.trace = std::make_shared<TraceWriter>(mCall.traceFile);
        auto platform = MakeRealPlatform(std::move(parts));
        if (mCall.choice) AnswerMembersWindow(*platform, *mCall.choice);
        platform->observers.Add(std::make_shared<InterruptObserver>());
        platform->observers.Add(std::make_shared<ProgressObserver>(mLine));
        platform->observers.Add(mSeen);
        Platform::Install(std::move(platform));
    }

    void ShowPages(std::size_t done, std::size_t all) {
        StopIfInterrupted();
        // Before the first page the report is measured.
        mLine.Show(done == 0 ? "laying out pages"
                             : "page " + std::to_string(done) + " of " + std::to_string(all));
    }

    void ShowRows(std::size_t done, std::size_t all) {
        StopIfInterrupted();
        mLine.Show("row " + std::to_string(done) + " of " + std::to_string(all));
    }

    void TellOf(const std::filesystem::path& file) {
        mMade = true;
        mLine.Wipe();
        std::cerr << "qbrpt: " << file.string() << std::endl;
    }

    void CallMember() {
        VantlowCls object;
        object.SetMainTitle(mCall.title, mCall.addr1, mCall.addr2);
        if (OpenDatabase(object)) Call(object);
    }

    void PrintLedger() const {
        if (!HasDatabase()) return;
        Ref<DAO::Database> db;
        ErrorTrap trap(ErrorTrap::BoxWithRetry);
        trap.Step([&] {
            db = Platform::Current().engine->OpenDatabase(mCall.database, false, false, mCall.connect);
        });
        if (!db.Empty()) mCall.ledger->print(db, mCall.arguments);
    }

    [[nodiscard]] bool HasDatabase() const { return !mCall.database.empty() || !mCall.connect.empty(); }

    /// False when there should be a database and the user has given up on it.
    bool OpenDatabase(VantlowCls& object) const {
        if (!HasDatabase()) return true;
        return object.SetDbInfo(mCall.database, mCall.connect) != 0;
    }

    void Call(VantlowCls& object) {
        std::vector<Argument> arguments = mCall.arguments;
        if (mCall.destination == Destination::Preview) {
            for (std::size_t i = 0; i < arguments.size(); ++i) {
                if (mCall.member->arguments[i].name == "bShow") arguments[i] = std::int16_t{1};
            }
        }
        const std::string answer = mCall.member->call(object, arguments);
        if (mCall.member->outcome == Outcome::Answer) std::cout << answer << std::endl;
    }

    [[nodiscard]] int Status() const {
        if (const int signal = InterruptSignal(); signal != 0) return Interrupted + signal;
        if (mSeen->Error()) return ErrorShown;
        const Outcome outcome = mCall.member->outcome;
        if (outcome != Outcome::Report && outcome != Outcome::Window) return ReportMade;
        if (mMade || mSeen->Window() || (mFiles && mFiles->Written())) return ReportMade;
        std::cerr << (HasDatabase() ? "qbrpt: no rows, nothing was made.\n"
                                    : "qbrpt: nothing was made: no database was given (--db).\n");
        return NothingMade;
    }

    const MemberCall& mCall;
    std::shared_ptr<FileOutput> mFiles;
    std::shared_ptr<InstalledPrinters> mPrinters; ///< none where only files are written
    ProgressLine mLine;
    std::shared_ptr<SeenObserver> mSeen =
        std::make_shared<SeenObserver>(mLine, mCall.destination == Destination::Preview);
    bool mMade = false;
};

} // namespace

int RunMember(const MemberCall& call) {
    return Run(call).Execute();
}

int RunSample(sample::SampleOptions options) {
    ProgressLine line;
    options.progress = [&line](double share) {
        line.Show("making the sample, " + std::to_string(static_cast<int>(share * 100)) + " %");
    };
    try {
        sample::MakeSampleDatabase(options);
    } catch (const Failure& failure) {
        if (failure.Number() == FailureNumber::Cancelled && InterruptSignal() != 0)
            return Interrupted + InterruptSignal();
        if (failure.Number() == FailureNumber::InvalidArgument) throw WrongUse(failure.Description());
        throw;
    }
    return ReportMade;
}

} // namespace qbrpt::cli
