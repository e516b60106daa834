// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QString>

#include <vector>

namespace tarsel::test {

void writeBytes(const QString& path, const QByteArray& bytes);

/// A picture of one colour, in the format of its extension, by the platform's own writers.
void makePicture(const QString& path, QSize size, QRgb color = qRgb(90, 120, 150));

/// One page of a made document. A compression that nobody knows makes a page that can't be read.
struct MadePage {
    QSize size;
    QRgb color = qRgb(90, 120, 150);
    int compression = 1;
};

/// A TIFF document written byte by byte.
void makeDocument(const QString& path, const std::vector<MadePage>& pages);

} // namespace tarsel::test
