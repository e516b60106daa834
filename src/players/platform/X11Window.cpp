// SPDX-License-Identifier: MIT
#include "players/platform/PlayerError.h"
#include "players/platform/Window.h"
#include "players/platform/X11Image.h"

#include <algorithm>
#include <poll.h>

namespace tarsel::players {

namespace {

constexpr std::uint32_t ownEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_BUTTON_PRESS |
                                    XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_EXPOSURE |
                                    XCB_EVENT_MASK_VISIBILITY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
/// Input belongs to the host, and only one program may ask for presses.
constexpr std::uint32_t hostEvents =
    XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_VISIBILITY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

Key keyOf(xcb_keysym_t symbol) {
    switch (symbol) {
    case 0xFF1B:
        return Key::Escape;
    case ' ':
        return Key::Space;
    case 0xFF51: // Left
    case 0xFF55: // Page Up
        return Key::Back;
    case 0xFF53: // Right
    case 0xFF56: // Page Down
        return Key::Forward;
    default:
        return Key::Other;
    }
}

class X11Window : public Window {
public:
    explicit X11Window(const WindowWish& wish) {
        if (wish.host)
            adopt(xcb_window_t(*wish.host));
        else
            create(wish);
        m_context = xcb_generate_id(m_connection);
        xcb_create_gc(m_connection, m_context, m_window, 0, nullptr);
        m_keys = m_connection.keys();
    }

    Box screen() const override {
        const xcb_screen_t& screen = m_connection.screen();
        return {0, 0, std::max<int>(screen.width_in_pixels, m_size.width),
                std::max<int>(screen.height_in_pixels, m_size.height)};
    }

    Canvas canvas() override {
        m_image->resize(m_size.width, m_size.height);
        return m_image->canvas();
    }

    void present() override {
        m_image->send(m_window, m_context);
        if (m_isMapped || m_isHost)
            return;
        xcb_map_window(m_connection, m_window);
        m_isMapped = true;
        xcb_flush(m_connection);
    }

    std::optional<Event> wait(double seconds) override {
        xcb_flush(m_connection);
        if (auto event = nextEvent())
            return event;
        pollfd descriptor{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        const timespec time{time_t(seconds), long((seconds - double(time_t(seconds))) * 1e9)};
        ppoll(&descriptor, 1, &time, nullptr);
        return nextEvent();
    }

    bool isSeen() const override { return !m_isCovered; }

    void showPointer(bool isShown) override {
        const std::uint32_t cursor = isShown ? std::uint32_t(XCB_CURSOR_NONE) : emptyCursor();
        xcb_change_window_attributes(m_connection, m_window, XCB_CW_CURSOR, &cursor);
    }

private:
    void adopt(xcb_window_t host) {
        m_window = host;
        m_isHost = true;
        const ReplyPointer<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, host), nullptr));
        const ReplyPointer<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, host), nullptr));
        if (!attributes || !geometry || attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
            throw PlayerError("There is no window " + std::to_string(host) + " to draw into.");
        m_size = {0, 0, geometry->width, geometry->height};
        m_image.emplace(m_connection, geometry->depth, m_connection.visual(attributes->visual));
        xcb_change_window_attributes(m_connection, host, XCB_CW_EVENT_MASK, &hostEvents);
    }

    void create(const WindowWish& wish) {
        const xcb_screen_t& screen = m_connection.screen();
        const bool isFull = wish.width == 0;
        m_size = isFull ? Box{0, 0, screen.width_in_pixels, screen.height_in_pixels}
                        : Box{(screen.width_in_pixels - wish.width) / 2,
                              (screen.height_in_pixels - wish.height) / 2, wish.width, wish.height};
        m_image.emplace(m_connection, screen.root_depth, m_connection.visual(screen.root_visual));
        m_window = xcb_generate_id(m_connection);
        const std::uint32_t values[] = {screen.black_pixel, ownEvents};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen.root,
                          std::int16_t(m_size.left), std::int16_t(m_size.top), std::uint16_t(m_size.width),
                          std::uint16_t(m_size.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
        describe(wish.title, isFull);
        m_needsFocus = !m_connection.hasWindowManager();
        if (wish.hidesPointer)
            showPointer(false);
    }

    /// To the window manager.
    void describe(const std::string& title, bool isFull) {
        const auto set = [&](xcb_atom_t property, xcb_atom_t type, std::uint8_t bits, std::uint32_t count,
                             const void* data) {
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, property, type, bits, count,
                                data);
        };
        set(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, std::uint32_t(title.size()), title.data());
        set(m_connection.atom("_NET_WM_NAME"), m_connection.atom("UTF8_STRING"), 8,
            std::uint32_t(title.size()), title.data());
        constexpr char className[] = "tarsel-player\0TarselPlayer";
        set(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, sizeof className, className);
        const std::uint32_t takesInput[9] = {1, 1};
        set(XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, 9, takesInput);
        m_deleteWindow = m_connection.atom("WM_DELETE_WINDOW");
        set(m_connection.atom("WM_PROTOCOLS"), XCB_ATOM_ATOM, 32, 1, &m_deleteWindow);
        if (isFull) {
            const xcb_atom_t states[] = {m_connection.atom("_NET_WM_STATE_FULLSCREEN"),
                                         m_connection.atom("_NET_WM_STATE_ABOVE")};
            set(m_connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 2, states);
        }
    }

    xcb_cursor_t emptyCursor() {
        if (m_emptyCursor)
            return m_emptyCursor;
        const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
        xcb_create_pixmap(m_connection, 1, pixmap, m_connection.screen().root, 1, 1);
        const xcb_gcontext_t context = xcb_generate_id(m_connection);
        const std::uint32_t nothing = 0;
        xcb_create_gc(m_connection, context, pixmap, XCB_GC_FOREGROUND, &nothing);
        const xcb_rectangle_t all{0, 0, 1, 1};
        xcb_poly_fill_rectangle(m_connection, pixmap, context, 1, &all);
        m_emptyCursor = xcb_generate_id(m_connection);
        xcb_create_cursor(m_connection, m_emptyCursor, pixmap, pixmap, 0, 0, 0, 0, 0, 0, 0, 0);
        xcb_free_gc(m_connection, context);
        xcb_free_pixmap(m_connection, pixmap);
        return m_emptyCursor;
    }

    std::optional<Event> nextEvent() {
        while (const ReplyPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
            if (auto told = eventOf(*event))
                return told;
        }
        if (xcb_connection_has_error(m_connection))
            return Event{Event::Kind::Closed};
        return std::nullopt;
    }

    /// Nothing for what only this class needs to know.
    std::optional<Event> eventOf(const xcb_generic_event_t& event) {
        switch (event.response_type & 0x7F) {
        case XCB_KEY_PRESS: {
            const std::size_t code = reinterpret_cast<const xcb_key_press_event_t&>(event).detail;
            const std::size_t first = m_connection.setup().min_keycode;
            return Event{Event::Kind::Key,
                         code - first < m_keys.size() ? keyOf(m_keys[code - first]) : Key::Other};
        }
        case XCB_BUTTON_PRESS: {
            const auto& press = reinterpret_cast<const xcb_button_press_event_t&>(event);
            return Event{Event::Kind::Press, Key::Other, press.event_x, press.event_y};
        }
        case XCB_MOTION_NOTIFY: {
            const auto& move = reinterpret_cast<const xcb_motion_notify_event_t&>(event);
            return Event{Event::Kind::Move, Key::Other, move.event_x, move.event_y};
        }
        case XCB_EXPOSE:
            return Event{Event::Kind::Exposed};
        case XCB_MAP_NOTIFY:
            if (m_needsFocus)
                xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, m_window, XCB_CURRENT_TIME);
            return std::nullopt;
        case XCB_VISIBILITY_NOTIFY:
            m_isCovered = reinterpret_cast<const xcb_visibility_notify_event_t&>(event).state ==
                          XCB_VISIBILITY_FULLY_OBSCURED;
            return Event{Event::Kind::Exposed};
        case XCB_UNMAP_NOTIFY:
            m_isCovered = true;
            return std::nullopt;
        case XCB_CONFIGURE_NOTIFY: {
            const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
            m_size.width = std::max<int>(change.width, 1);
            m_size.height = std::max<int>(change.height, 1);
            return Event{Event::Kind::Exposed};
        }
        case XCB_DESTROY_NOTIFY:
            return Event{Event::Kind::Closed};
        case XCB_CLIENT_MESSAGE:
            if (reinterpret_cast<const xcb_client_message_event_t&>(event).data.data32[0] == m_deleteWindow)
                return Event{Event::Kind::Closed};
            return std::nullopt;
        default:
            return std::nullopt;
        }
    }

    X11Connection m_connection;
    xcb_window_t m_window = 0;
    xcb_gcontext_t m_context = 0;
    xcb_cursor_t m_emptyCursor = 0;
    xcb_atom_t m_deleteWindow = 0;
    std::vector<xcb_keysym_t> m_keys;
    std::optional<X11Image> m_image;
    Box m_size;
    bool m_isHost = false;
    bool m_isMapped = false;
    bool m_isCovered = false;
    bool m_needsFocus = false;
};

} // namespace

std::unique_ptr<Window> Window::open(const WindowWish& wish) {
    return std::make_unique<X11Window>(wish);
}

} // namespace tarsel::players
