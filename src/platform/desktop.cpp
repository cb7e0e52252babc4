#include "platform/desktop.h"

#include <utility>

namespace qbrpt {

void Screen::SetMousePointer(Pointer pointer) {
    Announce("Screen", "MousePointer", {std::int64_t{static_cast<std::int16_t>(pointer)}});
    DoSetMousePointer(pointer);
}

void Screen::Beep() {
    Announce("Screen", "Beep");
    if (mOnce && std::exchange(mBeeped, true)) return;
    DoBeep();
}

double Screen::TwipsPerPixelX() {
    Announce("Screen", "TwipsPerPixelX");
    return DoTwipsPerPixelX();
}

double Screen::TwipsPerPixelY() {
    Announce("Screen", "TwipsPerPixelY");
    return DoTwipsPerPixelY();
}

BoxAnswer MessageBoxes::MsgBox(const std::string& text, int style, const std::optional<std::string>& title) {
    const std::string shownTitle = title.value_or(std::string{ComponentTitle});
    Announce("MessageBoxes", "MsgBox", {text, std::int64_t{style}, shownTitle});
    const BoxAnswer answer = DoMsgBox(text, style, shownTitle);
    Answer("MessageBoxes", "MsgBox", {text, std::int64_t{style}, shownTitle},
           std::int64_t{static_cast<std::int16_t>(answer)});
    return answer;
}

double Clock::Now() {
    Announce("Clock", "Now");
    return DoNow();
}

} // namespace qbrpt
