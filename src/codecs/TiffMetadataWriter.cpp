// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffMetadata.h"

#include "bytes/TiffStructure.h"
#include "embedded/ResourceBlocks.h"

#include <QCoreApplication>
#include <algorithm>
#include <map>

namespace tarsel {

namespace {

constexpr std::uint16_t longType = 4;
constexpr std::int64_t largestFile = UINT32_MAX;
constexpr std::size_t maxPages = 65'535;
constexpr std::uint64_t maxEntries = 65'535; // what a directory can count

struct Range {
    std::int64_t start = 0;
    std::int64_t size = 0;
    bool operator==(const Range&) const = default;
};

/// A directory as it stands in the file.
struct OldDirectory {
    TiffDirectoryPlace place;
    std::vector<TiffEntry> entries;
    std::map<std::uint16_t, OldDirectory> children; ///< by the tag that points to them

    const TiffEntry* find(std::uint16_t tag) const {
        const auto found = std::ranges::find(entries, tag, &TiffEntry::tag);
        return found == entries.end() ? nullptr : &*found;
    }
    const OldDirectory* child(std::uint16_t tag) const {
        const auto found = children.find(tag);
        return found == children.end() ? nullptr : &found->second;
    }
};

bool isOutside(const TiffEntry& entry) {
    return entry.hasValue && entry.valueSize > tiffInlineSize;
}

/// An entry of the new directory: as it stands in the old one, or with a new value, or a child's.
struct NewEntry {
    std::uint16_t tag = 0;
    const TiffEntry* kept = nullptr;
    const TiffDirectory::Entry* changed = nullptr;
    const TiffDirectory* childBefore = nullptr; ///< of a changed child, what was read of it
};

/// Writes the changes of one page. Directories and values are patched in their places, or go to the end.
class PageEdit {
public:
    PageEdit(const PictureSource& source, TiffWalker& walker, const std::vector<TiffDirectoryPlace>& pages) :
        m_source(source), m_walker(walker), m_order(walker.order()), m_base((source.size() + 1) / 2 * 2) {
        for (const TiffDirectoryPlace& page : pages)
            for (const TiffEntry& entry : walker.entries(page, maxEntries))
                noteUse(entry);
    }

    /// The directory at that place, with those that it points to.
    OldDirectory read(const TiffDirectoryPlace& place, const TiffDirectory& tree) {
        OldDirectory directory{place, m_walker.entries(place, maxEntries), {}};
        for (const TiffDirectory::Entry& entry : tree.entries) {
            const TiffEntry* found = entry.child.empty() ? nullptr : directory.find(entry.tag);
            const auto child = found ? childOf(*found) : std::nullopt;
            if (!child)
                continue;
            for (const TiffEntry& inside : m_walker.entries(*child, maxEntries))
                noteUse(inside);
            directory.children.emplace(entry.tag, read(*child, entry.child.front()));
        }
        return directory;
    }

    /// Makes the attributes `before` into those `after`, and keeps what is in neither. Returns the offset of
    /// the directory, which is another when it had to grow.
    std::uint32_t write(const OldDirectory* old, const TiffDirectory& before, const TiffDirectory& after) {
        std::map<std::uint16_t, NewEntry> entries;
        if (old)
            for (const TiffEntry& entry : old->entries) {
                if (before.find(entry.tag) && !after.find(entry.tag))
                    release(*old, entry);
                else
                    entries[entry.tag] = {entry.tag, &entry, nullptr, nullptr};
            }
        for (const TiffDirectory::Entry& entry : after.entries) {
            NewEntry& made = entries[entry.tag];
            made.tag = entry.tag;
            const TiffDirectory::Entry* present = before.find(entry.tag);
            if (made.kept && present && isSame(*present, entry))
                continue;
            made.changed = &entry;
            made.childBefore = present && !present->child.empty() ? &present->child.front() : nullptr;
        }
        return place(old, directoryBytes(old, entries));
    }

    FilePieces pieces(std::vector<FilePatch> more) {
        std::ranges::copy(more, std::back_inserter(m_patches));
        QByteArray tail = m_tail;
        if (!tail.isEmpty() && m_base != m_source.size())
            tail.prepend('\0');
        return patchedFile(m_source.size(), m_patches, tail);
    }

private:
    void noteUse(const TiffEntry& entry) {
        if (isOutside(entry))
            m_used.push_back({entry.valuePosition, entry.valueSize});
    }

    std::optional<TiffDirectoryPlace> childOf(const TiffEntry& pointer) {
        const QByteArray offset = m_source.bytes(pointer.valuePosition, tiffInlineSize);
        return m_walker.visit(ByteReader(offset, m_order).dword(0).value_or(0));
    }

    static bool isSame(const TiffDirectory::Entry& a, const TiffDirectory::Entry& b) {
        if (a.child.empty() != b.child.empty())
            return false;
        if (a.child.empty())
            return a.type == b.type && a.count == b.count && a.value == b.value;
        return std::ranges::equal(a.child.front().entries, b.child.front().entries,
                                  [](const auto& first, const auto& second) {
                                      return first.tag == second.tag && isSame(first, second);
                                  });
    }

    /// Whether these bytes belong to one value alone.
    bool isOwn(const Range& range) const {
        const auto overlaps = [&](const Range& used) {
            return used.start < range.start + range.size && range.start < used.start + used.size;
        };
        return std::ranges::count_if(m_used, overlaps) == 1;
    }

    /// Nothing of a value that was given up stays readable.
    void release(const TiffEntry& entry) {
        if (isOutside(entry) && isOwn({entry.valuePosition, entry.valueSize}))
            m_patches.push_back({entry.valuePosition, QByteArray(entry.valueSize, '\0')});
    }

    void release(const OldDirectory& directory, const TiffEntry& entry) {
        release(entry);
        const OldDirectory* child = directory.child(entry.tag);
        if (!child)
            return;
        for (const TiffEntry& inside : child->entries)
            release(*child, inside);
        clear(*child);
    }

    void clear(const OldDirectory& directory) {
        m_patches.push_back({directory.place.offset, QByteArray(roomOf(directory), '\0')});
    }

    static qsizetype roomOf(const OldDirectory& directory) {
        return qsizetype(2 + directory.place.entries * std::uint64_t(tiffEntrySize) +
                         (directory.place.nextPosition ? 4 : 0));
    }

    QByteArray directoryBytes(const OldDirectory* old, const std::map<std::uint16_t, NewEntry>& entries) {
        QByteArray bytes = number(quint16(entries.size()));
        for (const auto& [tag, entry] : entries)
            bytes += entry.changed ? changedEntry(old, entry)
                                   : m_source.bytes(entry.kept->position, tiffEntrySize);
        return bytes + number(old ? quint32(old->place.next) : quint32(0));
    }

    QByteArray changedEntry(const OldDirectory* old, const NewEntry& entry) {
        const TiffDirectory::Entry& wanted = *entry.changed;
        if (!wanted.child.empty()) {
            static const TiffDirectory none;
            const OldDirectory* present = old ? old->child(entry.tag) : nullptr;
            const TiffDirectory& presentTree = present && entry.childBefore ? *entry.childBefore : none;
            return head(entry.tag, longType, 1) + number(write(present, presentTree, wanted.child.front()));
        }
        const QByteArray start = head(entry.tag, wanted.type, wanted.count);
        if (wanted.value.size() <= tiffInlineSize) {
            if (entry.kept)
                release(*entry.kept);
            return start + wanted.value.leftJustified(tiffInlineSize, '\0');
        }
        return start + number(placeValue(entry.kept, wanted.value));
    }

    std::uint32_t placeValue(const TiffEntry* old, const QByteArray& value) {
        if (old && isOutside(*old) && old->valueSize >= value.size() &&
            isOwn({old->valuePosition, old->valueSize})) {
            m_patches.push_back({old->valuePosition, value.leftJustified(old->valueSize, '\0')});
            return std::uint32_t(old->valuePosition);
        }
        if (old)
            release(*old);
        return append(value);
    }

    std::uint32_t place(const OldDirectory* old, const QByteArray& bytes) {
        if (!old)
            return append(bytes);
        const bool isComplete = old->place.entries == old->place.declaredEntries && old->place.nextPosition;
        if (isComplete && bytes.size() <= roomOf(*old)) {
            m_patches.push_back({old->place.offset, bytes.leftJustified(roomOf(*old), '\0')});
            return std::uint32_t(old->place.offset);
        }
        clear(*old);
        return append(bytes);
    }

    std::uint32_t append(const QByteArray& bytes) {
        const std::int64_t offset = m_base + m_tail.size();
        m_tail += bytes;
        if (m_tail.size() % 2)
            m_tail += '\0';
        return std::uint32_t(offset);
    }

    template <class Number>
    QByteArray number(Number value) const {
        return numberBytes<QByteArray>(value, m_order);
    }
    QByteArray head(std::uint16_t tag, std::uint16_t type, std::uint32_t count) const {
        return number(tag) + number(type) + number(count);
    }

    const PictureSource& m_source;
    TiffWalker& m_walker;
    ByteOrder m_order;
    std::int64_t m_base; ///< where the tail begins
    std::vector<Range> m_used;
    std::vector<FilePatch> m_patches;
    QByteArray m_tail;
};

/// IPTC data stand in a tag of their own, and in the image resources where a page has them there.
void putIptc(TiffDirectory& page, const IptcChange& iptc) {
    putBlock(page, TiffBlock::iptc, ExifType::Undefined, iptc.data);
    const TiffDirectory::Entry* present = page.find(TiffBlock::resources);
    if (!present)
        return;
    ResourceBlocks resources(present->value);
    const bool hasIptc = resources.contains(ResourceBlocks::iptcNumber);
    iptc.putInto(resources);
    if (!hasIptc)
        resources.replace(ResourceBlocks::iptcNumber, {});
    putBlock(page, TiffBlock::resources, ExifType(present->type), resources.bytes());
}

void putAttributes(TiffDirectory& page, const QByteArray& exif, bool bigEndian) {
    std::erase_if(page.entries, isPictureAttribute);
    TiffTree wanted = readTiffTree(exif);
    if (wanted.bigEndian != bigEndian)
        swapByteOrder(wanted.directory);
    for (TiffDirectory::Entry& entry : wanted.directory.entries)
        if (isPictureAttribute(entry))
            page.put(std::move(entry));
}

/// Where the offset of that directory is written.
std::int64_t linkTo(std::uint64_t directory, const TiffWalker& walker,
                    const std::vector<TiffDirectoryPlace>& pages, const FileUnderTest& file) {
    constexpr std::int64_t firstLink = 4;
    if (walker.firstDirectory() == directory)
        return firstLink;
    for (const TiffDirectoryPlace& page : pages)
        if (page.nextPosition && page.next == directory)
            return *page.nextPosition;
    failDecoding(file, QCoreApplication::translate("TiffMetadataWriter", "its pages are not a plain list"));
}

} // namespace

FilePieces tiffPageWithMetadata(const PictureSource& source, const FileUnderTest& file,
                                std::uint64_t directoryOffset, const MetadataChange& change) {
    auto walker = TiffWalker::open(source.byteSource());
    if (!walker || walker->isBig())
        failDecoding(file, QCoreApplication::translate("TiffMetadataWriter",
                                                       "metadata of a BigTIFF file can't be changed"));
    const std::vector<TiffDirectoryPlace> pages = walker->chain(maxPages, [] { return true; });
    const auto page = std::ranges::find(pages, std::int64_t(directoryOffset), &TiffDirectoryPlace::offset);
    const std::int64_t link = linkTo(directoryOffset, *walker, pages, file);
    // A directory that grows moves, and a loop of pages would lead to what was its old place.
    if (page == pages.end() || pages.back().next != 0)
        failDecoding(file, QCoreApplication::translate("TiffMetadataWriter", "its list of pages is damaged"));

    const auto [bigEndian, before] = readTiffTree(source, directoryOffset);
    TiffDirectory after = before;
    if (change.exif)
        putAttributes(after, *change.exif, bigEndian);
    if (change.xmp)
        putBlock(after, TiffBlock::xmp, ExifType::Byte, *change.xmp);
    if (change.iptc)
        putIptc(after, *change.iptc);

    PageEdit edit(source, *walker, pages);
    const OldDirectory old = edit.read(*page, before);
    const std::uint32_t offset = edit.write(&old, before, after);
    std::vector<FilePatch> links;
    if (offset != directoryOffset)
        links.push_back({link, numberBytes<QByteArray>(offset, walker->order())});
    const FilePieces content = edit.pieces(std::move(links));
    if (content.size() > largestFile)
        failDecoding(file, QCoreApplication::translate("TiffMetadataWriter", "it would grow beyond 4 GB"));
    return content;
}

} // namespace tarsel
