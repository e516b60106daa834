// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/LzwCodes.h"

#include "base/Stop.h"

#include <algorithm>
#include <array>

namespace tarsel {

namespace {

constexpr int largestWidth = 12;
constexpr int codeCount = 1 << largestWidth;
constexpr int blockSize = 255;

/// Bits into bytes, bytes into blocks.
class CodeWriter {
public:
    void put(int code, int width) {
        m_bits |= std::uint32_t(code) << m_bitCount;
        for (m_bitCount += width; m_bitCount >= 8; m_bitCount -= 8, m_bits >>= 8)
            putByte(char(m_bits));
    }

    QByteArray finish() {
        if (m_bitCount > 0)
            putByte(char(m_bits));
        endBlock();
        return std::move(m_bytes) + '\0';
    }

private:
    void putByte(char byte) {
        m_block[m_used++] = byte;
        if (m_used == blockSize)
            endBlock();
    }
    void endBlock() {
        if (m_used > 0)
            m_bytes.append(char(m_used)).append(m_block.data(), qsizetype(m_used));
        m_used = 0;
    }

    QByteArray m_bytes;
    std::array<char, blockSize> m_block = {};
    std::size_t m_used = 0;
    std::uint32_t m_bits = 0;
    int m_bitCount = 0;
};

/// Codes of strings: that of a string's start and its last pixel lead to it. Open addressing.
class StringTable {
public:
    void clear() { m_slots.fill({}); }

    /// The code of the string, or -1, and then the place where it goes.
    int find(int start, int pixel) {
        const std::uint32_t key = std::uint32_t(start) << 8 | std::uint32_t(pixel);
        m_at = key * 2654435761U >> (32 - tableBits);
        while (m_slots[m_at].code >= 0 && m_slots[m_at].key != key)
            m_at = (m_at + 1) % m_slots.size();
        m_key = key;
        return m_slots[m_at].code;
    }
    void putFound(int code) { m_slots[m_at] = {m_key, code}; }

private:
    static constexpr int tableBits = 14; // four times as many as codes
    struct Slot {
        std::uint32_t key = 0;
        int code = -1;
    };
    std::array<Slot, std::size_t(1) << tableBits> m_slots;
    std::size_t m_at = 0;
    std::uint32_t m_key = 0;
};

class FrameEncoder {
public:
    explicit FrameEncoder(int literalBits) : m_literalBits(literalBits), m_clear(1 << literalBits) {}

    QByteArray compressed(const IndexedPicture& picture) {
        startTable();
        int string = -1;
        forEachPixel(picture, [&](int pixel) { string = string < 0 ? pixel : extended(string, pixel); });
        return finish(string);
    }

    /// A reader makes a code of each pixel and its neighbour. The table is cleared before it would need codes
    /// of one bit more.
    QByteArray plain(const IndexedPicture& picture) {
        const int most = m_clear - 2;
        int sinceClear = most;
        forEachPixel(picture, [&](int pixel) {
            if (sinceClear == most) {
                m_codes.put(m_clear, m_literalBits + 1);
                sinceClear = 0;
            }
            m_codes.put(pixel, m_literalBits + 1);
            ++sinceClear;
        });
        m_width = m_literalBits + 1;
        return finish(-1);
    }

private:
    template <class Step>
    static void forEachPixel(const IndexedPicture& picture, Step step) {
        for (int y = 0; y < picture.height(); ++y) {
            raiseIfStopped();
            std::for_each_n(picture.row(y), picture.width(), step);
        }
    }

    void startTable() {
        m_table.clear();
        m_codes.put(m_clear, m_width == 0 ? m_literalBits + 1 : m_width);
        m_width = m_literalBits + 1;
        m_next = m_clear + 2;
    }

    /// The code of the string that goes on with the pixel, or the pixel where a new string begins.
    int extended(int string, int pixel) {
        if (const int known = m_table.find(string, pixel); known >= 0)
            return known;
        m_codes.put(string, m_width);
        if (m_next == codeCount) {
            startTable();
        } else {
            m_table.putFound(m_next);
            if (m_next == 1 << m_width)
                ++m_width;
            ++m_next;
        }
        return pixel;
    }

    QByteArray finish(int string) {
        if (string >= 0) {
            m_codes.put(string, m_width);
            if (m_next == 1 << m_width && m_width < largestWidth)
                ++m_width; // a reader has made a code of it
        }
        m_codes.put(m_clear + 1, m_width);
        return char(m_literalBits) + m_codes.finish();
    }

    int m_literalBits;
    int m_clear;
    int m_width = 0;
    int m_next = 0;
    StringTable m_table;
    CodeWriter m_codes;
};

} // namespace

QByteArray lzwCodes(const IndexedPicture& picture, int literalBits, bool compressed) {
    const auto encoder = std::make_unique<FrameEncoder>(literalBits); // too large for the stack
    return compressed ? encoder->compressed(picture) : encoder->plain(picture);
}

} // namespace tarsel
