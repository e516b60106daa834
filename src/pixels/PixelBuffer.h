// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

namespace tarsel {

/// The bytes of one picture. Large buffers come from a pool and go back to it, because the page faults of
/// fresh memory cost more than most operations. Contents are not initialised. Safe from any thread.
class PixelBuffer {
public:
    /// Error 7 when the memory is not there.
    explicit PixelBuffer(std::size_t size);
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer&) = delete;
    PixelBuffer& operator=(const PixelBuffer&) = delete;

    std::uint8_t* data() const { return m_data; }

    /// Bytes that the pool keeps for the next pictures, at most keptBytes.
    static std::size_t pooledBytes();
    static constexpr std::size_t keptBytes = std::size_t(256) << 20;

private:
    std::uint8_t* m_data = nullptr;
    std::size_t m_capacity = 0;
};

} // namespace tarsel
