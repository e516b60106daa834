// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MadePictures.h"

#include "tests/support/TiffStructure.h"

#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace tarsel::test {

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
    QByteArray bytes("II*\0\x08\0\0\0", 8);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const auto [size, color, compression] = pages[i];
        const auto width = quint32(size.width()), height = quint32(size.height());
        constexpr qsizetype directorySize = 2 + 9 * 12 + 4;
        const auto depths = quint32(bytes.size() + directorySize), pixels = depths + 6;
        const quint32 next = pixels + 3 * width * height;
        auto entries = tiffEntries({256, width, 257, height, 258, depths, 259, quint32(compression), 262, 2,
                                    273, pixels, 277, 3, 278, height, 279, 3 * width * height});
        entries[2].count = 3;
        bytes += tiffDirectory(entries, i + 1 < pages.size() ? next + next % 2 : 0);
        bytes += QByteArray("\x08\0\x08\0\x08\0", 6);
        for (quint32 pixel = 0; pixel < width * height; ++pixel)
            bytes.append(char(qRed(color))).append(char(qGreen(color))).append(char(qBlue(color)));
        if (bytes.size() % 2)
            bytes.append('\0');
    }
    writeBytes(path, bytes);
}

} // namespace tarsel::test
