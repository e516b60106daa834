// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffDirectory.h"

#include "bytes/TiffStructure.h"
#include "embedded/ExifBlock.h"
#include "embedded/MakerNote.h"

#include <algorithm>
#include <array>

namespace tarsel {

namespace {

constexpr std::array<std::uint16_t, 3> pointerTags = {0x8769, 0x8825, 0xA005}; // EXIF, GPS, interoperability
constexpr int deepestLevel = 3;
constexpr std::uint64_t maxEntries = 4096; // of the tree; real files stay below 500
constexpr std::int64_t maxValueBytes = std::int64_t(64) << 20;
constexpr std::uint16_t longType = 4;
constexpr std::uint16_t lastClassicType = 13;

/// Bytes of a number in values of this type; 1 where byte order doesn't matter.
qsizetype numberSize(std::uint16_t type) {
    switch (ExifType(type)) {
    case ExifType::Short:
    case ExifType::SignedShort:
        return 2;
    case ExifType::Long:
    case ExifType::SignedLong:
    case ExifType::Rational: // two of them
    case ExifType::SignedRational:
    case ExifType::Float:
    case ExifType::Directory:
        return 4;
    case ExifType::Double:
        return 8;
    default:
        return 1;
    }
}

/// Reads a tree of directories. What it reads is limited by a budget, so that a crafted file can't multiply a
/// large value or a directory by pointing at it many times.
class DirectoryReader {
public:
    explicit DirectoryReader(const PictureSource& source) :
        m_source(source), m_walker(TiffWalker::open(source.byteSource())),
        m_valueBudget(std::min<std::int64_t>(2 * source.size(), maxValueBytes)) {}

    TiffTree read(std::optional<std::uint64_t> offset) {
        if (!m_walker)
            return {};
        return {m_walker->order() == ByteOrder::Big,
                readDirectory(offset.value_or(m_walker->firstDirectory()), 0)};
    }

private:
    TiffDirectory readDirectory(std::uint64_t offset, int level) {
        TiffDirectory directory;
        const auto place = m_walker->visit(offset);
        if (!place)
            return directory;
        for (const TiffEntry& found : m_walker->entries(*place, m_entryBudget)) {
            --m_entryBudget;
            readEntry(directory, found, level);
        }
        keepLastOfEachTag(directory.entries);
        return directory;
    }

    void readEntry(TiffDirectory& directory, const TiffEntry& found, int level) {
        if (found.valueSize == 0 || found.valueSize > m_valueBudget)
            return;
        TiffDirectory::Entry entry{found.tag,
                                   found.type,
                                   std::uint32_t(found.count),
                                   m_source.bytes(found.valuePosition, found.valueSize),
                                   {},
                                   found.valuePosition};
        if (entry.value.size() != found.valueSize)
            return;
        m_valueBudget -= found.valueSize;
        if (pointsToDirectory(found.tag)) {
            const std::uint64_t offset = directoryOffset(entry.value, m_walker->order());
            if (level >= deepestLevel || m_walker->wasVisited(offset))
                return;
            entry.child.push_back(readDirectory(offset, level + 1));
        } else if (found.type > lastClassicType) {
            return; // numbers of 64 bits, which a block with offsets of 32 bits doesn't know
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
    std::optional<TiffWalker> m_walker;
    std::int64_t m_valueBudget;
    std::uint64_t m_entryBudget = maxEntries;
};

/// Places values and child directories after the entries.
class DirectoryWriter {
public:
    DirectoryWriter(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset) :
        m_directory(directory), m_order(byteOrder(bigEndian)),
        m_trailingOffset(offset + 2 + std::uint32_t(tiffEntrySize) * std::uint32_t(directory.entries.size()) +
                         4) {}

    QByteArray write() {
        QByteArray head = numberBytes<QByteArray>(quint16(m_directory.entries.size()), m_order);
        for (const TiffDirectory::Entry& entry : m_directory.entries)
            head += entryBytes(entry);
        return head + numberBytes<QByteArray>(quint32(0), m_order) + m_trailing;
    }

private:
    QByteArray entryBytes(const TiffDirectory::Entry& entry) {
        if (!entry.child.empty())
            return childEntryBytes(entry);
        QByteArray value = entry.value;
        if (entry.placedAt)
            value = numberBytes<QByteArray>(quint32(*entry.placedAt), m_order);
        else if (value.size() > 4)
            value = place(entry.tag == makerNoteTag ? movedMakerNote(value, entry.position, trailingEnd())
                                                    : value);
        return entryHead(entry.tag, entry.type, entry.count) + value.leftJustified(4, 0);
    }

    QByteArray childEntryBytes(const TiffDirectory::Entry& entry) {
        const QByteArray child =
            writeTiffDirectory(entry.child.front(), m_order == ByteOrder::Big, trailingEnd());
        return entryHead(entry.tag, longType, 1) + place(child);
    }

    QByteArray entryHead(std::uint16_t tag, std::uint16_t type, std::uint32_t count) const {
        return numberBytes<QByteArray>(tag, m_order) + numberBytes<QByteArray>(type, m_order) +
               numberBytes<QByteArray>(count, m_order);
    }

    std::uint32_t trailingEnd() const { return std::uint32_t(m_trailingOffset + m_trailing.size()); }

    /// Appends, on an even offset, and returns the offset as bytes.
    QByteArray place(const QByteArray& bytes) {
        const std::uint32_t offset = trailingEnd();
        m_trailing += bytes;
        if (m_trailing.size() % 2)
            m_trailing += '\0';
        return numberBytes<QByteArray>(quint32(offset), m_order);
    }

    const TiffDirectory& m_directory;
    ByteOrder m_order;
    std::uint32_t m_trailingOffset;
    QByteArray m_trailing;
};

} // namespace

bool pointsToDirectory(std::uint16_t tag) {
    return std::ranges::count(pointerTags, tag) > 0;
}

std::uint64_t directoryOffset(const QByteArray& value, ByteOrder order) {
    const ByteReader reader(value, order);
    return value.size() >= 8 ? *reader.number<std::uint64_t>(0) : reader.dword(0).value_or(0);
}

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

void swapByteOrder(TiffDirectory& directory) {
    for (TiffDirectory::Entry& entry : directory.entries) {
        const qsizetype size = numberSize(entry.type);
        for (qsizetype at = 0; at + size <= entry.value.size(); at += size)
            std::reverse(entry.value.begin() + at, entry.value.begin() + at + size);
        for (TiffDirectory& child : entry.child)
            swapByteOrder(child);
    }
}

TiffTree readTiffTree(const PictureSource& source, std::optional<std::uint64_t> offset) {
    return DirectoryReader(source).read(offset);
}

QByteArray writeTiffDirectory(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset) {
    return DirectoryWriter(directory, bigEndian, offset).write();
}

QByteArray writeTiffStart(bool bigEndian, std::uint32_t firstDirectory) {
    return (bigEndian ? QByteArray("MM\0*", 4) : QByteArray("II*\0", 4)) +
           numberBytes<QByteArray>(quint32(firstDirectory), byteOrder(bigEndian));
}

} // namespace tarsel
