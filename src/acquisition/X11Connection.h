// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>
#include <xcb/xcb.h>

namespace tarsel {

/// What the server answers, freed by free().
template <class Reply>
using XcbReply = std::unique_ptr<Reply, decltype(&std::free)>;

template <class Reply>
XcbReply<Reply> owned(Reply* reply) {
    return {reply, &std::free};
}

/// A connection of its own to the X server that DISPLAY names, and its screen's root window.
class X11Connection {
public:
    X11Connection(); ///< raises 53 when no server answers
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    xcb_connection_t* get() const { return m_connection; }
    const xcb_screen_t& screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }
    const xcb_visualtype_t* rootVisual() const; ///< null for a server that describes none
    bool has(xcb_extension_t& extension) const;

    xcb_atom_t atom(const char* name) const;
    QByteArray atomName(xcb_atom_t atom) const;
    /// The 32-bit values of a property of the root window; none where it isn't set.
    std::vector<std::uint32_t> rootProperty(const char* name) const;
    /// Asks the window manager, by a message about the root window.
    void sendToRoot(const char* message, std::uint32_t value) const;

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
};

} // namespace tarsel
