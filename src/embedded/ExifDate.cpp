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

} // namespace

QDateTime exifTextToDate(const QString& text) {
    static const QRegularExpression form(QStringLiteral(
        "^(\\d{4})[:/.-](\\d{1,2})[:/.-](\\d{1,2})(?:[ T](\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?.*)?$"));
    if (isUnknownDate(text))
        return emptyDate();
    const QRegularExpressionMatch match = form.match(text.trimmed());
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    const QDate date(number(1), number(2), number(3));
    const QTime time(number(4), number(5), number(6));
    if (!date.isValid() || !time.isValid())
        fail(ErrorNumber::TypeMismatch,
             QCoreApplication::translate("ExifDate", "\"%1\" is not an EXIF date").arg(text));
    return {date, time};
}

QString exifDateToText(const QDateTime& date) {
    return date.toString(QStringLiteral("yyyy:MM:dd HH:mm:ss"));
}

} // namespace tarsel
