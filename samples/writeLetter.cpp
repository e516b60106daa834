// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/writeSample.h"

#include "base/TrappedError.h"

#include <QFile>
#include <QFont>
#include <QPainter>
#include <array>
#include <memory>
#include <tiffio.h>

namespace tarsel::samples {

namespace {

// A4 at 150 dots to the inch.
constexpr QSize page(1240, 1754);
constexpr int margin = 150;

const char* const firstPage = R"(Dear Anna,

the pictures of the summer are sorted at last. Nine hundred of them came home on the cards; after three evenings with a pot of tea there are forty that I should like to keep, and a dozen that I should like to show.

The small ones on the enclosed sheet are as they came out of the camera. For the album I would halve them, sharpen them a little, and put our names into the lower right corner, as Father used to do with a pen.

You asked how I keep them apart. The name of each file is the day it was taken and a number, and the notes are written into the picture itself, where they cannot get lost: who, where, when, and what it shows. So when you find one of them alone on some disk in twenty years, it will still have its story with it.)";

const char* const secondPage =
    R"(The one of the lake was taken before breakfast. There was no wind at all until the very moment I had the tripod standing, and then, of course, it came up and drew its fingers over the water. I think it is the better for it.

For the night pictures I stood in the wood for two hours with cold feet. The stars want twenty seconds; the northern lights want eight, or they flow together like milk.

Please write on the back of the third page which ones you would like large. I shall have them printed before the feast.

With love from all of us,

    Martin)";

QImage blankPage() {
    QImage sheet(page, QImage::Format_Grayscale8);
    sheet.fill(Qt::white);
    return sheet;
}

QImage textPage(const char* text, int number) {
    QImage sheet = blankPage();
    QPainter painter(&sheet);
    QFont font(QStringLiteral("DejaVu Serif"));
    font.setPixelSize(30);
    painter.setFont(font);
    painter.drawText(QRect(QPoint(margin, margin), page - QSize(2 * margin, 2 * margin)), Qt::TextWordWrap,
                     QString::fromUtf8(text));
    painter.drawText(QRect(0, page.height() - margin, page.width(), 40), Qt::AlignHCenter,
                     QStringLiteral("- %1 -").arg(number));
    painter.end();
    return sheet.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
}

/// Prints of the first six pictures of the table.
QImage contactSheet(const QString& folder) {
    QImage sheet = blankPage();
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(22);
    painter.setFont(font);
    const auto table = sampleTable();
    const QSize print(440, 330);
    for (int i = 0; i < 6; ++i) {
        const QRect place(QPoint(margin + i % 2 * 500, margin + i / 2 * 460), print);
        const QImage small = QImage(samplePath(folder, table[i]))
                                 .scaled(print, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
        painter.drawImage(place, small, QRect(QPoint((small.width() - print.width()) / 2, 0), print));
        painter.drawText(place.translated(0, print.height() + 8), table[i].notes.headline);
    }
    painter.end();
    return sheet;
}

struct CloseTiff {
    void operator()(TIFF* file) const { TIFFClose(file); }
};

void writePage(TIFF* file, const QImage& sheet, int number, int count) {
    const bool mono = sheet.format() == QImage::Format_Mono;
    TIFFSetField(file, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    TIFFSetField(file, TIFFTAG_PAGENUMBER, number, count);
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, sheet.width());
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, sheet.height());
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, mono ? 1 : 8);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, 256);
    TIFFSetField(file, TIFFTAG_COMPRESSION, mono ? COMPRESSION_CCITTFAX4 : COMPRESSION_LZW);
    const bool zeroIsWhite = mono && sheet.color(0) == qRgb(255, 255, 255);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, zeroIsWhite ? PHOTOMETRIC_MINISWHITE : PHOTOMETRIC_MINISBLACK);
    TIFFSetField(file, TIFFTAG_XRESOLUTION, 150.0);
    TIFFSetField(file, TIFFTAG_YRESOLUTION, 150.0);
    TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    for (int y = 0; y < sheet.height(); ++y)
        if (TIFFWriteScanline(file, const_cast<uchar*>(sheet.constScanLine(y)), std::uint32_t(y), 0) < 0)
            fail(ErrorNumber::DiskFull, QString::fromUtf8(TIFFFileName(file)));
    if (TIFFWriteDirectory(file) == 0)
        fail(ErrorNumber::DiskFull, QString::fromUtf8(TIFFFileName(file)));
}

} // namespace

void writeLetter(const QString& folder) {
    const QString path = folder + QStringLiteral("/letter.tif");
    const std::unique_ptr<TIFF, CloseTiff> file(TIFFOpen(QFile::encodeName(path).constData(), "w"));
    if (!file)
        fail(ErrorNumber::PermissionDenied, path);
    const std::array pages{textPage(firstPage, 1), textPage(secondPage, 2), contactSheet(folder)};
    for (std::size_t i = 0; i < pages.size(); ++i)
        writePage(file.get(), pages[i], int(i), int(pages.size()));
}

} // namespace tarsel::samples
