// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QSize>
#include <QString>

namespace tarsel {

/// What a run wrote into an album's folder, and what from: the next run keeps what is still right. It names
/// no path of a source.
struct AlbumRecord {
    struct Stamp {
        qint64 size = -1;
        qint64 modified = 0; ///< milliseconds
        static Stamp of(const QString& path);
        bool operator==(const Stamp&) const = default;
    };
    struct Row {
        QByteArray digest; ///< of source, options and tasks
        QSize size;        ///< of the picture
    };

    /// What can't be used of a damaged record is left out.
    static AlbumRecord parsed(const QByteArray& text);
    QByteArray text() const;

    QHash<QString, Stamp> files; ///< by their path in the album's folder, none of which leads out of it
    QHash<QString, Row> rows;    ///< by their name
};

} // namespace tarsel
