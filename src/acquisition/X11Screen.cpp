// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "acquisition/X11Connection.h"
#include "acquisition/X11Pixels.h"
#include "base/Stop.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>
#include <numeric>
#include <xcb/randr.h>
#include <xcb/xfixes.h>

namespace tarsel {

namespace {

constexpr char showingDesktop[] = "_NET_SHOWING_DESKTOP";
/// Bytes that the server sends at a time, so that a wall of monitors isn't in memory twice.
constexpr std::size_t stripBytes = std::size_t(8) << 20;

QRect rectOf(const xcb_randr_monitor_info_t& monitor) {
    return {monitor.x, monitor.y, monitor.width, monitor.height};
}

QRect bounds(const std::vector<Monitor>& monitors) {
    QRect all;
    for (const Monitor& monitor : monitors)
        all |= monitor.area;
    return all;
}

void blacken(PixelView picture, const QRect& area) {
    for (int y = area.top(); y <= area.bottom(); ++y)
        std::memset(picture.pixel(area.left(), y), 0, std::size_t(area.width()) * 3);
}

/// Makes black what no monitor shows; the server has anything there.
void blackenGaps(PixelView picture, const std::vector<Monitor>& monitors) {
    for (int y = 0; y < picture.height; ++y) {
        std::vector<std::pair<int, int>> shown;
        for (const Monitor& monitor : monitors)
            if (monitor.area.top() <= y && y <= monitor.area.bottom())
                shown.emplace_back(monitor.area.left(), monitor.area.right() + 1);
        std::ranges::sort(shown);
        int done = 0;
        for (const auto& [left, right] : shown) {
            if (left > done)
                blacken(picture, {done, y, left - done, 1});
            done = std::max(done, right);
        }
        if (done < picture.width)
            blacken(picture, {done, y, picture.width - done, 1});
    }
}

class X11Screen final : public ScreenSource {
public:
    ScreenPicture grab(bool withPointer) override {
        ScreenPicture screen;
        screen.monitors = monitorsOfRoot();
        const QRect area = bounds(screen.monitors);
        screen.picture = Picture(area.width(), area.height(), 3);
        const PixelView pixels = screen.picture.edit();
        if (const auto place = pointerPlace(); place && area.contains(*place))
            screen.pointer = *place - area.topLeft();
        readArea(area, pixels);
        if (withPointer)
            if (auto pointer = pointerImage()) {
                pointer->corner -= area.topLeft();
                drawPointer(*pointer, pixels);
            }
        for (Monitor& monitor : screen.monitors)
            monitor.area.translate(-area.topLeft());
        blackenGaps(pixels, screen.monitors);
        return screen;
    }

    std::vector<Monitor> monitors() override {
        std::vector<Monitor> monitors = monitorsOfRoot();
        const QPoint corner = bounds(monitors).topLeft();
        for (Monitor& monitor : monitors)
            monitor.area.translate(-corner);
        return monitors;
    }

    bool showDesktop(bool shown) override {
        const std::vector<std::uint32_t> supported = m_x11.rootProperty("_NET_SUPPORTED");
        if (std::ranges::count(supported, m_x11.atom(showingDesktop)) == 0)
            return false;
        m_x11.sendToRoot(showingDesktop, shown ? 1 : 0);
        return true;
    }

    bool desktopIsShown() override {
        const std::vector<std::uint32_t> state = m_x11.rootProperty(showingDesktop);
        return !state.empty() && state[0] == 1;
    }

    std::vector<quintptr> stacking() override {
        const std::vector<std::uint32_t> windows = m_x11.rootProperty("_NET_CLIENT_LIST_STACKING");
        return {windows.begin(), windows.end()};
    }

private:
    std::vector<Monitor> monitorsOfRoot() const {
        std::vector<Monitor> monitors;
        if (m_x11.has(xcb_randr_id)) {
            const auto cookie = xcb_randr_get_monitors(m_x11.get(), m_x11.root(), 1);
            const auto reply = owned(xcb_randr_get_monitors_reply(m_x11.get(), cookie, nullptr));
            if (reply)
                for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem;
                     xcb_randr_monitor_info_next(&each))
                    monitors.push_back(
                        {rectOf(*each.data), QString::fromUtf8(m_x11.atomName(each.data->name))});
        }
        const QRect root = rootArea();
        std::erase_if(monitors, [&](Monitor& monitor) {
            monitor.area &= root;
            return monitor.area.isEmpty();
        });
        if (monitors.empty())
            monitors.push_back({root, {}});
        return monitors;
    }

    QRect rootArea() const {
        const auto cookie = xcb_get_geometry(m_x11.get(), m_x11.root());
        const auto reply = owned(xcb_get_geometry_reply(m_x11.get(), cookie, nullptr));
        if (!reply)
            failGrabbing();
        return {0, 0, reply->width, reply->height};
    }

    X11PixelFormat pixelFormat() const {
        X11PixelFormat format;
        const xcb_setup_t* setup = xcb_get_setup(m_x11.get());
        for (auto each = xcb_setup_pixmap_formats_iterator(setup); each.rem; xcb_format_next(&each))
            if (each.data->depth == m_x11.screen().root_depth) {
                format.bitsPerPixel = each.data->bits_per_pixel;
                format.scanlinePad = each.data->scanline_pad;
            }
        format.bigEndian = setup->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST;
        const xcb_visualtype_t* visual = m_x11.rootVisual();
        if (visual && (visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR ||
                       visual->_class == XCB_VISUAL_CLASS_DIRECT_COLOR)) {
            format.redMask = visual->red_mask;
            format.greenMask = visual->green_mask;
            format.blueMask = visual->blue_mask;
        } else if (format.bitsPerPixel == 8) {
            format.palette = paletteOfScreen();
        } else {
            fail(ErrorNumber::PermissionDenied,
                 QCoreApplication::translate("ScreenCapture", "a screen of %1 bits a pixel can't be read")
                     .arg(format.bitsPerPixel));
        }
        return format;
    }

    /// That of the screen; windows that bring a palette of their own have wrong colours.
    std::vector<std::uint32_t> paletteOfScreen() const {
        std::vector<std::uint32_t> pixels(m_x11.rootVisual() ? m_x11.rootVisual()->colormap_entries : 0);
        std::iota(pixels.begin(), pixels.end(), 0U);
        const auto cookie = xcb_query_colors(m_x11.get(), m_x11.screen().default_colormap,
                                             std::uint32_t(pixels.size()), pixels.data());
        const auto reply = owned(xcb_query_colors_reply(m_x11.get(), cookie, nullptr));
        if (!reply)
            failGrabbing();
        const xcb_rgb_t* colors = xcb_query_colors_colors(reply.get());
        std::vector<std::uint32_t> palette;
        for (int i = 0; i < xcb_query_colors_colors_length(reply.get()); ++i)
            palette.push_back(std::uint32_t(colors[i].red >> 8) << 16 |
                              std::uint32_t(colors[i].green >> 8) << 8 | std::uint32_t(colors[i].blue >> 8));
        if (palette.empty())
            failGrabbing();
        return palette;
    }

    void readArea(const QRect& area, PixelView pixels) const {
        const X11PixelFormat format = pixelFormat();
        const std::size_t rowBytes = format.rowBytes(area.width());
        const int stripHeight = std::max(1, int(stripBytes / rowBytes));
        for (int y = 0; y < area.height(); y += stripHeight) {
            raiseIfStopped();
            const int height = std::min(stripHeight, area.height() - y);
            const auto cookie = xcb_get_image(m_x11.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_x11.root(),
                                              std::int16_t(area.x()), std::int16_t(area.y() + y),
                                              std::uint16_t(area.width()), std::uint16_t(height), ~0u);
            const auto reply = owned(xcb_get_image_reply(m_x11.get(), cookie, nullptr));
            if (!reply || std::size_t(xcb_get_image_data_length(reply.get())) < rowBytes * height)
                failGrabbing();
            PixelView strip = pixels;
            strip.data = pixels.row(y);
            strip.height = height;
            readPixels(format, xcb_get_image_data(reply.get()), strip);
        }
    }

    std::optional<QPoint> pointerPlace() const {
        const auto reply = owned(
            xcb_query_pointer_reply(m_x11.get(), xcb_query_pointer(m_x11.get(), m_x11.root()), nullptr));
        return reply && reply->same_screen ? std::optional(QPoint(reply->root_x, reply->root_y))
                                           : std::nullopt;
    }

    std::optional<X11Pointer> pointerImage() const {
        if (!m_x11.has(xcb_xfixes_id))
            return std::nullopt;
        // The server takes requests of this extension only after it was told the version.
        std::free(xcb_xfixes_query_version_reply(
            m_x11.get(),
            xcb_xfixes_query_version(m_x11.get(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
            nullptr));
        const auto reply = owned(xcb_xfixes_get_cursor_image_reply(
            m_x11.get(), xcb_xfixes_get_cursor_image(m_x11.get()), nullptr));
        if (!reply)
            return std::nullopt;
        const std::uint32_t* pixels = xcb_xfixes_get_cursor_image_cursor_image(reply.get());
        const int count = xcb_xfixes_get_cursor_image_cursor_image_length(reply.get());
        if (count < int(reply->width) * int(reply->height))
            return std::nullopt;
        return X11Pointer{{pixels, pixels + count},
                          reply->width,
                          reply->height,
                          {reply->x - reply->xhot, reply->y - reply->yhot}};
    }

    [[noreturn]] static void failGrabbing() {
        fail(ErrorNumber::PermissionDenied,
             QCoreApplication::translate("ScreenCapture", "the X server doesn't let its screen be read"));
    }

    X11Connection m_x11;
};

} // namespace

std::unique_ptr<ScreenSource> x11Screen() {
    return std::make_unique<X11Screen>();
}

} // namespace tarsel
