// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "collections/RowResult.h"
#include "collections/RowRun.h"
#include "configuration/ConfigRecord.h"
#include "publishing/AlbumRecord.h"
#include "publishing/AlbumTemplate.h"

#include <QStringList>
#include <functional>
#include <vector>

namespace tarsel {

/// What a picture of an album is made from: its source as it is now, the options, the tasks and the files
/// that they name.
QByteArray albumDigest(const QString& source, const settings::Album& settings, bool upright,
                       const std::vector<TaskRow>& tasks);

/// A run that writes only what is missing or no longer right, by the record that the run before left.
class AlbumUpdate {
public:
    explicit AlbumUpdate(const AlbumNames& names);

    // of the last run
    bool hasRecord() const { return !m_old.files.isEmpty(); }
    bool isRecorded(const QString& path) const;
    bool isAsRecorded(const QString& path) const;

    /// The size of a row's picture when all its files are as they were written from the same; else nothing.
    std::optional<QSize> currentSize(const QString& row, const QByteArray& digest,
                                     const std::function<QStringList(QSize)>& filesOf) const;
    /// Whether the file has these bytes already.
    static bool stands(const AlbumFile& file);

    void noteFile(const QString& path);
    void noteRow(const QString& name, const QByteArray& digest, QSize size);
    /// For a row that failed, maybe for the moment: what the last run wrote for it stays.
    void keepRow(const QString& name, const std::function<QStringList(QSize)>& filesOf);

    /// After a complete run. Removes files of the last run that this one doesn't have, as long as nobody
    /// changed them and `mayRemove` allows it, and writes the record. Returns them, and the other files of
    /// earlier albums, which stay.
    std::vector<RowResult> finish(const std::function<bool(const QString&)>& mayRemove);
    /// After another one, or one that writes everything: what was written is recorded, and nothing is
    /// removed.
    void suspend();

private:
    QString recordPath() const;
    bool isInside(const QString& path) const;
    bool isNamedLikeOurs(const QString& name) const;
    QStringList strangers() const;
    void write();

    const AlbumNames& m_names;
    const AlbumRecord m_old;
    AlbumRecord m_new;
};

} // namespace tarsel
