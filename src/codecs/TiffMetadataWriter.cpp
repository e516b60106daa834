// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffMetadata.h"

#include "base/TrappedError.h"
#include "bytes/TiffStructure.h"
#include "bytes/UsedRanges.h"
#include "embedded/MakerNote.h"
#include "embedded/ResourceBlocks.h"

#include <QCoreApplication>
#include <algorithm>
#include <map>
#include <set>

namespace tarsel {

namespace {

constexpr std::uint16_t longType = 4, bigDirectoryType = 18;
constexpr std::int64_t largestFile = UINT32_MAX; // but for BigTIFF
constexpr std::size_t maxPages = 65'535;
constexpr std::uint64_t maxEntries = 65'535; // what a directory can count

constexpr std::uint16_t subImagesTag = 0x014A; // its values are offsets of directories
constexpr int deepestDirectory = 4;

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

/// An entry of the new directory: as it stands in the old one, or with a new value, or a child's.
struct NewEntry {
    std::uint16_t tag = 0;
    const TiffEntry* kept = nullptr;
    const TiffDirectory::Entry* changed = nullptr;
    const TiffDirectory* childBefore = nullptr; ///< of a changed child, what was read of it
};

/// Sizes of the numbers in a directory.
struct DirectoryLayout {
    bool isBig = false;
    qsizetype count() const { return isBig ? 8 : 2; }
    qsizetype entry() const { return isBig ? 20 : tiffEntrySize; }
    qsizetype offset() const { return isBig ? 8 : 4; } ///< also the longest value inside an entry
};

/// Writes the changes of one page. Directories and values are patched in their places, or go to the end; in a
/// large file all go to the end, so that only the offset of the directory is patched.
class PageEdit {
public:
    PageEdit(const PictureSource& source, TiffWalker& walker, const std::vector<TiffDirectoryPlace>& pages) :
        m_source(source), m_walker(walker), m_order(walker.order()), m_layout{walker.isBig()},
        m_base((source.size() + 1) / 2 * 2), m_patchesInPlace(source.size() < appendedFrom) {
        for (const TiffDirectoryPlace& page : pages)
            for (const TiffEntry& entry : walker.entries(page, maxEntries))
                noteUse(entry);
    }

    /// Directories below the pages but for `edited`: pages may share them, or values of theirs.
    void noteOtherPages(const std::vector<TiffDirectoryPlace>& pages, const TiffDirectoryPlace& edited) {
        auto walker = TiffWalker::open(m_source.byteSource());
        for (const TiffDirectoryPlace& page : pages)
            if (page.offset != edited.offset)
                for (const TiffEntry& entry : walker->entries(page, maxEntries))
                    noteBelow(*walker, entry, 1);
    }

    /// The directory at that place, with those that it points to.
    OldDirectory read(const TiffDirectoryPlace& place, const TiffDirectory& tree) {
        OldDirectory directory{place, m_walker.entries(place, maxEntries), {}};
        requireSingleTags(directory.entries);
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
    std::uint64_t write(const OldDirectory* old, const TiffDirectory& before, const TiffDirectory& after) {
        std::vector<NewEntry> entries;
        if (old)
            for (const TiffEntry& entry : old->entries) {
                if (before.find(entry.tag) && !after.find(entry.tag))
                    release(*old, entry);
                else
                    entries.push_back({entry.tag, &entry, nullptr, nullptr});
            }
        for (const TiffDirectory::Entry& entry : after.entries) {
            NewEntry& made = entryOf(entry.tag, entries);
            const TiffDirectory::Entry* present = before.find(entry.tag);
            if (made.kept && present && isSame(*present, entry))
                continue;
            made.changed = &entry;
            made.childBefore = present && !present->child.empty() ? &present->child.front() : nullptr;
        }
        return place(old, directoryBytes(old, entries));
    }

    QByteArray offsetBytes(std::uint64_t value) const {
        return m_layout.isBig ? number(quint64(value)) : number(quint32(value));
    }

    FilePieces pieces(std::vector<FilePatch> more) {
        std::ranges::copy(more, std::back_inserter(m_patches));
        QByteArray tail = m_tail;
        if (!tail.isEmpty() && m_base != m_source.size())
            tail.prepend('\0');
        return patchedFile(m_source.size(), m_patches, tail);
    }

private:
    /// A new one comes before the next higher tag: directories that aren't sorted keep their order, by which
    /// programs read them.
    static NewEntry& entryOf(std::uint16_t tag, std::vector<NewEntry>& entries) {
        const auto found = std::ranges::find(entries, tag, &NewEntry::tag);
        if (found != entries.end())
            return *found;
        const auto isHigher = [tag](const NewEntry& entry) { return entry.tag > tag; };
        return *entries.insert(std::ranges::find_if(entries, isHigher), {tag, nullptr, nullptr, nullptr});
    }

    bool isOutside(const TiffEntry& entry) const {
        return entry.hasValue && entry.valueSize > m_layout.offset();
    }

    void noteUse(const TiffEntry& entry) {
        if (isOutside(entry))
            m_used.add(entry.valuePosition, entry.valueSize);
    }

    std::optional<TiffDirectoryPlace> childOf(const TiffEntry& pointer) {
        constexpr std::int64_t longest = 8;
        return m_walker.visit(directoryOffset(
            m_source.bytes(pointer.valuePosition, std::min(pointer.valueSize, longest)), m_order));
    }

    /// Which of two values counts, programs don't agree about.
    static void requireSingleTags(const std::vector<TiffEntry>& entries) {
        std::set<std::uint16_t> tags;
        for (const TiffEntry& entry : entries)
            if (!tags.insert(entry.tag).second)
                fail(
                    ErrorNumber::InvalidCall,
                    QCoreApplication::translate("TiffMetadataWriter", "a TIFF directory has the tag %1 twice")
                        .arg(entry.tag));
    }

    void noteBelow(TiffWalker& walker, const TiffEntry& entry, int depth) {
        const bool isPointer = pointsToDirectory(entry.tag) || entry.tag == subImagesTag;
        if (!isPointer || !entry.hasValue || depth > deepestDirectory)
            return;
        const bool isWide = m_layout.isBig && entry.valueSize >= 8 * std::int64_t(entry.count);
        const int size = isWide ? 8 : 4;
        for (std::int64_t at = 0; at + size <= entry.valueSize; at += size) {
            const auto place =
                walker.visit(directoryOffset(m_source.bytes(entry.valuePosition + at, size), m_order));
            if (!place)
                continue;
            m_foreign.add(place->offset, roomOf({*place, {}, {}}));
            for (const TiffEntry& inside : walker.entries(*place, maxEntries)) {
                if (isOutside(inside))
                    m_foreign.add(inside.valuePosition, inside.valueSize);
                noteBelow(walker, inside, depth + 1);
            }
        }
    }

    bool isForeign(std::int64_t start, std::int64_t size) const { return m_foreign.usersOf(start, size) > 0; }

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

    /// Whether its bytes belong to this value alone.
    bool isOwn(const TiffEntry& value) const {
        return m_used.usersOf(value.valuePosition, value.valueSize) == 1 &&
               !isForeign(value.valuePosition, value.valueSize);
    }

    /// Nothing of a value that was given up stays readable.
    void release(const TiffEntry& entry) {
        if (isOutside(entry) && isOwn(entry))
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
        if (isForeign(directory.place.offset, roomOf(directory)))
            return;
        m_patches.push_back({directory.place.offset, QByteArray(roomOf(directory), '\0')});
    }

    qsizetype roomOf(const OldDirectory& directory) const {
        return m_layout.count() + qsizetype(directory.place.entries) * m_layout.entry() +
               (directory.place.nextPosition ? m_layout.offset() : 0);
    }

    QByteArray directoryBytes(const OldDirectory* old, const std::vector<NewEntry>& entries) {
        QByteArray bytes = m_layout.isBig ? number(quint64(entries.size())) : number(quint16(entries.size()));
        for (const NewEntry& entry : entries)
            bytes += entry.changed ? changedEntry(old, entry)
                                   : m_source.bytes(entry.kept->position, m_layout.entry());
        return bytes + offsetBytes(old ? old->place.next : 0);
    }

    QByteArray changedEntry(const OldDirectory* old, const NewEntry& entry) {
        const TiffDirectory::Entry& wanted = *entry.changed;
        if (!wanted.child.empty()) {
            static const TiffDirectory none;
            const OldDirectory* present = old ? old->child(entry.tag) : nullptr;
            const TiffDirectory& presentTree = present && entry.childBefore ? *entry.childBefore : none;
            return head(entry.tag, m_layout.isBig ? bigDirectoryType : longType, 1) +
                   offsetBytes(write(present, presentTree, wanted.child.front()));
        }
        const QByteArray start = head(entry.tag, wanted.type, wanted.count);
        if (wanted.value.size() <= m_layout.offset()) {
            if (entry.kept)
                release(*entry.kept);
            return start + wanted.value.leftJustified(m_layout.offset(), '\0');
        }
        return start + offsetBytes(placeValue(entry.kept, wanted.value));
    }

    std::uint64_t placeValue(const TiffEntry* old, const QByteArray& value) {
        if (m_patchesInPlace && old && isOutside(*old) && old->valueSize >= value.size() && isOwn(*old)) {
            m_patches.push_back({old->valuePosition, value.leftJustified(old->valueSize, '\0')});
            return std::uint64_t(old->valuePosition);
        }
        if (old)
            release(*old);
        return append(value);
    }

    std::uint64_t place(const OldDirectory* old, const QByteArray& bytes) {
        if (!old)
            return append(bytes);
        const bool isComplete = old->place.entries == old->place.declaredEntries && old->place.nextPosition;
        if (m_patchesInPlace && isComplete && bytes.size() <= roomOf(*old) &&
            !isForeign(old->place.offset, roomOf(*old))) {
            m_patches.push_back({old->place.offset, bytes.leftJustified(roomOf(*old), '\0')});
            return std::uint64_t(old->place.offset);
        }
        clear(*old);
        return append(bytes);
    }

    std::uint64_t append(const QByteArray& bytes) {
        const std::int64_t offset = m_base + m_tail.size();
        m_tail += bytes;
        if (m_tail.size() % 2)
            m_tail += '\0';
        return std::uint64_t(offset);
    }

    template <class Number>
    QByteArray number(Number value) const {
        return numberBytes<QByteArray>(value, m_order);
    }
    QByteArray head(std::uint16_t tag, std::uint16_t type, std::uint32_t count) const {
        return number(tag) + number(type) + (m_layout.isBig ? number(quint64(count)) : number(count));
    }

    const PictureSource& m_source;
    TiffWalker& m_walker;
    ByteOrder m_order;
    DirectoryLayout m_layout;
    std::int64_t m_base; ///< where the tail begins
    bool m_patchesInPlace;
    UsedRanges m_used;
    UsedRanges m_foreign; ///< of directories below other pages
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

/// A maker note that only stands at another place in the block is the one that the page has.
void keepMakerNote(TiffDirectory& page, TiffDirectory& wanted) {
    const TiffDirectory::Entry* present = makerNoteOf(page);
    TiffDirectory::Entry* note = makerNoteOf(wanted);
    if (present && note && movedMakerNote(note->value, note->position, present->position) == present->value)
        note->value = present->value;
}

void putAttributes(TiffDirectory& page, const QByteArray& exif, bool bigEndian) {
    TiffTree wanted = readTiffTree(exif);
    if (wanted.bigEndian != bigEndian)
        swapByteOrder(wanted.directory);
    keepMakerNote(page, wanted.directory);
    std::erase_if(page.entries, isPictureAttribute);
    for (TiffDirectory::Entry& entry : wanted.directory.entries)
        if (isPictureAttribute(entry))
            page.put(std::move(entry));
}

/// Where the offset of that directory is written.
std::int64_t linkTo(std::uint64_t directory, const TiffWalker& walker,
                    const std::vector<TiffDirectoryPlace>& pages, const FileUnderTest& file) {
    if (walker.firstDirectory() == directory)
        return walker.isBig() ? 8 : 4;
    for (const TiffDirectoryPlace& page : pages)
        if (page.nextPosition && page.next == directory)
            return *page.nextPosition;
    failDecoding(file, QCoreApplication::translate("TiffMetadataWriter", "its pages are not a plain list"));
}

} // namespace

FilePieces tiffPageWithMetadata(const PictureSource& source, const FileUnderTest& file,
                                std::uint64_t directoryOffset, const MetadataChange& change) {
    auto walker = TiffWalker::open(source.byteSource());
    if (!walker)
        failDecoding(file, QCoreApplication::translate("TiffMetadataWriter", "its header is damaged"));
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
    edit.noteOtherPages(pages, *page);
    const OldDirectory old = edit.read(*page, before);
    const std::uint64_t offset = edit.write(&old, before, after);
    std::vector<FilePatch> links;
    if (offset != directoryOffset)
        links.push_back({link, edit.offsetBytes(offset)});
    const FilePieces content = edit.pieces(std::move(links));
    if (!walker->isBig() && content.size() > largestFile)
        failDecoding(file, QCoreApplication::translate("TiffMetadataWriter", "it would grow beyond 4 GB"));
    return content;
}

} // namespace tarsel
