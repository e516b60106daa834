// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/TitleFault.h"

#include <QCoreApplication>
#include <QFile>

namespace tarsel {

namespace {

/// Bytes that a file system allows for a name, less those of the extension.
constexpr qsizetype longestTitle = 255 - 4;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(TitleFault)
};

} // namespace

QString titleFault(const QString& title) {
    if (title.trimmed().isEmpty())
        return Texts::tr("The title was not changed: it can't be empty.");
    for (const QChar character : {QChar(u'/'), QChar(u'\0')})
        if (title.contains(character))
            return Texts::tr("The title was not changed: it can't contain %1.")
                .arg(character.isNull() ? QStringLiteral("NUL") : QStringLiteral("\"/\""));
    if (QFile::encodeName(title).size() > longestTitle)
        return Texts::tr("The title was not changed: it is too long.");
    return {};
}

} // namespace tarsel
