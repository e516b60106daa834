// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileIdentity.h"
#include "base/ListView.h"
#include "base/ScratchFolder.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

namespace tarsel {

/// What happens to a file that is about to be replaced and is the source of a row of the same run.
enum class SourceReplacing {
    KeptReadable, ///< it is replaced; rows that are still to come read it as it was, and it is saved under
                  ///< another name when one of them is not written
    RefusedUntilDone, ///< the row that would replace it is skipped, unless the file is its own source or the
                      ///< source of rows that were written already
    RefusedToOthers,  ///< the same, and a row replaces no source but its own, whatever was written already
    Refused           ///< the row that would replace it is skipped
};

/// Why a part of a file is not saved over it.
QString readInPartText(const QString& path);

/// Whether one page of a document would take the place of all of them: `target` is the file `source` itself.
bool replacesItsPages(const QString& source, const QString& target);

/// Watches over the sources of one run: no file is replaced before the rows that are made from it were done.
/// A row's sources are its picture and, for a page, the document that it was extracted from. Files are
/// compared as they are at the moment of saving, whatever paths lead to them.
class SourceGuard {
public:
    /// `unread` are files that the user named and that became no rows: none of them is ever replaced.
    SourceGuard(const ListView& pages, SourceReplacing policy, const QStringList& unread = {});
    ~SourceGuard(); ///< writes what is still kept beside its old place, as noteDone does
    SourceGuard(const SourceGuard&) = delete;
    SourceGuard& operator=(const SourceGuard&) = delete;

    /// Where the source of a row can be read: `path`, or another one when that file was replaced meanwhile.
    QString readablePath(const QString& path) const;

    struct Verdict {
        QString refusal;        ///< why the row must not be written; empty when it may
        bool isFailure = false; ///< the refusal is a fault of the row, no clash with another one
        QString remark;         ///< what the user should know of a row that is written
    };
    Verdict verdictOn(int row, const QString& target) const;
    /// To be called for a row whose picture is not all that its source holds: that file is never replaced, or
    /// is saved beside its old place when that was done before.
    void noteReadInPart(int row);
    /// To be called directly before a row's file is written: keeps a source that it replaces readable for the
    /// later rows, where that is the policy. Raises what opening the source raises.
    void keepReadable(int row, const QString& target);
    /// To be called for each row that was written, or would have been in a dry run.
    void noteWritten(int row, const QString& target);
    /// To be called for each row of the run once nothing more is done for it, written or not. A replaced
    /// source that no later row needs is let go. When one of its rows was not written, the source is saved to
    /// a new file beside its old place first; the remark for the user is returned then.
    QString noteDone(int row);

private:
    class KeptFile;
    struct SourceFile {
        QStringList paths;
        std::vector<int> rows; ///< ascending
    };
    QString refusalFor(int row, const FileIdentity& target) const;
    bool isWritten(int row) const { return m_written.contains(row); }
    /// Whether nothing of its sources would be lost without them.
    bool isSafe(int row) const { return isWritten(row) && !m_readInPart.contains(row); }
    void release(const std::shared_ptr<KeptFile>& kept);

    const SourceReplacing m_policy;
    QSet<FileIdentity> m_unread;
    QHash<FileIdentity, SourceFile> m_files;
    QSet<int> m_written;
    QSet<int> m_readInPart;
    QHash<FileIdentity, int> m_targets;               ///< rows by the file that they made
    std::optional<ScratchFolder> m_folder;            ///< of the kept files
    QHash<QString, std::shared_ptr<KeptFile>> m_kept; ///< by the path of the source
};

/// For one file that is made of all rows: raises 5 when it is the source of one of them, or one of `others`.
void requireNoSource(const ListView& pages, const QString& target, const QStringList& others);

} // namespace tarsel
