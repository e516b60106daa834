// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/OfferedFiles.h"

#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/Translation.h"
#include "collections/PictureFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tarsel {

QUrl urlOfArgument(const QString& argument, const QString& folder) {
    if (argument.startsWith(QLatin1String("file:")) || argument.contains(QLatin1String("://")))
        return QUrl(argument);
    return QUrl::fromLocalFile(QDir::cleanPath(QDir(folder).absoluteFilePath(argument)));
}

QString localPath(const QUrl& url) {
    QUrl local = url;
    if (local.host() == QLatin1String("localhost"))
        local.setHost({});
    return local.host().isEmpty() ? local.toLocalFile() : QString();
}

OfferedFiles offeredFiles(const QList<QUrl>& urls, const std::stop_token& stop) {
    OfferedFiles offered;
    for (const QUrl& url : urls) {
        if (stop.stop_requested())
            break;
        const QString path = localPath(url);
        const QFileInfo file(path);
        if (path.isEmpty())
            ++offered.remote;
        else if (file.isFile())
            offered.files << file.absoluteFilePath();
        else if (!ignoringErrors([&] {
                     for (const QString& name : pictureFiles(path))
                         offered.files << joinedPath(file.absoluteFilePath(), name);
                 }))
            ++offered.unreadable;
    }
    return offered;
}

QString skippedText(const OfferedFiles& offered, int present) {
    struct Sentence {
        int count;
        const char* one;
        const char* many;
    };
    const Sentence sentences[] = {
        {offered.remote, "1 address was skipped: it is not on this computer.",
         QT_TRANSLATE_N_NOOP("OfferedFiles", "%n addresses were skipped: they are not on this computer.")},
        {offered.unreadable, "1 file or folder was skipped: it can't be read.",
         QT_TRANSLATE_N_NOOP("OfferedFiles", "%n files and folders were skipped: they can't be read.")},
        {present, "1 picture was skipped: it is in the basket.",
         QT_TRANSLATE_N_NOOP("OfferedFiles", "%n pictures were skipped: they are in the basket.")},
    };
    QStringList said;
    for (const Sentence& each : sentences)
        if (each.count > 0)
            said << countedText("OfferedFiles", each.one, each.many, each.count);
    return said.join(QLatin1Char(' '));
}

} // namespace tarsel
