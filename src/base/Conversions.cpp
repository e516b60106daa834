// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace tarsel {

namespace {

/// A number read from the start of a text, and how many characters it took (0 when there is none).
struct NumberAtStart {
    double value = 0;
    qsizetype length = 0;
};

NumberAtStart hexadecimalAtStart(const QByteArray& text) {
    if (text.size() < 3 || text[0] != '&' || (text[1] != 'H' && text[1] != 'h'))
        return {};
    quint32 value = 0;
    const char* digits = text.constData() + 2;
    const auto [end, error] = std::from_chars(digits, text.constData() + text.size(), value, 16);
    if (error != std::errc{})
        return {};
    return {double(value), end - text.constData()};
}

NumberAtStart decimalAtStart(const QByteArray& text) {
    const bool negative = text.startsWith('-');
    const qsizetype sign = negative || text.startsWith('+') ? 1 : 0;
    // from_chars takes "inf" and "nan" too; a number of ours starts with a digit or a point.
    const char first = sign < text.size() ? text[sign] : ' ';
    if (first != '.' && (first < '0' || first > '9'))
        return {};
    double value = 0;
    const auto [end, error] = std::from_chars(text.constData() + sign, text.constData() + text.size(), value);
    if (error == std::errc::invalid_argument)
        return {};
    if (error == std::errc::result_out_of_range) // too large, or too small to differ from zero
        value = text.contains("e-") || text.contains("E-") ? 0 : HUGE_VAL;
    return {negative ? -value : value, end - text.constData()};
}

NumberAtStart numberAtStart(const QByteArray& text) {
    const NumberAtStart hexadecimal = hexadecimalAtStart(text);
    return hexadecimal.length > 0 ? hexadecimal : decimalAtStart(text);
}

/// Nothing for a value that is not a number.
template <class Integer>
bool holds(double value) {
    return value >= std::numeric_limits<Integer>::min() && value <= std::numeric_limits<Integer>::max();
}

template <class Integer>
Integer toInteger(const QString& text) {
    const double value = roundHalfEven(toDouble(text));
    if (!holds<Integer>(value))
        fail(ErrorNumber::Overflow, text);
    return Integer(value);
}

} // namespace

double roundHalfEven(double value) {
    return std::nearbyint(value); // the rounding mode of the process is never changed from its default
}

int roundToInt(double value) {
    const double rounded = roundHalfEven(value);
    if (!holds<int>(rounded))
        fail(ErrorNumber::Overflow, numberText(value));
    return int(rounded);
}

double toDouble(const QString& text) {
    // A letter outside of Latin-1 becomes a question mark and fails as one.
    const QByteArray trimmed = text.trimmed().toLatin1();
    const NumberAtStart number = numberAtStart(trimmed);
    if (number.length == 0 || number.length != trimmed.size())
        fail(ErrorNumber::TypeMismatch,
             QCoreApplication::translate("Conversions", "\"%1\" is not a number").arg(text));
    if (std::isinf(number.value))
        fail(ErrorNumber::Overflow, text);
    return number.value;
}

qint16 toInt16(const QString& text) {
    return toInteger<qint16>(text);
}

qint32 toInt32(const QString& text) {
    return toInteger<qint32>(text);
}

quint8 toByte(const QString& text) {
    return toInteger<quint8>(text);
}

bool toBool(const QString& text) {
    const QString trimmed = text.trimmed();
    if (trimmed.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return true;
    if (trimmed.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
        return false;
    return toDouble(text) != 0;
}

QString fromBool(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

bool isNumeric(const QString& text) {
    const QByteArray trimmed = text.trimmed().toLatin1();
    const NumberAtStart number = numberAtStart(trimmed);
    return number.length > 0 && number.length == trimmed.size() && std::isfinite(number.value);
}

double leadingNumber(const QString& text) {
    QByteArray compact = text.toLatin1();
    compact.removeIf([](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
    const double value = numberAtStart(compact).value;
    return std::isfinite(value) ? value : 0;
}

} // namespace tarsel
