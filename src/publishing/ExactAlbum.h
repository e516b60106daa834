// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publishing/AlbumPages.h"
#include "publishing/AlbumTemplate.h"

namespace tarsel {

/// An index of thumbnails, and a page for each row; every character of them is fixed.
class ExactAlbum final : public AlbumTemplate {
public:
    ExactAlbum(const AlbumOptions& options, const AlbumNames& names);

    QStringList folders() const override;
    std::vector<AlbumFile> resources() const override;
    QStringList pictureFiles(const AlbumRow& row) const override;
    void makePictures(ImageBox& box, AlbumRow& row) const override;
    void describePictures(AlbumRow& row) const override;
    void addRow(const AlbumRow& row) override { m_pages.addCell(row); }
    std::optional<AlbumFile> page(const AlbumRow& row) const override;
    QByteArray index() const override { return m_pages.index(); }

private:
    const AlbumOptions& m_options;
    const AlbumNames& m_names;
    AlbumPages m_pages;
};

} // namespace tarsel
