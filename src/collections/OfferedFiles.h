// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>
#include <stop_token>

namespace tarsel {

/// What files and folders dropped or pasted from another program come to.
struct OfferedFiles {
    QStringList files; ///< those that were named, and the pictures in the folders that were
    int remote = 0;    ///< addresses that are not those of local files
    int unreadable = 0;
};

/// Reads the folders, without those below them. Any thread may call it.
OfferedFiles offeredFiles(const QList<QUrl>& urls, const std::stop_token& stop);

/// What an argument names: an address, such as "file:///tmp/a.jpg", or else a path, which may be relative to
/// that folder. QUrl::fromUserInput asks the file system, which may never answer.
QUrl urlOfArgument(const QString& argument, const QString& folder);

/// The local path; empty for an address that is not that of a local file.
QString localPath(const QUrl& url);

/// What was skipped, as sentences; empty when nothing was.
QString skippedText(const OfferedFiles& offered, int present);

} // namespace tarsel
