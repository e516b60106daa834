// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffPages.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace tarsel {

namespace {

constexpr std::size_t MaxPages = 65'535;

/// Layout: byte order mark, 42 or 43 (offsets of 64 bits), with 43 the words 8 and 0, offset of the first
/// directory. A directory: count of entries, the entries, offset of the next directory or 0.
class PageChain {
public:
    explicit PageChain(const PictureSource& source) :
        m_source(source), m_bigEndian(source.bytes(0, 2) == "MM"), m_isBig(number(2, 2) == 43) {}

    std::vector<TiffPage> read() {
        std::vector<TiffPage> pages;
        std::unordered_set<std::uint64_t> visited;
        std::optional<std::uint64_t> offset = number(m_isBig ? 8 : 4, offsetSize());
        while (offset && *offset != 0 && pages.size() < MaxPages && visited.insert(*offset).second) {
            const auto entries = number(*offset, m_isBig ? 8 : 2);
            if (!entries || *entries > std::uint64_t(m_source.size()) / entrySize())
                break;
            const TiffPage page{*offset, *entries};
            offset = number(page.offset + (m_isBig ? 8 : 2) + page.entries * entrySize(), offsetSize());
            if (offset)
                pages.push_back(page);
        }
        return pages;
    }

private:
    int offsetSize() const { return m_isBig ? 8 : 4; }
    std::uint64_t entrySize() const { return m_isBig ? 20 : 12; }

    std::optional<std::uint64_t> number(std::uint64_t at, int size) const {
        if (at > std::uint64_t(m_source.size()))
            return std::nullopt;
        std::uint8_t raw[8];
        if (m_source.read(std::int64_t(at), raw, size) != size)
            return std::nullopt;
        if (!m_bigEndian)
            std::reverse(raw, raw + size);
        std::uint64_t value = 0;
        for (int i = 0; i < size; ++i)
            value = value << 8 | raw[i];
        return value;
    }

    const PictureSource& m_source;
    bool m_bigEndian;
    bool m_isBig;
};

} // namespace

std::vector<TiffPage> readTiffPages(const PictureSource& source) {
    return PageChain(source).read();
}

} // namespace tarsel
