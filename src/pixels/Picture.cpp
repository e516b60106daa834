// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/Picture.h"

#include "base/TrappedError.h"
#include "pixels/PixelBuffer.h"

#include <QCoreApplication>
#include <atomic>
#include <cstring>

namespace tarsel {

namespace {

void requireSize(int width, int height) {
    const auto pixels = std::int64_t(width) * height; // 31 bits each: no overflow
    if (width < 1 || height < 1 || pixels > Picture::maximumPixels)
        fail(ErrorNumber::OutOfMemory,
             QCoreApplication::translate("Picture", "a picture of %1 x %2 pixels is not possible")
                 .arg(width)
                 .arg(height));
}

/// Whoever gave up the other reference may have read the pixels until just now.
void acquireFromOthers([[maybe_unused]] const std::shared_ptr<PixelBuffer>& buffer) {
#ifdef __SANITIZE_THREAD__ // which doesn't know fences; counting a reference orders just as well
    const auto counted = buffer;
#else
    std::atomic_thread_fence(std::memory_order_acquire);
#endif
}

} // namespace

Picture::Picture(int width, int height, int channels) :
    m_width(width), m_height(height), m_channels(channels) {
    requireSize(width, height);
    if (channels != 3 && channels != 4)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("Picture", "a picture of %1 channels").arg(channels));
    m_buffer =
        std::make_shared<PixelBuffer>(std::size_t(width) * std::size_t(height) * std::size_t(channels));
}

ConstPixelView Picture::view() const {
    if (isNull())
        return {};
    return {m_buffer->data(), m_width, m_height, m_channels, std::ptrdiff_t(m_width) * m_channels};
}

bool Picture::isShared() const {
    if (m_buffer.use_count() > 1)
        return true;
    acquireFromOthers(m_buffer);
    return false;
}

PixelView Picture::edit() {
    if (isNull())
        return {};
    const std::ptrdiff_t stride = std::ptrdiff_t(m_width) * m_channels;
    if (isShared()) {
        const auto size = std::size_t(stride) * std::size_t(m_height);
        auto own = std::make_shared<PixelBuffer>(size);
        std::memcpy(own->data(), m_buffer->data(), size);
        m_buffer = std::move(own);
    }
    return {m_buffer->data(), m_width, m_height, m_channels, stride};
}

bool Picture::operator==(const Picture& other) const {
    if (m_buffer == other.m_buffer)
        return true;
    if (isNull() || other.isNull() || m_width != other.m_width || m_height != other.m_height ||
        m_channels != other.m_channels)
        return false;
    const auto size = std::size_t(m_width) * std::size_t(m_height) * std::size_t(m_channels);
    return std::memcmp(m_buffer->data(), other.m_buffer->data(), size) == 0;
}

} // namespace tarsel
