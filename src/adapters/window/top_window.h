// A top window of the desktop: where it stands, and how it is hidden, shown and moved.
#pragma once

#include "adapters/window/x_session.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qbrpt {

/// Whether a window manager is running: one that has gone leaves its properties behind on the root.
[[nodiscard]] bool IsManaged(const XSession& session);

class TopWindow {
public:
    /// Widths of the frame that the window manager has put around a window.
    struct Frame {
        std::int32_t left = 0;
        std::int32_t right = 0;
        std::int32_t top = 0;
        std::int32_t bottom = 0;
    };
    /// Pixels of the screen, without the frame.
    struct Place {
        std::int32_t left = 0;
        std::int32_t top = 0;
        std::int32_t width = 0;
        std::int32_t height = 0;
        Frame frame;
        bool maximised = false;
        bool minimised = false;
        std::vector<std::uint32_t> states; ///< what the window manager knows of it
    };

    TopWindow(const XSession& session, xcb_window_t window) : mSession(session), mWindow(window) {}

    /// Nothing for a window that is gone. Of a maximised window the place it fills: the window system keeps
    /// no other.
    [[nodiscard]] std::optional<Place> Where() const;
    /// UTF-8.
    [[nodiscard]] std::string Title() const;

    /// Takes the window off the screen and out of the window manager's hands.
    void Withdraw() const;
    /// Shows it again, as it stood `before`, in front; a minimised one comes back minimised.
    void Return(const std::optional<Place>& before) const;
    /// Places it with its frame.
    void MoveTo(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) const;
    void Raise() const;
    void Activate() const;
    void TakeIconOf(xcb_window_t other) const;

private:
    [[nodiscard]] Frame FrameOf() const;
    void AskFor(const std::vector<std::uint32_t>& states) const;
    void PutAt(std::int32_t left, std::int32_t top) const;

    const XSession& mSession;
    xcb_window_t mWindow;
};

} // namespace qbrpt
