// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publishing/AlbumNames.h"
#include "publishing/AlbumOptions.h"
#include "publishing/AlbumRow.h"
#include "publishing/AlbumText.h"

#include <optional>

namespace tarsel {

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
