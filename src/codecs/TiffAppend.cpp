// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffAppend.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "bytes/TiffStructure.h"
#include "codecs/CodecChecks.h"
#include "codecs/EncoderColors.h"
#include "codecs/TiffCodec.h"
#include "codecs/TiffDirectory.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <tiff.h>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr std::int64_t largestFile = UINT32_MAX; // what offsets of 32 bits reach
constexpr std::int64_t pieceSize = std::int64_t(4) << 20;
constexpr std::size_t maxPages = 65'535;

/// Adds `distance` to each of the entry's offsets.
void moveOffsets(TiffDirectory::Entry& entry, std::uint32_t distance, bool bigEndian) {
    const ByteReader reader(entry.value, byteOrder(bigEndian));
    QByteArray moved;
    for (std::uint32_t i = 0; i < entry.count; ++i) {
        const std::uint32_t offset =
            entry.type == TIFF_SHORT ? reader.word(2 * i).value_or(0) : reader.dword(4 * i).value_or(0);
        moved += numberBytes<QByteArray>(offset + distance, byteOrder(bigEndian));
    }
    entry.type = TIFF_LONG;
    entry.value = moved;
}

void putTitle(TiffDirectory& page, const QString& title) {
    const QByteArray text = title.toUtf8() + '\0';
    if (!title.isEmpty())
        page.put({TIFFTAG_DOCUMENTNAME, TIFF_ASCII, std::uint32_t(text.size()), text, {}});
}

/// A document of one page, as bytes that stand at `base` of another document.
struct MovedPage {
    QByteArray bytes;
    std::uint32_t directory = 0;
};

MovedPage movedPage(const QByteArray& file, const QString& title, std::uint32_t base, bool bigEndian) {
    auto [isBigEndian, page] = readTiffTree(file);
    if (isBigEndian != bigEndian)
        swapByteOrder(page);
    for (TiffDirectory::Entry& entry : page.entries)
        if (entry.tag == TIFFTAG_STRIPOFFSETS)
            moveOffsets(entry, base, bigEndian);
    putTitle(page, title);
    const auto end = qsizetype(TiffWalker::open(PictureSource(file).byteSource())->firstDirectory());
    MovedPage moved{file.left(end), 0}; // all pixels are before the directory
    if (moved.bytes.size() % 2)
        moved.bytes += '\0';
    moved.directory = base + std::uint32_t(moved.bytes.size());
    moved.bytes += writeTiffDirectory(page, bigEndian, moved.directory);
    return moved;
}

void copyTo(SafeFileWriter& writer, const PictureSource& source) {
    for (std::int64_t at = 0; at < source.size(); at += pieceSize)
        writer.write(source.bytes(at, pieceSize));
    if (source.size() % 2)
        writer.write(QByteArray(1, '\0'));
}

void overwrite(const SafeFileWriter& writer, const QString& path, std::int64_t at, const QByteArray& bytes) {
    if (::pwrite(writer.descriptor(), bytes.constData(), std::size_t(bytes.size()), at) != bytes.size())
        failForErrno(errno, path);
}

void append(const QString& path, const QString& title, const QByteArray& file) {
    const PictureSource source = PictureSource::ofFile(path);
    const FileUnderTest document{"TIFF", path, source.size()};
    auto walker = TiffWalker::open(source.byteSource());
    const auto pages = walker && !walker->isBig() ? walker->chain(maxPages, [] { return true; })
                                                  : std::vector<TiffDirectoryPlace>();
    // The link at the end is replaced: one to a page that can't be read is the only way to those after it.
    if (pages.empty() || !pages.back().nextPosition || pages.back().next != 0)
        failDecoding(document,
                     QCoreApplication::translate("TiffAppend", "not a document that pages can be added to"));
    const std::int64_t base = (source.size() + 1) / 2 * 2;
    constexpr std::int64_t roomForDirectory = 1 << 20;
    if (base + 2 * file.size() + roomForDirectory > largestFile)
        failDecoding(document, QCoreApplication::translate("TiffAppend", "it would grow beyond 4 GB"));
    const bool bigEndian = walker->order() == ByteOrder::Big;
    const MovedPage page = movedPage(file, title, std::uint32_t(base), bigEndian);
    SafeFileWriter writer(path);
    copyTo(writer, source);
    writer.write(page.bytes);
    overwrite(writer, path, *pages.back().nextPosition,
              numberBytes<QByteArray>(page.directory, byteOrder(bigEndian)));
    writer.commit();
}

QByteArray withTitle(const QByteArray& file, const QString& title) {
    const bool bigEndian = readTiffTree(file).bigEndian;
    const MovedPage page = movedPage(file, title, 0, bigEndian);
    return writeTiffStart(bigEndian, page.directory) + page.bytes.mid(8);
}

} // namespace

void appendTiffPage(const QString& path, const QString& title, const Picture& picture,
                    const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    const FittedPicture fitted = fittedToFile(picture, settings, metadata);
    const QByteArray file = encodeTiff(fitted.picture, settings, fitted.metadata);
    if (QFile::exists(path))
        append(path, title, file);
    else
        writeFileSafely(path, withTitle(file, title));
}

} // namespace tarsel
