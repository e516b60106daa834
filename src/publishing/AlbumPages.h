// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publishing/AlbumNames.h"
#include "publishing/AlbumOptions.h"
#include "publishing/AlbumText.h"

#include <QSize>
#include <optional>
#include <utility>
#include <vector>

namespace tarsel {

/// What the pages say of a row.
struct AlbumRow {
    QString name;
    QString description;
    QString thumbnail; ///< its file name; empty for a row without a picture
    QSize size;        ///< of the picture after the tasks; of the row before where this one has none
    std::optional<QString> first, previous, next, last; ///< names of the rows that its links lead to
    std::vector<std::pair<QString, QString>> metadata;  ///< lines and their values
};

/// The text of an album's pages.
class AlbumPages {
public:
    AlbumPages(const AlbumOptions& options, const AlbumNames& names);

    /// Adds the cell of the next row to the index.
    void addCell(const AlbumRow& row);
    QByteArray index() const;
    QByteArray page(const AlbumRow& row) const;

private:
    albumText::Values valuesOf(const AlbumRow& row) const;
    QByteArray caption(const AlbumRow& row) const;
    QByteArray link(const std::optional<QString>& row, const char* image) const;
    QByteArray link(const QByteArray& page, const char* image) const;
    QByteArray rowEnd();
    QByteArray metadataText(const AlbumRow& row) const;

    const AlbumOptions& m_options;
    const AlbumNames& m_names;
    albumText::Values m_values; ///< of all pages
    QByteArray m_index;
    int m_column = 0;
};

} // namespace tarsel
