// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RawNameLinks.h"

#include "base/TrappedError.h"
#include "cli/RawNames.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <unistd.h>

namespace tarsel::cli {

RawNameLinks* RawNameLinks::current = nullptr;

QString RawNameLinks::readablePath(const QString& path) {
    const qsizetype raw = lastRawByte(path);
    if (raw < 0 || !current)
        return path;
    const qsizetype end = path.indexOf(QLatin1Char('/'), raw);
    return end < 0 ? current->linkTo(path) : current->linkTo(path.left(end)) + path.mid(end);
}

QString RawNameLinks::withOwnNames(const QString& text) {
    return current && current->m_folder ? current->ownNames(text) : text;
}

/// A folder for each link: two files can have the same name, and a batch names its files by the sources.
QString RawNameLinks::linkTo(const QString& path) {
    if (const auto known = m_linkOf.constFind(path); known != m_linkOf.cend())
        return *known;
    if (!m_folder)
        m_folder.emplace();
    const QString number = QString::number(m_paths.size());
    QDir(m_folder->path()).mkdir(number);
    const QString name = writtenOut(path.section(QLatin1Char('/'), -1), QLatin1String("%"));
    const QString link = QStringLiteral("%1/%2/").arg(m_folder->path(), number) + name;
    if (::symlink(bytesOfName(path).constData(), QFile::encodeName(link).constData()) != 0)
        failForErrno(errno, path);
    m_paths << path;
    m_linkOf.insert(path, link);
    return link;
}

QString RawNameLinks::ownNames(const QString& text) const {
    const QString prefix = m_folder->path() + QLatin1Char('/');
    QString shown = text;
    for (qsizetype at = shown.indexOf(prefix); at >= 0; at = shown.indexOf(prefix, at + 1)) {
        const qsizetype number = at + prefix.size();
        const QString path =
            m_paths.value(shown.mid(number, shown.indexOf(QLatin1Char('/'), number) - number).toInt());
        const QString link = m_linkOf.value(path);
        if (!link.isEmpty() && QStringView(shown).mid(at).startsWith(link))
            shown.replace(at, link.size(), path);
    }
    return shown;
}

} // namespace tarsel::cli
