// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

/// Everything that reads a text as a number, or writes a number or a date as a text, comes through here.
/// Nothing of it depends on the locale or on the desktop: the user's date form is passed in.
namespace tarsel {

/// How the user's system writes dates and times, as Qt patterns; empty where none is known.
struct DateForms {
    QString shortDate; ///< with a four-digit year, such as "M/d/yyyy"
    QString longTime;  ///< such as "h:mm:ss AP"
};

/// To the nearest integer, ties to even: the rounding of every conversion of a floating-point number to an
/// integer.
double roundHalfEven(double value);

/// Rounded to `int`, ties to even; error 6 beyond the range.
int roundToInt(double value);

/// Text as a number, blanks around it ignored. Digits with an optional sign, decimal point and exponent;
/// hexadecimal of up to eight digits as "&H0F" (never negative). Error 13 for anything else, the empty text
/// included; error 6 for a number beyond a double.
double toDouble(const QString& text);

/// Text as an integer: read as a number and rounded, ties to even. Error 13 when it is not a number, 6 out of
/// range.
qint16 toInt16(const QString& text);
qint32 toInt32(const QString& text);
quint8 toByte(const QString& text);

/// "True" and "False" in any case, or a number, zero being false. Error 13 otherwise.
bool toBool(const QString& text);

/// "True" or "False".
QString fromBool(bool value);

/// Whether toDouble would succeed.
bool isNumeric(const QString& text);

/// The number at the start of a text, blanks skipped; 0 when there is none. Never fails.
double leadingNumber(const QString& text);

/// A date as the user's system writes it, as formatDate wrote it, or in ISO form; with or without a time in
/// 12 or 24 hours. A time alone gets the day of emptyDate. Where a text fits two forms, the user's own form
/// wins. Error 13 when it is not a date.
QDateTime toDate(const QString& text, const DateForms& own = {});

/// A number in one of the patterns in use: "0", "0.0", "0.00", "#,##0". The number is taken at 15 significant
/// digits and rounded there, ties away from zero.
QString formatNumber(double value, const QString& pattern);

/// A double as plain text: at most 15 significant digits, without trailing zeros; "1E+20" where the digits
/// would not fit.
QString numberText(double value);

/// A date in a pattern of the tokens m mm d dd yyyy h hh s ss and AM/PM, everything else standing for
/// itself. m after h or before s is minutes, elsewhere the month; with AM/PM the hours are those of a 12-hour
/// clock. In use are "m.d.yyyy", "m.d.yyyy h.mm.ss AM/PM", "m/d/yyyy", "m/d/yyyy h:mm:ss AM/PM" and
/// "h:mm:ss AM/PM". A date that isn't valid is written as emptyDate.
QString formatDate(const QDateTime& date, const QString& pattern);

/// The day in the user's short form; a date that isn't valid is written as emptyDate.
QString shortDateText(const QDateTime& date, const DateForms& own);

/// The date that stands for no date: 30 December 1899, midnight.
QDateTime emptyDate();

} // namespace tarsel
