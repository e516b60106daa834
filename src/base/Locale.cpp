// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Locale.h"

#include <QLocale>

namespace tarsel {

DateForms dateFormsOf(const QLocale& locale) {
    // The C locale of the system writes month, day, year, which Qt's C locale does not. Where only messages
    // have a language, the locale has that language, and the forms of Qt's C locale.
    const QLocale c = QLocale::c();
    const bool hasFormsOfC = locale.dateFormat(QLocale::ShortFormat) == c.dateFormat(QLocale::ShortFormat) &&
                             locale.timeFormat(QLocale::LongFormat) == c.timeFormat(QLocale::LongFormat);
    if (locale.language() == QLocale::C || hasFormsOfC)
        return {QStringLiteral("M/d/yyyy"), QStringLiteral("h:mm:ss AP")};
    DateForms forms{locale.dateFormat(QLocale::ShortFormat), locale.timeFormat(QLocale::LongFormat)};
    if (!forms.shortDate.contains(QLatin1String("yyyy")))
        forms.shortDate.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    forms.longTime = forms.longTime.remove(QLatin1Char('t')).trimmed();
    return forms;
}

DateForms SystemLocale::dateForms() {
    return dateFormsOf(QLocale::system());
}

DateForms PlainLocale::dateForms() {
    return dateFormsOf(QLocale::c());
}

} // namespace tarsel
