// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FolderRow.h"

#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "collections/PictureFiles.h"
#include "imaging/ImageBox.h"
#include "imaging/clsImageHeaderInfo.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(FolderRow)
};

/// Formats whose header the detail view shows.
bool showsHeader(const QString& extension) {
    static const QStringList shown{QStringLiteral("tif"),  QStringLiteral("tiff"), QStringLiteral("jpg"),
                                   QStringLiteral("jpeg"), QStringLiteral("png"),  QStringLiteral("bmp"),
                                   QStringLiteral("gif")};
    return shown.contains(extension);
}

QString headerText(const QString& path, const QString& extension) {
    if (!showsHeader(extension))
        return {};
    clsImageHeaderInfo header;
    ignoringErrors([&] {
        if (extension == QLatin1String("bmp") || extension == QLatin1String("gif"))
            header.ReadGIF_BMP_Header(path);
        else
            header.ReadJPEG_TIFF_PNG_Header(path);
    });
    return QStringLiteral("%1 X %2 X %3").arg(header.Width()).arg(header.Height()).arg(header.BitsPerPixel());
}

void addThumbnail(RowContent& content, const std::optional<Thumbnail>& thumbnail) {
    content.isPicture = thumbnail.has_value();
    if (!thumbnail)
        return;
    content.resolution =
        QStringLiteral("%1 x %2").arg(thumbnail->sourceSize.width).arg(thumbnail->sourceSize.height);
    content.thumbnail = thumbnail->picture;
}

} // namespace

QStringList folderHeaders() {
    return {Texts::tr("File Name"),     Texts::tr("Resolution"),   Texts::tr("Size"),
            Texts::tr("Pages"),         Texts::tr("Type"),         Texts::tr("Date Created"),
            Texts::tr("Date Modified"), Texts::tr("Date Accessed")};
}

QString detailIcon() {
    return QStringLiteral("iDetailIcon");
}

ListRow folderRow(const QString& folder, const QString& name, clsFileInfo& info,
                  const CollectionSettings& settings) {
    ListRow row;
    row.text = name;
    row.tag = joinedPath(folder, name);
    const bool awaitsThumbnail = settings.folderView == 0 && settings.folderBox();
    row.iconKey = awaitsThumbnail ? QStringLiteral("loading") : detailIcon();
    info.setFilePath(row.tag);
    const QString pages = mayHavePages(info.fFileExtention()) ? QString() : QStringLiteral("1");
    row.subItems = {QString(),
                    info.fSizeFormated(settings.longFileSize ? 1 : 0),
                    pages,
                    info.fType(),
                    info.fDateCreated(),
                    info.fDateModified(),
                    info.fDateAccessed()};
    return row;
}

RowContent readRowContent(const QString& path, const CollectionSettings& settings,
                          const ThumbnailReader& readThumbnail) {
    const QString extension = clsFileInfo::StripFileExtention(path).toLower();
    RowContent content;
    if (settings.folderView == 0)
        addThumbnail(content, readThumbnail(path, settings.folderBox(), settings.upright));
    else
        content.resolution = headerText(path, extension);
    if (content.isPicture)
        content.pages = QString::number(mayHavePages(extension) ? ImageBox::PageCount(path) : 1);
    return content;
}

} // namespace tarsel
