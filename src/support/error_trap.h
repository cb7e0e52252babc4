// The one control structure that C++ lacks: a routine is a row of statements, and a failing statement asks
// the user whether to go on with the next one or to leave.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qbrpt {

/// Stands at the top of a routine; the routine's statements then run through it, so that the routine still
/// reads from top to bottom:
///
///     ErrorTrap trap(ErrorTrap::BoxWithRetry);
///     trap.Step([&] { records = mDb->OpenRecordset(statement); });
///     if (trap.Test([&] { return !records->Eof(); })) {
///         trap.Step([&] { report = std::make_shared<rptAudit>(); });
///     }
///     trap.Always([&] { report.Clear(); });
///
/// A failed statement is never tried again. Retry means "go on regardless", and a failed test then enters
/// the tested branch, since that is where the next statement stands. Nothing leaves the trap: any exception
/// of a statement is a failure, also one that the message box itself raises (it counts as Cancel).
class ErrorTrap {
public:
    enum Kind : std::uint8_t {
        BoxWithRetry, ///< style 21; Retry goes on, Cancel leaves
        BoxThenLeave, ///< style 16, OK alone; leaves
        BoxThenGoOn,  ///< style 16, OK alone; always goes on
        SilentGoOn,   ///< passes every failure over
        SilentLeave   ///< ends the routine without a word
    };

    /// What the box of a kind says beside the failure's description. The texts must outlive the trap.
    struct Box {
        std::string_view prefix{};               ///< before the description: a routine's name and "\r"
        std::optional<int> style = std::nullopt; ///< in place of the kind's own
        std::optional<std::string_view> title = std::nullopt; ///< in place of the usual one
        bool numbered = false; ///< the failure's number and "\r" stand between prefix and description
    };

    explicit ErrorTrap(Kind kind) : ErrorTrap(kind, Box{}) {}
    ErrorTrap(Kind kind, const Box& box);
    ErrorTrap(const ErrorTrap&) = delete;
    ErrorTrap& operator=(const ErrorTrap&) = delete;

    /// One statement. Does nothing once the routine was left.
    template <class Statement>
    void Step(Statement&& statement) {
        if (!mLeft) Run(statement);
    }

    /// The test of a branch: false once the routine was left, true where the test failed and the user goes
    /// on.
    template <class Condition>
    [[nodiscard]] bool Test(Condition&& condition) {
        bool enter = true;
        Step([&] { enter = condition(); });
        return enter && !mLeft;
    }

    /// A statement behind the trap, which runs on every way out.
    template <class Statement>
    void Always(Statement&& statement) {
        Run(statement);
    }

    /// Whether a failure ended the routine.
    [[nodiscard]] bool Left() const { return mLeft; }

private:
    template <class Statement>
    void Run(Statement& statement) {
        try {
            statement();
        } catch (...) {
            Caught();
        }
    }

    /// Says what happened to the exception in flight and settles whether the routine goes on.
    void Caught() noexcept;

    Box mBox;
    Kind mKind;
    bool mLeft = false;
};

/// What the handler of an event does that has no trap of its own: a failure ends it in a box.
template <class Statement>
void HandleEvent(Statement&& statement) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step(statement);
}

} // namespace qbrpt
