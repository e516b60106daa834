// SPDX-License-Identifier: MIT
#include "players/platform/X11Image.h"

#include "players/platform/PlayerError.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <sys/shm.h>

namespace tarsel::players {

namespace {

int bitsOfPixel(const xcb_setup_t& setup, std::uint8_t depth) {
    for (auto formats = xcb_setup_pixmap_formats_iterator(&setup); formats.rem; xcb_format_next(&formats)) {
        if (formats.data->depth == depth)
            return formats.data->bits_per_pixel;
    }
    return 0;
}

/// The upper bits of a channel of 8 bits in the place of `mask`.
std::uint32_t inMask(std::uint32_t channel, std::uint32_t mask) {
    const int shift = std::countr_zero(mask) - (8 - std::popcount(mask));
    return (shift >= 0 ? channel << shift : channel >> -shift) & mask;
}

} // namespace

X11Image::X11Image(const X11Connection& connection, std::uint8_t depth, const xcb_visualtype_t* visual) :
    m_connection(connection), m_depth(depth), m_visual(visual),
    m_bits(bitsOfPixel(connection.setup(), depth)) {
    const bool hasColors = visual && visual->red_mask && visual->green_mask && visual->blue_mask;
    if (!hasColors || (m_bits != 32 && m_bits != 16))
        throw PlayerError("The screen has pixels of a kind that this player can't draw.");
    m_isDirect = m_bits == 32 && visual->red_mask == 0xFF0000 && visual->green_mask == 0xFF00 &&
                 visual->blue_mask == 0xFF &&
                 (connection.setup().image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) ==
                     (std::endian::native == std::endian::little);
}

X11Image::~X11Image() {
    release();
}

void X11Image::release() {
    if (m_segment) {
        xcb_shm_detach(m_connection, m_segment);
        shmdt(m_pixels);
    }
    m_segment = 0;
    m_pixels = nullptr;
}

void X11Image::resize(int width, int height) {
    if (width == m_width && height == m_height && m_pixels)
        return;
    release();
    m_width = width;
    m_height = height;
    const std::size_t count = std::size_t(width) * std::size_t(height);
    if (!m_isDirect || !share(count * sizeof(std::uint32_t))) {
        m_own.assign(count, black);
        m_pixels = m_own.data();
    }
}

bool X11Image::share(std::size_t bytes) {
    const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(m_connection, &xcb_shm_id);
    if (!extension || !extension->present)
        return false;
    const int id = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
    if (id < 0)
        return false;
    void* const memory = shmat(id, nullptr, 0);
    bool isShared = memory != reinterpret_cast<void*>(-1);
    if (isShared) {
        m_segment = xcb_generate_id(m_connection);
        const auto attaching = xcb_shm_attach_checked(m_connection, m_segment, std::uint32_t(id), 0);
        // A server on another machine can't.
        const ReplyPointer<xcb_generic_error_t> error(xcb_request_check(m_connection, attaching));
        isShared = !error && !xcb_connection_has_error(m_connection);
        if (!isShared) {
            shmdt(memory);
            m_segment = 0;
        }
    }
    shmctl(id, IPC_RMID, nullptr); // the memory stays until both have let go of it
    if (isShared)
        m_pixels = static_cast<std::uint32_t*>(memory);
    return isShared;
}

void X11Image::convert() {
    const bool isSwapped = (m_connection.setup().image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) !=
                           (std::endian::native == std::endian::little);
    const std::size_t bytes = std::size_t(m_bits) / 8;
    const std::size_t stride = (std::size_t(m_width) * bytes + 3) & ~std::size_t(3);
    m_converted.resize(stride * std::size_t(m_height));
    for (int y = 0; y < m_height; ++y) {
        std::uint8_t* target = m_converted.data() + stride * std::size_t(y);
        const std::uint32_t* const row = m_pixels + std::ptrdiff_t(y) * m_width;
        for (int x = 0; x < m_width; ++x, target += bytes) {
            const std::uint32_t packed = inMask(row[x] >> 16 & 0xFF, m_visual->red_mask) |
                                         inMask(row[x] >> 8 & 0xFF, m_visual->green_mask) |
                                         inMask(row[x] & 0xFF, m_visual->blue_mask);
            std::memcpy(target, &packed, bytes); // the low bytes; players run on little-endian machines
            if (isSwapped)
                std::reverse(target, target + bytes);
        }
    }
}

void X11Image::send(xcb_window_t window, xcb_gcontext_t context) {
    if (m_segment) {
        xcb_shm_put_image(m_connection, window, context, std::uint16_t(m_width), std::uint16_t(m_height), 0,
                          0, std::uint16_t(m_width), std::uint16_t(m_height), 0, 0, m_depth,
                          XCB_IMAGE_FORMAT_Z_PIXMAP, 0, m_segment, 0);
    } else if (m_isDirect) {
        sendRows(window, context, m_pixels);
    } else {
        convert();
        sendRows(window, context, m_converted.data());
    }
    const ReplyPointer<xcb_get_input_focus_reply_t> done(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

/// A request is limited in length.
void X11Image::sendRows(xcb_window_t window, xcb_gcontext_t context, const void* bytes) {
    const std::size_t stride = (std::size_t(m_width) * std::size_t(m_bits) / 8 + 3) & ~std::size_t(3);
    const std::size_t longest = std::size_t(xcb_get_maximum_request_length(m_connection)) * 4 - 64;
    const int rows = int(std::clamp<std::size_t>(longest / stride, 1, std::size_t(m_height)));
    for (int y = 0; y < m_height; y += rows) {
        const int count = std::min(rows, m_height - y);
        xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, context, std::uint16_t(m_width),
                      std::uint16_t(count), 0, std::int16_t(y), 0, m_depth,
                      std::uint32_t(stride * std::size_t(count)),
                      static_cast<const std::uint8_t*>(bytes) + stride * std::size_t(y));
    }
}

} // namespace tarsel::players
