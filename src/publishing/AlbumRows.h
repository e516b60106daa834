// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "collections/RowRun.h"
#include "output/SourceGuard.h"
#include "publishing/AlbumPages.h"
#include "publishing/AlbumRun.h"

#include <optional>

namespace tarsel {

/// The last step of an album's rows: both pictures, the page, the cell of the index. A row whose picture
/// fails has them too, but for the pictures, and doesn't end the run.
class AlbumRows final : public RowConsumer {
public:
    AlbumRows(const ListView& lvPages, const AlbumOptions& options, const AlbumNames& names,
              const AlbumRun& run);

    std::function<bool()> consume(const ListRow& row, ImageBox& box, RowResult& result) override;
    std::function<void()> consumeWithoutPicture(const ListRow& row, RowResult& result,
                                                const std::optional<TrappedError>& failure) override;
    void noteWritten(const RowResult& result) override;
    void noteDone(RowResult& result) override;

    /// Writes a file of the album; error 5 when that would replace the source of a row.
    void writeFile(const QString& path, const QByteArray& bytes) const;
    QByteArray index() const { return m_pages.index(); }

private:
    void begin(const ListRow& row, int position);
    QString refusal(const RowResult& result) const;
    void makePictures(ImageBox& box, const QString& folder);
    void readMetadata(const QString& source);
    void finishRow(const QString& source);

    const ListView& m_list;
    const AlbumOptions& m_options;
    const AlbumNames& m_names;
    const AlbumRun& m_run;
    const DateForms m_forms;
    SourceGuard m_sources;
    AlbumPages m_pages;
    AlbumRow m_row; ///< in work
    std::optional<TrappedError> m_pictureFailure, m_metadataFailure;
    bool m_isWritten = false;
};

} // namespace tarsel
