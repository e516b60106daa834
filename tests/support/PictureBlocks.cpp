// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PictureBlocks.h"

#include <QFile>
#include <QtEndian>

namespace tarsel::test {

namespace {

const QByteArray exifMark("Exif\0\0", 6);
const QByteArray photoshopMark("Photoshop 3.0\0", 14);

void takeSegment(quint8 marker, const QByteArray& payload, EmbeddedMetadata& blocks) {
    if (marker == 0xE1 && payload.startsWith(exifMark) && blocks.exif.isEmpty())
        blocks.exif = payload.mid(exifMark.size());
    if (marker == 0xED && payload.startsWith(photoshopMark))
        blocks.resources += payload.mid(photoshopMark.size());
}

EmbeddedMetadata blocksOfJpeg(const QByteArray& file) {
    EmbeddedMetadata blocks;
    qsizetype position = 2;
    while (position + 4 <= file.size() && quint8(file[position]) == 0xFF) {
        const auto marker = quint8(file[position + 1]);
        const qsizetype size = qFromBigEndian<quint16>(file.constData() + position + 2);
        if (marker == 0xDA || size < 2)
            break;
        takeSegment(marker, file.mid(position + 4, size - 2), blocks);
        position += 2 + size;
    }
    return blocks;
}

EmbeddedMetadata blocksOfPsd(const QByteArray& file) {
    constexpr qsizetype headerSize = 26;
    EmbeddedMetadata blocks;
    if (file.size() < headerSize + 4)
        return blocks;
    const qsizetype start = headerSize + 4 + qFromBigEndian<quint32>(file.constData() + headerSize);
    if (start + 4 <= file.size())
        blocks.resources = file.mid(start + 4, qFromBigEndian<quint32>(file.constData() + start));
    return blocks;
}

} // namespace

EmbeddedMetadata blocksOfPicture(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    if (bytes.startsWith("8BPS"))
        return blocksOfPsd(bytes);
    return bytes.startsWith("\xFF\xD8") ? blocksOfJpeg(bytes) : EmbeddedMetadata();
}

} // namespace tarsel::test
