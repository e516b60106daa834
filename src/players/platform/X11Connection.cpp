// SPDX-License-Identifier: MIT
#include "players/platform/X11Connection.h"

#include "players/platform/PlayerError.h"

namespace tarsel::players {

X11Connection::X11Connection() {
    int number = 0;
    m_connection = xcb_connect(nullptr, &number);
    if (xcb_connection_has_error(m_connection)) {
        xcb_disconnect(m_connection);
        const char* const display = std::getenv("DISPLAY");
        throw PlayerError(display ? std::string("The X server ") + display + " can't be reached."
                                  : std::string("There is no screen: DISPLAY is not set."));
    }
    auto screens = xcb_setup_roots_iterator(&setup());
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    m_screen = screens.data;
}

X11Connection::~X11Connection() {
    xcb_disconnect(m_connection);
}

xcb_atom_t X11Connection::atom(std::string_view name) const {
    const ReplyPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, std::uint16_t(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

bool X11Connection::hasWindowManager() const {
    const ReplyPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection,
                               xcb_get_property(m_connection, 0, m_screen->root,
                                                atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 0, 1),
                               nullptr));
    return reply && reply->value_len == 1;
}

const xcb_visualtype_t* X11Connection::visual(xcb_visualid_t id) const {
    for (auto screens = xcb_setup_roots_iterator(&setup()); screens.rem; xcb_screen_next(&screens)) {
        for (auto depths = xcb_screen_allowed_depths_iterator(screens.data); depths.rem;
             xcb_depth_next(&depths)) {
            auto visuals = xcb_depth_visuals_iterator(depths.data);
            for (; visuals.rem; xcb_visualtype_next(&visuals)) {
                if (visuals.data->visual_id == id)
                    return visuals.data;
            }
        }
    }
    return nullptr;
}

std::vector<xcb_keysym_t> X11Connection::keys() const {
    const xcb_keycode_t first = setup().min_keycode;
    const auto count = std::uint8_t(setup().max_keycode - first + 1);
    const ReplyPointer<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, first, count), nullptr));
    std::vector<xcb_keysym_t> firsts;
    if (!reply)
        return firsts;
    const xcb_keysym_t* const all = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int i = 0; i < int(count) && i * reply->keysyms_per_keycode < int(reply->length); ++i)
        firsts.push_back(all[i * reply->keysyms_per_keycode]);
    return firsts;
}

} // namespace tarsel::players
