#include "adapters/window/top_window.h"

#include "base/utf8.h"

#include <algorithm>
#include <array>

namespace qbrpt {

namespace {

constexpr std::uint32_t MostStates = 64;
constexpr std::uint32_t IconicState = 3; // of WM_STATE
constexpr std::uint32_t AddState = 1;
constexpr std::uint32_t FromPager = 2; // a request that the user's wish stands behind

// Bits of _NET_MOVERESIZE_WINDOW: the place is meant without the frame.
constexpr std::uint32_t StaticGravity = 10;
constexpr std::uint32_t WithX = 1U << 8;
constexpr std::uint32_t WithY = 1U << 9;
constexpr std::uint32_t WithWidth = 1U << 10;
constexpr std::uint32_t WithHeight = 1U << 11;
constexpr std::uint32_t AskedByPager = FromPager << 12;

std::uint32_t Word(std::int32_t number) {
    return static_cast<std::uint32_t>(number);
}

} // namespace

bool IsManaged(const XSession& session) {
    constexpr std::string_view check = "_NET_SUPPORTING_WM_CHECK";
    const auto manager = session.Number(session.Root(), check, XCB_ATOM_WINDOW);
    return manager && session.Number(*manager, check, XCB_ATOM_WINDOW) == manager;
}

TopWindow::Frame TopWindow::FrameOf() const {
    const auto extents = mSession.Numbers(mWindow, "_NET_FRAME_EXTENTS", XCB_ATOM_CARDINAL, 4);
    if (extents.size() != 4) return {};
    const auto width = [&](std::size_t side) { return static_cast<std::int32_t>(extents[side]); };
    return {width(0), width(1), width(2), width(3)};
}

std::optional<TopWindow::Place> TopWindow::Where() const {
    xcb_connection_t* connection = mSession.Connection();
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, mWindow), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(
        connection, xcb_translate_coordinates(connection, mWindow, mSession.Root(), 0, 0), nullptr));
    if (!size || !corner) return std::nullopt;
    Place place;
    place.left = corner->dst_x;
    place.top = corner->dst_y;
    place.width = size->width;
    place.height = size->height;
    place.frame = FrameOf();
    place.states = mSession.Numbers(mWindow, "_NET_WM_STATE", XCB_ATOM_ATOM, MostStates);
    const auto has = [&](std::string_view state) {
        const xcb_atom_t atom = mSession.Atom(state);
        return atom != XCB_ATOM_NONE &&
               std::find(place.states.begin(), place.states.end(), atom) != place.states.end();
    };
    place.maximised = has("_NET_WM_STATE_MAXIMIZED_VERT") && has("_NET_WM_STATE_MAXIMIZED_HORZ");
    place.minimised = mSession.Number(mWindow, "WM_STATE", mSession.Atom("WM_STATE")) == IconicState;
    return place;
}

std::string TopWindow::Title() const {
    std::string title = mSession.Text(mWindow, "_NET_WM_NAME");
    if (title.empty()) title = mSession.Text(mWindow, "WM_NAME");
    if (ValidUtf8(title) == title) return title;
    std::string converted; // older toolkits know Latin-1 alone
    for (const char byte : title)
        AppendCharacter(converted, static_cast<unsigned char>(byte));
    return converted;
}

void TopWindow::Withdraw() const {
    xcb_unmap_window(mSession.Connection(), mWindow);
    // The window manager is told apart: it does not see the unmapping of a minimised window.
    xcb_unmap_notify_event_t event{};
    event.response_type = XCB_UNMAP_NOTIFY;
    event.event = mSession.Root();
    event.window = mWindow;
    xcb_send_event(mSession.Connection(), 0, mSession.Root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    mSession.Finish();
}

void TopWindow::Return(const std::optional<Place>& before) const {
    // The window manager forgets a hidden window's states, and finds a new place for it.
    if (before && !before->states.empty())
        xcb_change_property(mSession.Connection(), XCB_PROP_MODE_REPLACE, mWindow,
                            mSession.Atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                            static_cast<std::uint32_t>(before->states.size()), before->states.data());
    xcb_map_window(mSession.Connection(), mWindow);
    if (before) AskFor(before->states);
    if (before && !before->maximised) PutAt(before->left, before->top);
    if (before && before->minimised)
        mSession.Ask(mWindow, "WM_CHANGE_STATE", {IconicState});
    else
        Activate();
    mSession.Finish();
}

// A window manager that still has the hiding before it strikes the states off behind the writing of them.
void TopWindow::AskFor(const std::vector<std::uint32_t>& states) const {
    if (!IsManaged(mSession)) return;
    for (std::size_t first = 0; first < states.size(); first += 2) { // a request holds two
        const xcb_atom_t second = first + 1 < states.size() ? states[first + 1] : xcb_atom_t{XCB_ATOM_NONE};
        mSession.Ask(mWindow, "_NET_WM_STATE", {AddState, states[first], second, FromPager});
    }
}

void TopWindow::PutAt(std::int32_t left, std::int32_t top) const {
    if (IsManaged(mSession))
        mSession.Ask(mWindow, "_NET_MOVERESIZE_WINDOW",
                     {StaticGravity | WithX | WithY | AskedByPager, Word(left), Word(top)});
}

void TopWindow::MoveTo(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) const {
    const Frame frame = FrameOf();
    const std::array<std::uint32_t, 4> inner = {Word(left + frame.left), Word(top + frame.top),
                                                Word(std::max(width - frame.left - frame.right, 1)),
                                                Word(std::max(height - frame.top - frame.bottom, 1))};
    if (IsManaged(mSession))
        mSession.Ask(mWindow, "_NET_MOVERESIZE_WINDOW",
                     {StaticGravity | WithX | WithY | WithWidth | WithHeight | AskedByPager, inner[0],
                      inner[1], inner[2], inner[3]});
    else
        xcb_configure_window(mSession.Connection(), mWindow,
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT,
                             inner.data());
    mSession.Finish();
}

void TopWindow::Raise() const {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(mSession.Connection(), mWindow, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    mSession.Finish();
}

void TopWindow::Activate() const {
    if (IsManaged(mSession))
        mSession.Ask(mWindow, "_NET_ACTIVE_WINDOW", {FromPager, XCB_CURRENT_TIME});
    else
        xcb_set_input_focus(mSession.Connection(), XCB_INPUT_FOCUS_POINTER_ROOT, mWindow, XCB_CURRENT_TIME);
    mSession.Finish();
}

void TopWindow::TakeIconOf(xcb_window_t other) const {
    constexpr std::uint32_t largest = 1U << 20;
    const auto icon = mSession.Numbers(other, "_NET_WM_ICON", XCB_ATOM_CARDINAL, largest);
    if (icon.empty()) return;
    xcb_change_property(mSession.Connection(), XCB_PROP_MODE_REPLACE, mWindow, mSession.Atom("_NET_WM_ICON"),
                        XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(icon.size()), icon.data());
    mSession.Finish();
}

} // namespace qbrpt
