// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "embedded/MetadataStore.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace tarsel {

namespace {

/// What the standard lets a camera write that doesn't know the time: blanks or zeros between the colons.
bool isUnknownDate(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^[ 0:]*$"));
    return form.match(text).hasMatch();
}

/// The hour of a clock with "A" or "P" for the half of the day; one of 24 hours stays.
int hourOf(const QString& half, int hour) {
    if (half.isEmpty() || hour > 12)
        return hour;
    return hour % 12 + (half == QLatin1String("P") ? 12 : 0);
}

} // namespace

QDateTime exifTextToDate(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral("^(\\d{4})[:/.-](\\d{1,2})[:/.-](\\d{1,2})"
                       "(?:[ T](\\d{1,2}):(\\d{1,2})(?::(\\d{1,2})(?:[.,]\\d*)?)?"
                       "\\s*(?:([AP])M)?\\s*(?:Z|UTC|[+-]\\d{1,2}(?::?\\d{2})?)?)?$"),
        QRegularExpression::CaseInsensitiveOption);
    if (isUnknownDate(text))
        return emptyDate();
    const QRegularExpressionMatch match = form.match(text.trimmed());
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    const QDate date(number(1), number(2), number(3));
    const QTime time(hourOf(match.captured(7).toUpper(), number(4)), number(5), number(6));
    if (!date.isValid() || !time.isValid())
        fail(ErrorNumber::TypeMismatch,
             QCoreApplication::translate("ExifDate", "\"%1\" is not an EXIF date").arg(text));
    return {date, time};
}

QString exifDateToText(const QDateTime& date) {
    return date.toString(QStringLiteral("yyyy:MM:dd HH:mm:ss"));
}

} // namespace tarsel
