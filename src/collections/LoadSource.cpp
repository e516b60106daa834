// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/LoadSource.h"

#include "base/IgnoringErrors.h"
#include "base/TrappedError.h"
#include "codecs/DecoderLost.h"
#include "codecs/PictureFile.h"
#include "collections/clsFileInfo.h"
#include "imaging/LoadingFailure.h"
#include "imaging/Upright.h"
#include "imaging/fncLoadPicture.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

namespace tarsel {

namespace {

/// False when the box can't make sense of the file: the one failure after which the loader is tried, unless
/// that would end in the decoder that was just lost.
bool loadByBox(const std::function<void()>& load) {
    try {
        load();
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

bool loadByEither(ImageBox& box, const QString& path, const std::stop_token& stop,
                  const std::function<void()>& load) {
    box.Clear();
    return (carriesMetadata(path) && loadByBox(load)) || loadByFallback(box, path, stop);
}

PixelSize exchanged(PixelSize size) {
    return {size.height, size.width};
}

void loadReduced(ImageBox& box, const QString& path, bool upright, const std::stop_token& stop,
                 const DrawnSize& drawn) {
    const PictureFile file(path);
    const bool isTurned = upright && exchangesSides(fileOrientation(file, stop));
    box.LoadReduced(
        file,
        [&](PixelSize stored) { return isTurned ? exchanged(drawn(exchanged(stored))) : drawn(stored); },
        stop);
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
    return loadByEither(box, path, stop, [&] { box.LoadFromFile(path, stop); });
}

bool loadPrepared(ImageBox& box, const QString& path, bool upright, const std::stop_token& stop,
                  const DrawnSize& drawn) {
    const bool isLoaded =
        drawn ? loadByEither(box, path, stop, [&] { loadReduced(box, path, upright, stop, drawn); })
              : loadSource(box, path, stop);
    if (isLoaded)
        prepareForTasks(box, path, upright);
    return isLoaded;
}

QString noPictureReason(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists())
        return QCoreApplication::translate("LoadSource", "the file is missing");
    return file.isReadable() ? QCoreApplication::translate("LoadSource", "not a supported picture")
                             : QCoreApplication::translate("LoadSource", "the file is not readable");
}

} // namespace tarsel
