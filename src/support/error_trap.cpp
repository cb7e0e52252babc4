#include "support/error_trap.h"

#include "platform/desktop.h"
#include "platform/platform.h"

#include <exception>
#include <new>
#include <string>

namespace qbrpt {

namespace {

std::string DescriptionOfCurrent() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return "Out of memory.";
    } catch (const std::exception& failure) {
        return failure.what();
    } catch (...) {
        return "Unknown failure.";
    }
}

} // namespace

ErrorTrap::ErrorTrap(Kind kind, std::string_view prefix, std::optional<int> style)
    : mPrefix(prefix),
      mStyle(style.value_or(kind == BoxWithRetry ? BoxStyle::CriticalRetryCancel : BoxStyle::Critical)),
      mKind(kind) {}

void ErrorTrap::Caught() noexcept {
    bool retry = false;
    if (mKind != SilentGoOn && mKind != SilentLeave) {
        try {
            const std::string text = std::string(mPrefix) + DescriptionOfCurrent();
            retry = Platform::Current().messages->MsgBox(text, mStyle) == BoxAnswer::Retry;
        } catch (...) { // A box that cannot be shown can't be answered: the routine is left as by Cancel.
            retry = false;
        }
    }
    const bool goOn = mKind == BoxThenGoOn || mKind == SilentGoOn || (mKind == BoxWithRetry && retry);
    if (!goOn) mLeft = true;
}

} // namespace qbrpt
