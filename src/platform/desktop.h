// The desktop around the component: pointer, message boxes, clock, and its windows.
#pragma once

#include "platform/port.h"
#include "platform/windows.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qbrpt {

/// Mouse pointer codes.
enum class Pointer : std::int16_t { Default = 0, Wait = 11, ArrowHourglass = 13 };

class Screen : public Port {
public:
    void SetMousePointer(Pointer pointer);
    void Beep();
    /// Twips that a pixel of the screen takes.
    [[nodiscard]] double TwipsPerPixelX();
    [[nodiscard]] double TwipsPerPixelY();

private:
    friend class OneBeep;

    virtual void DoSetMousePointer(Pointer pointer) = 0;
    virtual void DoBeep() = 0;
    // A screen of 96 dots to the inch, as desktops and report pages reckon.
    virtual double DoTwipsPerPixelX() { return 15; }
    virtual double DoTwipsPerPixelY() { return 15; }

    bool mOnce = false; ///< one beep is enough for now
    bool mBeeped = false;
};

/// While it lives, the screen is heard once at most: for much that comes at one go.
class OneBeep {
public:
    explicit OneBeep(Screen& screen) : mScreen(screen) {
        mScreen.mOnce = true;
        mScreen.mBeeped = false;
    }
    ~OneBeep() { mScreen.mOnce = false; }
    OneBeep(const OneBeep&) = delete;
    OneBeep& operator=(const OneBeep&) = delete;

private:
    Screen& mScreen;
};

/// Message box styles: an icon, a set of buttons and reading flags, added up.
namespace BoxStyle {
constexpr int Plain = 0;       ///< OK alone
constexpr int RetryCancel = 5; ///< Retry and Cancel
constexpr int Critical = 16;   ///< critical icon
constexpr int CriticalRetryCancel = 21;
constexpr int SecondButton = 0x100; ///< the second button answers to the enter key
constexpr int TextAtRight = 0x80000;
constexpr int RightToLeft = 0x180000; ///< text at the right, reading from the right
} // namespace BoxStyle

enum class BoxAnswer : std::int16_t { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// The component's own name: on its print jobs, and over a box that is given no title.
constexpr std::string_view ComponentTitle = "qbrpt";

class MessageBoxes : public Port {
public:
    /// Shows `text` and waits for the answer. No `title` stands for ComponentTitle. Without a display
    /// the box goes to standard error and is answered at once.
    BoxAnswer MsgBox(const std::string& text, int style,
                     const std::optional<std::string>& title = std::nullopt);

private:
    virtual BoxAnswer DoMsgBox(const std::string& text, int style, const std::string& title) = 0;
};

class Clock : public Port {
public:
    /// The local time as a day number.
    [[nodiscard]] double Now();

private:
    virtual double DoNow() = 0;
};

} // namespace qbrpt
