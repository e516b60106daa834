// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffDirectory.h"

#include <algorithm>
#include <array>
#include <set>

namespace tarsel {

namespace {

constexpr std::array<std::uint16_t, 3> PointerTags = {0x8769, 0x8825, 0xA005}; // EXIF, GPS, interoperability
constexpr int DeepestLevel = 3;
constexpr int MaxEntries = 4096; // of the tree; real files stay below 500
constexpr std::int64_t MaxValueBytes = std::int64_t(64) << 20;
constexpr qsizetype EntrySize = 12;
constexpr std::uint16_t LongType = 4;

/// Bytes of one element of types 1 to 13; 0 for another type.
std::uint32_t elementSize(std::uint16_t type) {
    constexpr std::array<std::uint8_t, 14> sizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < sizes.size() ? sizes[type] : 0;
}

bool isPointer(std::uint16_t tag) {
    return std::ranges::count(PointerTags, tag) > 0;
}

/// Reads a tree of directories. What it reads is limited by a budget, so that a crafted file can't multiply a
/// large value or a directory by pointing at it many times.
class DirectoryReader {
public:
    DirectoryReader(const PictureSource& source, bool bigEndian) :
        m_source(source), m_bigEndian(bigEndian),
        m_valueBudget(std::min<std::int64_t>(2 * source.size(), MaxValueBytes)) {}

    TiffDirectory read(std::uint32_t offset, int level) {
        TiffDirectory directory;
        if (!m_visited.insert(offset).second)
            return directory;
        const auto count = reader(m_source.bytes(offset, 2)).word(0).value_or(0);
        const QByteArray entries = m_source.bytes(std::int64_t(offset) + 2, count * EntrySize);
        for (qsizetype at = 0; at + EntrySize <= entries.size() && m_entryBudget > 0; at += EntrySize) {
            --m_entryBudget;
            readEntry(directory, entries.sliced(at, EntrySize), level);
        }
        keepLastOfEachTag(directory.entries);
        return directory;
    }

private:
    ByteReader reader(const QByteArray& bytes) const {
        return ByteReader(bytes, m_bigEndian ? ByteOrder::Big : ByteOrder::Little);
    }

    void readEntry(TiffDirectory& directory, const QByteArray& bytes, int level) {
        const ByteReader fields = reader(bytes);
        const std::uint16_t tag = *fields.word(0), type = *fields.word(2);
        const std::uint32_t count = *fields.dword(4), offset = *fields.dword(8);
        const std::int64_t size = std::int64_t(elementSize(type)) * count;
        if (size == 0 || size > m_valueBudget)
            return;
        TiffDirectory::Entry entry{tag, type, count, size <= 4 ? bytes.sliced(8, size) : QByteArray(), {}};
        if (size > 4)
            entry.value = m_source.bytes(offset, size);
        if (entry.value.size() != size)
            return;
        m_valueBudget -= size;
        if (isPointer(tag)) {
            if (level >= DeepestLevel || m_visited.contains(offset))
                return;
            entry.child.push_back(read(offset, level + 1));
        }
        directory.entries.push_back(std::move(entry));
    }

    static void keepLastOfEachTag(std::vector<TiffDirectory::Entry>& entries) {
        std::ranges::reverse(entries);
        std::ranges::stable_sort(entries, {}, &TiffDirectory::Entry::tag);
        const auto repeated = std::ranges::unique(entries, {}, &TiffDirectory::Entry::tag);
        entries.erase(repeated.begin(), repeated.end());
    }

    const PictureSource& m_source;
    bool m_bigEndian;
    std::int64_t m_valueBudget;
    int m_entryBudget = MaxEntries;
    std::set<std::uint32_t> m_visited;
};

template <class Number>
QByteArray numberBytes(Number value, bool bigEndian) {
    QByteArray bytes;
    appendNumber(bytes, value, bigEndian ? ByteOrder::Big : ByteOrder::Little);
    return bytes;
}

/// Places values and child directories after the entries.
class DirectoryWriter {
public:
    DirectoryWriter(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset) :
        m_directory(directory), m_bigEndian(bigEndian),
        m_trailingOffset(offset + 2 + EntrySize * std::uint32_t(directory.entries.size()) + 4) {}

    QByteArray write() {
        QByteArray head = numberBytes(quint16(m_directory.entries.size()), m_bigEndian);
        for (const TiffDirectory::Entry& entry : m_directory.entries)
            head += entryBytes(entry);
        return head + numberBytes(quint32(0), m_bigEndian) + m_trailing;
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
        const auto offset = std::uint32_t(m_trailingOffset + m_trailing.size());
        const QByteArray child = writeTiffDirectory(entry.child.front(), m_bigEndian, offset);
        return entryHead(entry.tag, LongType, 1) + place(child);
    }

    QByteArray entryHead(std::uint16_t tag, std::uint16_t type, std::uint32_t count) const {
        return numberBytes(tag, m_bigEndian) + numberBytes(type, m_bigEndian) +
               numberBytes(count, m_bigEndian);
    }

    /// Appends, on an even offset, and returns the offset as bytes.
    QByteArray place(const QByteArray& bytes) {
        const auto offset = std::uint32_t(m_trailingOffset + m_trailing.size());
        m_trailing += bytes;
        if (m_trailing.size() % 2)
            m_trailing += '\0';
        return numberBytes(quint32(offset), m_bigEndian);
    }

    const TiffDirectory& m_directory;
    bool m_bigEndian;
    std::uint32_t m_trailingOffset;
    QByteArray m_trailing;
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

std::optional<TiffStart> readTiffStart(const PictureSource& source) {
    const QByteArray bytes = source.bytes(0, 8);
    const bool bigEndian = bytes.startsWith(QByteArray("MM\0*", 4));
    if (!bigEndian && !bytes.startsWith(QByteArray("II*\0", 4)))
        return std::nullopt;
    const auto offset = ByteReader(bytes, bigEndian ? ByteOrder::Big : ByteOrder::Little).dword(4);
    if (!offset)
        return std::nullopt;
    return TiffStart{bigEndian, *offset};
}

TiffDirectory readTiffDirectory(const PictureSource& source, bool bigEndian, std::uint32_t offset) {
    return DirectoryReader(source, bigEndian).read(offset, 0);
}

QByteArray writeTiffDirectory(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset) {
    return DirectoryWriter(directory, bigEndian, offset).write();
}

QByteArray writeTiffStart(TiffStart start) {
    return (start.bigEndian ? QByteArray("MM\0*", 4) : QByteArray("II*\0", 4)) +
           numberBytes(quint32(start.firstDirectory), start.bigEndian);
}

} // namespace tarsel
