// One short conversation with an X server.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

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
    [[nodiscard]] bool HasProperty(xcb_window_t window, std::string_view property) const;
    [[nodiscard]] bool IsViewable(xcb_window_t window) const;
    /// The window that holds this one; none for the root and for a window that is gone.
    [[nodiscard]] xcb_window_t TreeParent(xcb_window_t window) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> mConnection;
    xcb_window_t mRoot = XCB_WINDOW_NONE;
};

} // namespace qbrpt
