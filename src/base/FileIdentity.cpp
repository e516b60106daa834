// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileIdentity.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>
#include <sys/stat.h>

namespace tarsel {

namespace {

std::optional<struct stat> statusOf(const QString& path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return status;
}

/// The path that a dangling link stands for: writing to the link makes that file.
QString withoutDanglingLinks(QString path) {
    constexpr int maxLinks = 40; // as the system follows them
    for (int i = 0; i < maxLinks; ++i) {
        const QFileInfo link(path);
        if (!link.isSymLink())
            break;
        path = link.symLinkTarget();
    }
    return path;
}

} // namespace

FileIdentity FileIdentity::of(const QString& path) {
    FileIdentity identity;
    const std::optional<struct stat> file = statusOf(path);
    const QFileInfo target(file ? path : withoutDanglingLinks(path));
    const std::optional<struct stat> status = file ? file : statusOf(target.path());
    if (status) {
        identity.m_device = status->st_dev;
        identity.m_inode = status->st_ino;
    }
    if (!file)
        identity.m_name = status ? target.fileName() : QDir::cleanPath(target.absoluteFilePath());
    return identity;
}

} // namespace tarsel
