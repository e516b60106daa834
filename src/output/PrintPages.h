// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureHeader.h"
#include "output/PrintLayout.h"
#include "pixels/Picture.h"

#include <QByteArray>
#include <QPainter>
#include <QString>

class QPageLayout;
class QPagedPaintDevice;

namespace tarsel {

class ImageBox;

/// A picture as it goes to paper.
struct PrintPicture {
    Picture picture;       ///< may be smaller than `pixels`, which count for the layout
    QByteArray iccProfile; ///< of the pixels; empty for sRGB
    QSize pixels;
    double dpi = 0; ///< 0 where nothing says it
    QString caption;
};

/// The picture that a box holds.
PrintPicture printPictureOf(const ImageBox& box, const QString& caption);

/// The picture in sRGB, with no more pixels on either side than that.
PrintPicture reducedTo(const PrintPicture& picture, int side);

/// How many pixels of a picture of that size are drawn in such places, when none of it is cropped.
PixelSize pixelsDrawn(const PrintLayout& layout, const std::vector<QRectF>& places, PixelSize pixels);

/// Draws a picture in its places of a page, as many as are given. The painter is in dots from the corner of
/// the paper. No more pixels are drawn than dots, nor than 600 an inch.
void drawOnPage(QPainter& painter, double dotsPerMm, const PrintLayout& layout,
                const std::vector<QRectF>& places, const PrintPicture& picture);

/// The sheet of a PDF document: the layout's paper, where it has none A4, in its orientation.
QPageLayout sheetOf(const PrintLayout& layout);

Paper paperOf(const QPageLayout& sheet);

/// Draws pictures one after the other on the pages of a device, which must outlive it, from corner to corner
/// of the paper. To be used by one thread at a time.
class PrintPages {
public:
    PrintPages(QPagedPaintDevice& device, const PrintLayout& layout, const Paper& paper);

    /// Begins a page where the last one is full. Error 5 when the device refuses.
    void add(const PrintPicture& picture);
    bool isEmpty() const { return m_count == 0; }
    /// The device gets what is still missing. Error 5 when it refuses.
    void finish();

private:
    void beginPage();

    QPagedPaintDevice& m_device;
    const PrintLayout m_layout;
    const std::vector<QRectF> m_places;
    const double m_dotsPerMm;
    int m_count = 0; ///< pictures so far
    QPainter m_painter;
};

} // namespace tarsel
