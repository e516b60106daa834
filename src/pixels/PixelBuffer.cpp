// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/PixelBuffer.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QtGlobal>
#include <cstdlib>
#include <deque>
#include <mutex>
#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace tarsel {

namespace {

constexpr std::size_t cacheLine = 64;
constexpr std::size_t hugePage = std::size_t(2) << 20;
constexpr std::size_t smallestPooled = std::size_t(256) << 10; // below, malloc keeps memory for reuse

struct Block {
    std::uint8_t* data = nullptr;
    std::size_t capacity = 0;
};

/// Returns a block to the system, from which it came by aligned_alloc.
void release(std::uint8_t* data) {
    std::free(data); // NOLINT(cppcoreguidelines-no-malloc): the standard library has no other counterpart of
                     // aligned_alloc
}

/// Free blocks, the one returned last at the end. When the pool is full, the oldest
/// one goes.
class BufferPool {
public:
    /// The smallest block that holds `size` without wasting more than three quarters of itself.
    Block take(std::size_t size) {
        const std::lock_guard lock(m_mutex);
        auto best = m_free.end();
        for (auto block = m_free.begin(); block != m_free.end(); ++block) {
            const bool fits = block->capacity >= size && block->capacity / 4 <= size;
            if (fits && (best == m_free.end() || block->capacity < best->capacity))
                best = block;
        }
        if (best == m_free.end())
            return {};
        const Block found = *best;
        m_bytes -= found.capacity;
        m_free.erase(best);
        return found;
    }

    void give(Block block) {
        const std::lock_guard lock(m_mutex);
        m_free.push_back(block);
        m_bytes += block.capacity;
        while (m_bytes > PixelBuffer::keptBytes)
            dropOldest();
    }

    void clear() {
        const std::lock_guard lock(m_mutex);
        while (!m_free.empty())
            dropOldest();
    }

    std::size_t bytes() {
        const std::lock_guard lock(m_mutex);
        return m_bytes;
    }

private:
    void dropOldest() {
        m_bytes -= m_free.front().capacity;
        release(m_free.front().data);
        m_free.pop_front();
    }

    std::mutex m_mutex;
    std::deque<Block> m_free;
    std::size_t m_bytes = 0;
};

/// Lives until the process ends, since pictures in static storage return their buffers late.
BufferPool& pool() {
    static auto* const instance = new BufferPool;
    return *instance;
}

std::size_t roundedUp(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

Block allocate(std::size_t size) {
    const std::size_t unit = size >= hugePage ? hugePage : cacheLine;
    const std::size_t capacity = roundedUp(size, unit);
    auto* const data = static_cast<std::uint8_t*>(std::aligned_alloc(unit, capacity));
#ifdef Q_OS_LINUX
    if (data && unit == hugePage)
        madvise(data, capacity, MADV_HUGEPAGE);
#endif
    return {data, capacity};
}

} // namespace

PixelBuffer::PixelBuffer(std::size_t size) {
    Block block;
    if (size >= smallestPooled)
        block = pool().take(size);
    if (!block.data)
        block = allocate(size);
    if (!block.data) {
        pool().clear();
        block = allocate(size);
    }
    if (!block.data)
        fail(ErrorNumber::OutOfMemory,
             QCoreApplication::translate("PixelBuffer", "no %1 bytes for a picture").arg(size));
    m_data = block.data;
    m_capacity = block.capacity;
}

PixelBuffer::~PixelBuffer() {
    if (m_capacity >= smallestPooled)
        pool().give({m_data, m_capacity});
    else
        release(m_data);
}

std::size_t PixelBuffer::pooledBytes() {
    return pool().bytes();
}

} // namespace tarsel
