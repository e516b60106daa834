// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileIdentity.h"
#include "base/ListView.h"

#include <QHash>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <optional>
#include <vector>

namespace tarsel {

/// What happens to a file that is about to be replaced and is the source of a row of the same run.
enum class SourceReplacing {
    KeptReadable,     ///< it is replaced; rows that are still to come read it as it was
    RefusedUntilDone, ///< the row that would replace it is skipped, unless the file is its own source or the
                      ///< source of rows that were written already
    Refused           ///< the row that would replace it is skipped
};

/// Watches over the sources of one run: no file is replaced before the rows that are made from it were done.
/// Files are compared as they are at the moment of saving, whatever paths lead to them.
class SourceGuard {
public:
    SourceGuard(const ListView& pages, SourceReplacing policy);
    ~SourceGuard();
    SourceGuard(const SourceGuard&) = delete;
    SourceGuard& operator=(const SourceGuard&) = delete;

    /// Where the source of a row can be read: `path`, or another one when that file was replaced meanwhile.
    QString readablePath(const QString& path) const;

    struct Verdict {
        QString refusal; ///< why the row must not be written; empty when it may
        QString remark;  ///< what the user should know of a row that is written
    };
    /// To be asked before a row's file is written; keeps a source readable where that is the policy. Raises
    /// what opening the source raises.
    Verdict beforeWriting(int row, const QString& target);
    /// To be called for each row that was written, or would have been in a dry run.
    void noteWritten(int row, const QString& target);

private:
    class KeptFile;
    QString refusalFor(int row, const FileIdentity& target) const;
    void keepReadable(int row, const FileIdentity& source);

    struct Source {
        int row = 0;
        QString path;
        FileIdentity identity;
        bool written = false;
    };
    const SourceReplacing m_policy;
    std::vector<Source> m_sources;                    ///< in the order of the rows
    QHash<FileIdentity, std::vector<int>> m_rows;     ///< rows by their source
    QHash<FileIdentity, int> m_targets;               ///< rows by the file that they made
    QHash<QString, std::shared_ptr<KeptFile>> m_kept; ///< by the path of the source
};

} // namespace tarsel
