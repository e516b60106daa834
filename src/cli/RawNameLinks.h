// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ScratchFolder.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

namespace tarsel::cli {

/// Qt can't open or make a file whose name isn't UTF-8. Such a file is read and written by a link,
/// "r%ffw.jpg" for the byte FF, and what is in such a folder by a link to the folder. The links exist for as
/// long as this object; results and messages show the file's own name.
class RawNameLinks {
public:
    RawNameLinks() { current = this; }
    ~RawNameLinks() { current = nullptr; }
    RawNameLinks(const RawNameLinks&) = delete;
    RawNameLinks& operator=(const RawNameLinks&) = delete;

    /// The path itself where Qt can open it, else one through a link.
    static QString readablePath(const QString& path);
    /// The text with the files' own paths in place of those of links.
    static QString withOwnNames(const QString& text);

private:
    QString linkTo(const QString& path);
    QString ownNames(const QString& text) const;

    static RawNameLinks* current;
    std::optional<ScratchFolder> m_folder;
    QHash<QString, QString> m_linkOf;
    QStringList m_paths; ///< link number i is in the subfolder i
};

} // namespace tarsel::cli
