// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace tarsel::players {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, FreeReply>;

/// The connection to the X server that DISPLAY names.
class X11Connection {
public:
    /// Throws PlayerError where there is none.
    X11Connection();
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    operator xcb_connection_t*() const { return m_connection; }
    const xcb_screen_t& screen() const { return *m_screen; }
    const xcb_setup_t& setup() const { return *xcb_get_setup(m_connection); }

    xcb_atom_t atom(std::string_view name) const;
    bool hasWindowManager() const;
    /// The visual of this id on any screen.
    const xcb_visualtype_t* visual(xcb_visualid_t id) const;
    /// The first meaning of each key, from the lowest key code on.
    std::vector<xcb_keysym_t> keys() const;

private:
    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen = nullptr;
};

} // namespace tarsel::players
