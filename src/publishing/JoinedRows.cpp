// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/JoinedRows.h"

#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "metadata/modMetadata.h"

#include <QFileInfo>
#include <utility>

namespace tarsel {

std::function<bool()> JoinedRows::consume(const ListRow& row, ImageBox& box, RowResult& result) {
    TrappingString = QStringLiteral("Current file - '%1'").arg(row.tag);
    result.target = m_build.path;
    box.ColorFormat = 0;
    box.JpegQuality = m_build.quality;
    m_isReported = true;
    return [this, &box, name = row.text] {
        SaveTempJPEG(name, box);
        return true;
    };
}

/// The encoded picture stays in memory: no other program can change it on its way into the file.
void JoinedRows::SaveTempJPEG(const QString& name, ImageBox& box) {
    QByteArray jpeg;
    m_failure = failureOf([&] {
        if (m_run.stripPrivate)
            modMetadata::RemovePrivateMetadata(box);
        jpeg = box.encoded(QStringLiteral("jpg"));
    });
    if (!m_failure)
        m_file->add(name, jpeg);
    else if (m_build.needsAll)
        throw *m_failure;
}

/// A missing file is left out without a report.
std::function<void()> JoinedRows::consumeWithoutPicture(const ListRow& row, RowResult&,
                                                        const std::optional<TrappedError>& failure) {
    if (!failure || m_build.needsAll)
        return {};
    m_failure = failure;
    m_isReported = QFileInfo::exists(row.tag);
    return [] {};
}

void JoinedRows::noteDone(RowResult& result) {
    const auto failure = std::exchange(m_failure, std::nullopt);
    if (!failure || m_build.needsAll)
        return;
    if (result.state == RowState::Written) {
        result.state = RowState::Failed;
        result.remark(failure->description);
    }
    if (m_run.reportsRows && m_isReported)
        std::ignore = trap("modScreensaver.SaveTempJPEG", [&] { throw *failure; });
}

} // namespace tarsel
