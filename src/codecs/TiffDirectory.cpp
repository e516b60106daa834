// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffDirectory.h"

#include <algorithm>
#include <array>

namespace tarsel {

namespace {

constexpr std::array<std::uint16_t, 3> PointerTags = {0x8769, 0x8825, 0xA005}; // EXIF, GPS, interoperability
constexpr int DeepestLevel = 3;
constexpr qsizetype EntrySize = 12;
constexpr std::uint16_t LongType = 4;

/// Bytes of one element of types 1 to 13; 0 is no type.
std::uint32_t elementSize(std::uint16_t type) {
    constexpr std::array<std::uint8_t, 14> sizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < sizes.size() ? sizes[type] : 0;
}

bool isPointer(std::uint16_t tag) {
    return std::ranges::count(PointerTags, tag) > 0;
}

/// Reads a tree of directories. What has been copied is counted, so that entries that share one large value
/// don't multiply it.
class DirectoryReader {
public:
    DirectoryReader(const QByteArray& bytes, bool bigEndian) :
        m_reader(bytes, bigEndian ? ByteOrder::Big : ByteOrder::Little),
        m_budget(2 * std::int64_t(bytes.size())) {}

    TiffDirectory read(std::uint32_t offset, int level) {
        TiffDirectory directory;
        const int count = m_reader.word(offset).value_or(0);
        for (int i = 0; i < count; ++i)
            readEntry(directory, offset + 2 + std::int64_t(i) * EntrySize, level);
        return directory;
    }

private:
    void readEntry(TiffDirectory& directory, std::int64_t at, int level) {
        const auto tag = m_reader.word(at);
        const auto type = m_reader.word(at + 2);
        const auto count = m_reader.dword(at + 4);
        const auto offset = m_reader.dword(at + 8);
        if (!tag || !type || !count || !offset)
            return;
        const std::int64_t size = std::int64_t(elementSize(*type)) * *count;
        const auto value = m_reader.slice(size <= 4 ? at + 8 : *offset, size);
        if (size == 0 || !value)
            return;
        m_budget -= size;
        if (m_budget < 0)
            return;
        TiffDirectory::Entry entry{*tag, *type, *count, QByteArrayView(*value).toByteArray(), {}};
        if (isPointer(*tag)) {
            if (level >= DeepestLevel)
                return;
            entry.child.push_back(read(*offset, level + 1));
        }
        directory.put(std::move(entry));
    }

    ByteReader m_reader;
    std::int64_t m_budget;
};

template <class Number>
QByteArray numberBytes(Number value, bool bigEndian) {
    QByteArray bytes;
    appendNumber(bytes, value, bigEndian ? ByteOrder::Big : ByteOrder::Little);
    return bytes;
}

/// Lays values and child directories behind the entries.
class DirectoryWriter {
public:
    DirectoryWriter(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset) :
        m_directory(directory), m_bigEndian(bigEndian),
        m_behindOffset(offset + 2 + EntrySize * std::uint32_t(directory.entries.size()) + 4) {}

    QByteArray write() {
        QByteArray head = numberBytes(quint16(m_directory.entries.size()), m_bigEndian);
        for (const TiffDirectory::Entry& entry : m_directory.entries)
            head += entryBytes(entry);
        return head + numberBytes(quint32(0), m_bigEndian) + m_behind;
    }

private:
    QByteArray entryBytes(const TiffDirectory::Entry& entry) {
        if (!entry.child.empty())
            return childEntryBytes(entry);
        QByteArray value = entry.value;
        if (value.size() > 4)
            value = place(value);
        return entryHead(entry.tag, entry.type, entry.count) + value.leftJustified(4, 0);
    }

    QByteArray childEntryBytes(const TiffDirectory::Entry& entry) {
        const auto offset = std::uint32_t(m_behindOffset + m_behind.size());
        const QByteArray child = writeTiffDirectory(entry.child.front(), m_bigEndian, offset);
        return entryHead(entry.tag, LongType, 1) + place(child);
    }

    QByteArray entryHead(std::uint16_t tag, std::uint16_t type, std::uint32_t count) const {
        return numberBytes(tag, m_bigEndian) + numberBytes(type, m_bigEndian) +
               numberBytes(count, m_bigEndian);
    }

    /// Appends, on an even offset, and gives the offset as bytes.
    QByteArray place(const QByteArray& bytes) {
        const auto offset = std::uint32_t(m_behindOffset + m_behind.size());
        m_behind += bytes;
        if (m_behind.size() % 2)
            m_behind += '\0';
        return numberBytes(quint32(offset), m_bigEndian);
    }

    const TiffDirectory& m_directory;
    bool m_bigEndian;
    std::uint32_t m_behindOffset;
    QByteArray m_behind;
};

} // namespace

const TiffDirectory::Entry* TiffDirectory::find(std::uint16_t tag) const {
    const auto found = std::ranges::find(entries, tag, &Entry::tag);
    return found == entries.end() ? nullptr : &*found;
}

void TiffDirectory::put(Entry entry) {
    const auto place = std::ranges::lower_bound(entries, entry.tag, {}, &Entry::tag);
    if (place != entries.end() && place->tag == entry.tag)
        *place = std::move(entry);
    else
        entries.insert(place, std::move(entry));
}

std::optional<TiffStart> readTiffStart(const QByteArray& bytes) {
    const bool bigEndian = bytes.startsWith(QByteArray("MM\0*", 4));
    if (!bigEndian && !bytes.startsWith(QByteArray("II*\0", 4)))
        return std::nullopt;
    const auto offset = ByteReader(bytes, bigEndian ? ByteOrder::Big : ByteOrder::Little).dword(4);
    if (!offset)
        return std::nullopt;
    return TiffStart{bigEndian, *offset};
}

TiffDirectory readTiffDirectory(const QByteArray& bytes, bool bigEndian, std::uint32_t offset) {
    return DirectoryReader(bytes, bigEndian).read(offset, 0);
}

QByteArray writeTiffDirectory(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset) {
    return DirectoryWriter(directory, bigEndian, offset).write();
}

QByteArray writeTiffStart(TiffStart start) {
    return (start.bigEndian ? QByteArray("MM\0*", 4) : QByteArray("II*\0", 4)) +
           numberBytes(quint32(start.firstDirectory), start.bigEndian);
}

} // namespace tarsel
