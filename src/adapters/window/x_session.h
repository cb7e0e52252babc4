// One short conversation with an X server.
#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt {

/// Replies are allocated by the library and freed by us; null stands for "the server said no", as it does
/// for every window that has gone meanwhile.
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

class XSession {
public:
    XSession();
    ~XSession();
    XSession(const XSession&) = delete;
    XSession& operator=(const XSession&) = delete;

    /// False where there is no display, or it does not answer.
    [[nodiscard]] bool Connected() const { return mRoot != XCB_WINDOW_NONE; }
    [[nodiscard]] xcb_window_t Root() const { return mRoot; }

    /// The atom of this name; none when no program of the display has ever used it.
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;
    /// The first 32-bit number of a property of the given type; nothing when it is not there.
    [[nodiscard]] std::optional<std::uint32_t> Number(xcb_window_t window, std::string_view property,
                                                      xcb_atom_t type) const;
    /// All 32-bit numbers of a property, at most `most`; none when it is not there.
    [[nodiscard]] std::vector<std::uint32_t> Numbers(xcb_window_t window, std::string_view property,
                                                     xcb_atom_t type, std::uint32_t most) const;
    /// The bytes of a text property of any type; empty when it is not there.
    [[nodiscard]] std::string Text(xcb_window_t window, std::string_view property) const;
    [[nodiscard]] bool HasProperty(xcb_window_t window, std::string_view property) const;
    [[nodiscard]] bool IsViewable(xcb_window_t window) const;
    /// The window that holds this one; none for the root and for a window that is gone.
    [[nodiscard]] xcb_window_t TreeParent(xcb_window_t window) const;

    /// For requests that have no answer. Whatever is asked of a window that has gone is quietly dropped.
    [[nodiscard]] xcb_connection_t* Connection() const { return mConnection.get(); }
    /// Asks the window manager for something, by a message about a window.
    void Ask(xcb_window_t window, std::string_view message, const std::array<std::uint32_t, 5>& data) const;
    /// Returns when the server has done all that was requested.
    void Finish() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> mConnection;
    xcb_window_t mRoot = XCB_WINDOW_NONE;
};

} // namespace qbrpt
