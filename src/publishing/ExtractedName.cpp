// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/ExtractedName.h"

#include <algorithm>

namespace tarsel {

namespace {

const QString extension = QStringLiteral(".jpg");

QString plainName(QString name) {
    for (QChar& character : name)
        if (character == u'/' || character == u'\\' || character.category() == QChar::Other_Control)
            character = u'_';
    name = name.trimmed();
    if (name.endsWith(extension, Qt::CaseInsensitive))
        name.chop(extension.size());
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    constexpr qsizetype longest = 60; // at most 240 bytes
    return name.isEmpty() ? QStringLiteral("picture") : name.left(longest);
}

} // namespace

QString ExtractedNames::next(const QString& name) {
    const QString plain = plainName(name);
    int count = m_counts.value(plain.toLower());
    QString unique;
    do {
        unique = ++count == 1 ? plain : QStringLiteral("%1 (%2)").arg(plain, QString::number(count));
    } while (m_counts.contains(unique.toLower()));
    m_counts.insert(plain.toLower(), count);
    m_counts.insert(unique.toLower(), std::max(m_counts.value(unique.toLower()), 1));
    return unique + extension;
}

} // namespace tarsel
