// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowRun.h"
#include "publishing/JoinedBuild.h"
#include "publishing/JoinedFile.h"

#include <optional>

namespace tarsel {

/// The last step of the rows of a joined file: the picture, in its full size, goes into the file as JPEG.
/// Where not all rows are needed, one whose picture fails is left out and doesn't end the run.
class JoinedRows final : public RowConsumer {
public:
    JoinedRows(const JoinedBuild& build, const JoinedRun& run) : m_build(build), m_run(run) {}

    /// To be called before the first row.
    void begin(JoinedFile& file) { m_file = &file; }

    std::function<bool()> consume(const ListRow& row, ImageBox& box, RowResult& result) override;
    std::function<void()> consumeWithoutPicture(const ListRow& row, RowResult& result,
                                                const std::optional<TrappedError>& failure) override;
    void noteWritten(const RowResult&) override { m_hasWritten = true; }
    void noteDone(RowResult& result) override;

    bool hasWritten() const { return m_hasWritten; }

private:
    void SaveTempJPEG(const QString& name, ImageBox& box);

    const JoinedBuild& m_build;
    const JoinedRun& m_run;
    JoinedFile* m_file = nullptr;
    std::optional<TrappedError> m_failure; ///< of the row in work
    bool m_isReported = false;             ///< that failure is to be
    bool m_hasWritten = false;
};

} // namespace tarsel
