// Windows by their handles: the component's own and those of its host.
#pragma once

#include "platform/port.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace qbrpt {

/// 32-bit handle of a window; 0 is none.
using WindowHandle = std::uint32_t;
/// Handle of a picture that stands for a window; 0 is none.
using IconHandle = std::uint32_t;

/// What `showCmd` of a place says.
namespace PlaceCode {
constexpr std::int32_t Normal = 1;
constexpr std::int32_t Maximised = 3;
constexpr std::int32_t Minimised = 6;
} // namespace PlaceCode

/// Where a window stands when it is neither minimised nor maximised, and which of the three it is. The
/// window system's own record of 44 bytes; places are pixels.
struct WindowPlace {
    std::int32_t length = 0; ///< 44 when it is asked for properly
    std::int32_t flags = 0;
    std::int32_t showCmd = 0; ///< a PlaceCode; what is none of them is normal
    std::int32_t minX = 0;
    std::int32_t minY = 0;
    std::int32_t maxX = 0;
    std::int32_t maxY = 0;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};
static_assert(sizeof(WindowPlace) == 44);

enum class ShowCommand : std::uint8_t { Hide = 0, Show = 5 };
enum class IconSize : std::uint8_t { Small = 0, Large = 1 };

class Windows : public Port {
public:
    /// The window in front, if it belongs to this process; else 0. Also 0 where there is no display.
    [[nodiscard]] WindowHandle GetForegroundWindow();
    /// The owner or parent of a window; 0 for a top window, for 0 and for a window that is gone.
    [[nodiscard]] WindowHandle GetParent(WindowHandle window);

    /// False, and `place` untouched, for a window that is gone.
    [[nodiscard]] bool GetWindowPlacement(WindowHandle window, WindowPlace& place);
    [[nodiscard]] IconHandle GetClassIcon(WindowHandle window);
    void SetIcon(WindowHandle window, IconSize size, IconHandle icon);
    /// Of the title, in bytes.
    [[nodiscard]] std::size_t GetWindowTextLength(WindowHandle window);
    /// At most `size` - 1 bytes of the title, in whole letters; may hold NULs behind its end.
    [[nodiscard]] std::string GetWindowText(WindowHandle window, std::size_t size);
    void ShowWindow(WindowHandle window, ShowCommand command);
    /// Places a window, in pixels, without painting it.
    void MoveWindow(WindowHandle window, std::int32_t left, std::int32_t top, std::int32_t width,
                    std::int32_t height);
    void BringWindowToTop(WindowHandle window);
    void SetActiveWindow(WindowHandle window);
    void SetFocus(WindowHandle window);

    /// Lets the system handle the messages that wait. The number of open windows.
    std::int32_t DoEvents();
    /// Sleeps; a message may end it early.
    void SleepEx(std::int32_t milliseconds);

private:
    virtual WindowHandle DoGetForegroundWindow() = 0;
    virtual WindowHandle DoGetParent(WindowHandle window) = 0;
    virtual bool DoGetWindowPlacement(WindowHandle window, WindowPlace& place) = 0;
    virtual IconHandle DoGetClassIcon(WindowHandle window) = 0;
    virtual void DoSetIcon(WindowHandle window, IconSize size, IconHandle icon) = 0;
    virtual std::size_t DoGetWindowTextLength(WindowHandle window) = 0;
    virtual std::string DoGetWindowText(WindowHandle window, std::size_t size) = 0;
    virtual void DoShowWindow(WindowHandle window, ShowCommand command) = 0;
    virtual void DoMoveWindow(WindowHandle window, std::int32_t left, std::int32_t top, std::int32_t width,
                              std::int32_t height) = 0;
    virtual void DoBringWindowToTop(WindowHandle window) = 0;
    virtual void DoSetActiveWindow(WindowHandle window) = 0;
    virtual void DoSetFocus(WindowHandle window) = 0;
    virtual std::int32_t DoDoEvents() = 0;
    virtual void DoSleepEx(std::int32_t milliseconds) = 0;
};

} // namespace qbrpt
