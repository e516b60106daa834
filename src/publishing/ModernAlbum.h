// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publishing/AlbumTemplate.h"

#include <map>

namespace tarsel {

/// One page with all pictures, each in up to four sizes, and a script that shows them large. Rows without a
/// picture are left out.
class ModernAlbum final : public AlbumTemplate {
public:
    ModernAlbum(const AlbumOptions& options, const AlbumNames& names) : m_options(options), m_names(names) {}

    QStringList folders() const override;
    std::vector<AlbumFile> resources() const override;
    QStringList pictureFiles(const AlbumRow& row) const override;
    void makePictures(ImageBox& box, AlbumRow& row) const override;
    void describePictures(AlbumRow& row) const override;
    void addRow(const AlbumRow& row) override;
    std::optional<AlbumFile> page(const AlbumRow&) const override { return {}; }
    QByteArray index() const override;

private:
    /// A picture of a row: its path in the album's directory, and its size.
    struct Source {
        QString path;
        QSize size;
    };
    static std::vector<Source> sourcesOf(const AlbumRow& row); ///< ascending; the picture itself is the last
    QString original(const AlbumRow& row) const;               ///< "" where it isn't offered
    QString reference(const QString& path) const;
    QString sourceSet(const std::vector<Source>& sources) const;
    QByteArray caption(const AlbumRow& row) const;
    QByteArray facts(const AlbumRow& row) const;
    int ratioOf(QSize size);

    const AlbumOptions& m_options;
    const AlbumNames& m_names;
    QByteArray m_pictures;
    int m_count = 0;
    std::map<int, double> m_ratios; ///< of width to height, by their hundredfold
};

} // namespace tarsel
