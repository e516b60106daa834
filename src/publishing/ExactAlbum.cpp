// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/ExactAlbum.h"

#include "publishing/AlbumArtwork.h"
#include "publishing/AlbumPictures.h"

namespace tarsel {

ExactAlbum::ExactAlbum(const AlbumOptions& options, const AlbumNames& names) :
    m_options(options), m_names(names), m_pages(options, names) {}

QStringList ExactAlbum::folders() const {
    return {m_names.directoryPath()};
}

std::vector<AlbumFile> ExactAlbum::resources() const {
    const settings::Album& settings = m_options.settings;
    std::vector<AlbumFile> files;
    const auto add = [&](const char* type, const QString& name, const QString& fileName) {
        files.push_back(
            {m_names.inDirectory(fileName.toLower()), albumArtwork::resource(QLatin1String(type), name)});
    };
    for (const char* each : albumArtwork::navigation)
        add("ALBUM", QLatin1String(each), QLatin1String(each) + QStringLiteral(".gif"));
    const auto addBackground = [&](const QString& image) { add("BACKGROUND", image, image); };
    if (settings.PageStyle == 0)
        addBackground(albumArtwork::pageImage(settings.PageImage));
    if (settings.ContainerBackground == 0)
        addBackground(albumArtwork::containerImage(settings.ContainerImage));
    return files;
}

QStringList ExactAlbum::pictureFiles(const AlbumRow& row) const {
    return {m_names.inDirectory(AlbumNames::picture(row.name)),
            m_names.inDirectory(AlbumNames::thumbnail(row.name))};
}

void ExactAlbum::makePictures(ImageBox& box, AlbumRow& row) const {
    if (box.HasImage())
        row.size = {box.Width(), box.Height()}; // also when a file can't be written
    QSize size;
    row.thumbnail = fncGenerateJPGsForAlbum(box, m_options.settings, m_names.directoryPath(), row.name, size);
}

void ExactAlbum::describePictures(AlbumRow& row) const {
    row.thumbnail = AlbumNames::thumbnail(row.name);
}

std::optional<AlbumFile> ExactAlbum::page(const AlbumRow& row) const {
    return AlbumFile{m_names.pagePath(row.name), m_pages.page(row)};
}

} // namespace tarsel
