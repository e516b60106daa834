// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureSource.h"

#include <algorithm>
#include <cstring>

namespace tarsel {

/// The bytes of a source one after the other, read in blocks.
class SourceStream {
public:
    explicit SourceStream(const PictureSource& source, std::int64_t at = 0) : m_source(source), m_next(at) {}

    std::int64_t position() const { return m_next - (m_block.size() - m_used); }

    /// Copies up to `count` bytes; returns how many there were.
    qsizetype read(void* target, qsizetype count) {
        qsizetype done = 0;
        while (done < count && fill()) {
            const qsizetype part = std::min(count - done, m_block.size() - m_used);
            std::memcpy(static_cast<char*>(target) + done, m_block.constData() + m_used, std::size_t(part));
            m_used += part;
            done += part;
        }
        return done;
    }

    /// The next byte, or -1 at the end.
    int byte() { return fill() ? std::uint8_t(m_block[m_used++]) : -1; }

    void skip(std::int64_t count) {
        if (count <= m_block.size() - m_used) {
            m_used += qsizetype(count);
            return;
        }
        m_next = position() + count;
        m_block.clear();
        m_used = 0;
    }

private:
    bool fill() {
        constexpr std::int64_t blockSize = std::int64_t(64) * 1024;
        if (m_used < m_block.size())
            return true;
        m_block = m_source.bytes(m_next, blockSize);
        m_next += m_block.size();
        m_used = 0;
        return !m_block.isEmpty();
    }

    PictureSource m_source;
    std::int64_t m_next; ///< offset of the byte after the block
    QByteArray m_block;
    qsizetype m_used = 0;
};

} // namespace tarsel
