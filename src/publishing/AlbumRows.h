// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "base/FileIdentity.h"
#include "collections/RowRun.h"
#include "output/SourceGuard.h"
#include "publishing/AlbumOptions.h"
#include "publishing/AlbumRun.h"
#include "publishing/AlbumSources.h"
#include "publishing/AlbumTemplate.h"
#include "publishing/AlbumUpdate.h"

#include <QSet>
#include <memory>
#include <optional>

namespace tarsel {

/// The last step of an album's rows: pictures, page, place in the index. A row whose picture fails has them
/// too, but for the pictures, and doesn't end the run; the first such failure is reported, and all are in the
/// results.
class AlbumRows final : public RowConsumer {
public:
    AlbumRows(const AlbumSources& sources, const AlbumOptions& options, const AlbumNames& names,
              const AlbumRun& run);

    bool needsPicture(const ListRow& row) override;
    std::function<void()> consumeUnread(const ListRow& row, RowResult& result) override;
    std::function<bool()> consume(const ListRow& row, ImageBox& box, RowResult& result) override;
    std::function<void()> consumeWithoutPicture(const ListRow& row, RowResult& result,
                                                const std::optional<TrappedError>& failure) override;
    void noteWritten(const RowResult& result) override;
    void noteDone(RowResult& result) override;

    // before and after all rows
    QStringList folders() const { return m_template->folders(); }
    void writeResources();
    void writeIndex();
    /// Returns what became of the files of earlier albums.
    std::vector<RowResult> finish(bool isComplete);

private:
    bool keepsFiles() const { return m_options.settings.OnlyChanged == 1; }
    void begin(const ListRow& row, int position);
    QByteArray digestOf(const ListRow& row) const;
    std::function<QStringList(QSize)> filesOf(const AlbumRow& row) const;
    QSet<FileIdentity> sourceFiles() const;
    std::optional<QSize> currentSize(const ListRow& row) const;
    QString refusal(int row, const QString& path) const;
    void makePictures(ImageBox& box);
    void readMetadata();
    void finishRow();
    void writeFile(const AlbumFile& file);
    void noteMade(const RowResult& result);
    void report(const std::optional<TrappedError>& failure);

    const AlbumSources& m_sources;
    const AlbumOptions& m_options;
    const AlbumNames& m_names;
    const AlbumRun& m_run;
    const DateForms m_forms;
    SourceGuard m_guard;
    const std::unique_ptr<AlbumTemplate> m_template;
    std::optional<AlbumUpdate> m_update; ///< where files are to be kept, or the last run recorded them
    QSet<FileIdentity> m_sourcesBefore;  ///< as the run found them
    QStringList m_replacedSources;       ///< of the row: what takes their place is never removed as ours
    AlbumRow m_row;                      ///< in work
    QByteArray m_digest;                 ///< of it
    QStringList m_files;                 ///< of its pictures
    std::optional<TrappedError> m_pictureFailure, m_metadataFailure;
    bool m_isWritten = false;
    bool m_hasReported = false;
};

} // namespace tarsel
