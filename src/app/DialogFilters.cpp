// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DialogFilters.h"

namespace tarsel {

namespace {

QString qtNameFilter(QString text, const QString& pattern) {
    text = text.trimmed();
    const QString named = QStringLiteral("(%1)").arg(pattern);
    if (text.endsWith(named))
        text.chop(named.size());
    return QStringLiteral("%1 (%2)").arg(text.trimmed(),
                                         QString(pattern).replace(QLatin1Char(';'), QLatin1Char(' ')));
}

} // namespace

QStringList qtNameFilters(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << qtNameFilter(parts[i], parts[i + 1].trimmed());
    return filters;
}

} // namespace tarsel
