// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/X11Connection.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <cstring>

namespace tarsel {

namespace {

xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

X11Connection::X11Connection() {
    int number = 0;
    m_connection = xcb_connect(nullptr, &number);
    if (xcb_connection_has_error(m_connection) == 0)
        m_screen = screenOf(m_connection, number);
    if (m_screen)
        return;
    xcb_disconnect(m_connection);
    const QString display = qEnvironmentVariable("DISPLAY");
    throw TrappedError{
        ErrorNumber::FileNotFound, // whose own text would tell of a file
        display.isEmpty()
            ? QCoreApplication::translate("ScreenCapture", "no X server is set in DISPLAY")
            : QCoreApplication::translate("ScreenCapture", "the X server \"%1\" can't be reached")
                  .arg(display)};
}

X11Connection::~X11Connection() {
    xcb_disconnect(m_connection);
}

const xcb_visualtype_t* X11Connection::rootVisual() const {
    for (auto depths = xcb_screen_allowed_depths_iterator(m_screen); depths.rem; xcb_depth_next(&depths))
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem;
             xcb_visualtype_next(&visuals))
            if (visuals.data->visual_id == m_screen->root_visual)
                return visuals.data;
    return nullptr;
}

bool X11Connection::has(xcb_extension_t& extension) const {
    const xcb_query_extension_reply_t* reply = xcb_get_extension_data(m_connection, &extension);
    return reply && reply->present;
}

xcb_atom_t X11Connection::atom(const char* name) const {
    const auto cookie = xcb_intern_atom(m_connection, 0, std::uint16_t(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray X11Connection::atomName(xcb_atom_t atom) const {
    const auto reply =
        owned(xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, atom), nullptr));
    if (!reply)
        return {};
    return {xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())};
}

std::vector<std::uint32_t> X11Connection::rootProperty(const char* name) const {
    constexpr std::uint32_t longest = 1024;
    const auto cookie =
        xcb_get_property(m_connection, 0, root(), atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + xcb_get_property_value_length(reply.get()) / sizeof(std::uint32_t)};
}

void X11Connection::sendToRoot(const char* message, std::uint32_t value) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = root();
    event.type = atom(message);
    event.data.data32[0] = value;
    xcb_send_event(m_connection, 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    // Waits for the server: a busy one drops what it has not read when the connection ends.
    owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace tarsel
