// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/X11Connection.h"
#include "pixels/Picture.h"

#include <QPoint>
#include <array>
#include <vector>

namespace tarsel::test {

/// A window of another client of the X server, of 24 bits, that shows these pixels: without a frame and out
/// of the window manager's reach, or one that it manages.
class ShownPicture {
public:
    enum class Kind { Unmanaged, Managed };

    ShownPicture(const X11Connection& x11, const Picture& picture, QPoint place,
                 Kind kind = Kind::Unmanaged) :
        m_x11(x11),
        m_window(xcb_generate_id(x11.get())) {
        const std::uint32_t values[] = {pixmapOf(picture), kind == Kind::Unmanaged ? 1U : 0U};
        xcb_create_window(x11.get(), XCB_COPY_FROM_PARENT, m_window, x11.root(), std::int16_t(place.x()),
                          std::int16_t(place.y()), std::uint16_t(picture.width()),
                          std::uint16_t(picture.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT, values);
        xcb_free_pixmap(x11.get(), values[0]);
        // WM_NORMAL_HINTS of a place that the user has chosen, which window managers leave alone.
        std::array<std::uint32_t, 18> hints{1, std::uint32_t(place.x()), std::uint32_t(place.y())};
        xcb_change_property(x11.get(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NORMAL_HINTS,
                            XCB_ATOM_WM_SIZE_HINTS, 32, hints.size(), hints.data());
        xcb_map_window(x11.get(), m_window);
        settle();
    }
    ~ShownPicture() {
        xcb_destroy_window(m_x11.get(), m_window);
        settle();
    }
    ShownPicture(const ShownPicture&) = delete;
    ShownPicture& operator=(const ShownPicture&) = delete;

    bool isShown() const {
        const auto reply = owned(xcb_get_window_attributes_reply(
            m_x11.get(), xcb_get_window_attributes(m_x11.get(), m_window), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    /// Of its first pixel on the screen: a window manager moves it by its frame.
    QPoint place() const {
        const auto reply = owned(xcb_translate_coordinates_reply(
            m_x11.get(), xcb_translate_coordinates(m_x11.get(), m_window, m_x11.root(), 0, 0), nullptr));
        return reply ? QPoint(reply->dst_x, reply->dst_y) : QPoint();
    }

private:
    /// The server draws from it whenever the window is uncovered.
    xcb_pixmap_t pixmapOf(const Picture& picture) const {
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const std::uint8_t* rgb = picture.view().pixel(x, y);
                pixels.push_back(std::uint32_t(rgb[0] << 16 | rgb[1] << 8 | rgb[2]));
            }
        const xcb_pixmap_t pixmap = xcb_generate_id(m_x11.get());
        const auto width = std::uint16_t(picture.width()), height = std::uint16_t(picture.height());
        xcb_create_pixmap(m_x11.get(), m_x11.screen().root_depth, pixmap, m_x11.root(), width, height);
        const xcb_gcontext_t context = xcb_generate_id(m_x11.get());
        xcb_create_gc(m_x11.get(), context, pixmap, 0, nullptr);
        xcb_put_image(m_x11.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0,
                      m_x11.screen().root_depth, std::uint32_t(pixels.size() * 4),
                      reinterpret_cast<const std::uint8_t*>(pixels.data()));
        xcb_free_gc(m_x11.get(), context);
        return pixmap;
    }

    /// Until the server has done everything asked of it.
    void settle() const {
        owned(xcb_get_input_focus_reply(m_x11.get(), xcb_get_input_focus(m_x11.get()), nullptr));
    }

    const X11Connection& m_x11;
    xcb_window_t m_window;
};

} // namespace tarsel::test
