// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/LoadSource.h"

#include "base/IgnoringErrors.h"
#include "base/TrappedError.h"
#include "codecs/DecoderLost.h"
#include "codecs/PictureFile.h"
#include "collections/clsFileInfo.h"
#include "imaging/LoadingFailure.h"
#include "imaging/fncLoadPicture.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

namespace tarsel {

namespace {

/// False when the box can't make sense of the file: the one failure after which the loader is tried, unless
/// that would end in the decoder that was just lost.
bool loadByBox(ImageBox& box, const QString& path, const std::stop_token& stop) {
    try {
        box.LoadFromFile(path, stop);
        return true;
    } catch (const DecoderLost& error) {
        failLoading(error);
    } catch (const TrappedError& error) {
        if (error.number != ErrorNumber::UnreadableFile)
            throw;
        logIgnored(error.description);
        return false;
    }
}

bool loadByFallback(ImageBox& box, const QString& path, const std::stop_token& stop) {
    QString damage;
    const auto picture = fncLoadPicture(path, LoadMode::FullSize, {-1, -1}, 0xFFFFFF, nullptr, stop, &damage);
    if (picture) {
        box.setPictureHandle(*picture, damage);
        // An edit of what is listed writes what the box holds.
        const auto listed = modMetadata::listedMetadata(modFileSystem::GetFileExtension(path));
        if (listed != modMetadata::ListedMetadata::None)
            ignoringErrors([&] { box.metadata() = MetadataStore(PictureFile(path).metadata(1, stop)); });
    }
    return picture.has_value();
}

} // namespace

bool carriesMetadata(const QString& path) {
    static const QStringList extensions{
        QStringLiteral("tiff"), QStringLiteral("tif"), QStringLiteral("jpeg"),
        QStringLiteral("jpg"),  QStringLiteral("psd"), QStringLiteral("bmp"),
        QStringLiteral("pcx"),  QStringLiteral("gif"), QStringLiteral("png"),
    };
    return extensions.contains(modFileSystem::GetFileExtension(path).toLower());
}

bool loadSource(ImageBox& box, const QString& path, const std::stop_token& stop) {
    box.Clear();
    return (carriesMetadata(path) && loadByBox(box, path, stop)) || loadByFallback(box, path, stop);
}

QString noPictureReason(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists())
        return QCoreApplication::translate("LoadSource", "the file is missing");
    return file.isReadable() ? QCoreApplication::translate("LoadSource", "not a supported picture")
                             : QCoreApplication::translate("LoadSource", "the file is not readable");
}

} // namespace tarsel
