// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/ByteWriter.h"

#include <QByteArray>
#include <QByteArrayView>
#include <functional>
#include <optional>
#include <vector>

namespace tarsel {

class TiffWalker;
class UsedRanges;

/// The directories of an EXIF block. Image is the first of the chain, Thumbnail the second; pointer
/// attributes lead to the others.
enum class ExifGroup { Image, Photo, Gps, Interoperability, Thumbnail };

/// Type numbers of the TIFF structure, as in a directory entry.
enum class ExifType : quint16 {
    Byte = 1,
    Ascii = 2,
    Short = 3,
    Long = 4,
    Rational = 5,
    SignedByte = 6,
    Undefined = 7,
    SignedShort = 8,
    SignedLong = 9,
    SignedRational = 10,
    Float = 11,
    Double = 12,
    Directory = 13
};

/// One entry as found. Values of up to four bytes are in the entry itself, others at an offset; an entry
/// whose value is outside the block, or whose type doesn't exist, is carried along but has no value.
struct ExifEntry {
    ExifGroup group = ExifGroup::Image;
    quint16 tag = 0;
    ExifType type = ExifType::Undefined;
    quint32 count = 0;
    qsizetype position = 0;      ///< of the entry's 12 bytes
    qsizetype valuePosition = 0; ///< of the value's bytes
    qsizetype valueSize = 0;
    bool hasValue = false;
    bool isPointer() const; ///< leads to another directory
};

/// An EXIF block (TIFF structure) that is changed by patching: a changed value takes the place of the old one
/// when it fits, else it and the directory that had to grow go to the end. Nothing else moves, so that maker
/// notes, which count their offsets from the start of the block, stay readable, and whatever this reader
/// doesn't understand stays as it is. Bytes given up are zeroed and reused.
///
/// bytes/TiffStructure.h shows the layout. Every offset and size of a foreign block is checked, directories
/// are visited once.
class ExifBlock {
public:
    /// Nothing when the bytes hold no TIFF structure with a first directory.
    static std::optional<ExifBlock> read(const QByteArray& bytes);
    static ExifBlock fresh(); ///< little-endian, with an empty first directory

    const QByteArray& bytes() const { return m_bytes; }
    ByteOrder order() const { return m_order; }

    /// All entries in the order of the file, those of a directory after the entry that points to it.
    const std::vector<ExifEntry>& entries() const { return m_entries; }
    QByteArrayView value(const ExifEntry& entry) const;
    const ExifEntry* find(ExifGroup group, quint16 tag) const; ///< the first, or null

    /// Replaces or creates an entry; `data` are `count` elements in the block's byte order. Makes the
    /// directory when it is missing.
    void set(ExifGroup group, quint16 tag, ExifType type, quint32 count, const QByteArray& data);
    void remove(ExifGroup group, quint16 tag); ///< all entries of that tag; an emptied directory goes as well
    void removeAll(const std::function<bool(const ExifEntry& entry)>& isUnwanted);
    QByteArray thumbnail() const; ///< the file of the embedded JPEG; empty where there is none
    /// Puts a file that isn't longer in its place; without room of its own, the thumbnail is dropped.
    void shortenThumbnail(const QByteArray& file);
    void dropThumbnail();

    /// Whether all values of `before`, but those of `group` and `tag` and the pointers, are here in the same
    /// order.
    bool keepsAllOf(const ExifBlock& before, ExifGroup group, quint16 tag) const;

    quint16 read16(qsizetype position) const;
    quint32 read32(qsizetype position) const;

private:
    struct Range {
        qsizetype start = 0;
        qsizetype size = 0;
        qsizetype end() const { return start + size; }
    };
    struct Directory {
        ExifGroup group = ExifGroup::Image;
        Range range;                   ///< count, entries that fit into the block, next offset when it fits
        qsizetype pointerPosition = 0; ///< where the offset of this directory is
        qsizetype nextPosition = 0;    ///< of the offset of the next one; 0 when the block ends before it
    };

    void walk();
    bool walkDirectory(TiffWalker& walker, ExifGroup group, qsizetype pointerPosition);
    const Directory* directory(ExifGroup group) const;
    std::vector<Range> thumbnailData() const;
    std::optional<Range> thumbnailFile() const;

    ByteWriter writer();
    void write16(qsizetype position, quint16 value);
    void write32(qsizetype position, quint32 value);
    void writeEntry(qsizetype position, quint16 tag, ExifType type, quint32 count, const QByteArray& data);
    void replaceValue(const ExifEntry& entry, ExifType type, quint32 count, const QByteArray& data);
    void insertEntry(const Directory& place, quint16 tag, ExifType type, quint32 count,
                     const QByteArray& data);
    void makeDirectory(ExifGroup group);
    bool removeFrom(ExifGroup group, const std::function<bool(const ExifEntry& entry)>& isUnwanted);
    void removeEmptyDirectory(ExifGroup group);

    UsedRanges usedRanges() const;
    bool isShared(const Range& range) const;
    void release(const Range& range);
    void releaseUnused(std::vector<Range> ranges);
    void addFree(std::vector<Range> ranges);
    qsizetype place(const QByteArray& data);

    QByteArray m_bytes;
    ByteOrder m_order = ByteOrder::Little;
    std::vector<ExifEntry> m_entries;
    std::vector<Directory> m_directories;
    std::vector<Range> m_free; ///< zeroed here, and known to be unused
};

/// The block, without its thumbnail where it has to go to stay within `limit` bytes. Nothing when it doesn't
/// fit without it either.
std::optional<QByteArray> exifWithin(const QByteArray& exif, qsizetype limit);

/// What a JPEG segment leaves for the block: 65533 bytes less "Exif\0\0".
constexpr qsizetype largestJpegExif = 65527;

} // namespace tarsel
