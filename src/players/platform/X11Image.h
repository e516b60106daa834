// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Canvas.h"
#include "players/platform/X11Connection.h"

#include <xcb/shm.h>

namespace tarsel::players {

/// Pixels on their way to a window: in memory that the X server shares where it can.
class X11Image {
public:
    /// Throws PlayerError for a window whose pixels hold no red, green and blue of 16 or 32 bits.
    X11Image(const X11Connection& connection, std::uint8_t depth, const xcb_visualtype_t* visual);
    ~X11Image();
    X11Image(const X11Image&) = delete;
    X11Image& operator=(const X11Image&) = delete;

    void resize(int width, int height);
    Canvas canvas() { return {m_pixels, m_width, m_height, m_width}; }
    /// Returns when the server has taken the pixels.
    void send(xcb_window_t window, xcb_gcontext_t context);

private:
    bool share(std::size_t bytes);
    void release();
    void convert();
    void sendRows(xcb_window_t window, xcb_gcontext_t context, const void* bytes);

    const X11Connection& m_connection;
    std::uint8_t m_depth;
    const xcb_visualtype_t* m_visual;
    int m_bits = 0; ///< of a pixel
    bool m_isDirect = false;
    int m_width = 0;
    int m_height = 0;
    std::uint32_t* m_pixels = nullptr;
    std::vector<std::uint32_t> m_own;      ///< where nothing is shared
    std::vector<std::uint8_t> m_converted; ///< where the server wants other pixels
    xcb_shm_seg_t m_segment = 0;           ///< 0 where nothing is shared
};

} // namespace tarsel::players
