// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MadePictures.h"

#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

/// Little-endian numbers at the end of the bytes.
void add16(QByteArray& bytes, int value) {
    bytes.append(char(value & 0xFF)).append(char(value >> 8 & 0xFF));
}

void add32(QByteArray& bytes, qsizetype value) {
    add16(bytes, int(value & 0xFFFF));
    add16(bytes, int(value >> 16 & 0xFFFF));
}

void addEntry(QByteArray& bytes, int tag, int type, int count, qsizetype value) {
    add16(bytes, tag);
    add16(bytes, type);
    add32(bytes, count);
    add32(bytes, value);
}

void put32(QByteArray& bytes, qsizetype at, qsizetype value) {
    QByteArray number;
    add32(number, value);
    bytes.replace(at, 4, number);
}

/// Appends pixels and directory of a page; gives the place of the offset of the next directory.
qsizetype addPage(QByteArray& bytes, const MadePage& page, qsizetype previousLink) {
    constexpr int Short = 3, Long = 4, Entries = 9;
    const qsizetype pixels = bytes.size();
    for (int i = 0; i < page.size.width() * page.size.height(); ++i)
        bytes.append(char(qRed(page.color))).append(char(qGreen(page.color))).append(char(qBlue(page.color)));
    if (bytes.size() % 2)
        bytes.append('\0');
    const qsizetype depths = bytes.size();
    for (int channel = 0; channel < 3; ++channel)
        add16(bytes, 8);
    put32(bytes, previousLink, bytes.size());
    add16(bytes, Entries);
    addEntry(bytes, 256, Long, 1, page.size.width());
    addEntry(bytes, 257, Long, 1, page.size.height());
    addEntry(bytes, 258, Short, 3, depths);
    addEntry(bytes, 259, Short, 1, page.compression);
    addEntry(bytes, 262, Short, 1, 2);
    addEntry(bytes, 273, Long, 1, pixels);
    addEntry(bytes, 277, Short, 1, 3);
    addEntry(bytes, 278, Long, 1, page.size.height());
    addEntry(bytes, 279, Long, 1, 3 * page.size.width() * page.size.height());
    add32(bytes, 0);
    return bytes.size() - 4;
}

} // namespace

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile::remove(path); // overwriting in place would wait for the disk
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

void makePicture(const QString& path, QSize size, QRgb color) {
    QImage image(size, QImage::Format_RGB888);
    image.fill(color);
    ASSERT_TRUE(image.save(path)) << path.toStdString();
}

void makeDocument(const QString& path, const std::vector<MadePage>& pages) {
    QByteArray bytes("II*\0\0\0\0\0", 8);
    qsizetype link = 4;
    for (const MadePage& page : pages)
        link = addPage(bytes, page, link);
    writeBytes(path, bytes);
}

} // namespace tarsel::test
