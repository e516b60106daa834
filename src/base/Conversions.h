#pragma once

#include <QDateTime>
#include <QString>

/// Everything that reads a text as a number, or writes a number or a date as a text, comes through here.
namespace tarsel {

/// To the nearest integer, ties to even: the rounding of every conversion of a floating-point number to an
/// integer.
double roundHalfEven(double value);

/// Rounded to `int`; error 6 beyond the range.
int roundToInt(double value);

/// Text as a number, blanks around it ignored. Digits with an optional sign, decimal point and exponent;
/// hexadecimal as "&H0F". Error 13 for anything else, the empty text included.
double toDouble(const QString& text);

/// Text as an integer: read as a number and rounded, ties to even. Error 13 when it is no number, 6 out of
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

/// A date as the system writes it: short date, date and time in 12 or 24 hours, or ISO. Error 13 when it is
/// none.
QDateTime toDate(const QString& text);

/// A number in one of the patterns in use: "0", "0.0", "0.00", "#,##0". Ties away from zero, as the pattern
/// formatter does; independent of the locale.
QString formatNumber(double value, const QString& pattern);

/// A double as plain text: at most 15 significant digits, without trailing zeros.
QString numberText(double value);

/// A date in one of the patterns in use: "m.d.yyyy", "m.d.yyyy h.mm.ss AM/PM", "m/d/yyyy", "m/d/yyyy h:mm:ss
/// AM/PM", "h:mm:ss AM/PM", "Short Date". In these, m behind h or before s is minutes, elsewhere the month.
QString formatDate(const QDateTime& date, const QString& pattern);

/// The date that stands for no date: 30 December 1899, midnight.
QDateTime emptyDate();

} // namespace tarsel
