#include "adapters/window/x_session.h"

#include "base/utf8.h"

#include <algorithm>

namespace qbrpt {

XSession::XSession() {
    int screenNumber = 0;
    mConnection.reset(xcb_connect(nullptr, &screenNumber));
    if (xcb_connection_has_error(mConnection.get()) != 0) return;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(mConnection.get()));
    for (; screens.rem > 0 && screenNumber > 0; --screenNumber)
        xcb_screen_next(&screens);
    if (screens.rem > 0) mRoot = screens.data->root;
}

XSession::~XSession() = default;

xcb_atom_t XSession::Atom(std::string_view name) const {
    const auto cookie =
        xcb_intern_atom(mConnection.get(), 1, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(mConnection.get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::optional<std::uint32_t> XSession::Number(xcb_window_t window, std::string_view property,
                                              xcb_atom_t type) const {
    const xcb_atom_t atom = Atom(property);
    if (atom == XCB_ATOM_NONE) return std::nullopt;
    const auto cookie = xcb_get_property(mConnection.get(), 0, window, atom, type, 0, 1);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(mConnection.get(), cookie, nullptr));
    if (!reply || reply->format != 32 || reply->value_len < 1) return std::nullopt;
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
}

std::vector<std::uint32_t> XSession::Numbers(xcb_window_t window, std::string_view property, xcb_atom_t type,
                                             std::uint32_t most) const {
    const xcb_atom_t atom = Atom(property);
    if (atom == XCB_ATOM_NONE) return {};
    const auto cookie = xcb_get_property(mConnection.get(), 0, window, atom, type, 0, most);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(mConnection.get(), cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::string XSession::Text(xcb_window_t window, std::string_view property) const {
    constexpr std::size_t longest = 16384;
    constexpr std::uint32_t words = longest / 4 + 1; // the last one holds the rest of a letter that is cut
    const xcb_atom_t atom = Atom(property);
    if (atom == XCB_ATOM_NONE) return {};
    const auto cookie =
        xcb_get_property(mConnection.get(), 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, words);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(mConnection.get(), cookie, nullptr));
    if (!reply || reply->format != 8) return {};
    const std::string_view text(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                reply->value_len);
    return std::string(WholeCharacters(text, longest));
}

bool XSession::HasProperty(xcb_window_t window, std::string_view property) const {
    const xcb_atom_t atom = Atom(property);
    if (atom == XCB_ATOM_NONE) return false;
    const auto cookie = xcb_get_property(mConnection.get(), 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(mConnection.get(), cookie, nullptr));
    return reply && reply->type != XCB_ATOM_NONE;
}

bool XSession::IsViewable(xcb_window_t window) const {
    const auto cookie = xcb_get_window_attributes(mConnection.get(), window);
    const Reply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(mConnection.get(), cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t XSession::TreeParent(xcb_window_t window) const {
    const auto cookie = xcb_query_tree(mConnection.get(), window);
    const Reply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(mConnection.get(), cookie, nullptr));
    return reply ? reply->parent : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void XSession::Ask(xcb_window_t window, std::string_view message,
                   const std::array<std::uint32_t, 5>& data) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = Atom(message);
    if (event.type == XCB_ATOM_NONE) return; // then nobody would understand it either
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(mConnection.get(), 0, mRoot,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

void XSession::Finish() const {
    const auto cookie = xcb_get_input_focus(mConnection.get());
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(mConnection.get(), cookie, nullptr));
}

} // namespace qbrpt
