// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TitleFault.h"

#include <QCoreApplication>
#include <QFile>

namespace tarsel {

namespace {

/// Bytes that a file system allows for a name, less those of the extension.
constexpr qsizetype longestTitle = 255 - 4;

QString translated(const char* text) {
    return QCoreApplication::translate("TitleFault", text);
}

} // namespace

QString titleFault(const QString& title) {
    if (title.trimmed().isEmpty())
        return translated(QT_TRANSLATE_NOOP("TitleFault", "The title was not changed: it can't be empty."));
    for (const QChar character : {QChar(u'/'), QChar(u'\0')})
        if (title.contains(character))
            return translated(
                       QT_TRANSLATE_NOOP("TitleFault", "The title was not changed: it can't contain %1."))
                .arg(character.isNull() ? QStringLiteral("NUL") : QStringLiteral("\"/\""));
    if (QFile::encodeName(title).size() > longestTitle)
        return translated(QT_TRANSLATE_NOOP("TitleFault", "The title was not changed: it is too long."));
    return {};
}

} // namespace tarsel
