#include "tools/x_desktop.h"

#include "adapters/window/x_session.h"

#include <unistd.h>
#include <xcb/xcb_icccm.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace qbrpt::test {

bool Soon(const std::function<bool()>& holds, const std::function<void()>& between) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > until) return false;
        between();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

XDesktop::XDesktop()
    : mServer(std::make_unique<ChildProcess>(std::vector<std::string>{
          "Xvfb", "-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp"})) {
    if (!Soon([&] { return mServer->OutSoFar().ends_with('\n'); }))
        throw std::runtime_error("no X server: " + mServer->ErrSoFar());
    const std::string number = mServer->OutSoFar();
    ::setenv("DISPLAY", (":" + number.substr(0, number.size() - 1)).c_str(), 1);
    mConnection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(mConnection) != 0) throw std::runtime_error("the X server does not answer");
}

XDesktop::~XDesktop() {
    xcb_disconnect(mConnection);
}

void XDesktop::StartManager() {
    mManager = std::make_unique<ChildProcess>(std::vector<std::string>{"openbox"});
    const bool minds = Soon([] {
        const XSession session;
        return session.HasProperty(session.Root(), "_NET_CLIENT_LIST"); // set once it minds windows
    });
    if (!minds) throw std::runtime_error("no window manager: " + mManager->ErrSoFar());
    // What it was asked while it began lies unread until something wakes it: it is ready once it has mapped.
    const XWindow probe(mConnection);
    if (!Soon([&] { return probe.Viewable(); }, [&] { probe.Show(); }))
        throw std::runtime_error("the window manager maps no window");
    probe.Destroy();
    if (!Soon([&] { return !probe.Viewable(); })) throw std::runtime_error("a window stays");
}

XWindow::XWindow(xcb_connection_t* connection, xcb_window_t parent)
    : mConnection(connection), mId(xcb_generate_id(connection)) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, mId,
                      parent == XCB_WINDOW_NONE ? screen->root : parent, 120, 90, 420, 260, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    SetNumber("_NET_WM_PID", XCB_ATOM_CARDINAL, static_cast<std::uint32_t>(::getpid()));
}

void XWindow::SetNumber(const char* property, xcb_atom_t type, std::uint32_t value) const {
    xcb_change_property(mConnection, XCB_PROP_MODE_REPLACE, mId, Atom(property), type, 32, 1, &value);
    xcb_flush(mConnection);
}

void XWindow::SetNumbers(const char* property, const std::vector<std::uint32_t>& values) const {
    xcb_change_property(mConnection, XCB_PROP_MODE_REPLACE, mId, Atom(property), XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
    xcb_flush(mConnection);
}

void XWindow::SetText(const char* property, const char* type, std::string_view text) const {
    xcb_change_property(mConnection, XCB_PROP_MODE_REPLACE, mId, Atom(property), Atom(type), 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
    xcb_flush(mConnection);
}

void XWindow::BelongTo(const XWindow& owner) const {
    xcb_icccm_set_wm_transient_for(mConnection, mId, owner.Id());
    xcb_flush(mConnection);
}

void XWindow::Show() const {
    xcb_map_window(mConnection, mId);
    xcb_flush(mConnection);
}

void XWindow::Destroy() const {
    xcb_destroy_window(mConnection, mId);
    xcb_flush(mConnection);
}

void XWindow::Activate() const {
    Ask("_NET_ACTIVE_WINDOW", {2});
}

void XWindow::Maximise() const {
    Ask("_NET_WM_STATE", {1, Atom("_NET_WM_STATE_MAXIMIZED_VERT"), Atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2});
}

void XWindow::Minimise() const {
    Ask("WM_CHANGE_STATE", {3});
}

bool XWindow::Viewable() const {
    return XSession().IsViewable(mId);
}

void XWindow::Ask(const char* message, const std::vector<std::uint32_t>& data) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = mId;
    event.type = Atom(message);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(mConnection, 0, xcb_setup_roots_iterator(xcb_get_setup(mConnection)).data->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(mConnection);
}

xcb_atom_t XWindow::Atom(std::string_view name) const {
    const auto cookie = xcb_intern_atom(mConnection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(mConnection, cookie, nullptr), &std::free);
    return reply->atom;
}

} // namespace qbrpt::test
