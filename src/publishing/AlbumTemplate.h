// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"
#include "publishing/AlbumRow.h"

#include <QByteArray>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

namespace tarsel {

class AlbumNames;
struct AlbumOptions;

/// A file of an album, by its path.
struct AlbumFile {
    QString path;
    QByteArray bytes;
};

/// What one kind of album is made of. Rows are added in their order.
class AlbumTemplate {
public:
    virtual ~AlbumTemplate() = default;
    /// Folders that it needs, outer ones first; the chosen folder itself isn't one.
    virtual QStringList folders() const = 0;
    virtual std::vector<AlbumFile> resources() const = 0;
    /// Paths of the files that makePictures writes for a row, whose picture has that size; those that it may
    /// write, when the size is empty. The picture itself is the first.
    virtual QStringList pictureFiles(const AlbumRow& row) const = 0;
    /// Writes these files, from the picture in the box as the tasks left it, and sets what the row says of
    /// them. The box is used up. A failure is raised.
    virtual void makePictures(ImageBox& box, AlbumRow& row) const = 0;
    /// The row has its pictures already, and its size: sets what it says of them besides.
    virtual void describePictures(AlbumRow& row) const = 0;
    virtual void addRow(const AlbumRow& row) = 0;
    /// The row's own page; nothing where rows have none.
    virtual std::optional<AlbumFile> page(const AlbumRow& row) const = 0;
    virtual QByteArray index() const = 0;
};

/// The template of the options. Names and options must outlive it.
std::unique_ptr<AlbumTemplate> albumTemplate(const AlbumOptions& options, const AlbumNames& names);

} // namespace tarsel
