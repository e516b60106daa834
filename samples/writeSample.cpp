// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/writeSample.h"

#include "base/TrappedError.h"
#include "embedded/IptcFields.h"
#include "imaging/ImageBox.h"

#include <cstring>

namespace tarsel::samples {

namespace {

Picture pictureOf(const QImage& image) {
    const QImage rows = image.convertToFormat(QImage::Format_RGB888);
    Picture picture(rows.width(), rows.height(), 3);
    const PixelView pixels = picture.edit();
    for (int y = 0; y < rows.height(); ++y)
        std::memcpy(pixels.row(y), rows.constScanLine(y), std::size_t(rows.width()) * 3);
    return picture;
}

void setExif(ImageBox& box, const char* name, const QString& value) {
    if (!box.ExifSet(QString::fromLatin1(name), value))
        fail(ErrorNumber::InvalidCall, QString::fromLatin1(name));
}

void noteExif(ImageBox& box, const Notes& notes) {
    setExif(box, "Make", QStringLiteral("Acme"));
    setExif(box, "Model", QStringLiteral("Acme D12"));
    setExif(box, "ImageDescription", notes.headline);
    setExif(box, "Artist", QStringLiteral("Martin Example"));
    setExif(box, "Copyright",
            QString::fromUtf8("\xc2\xa9 ") + notes.taken.left(4) + QStringLiteral(" Martin Example"));
    setExif(box, "DateTimeOriginal", notes.taken);
    setExif(box, "DateTimeDigitized", notes.taken);
    setExif(box, "ExposureTime", notes.exposure);
    setExif(box, "FNumber", notes.aperture);
    setExif(box, "ISOSpeedRatings", notes.speed);
    setExif(box, "FocalLength", notes.focal);
}

void noteIptc(ImageBox& box, const Notes& notes) {
    MetadataStore& store = box.metadata();
    setIptcText(store, "IptcHeadline", notes.headline);
    setIptcText(store, "IptcCaption", notes.caption);
    setIptcList(store, "IptcKeyword", notes.keywords.split(QLatin1Char(';')));
    setIptcText(store, "IptcByline", QStringLiteral("Martin Example"));
    setIptcText(store, "IptcCity", notes.city);
    setIptcText(store, "IptcCountryName", notes.country);
    setIptcDate(store, "IptcDateCreated", exifTextToDate(notes.taken));
}

} // namespace

QString samplePath(const QString& folder, const Sample& sample) {
    return folder + QLatin1Char('/') + sample.name + QStringLiteral(".jpg");
}

void writeSample(const QString& folder, const Sample& sample) {
    const QImage image = sample.take();
    ImageBox box;
    box.setPictureHandle(pictureOf(image));
    box.ColorFormat = image.isGrayscale() ? 2 : 0;
    box.JpegQuality = 90;
    noteExif(box, sample.notes);
    noteIptc(box, sample.notes);
    box.SaveToFile(samplePath(folder, sample));
}

} // namespace tarsel::samples
