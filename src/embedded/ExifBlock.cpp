// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifBlock.h"

#include "base/TrappedError.h"
#include "bytes/TiffStructure.h"
#include "bytes/UsedRanges.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <limits>

namespace tarsel {

namespace {

constexpr qsizetype headerSize = tiffHeaderSize;
constexpr qsizetype entrySize = tiffEntrySize;
constexpr qsizetype inlineSize = tiffInlineSize;
constexpr qsizetype firstPointer = 4; ///< where the header holds the offset of the first directory

constexpr quint16 thumbnailOffsetTag = 0x0201;
constexpr quint16 thumbnailLengthTag = 0x0202;

/// A directory that an attribute of another one points to.
struct Child {
    ExifGroup group;
    ExifGroup parent;
    quint16 pointerTag;
};
constexpr std::array children{
    Child{ExifGroup::Photo, ExifGroup::Image, 0x8769},
    Child{ExifGroup::Gps, ExifGroup::Image, 0x8825},
    Child{ExifGroup::Interoperability, ExifGroup::Photo, 0xA005},
};

const Child* childAt(ExifGroup parent, quint16 tag) {
    const auto found = std::ranges::find_if(
        children, [&](const Child& child) { return child.parent == parent && child.pointerTag == tag; });
    return found == children.end() ? nullptr : &*found;
}

const Child* childOf(ExifGroup group) {
    const auto found = std::ranges::find(children, group, &Child::group);
    return found == children.end() ? nullptr : &*found;
}

/// The bytes must outlive it.
ByteSource sourceOf(const QByteArray& bytes) {
    const auto read = [&bytes](std::int64_t at, void* target, std::int64_t count) {
        count = at < 0 ? 0 : std::clamp<std::int64_t>(bytes.size() - at, 0, count);
        std::copy_n(bytes.constData() + (count ? at : 0), count, static_cast<char*>(target));
        return count;
    };
    return {read, bytes.size()};
}

} // namespace

bool ExifEntry::isPointer() const {
    return childAt(group, tag) != nullptr;
}

// --- reading -----------------------------------------------------------------------------------------------

std::optional<ExifBlock> ExifBlock::read(const QByteArray& bytes) {
    const auto walker = TiffWalker::open(sourceOf(bytes));
    if (!walker || walker->isBig() || bytes.size() > std::numeric_limits<qint32>::max())
        return std::nullopt;
    ExifBlock block;
    block.m_bytes = bytes;
    block.m_order = walker->order();
    block.walk();
    if (!block.directory(ExifGroup::Image))
        return std::nullopt;
    return block;
}

ExifBlock ExifBlock::fresh() {
    ExifBlock block;
    block.m_bytes = QByteArray("II*\0\x08\0\0\0", headerSize) + QByteArray(6, '\0');
    block.walk();
    return block;
}

void ExifBlock::walk() {
    m_entries.clear();
    m_directories.clear();
    std::optional<TiffWalker> walker = TiffWalker::open(sourceOf(m_bytes));
    if (!walker || !walkDirectory(*walker, ExifGroup::Image, firstPointer))
        return;
    const qsizetype next = directory(ExifGroup::Image)->nextPosition;
    if (next)
        walkDirectory(*walker, ExifGroup::Thumbnail, next);
}

/// False when the offset at `pointerPosition` does not lead to a directory, or leads to one that was seen.
bool ExifBlock::walkDirectory(TiffWalker& walker, ExifGroup group, qsizetype pointerPosition) {
    const auto place = directory(group) ? std::nullopt : walker.visit(read32(pointerPosition));
    if (!place)
        return false;
    const std::int64_t end =
        place->offset + 2 + std::int64_t(place->entries) * entrySize + (place->nextPosition ? 4 : 0);
    m_directories.push_back(
        {group, {place->offset, end - place->offset}, pointerPosition, place->nextPosition.value_or(0)});
    for (const TiffEntry& raw : walker.entries(*place, place->entries)) {
        const ExifEntry entry{group,        raw.tag,           ExifType(raw.type), quint32(raw.count),
                              raw.position, raw.valuePosition, raw.valueSize,      raw.hasValue};
        m_entries.push_back(entry);
        if (const Child* child = childAt(group, entry.tag); child && entry.hasValue)
            walkDirectory(walker, child->group, entry.position + 8);
    }
    return true;
}

const ExifBlock::Directory* ExifBlock::directory(ExifGroup group) const {
    const auto found = std::ranges::find(m_directories, group, &Directory::group);
    return found == m_directories.end() ? nullptr : &*found;
}

const ExifEntry* ExifBlock::find(ExifGroup group, quint16 tag) const {
    const auto found = std::ranges::find_if(
        m_entries, [&](const ExifEntry& entry) { return entry.group == group && entry.tag == tag; });
    return found == m_entries.end() ? nullptr : &*found;
}

QByteArrayView ExifBlock::value(const ExifEntry& entry) const {
    return QByteArrayView(m_bytes).sliced(entry.valuePosition, entry.valueSize);
}

bool ExifBlock::keepsAllOf(const ExifBlock& before, ExifGroup group, quint16 tag) const {
    auto ours = m_entries.begin();
    for (const ExifEntry& entry : before.m_entries) {
        if (!entry.hasValue || entry.isPointer() || (entry.group == group && entry.tag == tag))
            continue;
        const auto same = [&](const ExifEntry& other) {
            return other.group == entry.group && other.tag == entry.tag && other.type == entry.type &&
                   other.hasValue && value(other) == before.value(entry);
        };
        ours = std::find_if(ours, m_entries.end(), same);
        if (ours == m_entries.end())
            return false;
        ++ours;
    }
    return true;
}

// --- changing ----------------------------------------------------------------------------------------------

void ExifBlock::set(ExifGroup group, quint16 tag, ExifType type, quint32 count, const QByteArray& data) {
    if (!directory(group))
        makeDirectory(group);
    if (const ExifEntry* entry = find(group, tag))
        replaceValue(*entry, type, count, data);
    else if (const Directory* place = directory(group))
        insertEntry(*place, tag, type, count, data);
    walk();
}

void ExifBlock::replaceValue(const ExifEntry& entry, ExifType type, quint32 count, const QByteArray& data) {
    if (entry.hasValue && entry.type == type && entry.count == count && value(entry) == data)
        return;
    const ExifEntry old = entry;
    const Range oldRange{old.valuePosition, old.valueSize};
    const bool outside = old.hasValue && old.valueSize > inlineSize;
    if (outside && data.size() > inlineSize && data.size() <= old.valueSize && !isShared(oldRange)) {
        std::fill_n(m_bytes.begin() + oldRange.start, oldRange.size, '\0');
        std::ranges::copy(data, m_bytes.begin() + oldRange.start);
        write16(old.position + 2, quint16(type));
        write32(old.position + 4, count);
        return;
    }
    if (outside)
        release(oldRange);
    writeEntry(old.position, old.tag, type, count, data);
}

/// Writes the directory again, longer by one entry; entries stay in the order of their tags.
void ExifBlock::insertEntry(const Directory& place_, quint16 tag, ExifType type, quint32 count,
                            const QByteArray& data) {
    const Directory old = place_;
    const qsizetype first = old.range.start + 2;
    const qsizetype entryCount = (old.range.size - 2) / entrySize;
    if (entryCount >= std::numeric_limits<quint16>::max())
        fail(ErrorNumber::Overflow,
             QCoreApplication::translate("ExifBlock", "an EXIF directory holds at most 65535 attributes"));
    qsizetype before = 0;
    while (before < entryCount && read16(first + before * entrySize) < tag)
        ++before;

    QByteArray table = m_bytes.mid(old.range.start, old.range.size);
    if (!old.nextPosition)
        table = table.left(2 + entryCount * entrySize) + QByteArray(4, '\0');
    table.insert(2 + before * entrySize, QByteArray(entrySize, '\0'));
    release(old.range);
    const qsizetype start = place(table);
    write32(old.pointerPosition, quint32(start));
    write16(start, quint16(entryCount + 1));
    writeEntry(start + 2 + before * entrySize, tag, type, count, data);
}

void ExifBlock::makeDirectory(ExifGroup group) {
    const Child* child = childOf(group);
    if (!child)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ExifBlock", "this EXIF directory can't be created"));
    const qsizetype start = place(QByteArray(6, '\0'));
    QByteArray pointer;
    appendNumber(pointer, quint32(start), m_order);
    set(child->parent, child->pointerTag, ExifType::Long, 1, pointer);
}

void ExifBlock::remove(ExifGroup group, quint16 tag) {
    removeAll([&](const ExifEntry& entry) { return entry.group == group && entry.tag == tag; });
}

void ExifBlock::removeAll(const std::function<bool(const ExifEntry& entry)>& isUnwanted) {
    std::vector<Range> values;
    for (const ExifEntry& entry : m_entries)
        if (entry.hasValue && entry.valueSize > inlineSize && isUnwanted(entry))
            values.push_back({entry.valuePosition, entry.valueSize});
    using enum ExifGroup; // while their parents lead to them
    for (const ExifGroup group : {Interoperability, Gps, Photo, Thumbnail, Image})
        if (removeFrom(group, isUnwanted))
            removeEmptyDirectory(group);
    releaseUnused(std::move(values));
}

/// Moves the other entries of the directory up and zeroes what is left over. False when it keeps all.
bool ExifBlock::removeFrom(ExifGroup group, const std::function<bool(const ExifEntry& entry)>& isUnwanted) {
    const Directory* found = directory(group);
    if (!found)
        return false;
    const Range range = found->range;
    const qsizetype oldCount = (range.size - 2) / entrySize;
    QByteArray table;
    for (const ExifEntry& entry : m_entries)
        if (entry.group == group && !isUnwanted(entry))
            table += m_bytes.mid(entry.position, entrySize);
    const qsizetype newCount = table.size() / entrySize, freed = (oldCount - newCount) * entrySize;
    if (freed == 0)
        return false;
    const bool isOurs = !isShared(range);
    table += m_bytes.sliced(range.start + 2 + oldCount * entrySize, range.size - 2 - oldCount * entrySize);
    m_bytes.replace(range.start + 2, range.size - 2, table.leftJustified(range.size - 2, '\0'));
    write16(range.start, quint16(newCount));
    if (isOurs)
        addFree({{range.end() - freed, freed}});
    walk();
    return true;
}

void ExifBlock::removeEmptyDirectory(ExifGroup group) {
    const Child* child = childOf(group);
    const Directory* place = directory(group);
    if (!child || !place || read16(place->range.start) > 0)
        return;
    release(place->range);
    remove(child->parent, child->pointerTag);
}

std::vector<ExifBlock::Range> ExifBlock::thumbnailData() const {
    std::vector<Range> ranges;
    for (const ExifEntry& entry : m_entries)
        if (entry.group == ExifGroup::Thumbnail && entry.hasValue && entry.valueSize > inlineSize)
            ranges.push_back({entry.valuePosition, entry.valueSize});
    if (const std::optional<Range> file = thumbnailFile())
        ranges.push_back(*file);
    return ranges;
}

std::optional<ExifBlock::Range> ExifBlock::thumbnailFile() const {
    const ExifEntry* offset = find(ExifGroup::Thumbnail, thumbnailOffsetTag);
    const ExifEntry* length = find(ExifGroup::Thumbnail, thumbnailLengthTag);
    if (!offset || !length || offset->type != ExifType::Long || length->type != ExifType::Long ||
        offset->count != 1 || length->count != 1)
        return std::nullopt;
    const Range file{read32(offset->valuePosition), read32(length->valuePosition)};
    const bool isInside =
        file.start >= headerSize && file.size <= m_bytes.size() && file.start <= m_bytes.size() - file.size;
    return isInside ? std::optional(file) : std::nullopt;
}

QByteArray ExifBlock::thumbnail() const {
    const std::optional<Range> file = thumbnailFile();
    return file ? m_bytes.mid(file->start, file->size) : QByteArray();
}

void ExifBlock::shortenThumbnail(const QByteArray& file) {
    const std::optional<Range> old = thumbnailFile();
    if (!old || file.isEmpty() || file.size() > old->size || isShared(*old))
        return dropThumbnail();
    write32(find(ExifGroup::Thumbnail, thumbnailLengthTag)->valuePosition, quint32(file.size()));
    m_bytes.replace(old->start, old->size, file.leftJustified(old->size, '\0'));
    addFree({{old->start + file.size(), old->size - file.size()}});
}

void ExifBlock::dropThumbnail() {
    const Directory* thumbnail = directory(ExifGroup::Thumbnail);
    if (!thumbnail)
        return;
    std::vector<Range> ranges = thumbnailData();
    ranges.push_back(thumbnail->range);
    write32(thumbnail->pointerPosition, 0);
    walk();
    releaseUnused(std::move(ranges));
}

// --- room --------------------------------------------------------------------------------------------------

/// Of the header, directories and values.
UsedRanges ExifBlock::usedRanges() const {
    UsedRanges used;
    used.add(0, headerSize);
    for (const Directory& each : m_directories)
        used.add(each.range.start, each.range.size);
    for (const ExifEntry& each : m_entries)
        if (each.hasValue && each.valueSize > inlineSize)
            used.add(each.valuePosition, each.valueSize);
    for (const Range& picture : thumbnailData())
        used.add(picture.start, picture.size);
    return used;
}

/// Whether these bytes of one directory or value belong to another, too.
bool ExifBlock::isShared(const Range& range) const {
    return usedRanges().usersOf(range.start, range.size) > 1;
}

/// Gives up bytes that one directory or value held, unless another one uses them as well.
void ExifBlock::release(const Range& range) {
    if (range.end() > m_bytes.size() || isShared(range))
        return;
    std::fill_n(m_bytes.begin() + range.start, range.size, '\0');
    addFree({range});
}

/// Gives up bytes that belonged to what is no longer there.
void ExifBlock::releaseUnused(std::vector<Range> ranges) {
    const UsedRanges used = usedRanges();
    std::erase_if(ranges, [&](const Range& range) {
        return range.end() > m_bytes.size() || used.usersOf(range.start, range.size) > 0;
    });
    for (const Range& range : ranges)
        std::fill_n(m_bytes.begin() + range.start, range.size, '\0');
    addFree(std::move(ranges));
}

/// Joins bytes that nobody uses with their free neighbours; at the end of the block they go.
void ExifBlock::addFree(std::vector<Range> ranges) {
    std::ranges::move(m_free, std::back_inserter(ranges));
    std::ranges::sort(ranges, {}, &Range::start);
    m_free.clear();
    for (const Range& range : ranges) {
        if (m_free.empty() || m_free.back().end() < range.start)
            m_free.push_back(range);
        else
            m_free.back().size = std::max(m_free.back().end(), range.end()) - m_free.back().start;
    }
    if (m_free.empty() || m_free.back().end() != m_bytes.size())
        return;
    m_bytes.truncate(m_free.back().start);
    m_free.pop_back();
}

/// Puts bytes where there is room, else at the end; returns their even position.
qsizetype ExifBlock::place(const QByteArray& data) {
    const auto fits = [&](const Range& range) { return range.start % 2 == 0 && range.size >= data.size(); };
    const auto room = std::ranges::find_if(m_free, fits);
    if (room != m_free.end()) {
        const Range taken = *room;
        m_free.erase(room);
        if (taken.size > data.size())
            m_free.push_back({taken.start + data.size(), taken.size - data.size()});
        std::ranges::copy(data, m_bytes.begin() + taken.start);
        return taken.start;
    }
    if (m_bytes.size() % 2)
        m_bytes.append('\0');
    if (data.size() > std::numeric_limits<qint32>::max() - m_bytes.size())
        fail(ErrorNumber::Overflow,
             QCoreApplication::translate("ExifBlock", "the EXIF data grow beyond 2 GB"));
    const qsizetype start = m_bytes.size();
    m_bytes.append(data);
    return start;
}

void ExifBlock::writeEntry(qsizetype position, quint16 tag, ExifType type, quint32 count,
                           const QByteArray& data) {
    write16(position, tag);
    write16(position + 2, quint16(type));
    write32(position + 4, count);
    write32(position + 8, 0);
    if (data.size() <= inlineSize)
        std::ranges::copy(data, m_bytes.begin() + position + 8);
    else
        write32(position + 8, quint32(place(data)));
}

quint16 ExifBlock::read16(qsizetype position) const {
    return ByteReader(m_bytes, m_order).word(position).value_or(0);
}

quint32 ExifBlock::read32(qsizetype position) const {
    return ByteReader(m_bytes, m_order).dword(position).value_or(0);
}

void ExifBlock::write16(qsizetype position, quint16 value) {
    if (!writer().put(position, value))
        fail(ErrorNumber::SubscriptOutOfRange);
}

void ExifBlock::write32(qsizetype position, quint32 value) {
    if (!writer().put(position, value))
        fail(ErrorNumber::SubscriptOutOfRange);
}

ByteWriter ExifBlock::writer() {
    return {std::as_writable_bytes(std::span(m_bytes.data(), std::size_t(m_bytes.size()))), m_order};
}

std::optional<QByteArray> exifWithin(const QByteArray& exif, qsizetype limit) {
    if (exif.size() <= limit)
        return exif;
    std::optional<ExifBlock> block = ExifBlock::read(exif);
    if (!block)
        return std::nullopt;
    block->dropThumbnail();
    if (block->bytes().size() > limit)
        return std::nullopt;
    return block->bytes();
}

} // namespace tarsel
