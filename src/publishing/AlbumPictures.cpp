// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumPictures.h"

#include "base/SafeFileWriter.h"
#include "metadata/modMetadata.h"
#include "publishing/AlbumNames.h"

namespace tarsel {

namespace {

const QString jpeg = QStringLiteral("jpg");

} // namespace

void setAlbumSettings(ImageBox& box, const settings::Album& settings) {
    box.ColorFormat = 0; // a batch in grays may have come before
    box.JpegEncoding = settings.Progressive == 1;
    box.JpegQuality = settings.Quality;
    box.Resample = settings.Resample == 1;
}

QString fncGenerateJPGsForAlbum(ImageBox& box, const settings::Album& settings, const QString& folder,
                                const QString& name, QSize& size) {
    size = {box.Width(), box.Height()};
    if (!box.HasImage())
        return {};
    setAlbumSettings(box, settings);
    box.ExifSet(QStringLiteral("Software"), modMetadata::ProductTitle);
    const QByteArray picture = box.encoded(jpeg);
    box.ResizeTo(settings.ThumbnailWidth, settings.ThumbnailHeight);
    const QByteArray thumbnail = box.encoded(jpeg); // before either is written: a row has both or none
    writeFileSafely(folder + QLatin1Char('/') + AlbumNames::picture(name), picture);
    writeFileSafely(folder + QLatin1Char('/') + AlbumNames::thumbnail(name), thumbnail);
    return AlbumNames::thumbnail(name);
}

} // namespace tarsel
