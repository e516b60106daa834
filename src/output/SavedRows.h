// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowLoop.h"
#include "configuration/ConfigRecord.h"
#include "output/BatchRun.h"
#include "output/OutputName.h"
#include "output/RowsOutside.h"
#include "output/SourceGuard.h"

#include <optional>

namespace tarsel {

/// The last step of the batch save: name the file, import side files, write.
class SavedRows final : public RowConsumer {
public:
    /// `changesPictures`: tasks run on them.
    SavedRows(const ListView& lvPages, const settings::BatchSave& settings, const BatchRun& run,
              bool changesPictures) :
        m_settings(settings),
        m_run(run), m_changesPictures(changesPictures),
        m_sources(lvPages, run.sourceReplacing, run.unreadSources), m_outside(lvPages, settings, run) {}

    QString readablePath(const QString& source) const override { return m_sources.readablePath(source); }
    std::function<bool()> consume(const ListRow& row, ImageBox& box, RowResult& result) override;
    void noteWritten(const RowResult& result) override;
    void noteDone(RowResult& result) override;

private:
    OutputName nameOf(const ListRow& row, const ImageBox& box, RowResult& result) const;
    QString tokenText(const QString& token, const ListRow& row, const ImageBox& box, RowResult& result) const;
    void importMetadata(ImageBox& box, RowResult& result) const;
    void setSaveOptions(ImageBox& box) const;
    bool mayWrite(RowResult& result) const;
    bool heedsRowsOutside(RowResult& result) const;
    bool write(const QByteArray& bytes, RowResult& result) const;
    bool mayBeCopied(const ImageBox& box) const;
    std::optional<QByteArray> fileOf(const ImageBox& box, const QString& source, RowResult& result) const;

    const settings::BatchSave m_settings; ///< as they were at the start: the loop lets other handlers run
    const BatchRun& m_run;
    const bool m_changesPictures;
    SourceGuard m_sources;
    const RowsOutside m_outside;
};

} // namespace tarsel
