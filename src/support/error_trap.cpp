#include "support/error_trap.h"

#include "base/failure.h"
#include "platform/desktop.h"
#include "platform/platform.h"

#include <exception>
#include <new>
#include <string>

namespace qbrpt {

namespace {

std::optional<std::string> TitleOf(const ErrorTrap::Box& box) {
    if (!box.title) return std::nullopt;
    return std::string(*box.title);
}

struct Told {
    int number = 0;
    std::string description;
};

Told TellOfCurrent() {
    constexpr int outOfMemory = 7;
    try {
        throw;
    } catch (const Failure& failure) {
        return {static_cast<int>(failure.Number()), failure.Description()};
    } catch (const std::bad_alloc&) {
        return {outOfMemory, "Out of memory."};
    } catch (const std::exception& failure) {
        return {0, failure.what()};
    } catch (...) {
        return {0, "Unknown failure."};
    }
}

} // namespace

ErrorTrap::ErrorTrap(Kind kind, const Box& box) : mBox(box), mKind(kind) {}

void ErrorTrap::Caught() noexcept {
    bool retry = false;
    if (mKind != SilentGoOn && mKind != SilentLeave) {
        try {
            const Told told = TellOfCurrent();
            std::string text(mBox.prefix);
            if (mBox.numbered) text += std::to_string(told.number) + "\r";
            const int usual = mKind == BoxWithRetry ? BoxStyle::CriticalRetryCancel : BoxStyle::Critical;
            retry = Platform::Current().messages->MsgBox(text + told.description, mBox.style.value_or(usual),
                                                         TitleOf(mBox)) == BoxAnswer::Retry;
        } catch (...) { // A box that cannot be shown can't be answered: the routine is left as by Cancel.
            retry = false;
        }
    }
    const bool goOn = mKind == BoxThenGoOn || mKind == SilentGoOn || (mKind == BoxWithRetry && retry);
    if (!goOn) mLeft = true;
}

} // namespace qbrpt
