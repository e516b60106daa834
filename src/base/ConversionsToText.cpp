// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <cmath>
#include <optional>

namespace tarsel {

namespace {

/// A decimal number as digits: 0.digits times ten to the power of `point`.
struct Decimal {
    QByteArray digits;
    int point = 0;
};

Decimal toDecimal(double magnitude) {
    const QByteArray text = QByteArray::number(magnitude, 'e', 14); // d.dddddddddddddde+xx
    const qsizetype exponent = text.indexOf('e');
    return {text.left(1) + text.mid(2, exponent - 2), text.mid(exponent + 1).toInt() + 1};
}

/// The digits before the point and exactly `decimals` after it, ties away from zero.
QByteArray roundedDigits(const Decimal& number, int decimals) {
    const qsizetype kept = number.point + decimals;
    if (kept < 0)
        return QByteArray(decimals + 1, '0');
    QByteArray digits = number.digits.left(kept).leftJustified(kept, '0');
    if (kept < number.digits.size() && number.digits[kept] >= '5') {
        qsizetype i = digits.size() - 1;
        for (; i >= 0 && digits[i] == '9'; --i)
            digits[i] = '0';
        if (i >= 0)
            ++digits[i];
        else
            digits.prepend('1');
    }
    return digits.rightJustified(decimals + 1, '0');
}

void groupThousands(QByteArray& digits) {
    for (qsizetype i = digits.size() - 3; i > 0; i -= 3)
        digits.insert(i, ',');
}

/// One run of equal letters of a date pattern, or AM/PM, or literal text.
struct DateToken {
    QString text;
    char kind = ' '; ///< m month, d, y, h, n minute, s, a AM/PM, blank for literal text
};

std::vector<DateToken> tokensOf(const QString& pattern) {
    static const QString halfDay = QStringLiteral("AM/PM");
    std::vector<DateToken> tokens;
    for (qsizetype i = 0; i < pattern.size();) {
        if (QStringView(pattern).mid(i).startsWith(halfDay)) {
            tokens.push_back({halfDay, 'a'});
            i += halfDay.size();
            continue;
        }
        qsizetype end = i + 1;
        while (end < pattern.size() && pattern[end] == pattern[i])
            ++end;
        const char letter = pattern[i].toLatin1();
        const bool known = QByteArray("mdyhs").contains(letter);
        tokens.push_back({pattern.mid(i, end - i), known ? letter : ' '});
        i = end;
    }
    return tokens;
}

/// Turns months into minutes: those after an hour or before seconds, whatever literal text is between them.
void tellMinutesFromMonths(std::vector<DateToken>& tokens) {
    DateToken* previous = nullptr;
    for (DateToken& token : tokens) {
        if (token.kind == ' ')
            continue;
        if (token.kind == 'm' && previous && previous->kind == 'h')
            token.kind = 'n';
        if (token.kind == 's' && previous && previous->kind == 'm')
            previous->kind = 'n';
        previous = &token;
    }
}

QString padded(int value, qsizetype width) {
    return QString::number(value).rightJustified(width, QLatin1Char('0'));
}

QString tokenText(const DateToken& token, const QDateTime& date, bool twelveHours) {
    const QTime time = date.time();
    switch (token.kind) {
    case 'm':
        return padded(date.date().month(), token.text.size());
    case 'd':
        return padded(date.date().day(), token.text.size());
    case 'y':
        return padded(date.date().year(), token.text.size());
    case 'h':
        return padded(twelveHours ? (time.hour() + 11) % 12 + 1 : time.hour(), token.text.size());
    case 'n':
        return padded(time.minute(), token.text.size());
    case 's':
        return padded(time.second(), token.text.size());
    case 'a':
        return time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM");
    default:
        return token.text;
    }
}

std::optional<QDate> readDay(const QString& text, const DateForms& own) {
    const QString forms[] = {own.shortDate, QStringLiteral("M/d/yyyy"), QStringLiteral("M.d.yyyy"),
                             QStringLiteral("yyyy-MM-dd")};
    for (const QString& form : forms) {
        if (const QDate day = form.isEmpty() ? QDate() : QDate::fromString(text, form); day.isValid())
            return day;
    }
    return std::nullopt;
}

std::optional<QTime> readTime(const QString& text, const DateForms& own) {
    const QString forms[] = {own.longTime,
                             QStringLiteral("h:mm:ss AP"),
                             QStringLiteral("h.mm.ss AP"),
                             QStringLiteral("H:mm:ss"),
                             QStringLiteral("h:mm AP"),
                             QStringLiteral("H:mm")};
    for (const QString& form : forms) {
        if (const QTime time = form.isEmpty() ? QTime() : QTime::fromString(text, form); time.isValid())
            return time;
    }
    return std::nullopt;
}

/// Day and time on both sides of a blank or, as ISO has it, a T. Some short dates hold blanks themselves, so
/// that every place has to be tried.
std::optional<QDateTime> readDayAndTime(const QString& text, const DateForms& own) {
    for (qsizetype i = text.size() - 1; i > 0; --i) {
        if (text[i] != QLatin1Char(' ') && text[i] != QLatin1Char('T'))
            continue;
        const auto time = readTime(text.mid(i + 1).trimmed(), own);
        const auto day = time ? readDay(text.left(i).trimmed(), own) : std::nullopt;
        if (day)
            return QDateTime(*day, *time);
    }
    return std::nullopt;
}

} // namespace

QDateTime toDate(const QString& text, const DateForms& own) {
    const QString trimmed = text.trimmed();
    if (const auto day = readDay(trimmed, own))
        return QDateTime(*day, QTime(0, 0));
    if (const auto dayAndTime = readDayAndTime(trimmed, own))
        return *dayAndTime;
    if (const auto time = readTime(trimmed, own))
        return QDateTime(emptyDate().date(), *time);
    fail(ErrorNumber::TypeMismatch,
         QCoreApplication::translate("Conversions", "\"%1\" is not a date").arg(text));
}

QString formatNumber(double value, const QString& pattern) {
    if (!std::isfinite(value))
        fail(ErrorNumber::Overflow,
             QCoreApplication::translate("Conversions", "a number without a decimal form"));
    const qsizetype point = pattern.indexOf(QLatin1Char('.'));
    const int decimals = point < 0 ? 0 : int(pattern.size() - point - 1);
    const QByteArray digits = roundedDigits(toDecimal(std::fabs(value)), decimals);
    QByteArray integer = digits.left(digits.size() - decimals);
    if (pattern.contains(QLatin1Char(',')))
        groupThousands(integer);
    const bool isZero = digits.count('0') == digits.size();
    const QByteArray fraction = decimals > 0 ? '.' + digits.right(decimals) : QByteArray();
    return QString::fromLatin1((value < 0 && !isZero ? "-" : "") + integer + fraction);
}

QString numberText(double value) {
    return QString::number(value == 0 ? 0 : value, 'G', 15); // no minus at zero
}

QString formatDate(const QDateTime& date, const QString& pattern) {
    const QDateTime shown = date.isValid() ? date : emptyDate();
    std::vector<DateToken> tokens = tokensOf(pattern);
    tellMinutesFromMonths(tokens);
    const bool twelveHours = pattern.contains(QLatin1String("AM/PM"));
    QString text;
    for (const DateToken& token : tokens)
        text += tokenText(token, shown, twelveHours);
    return text;
}

QString shortDateText(const QDateTime& date, const DateForms& own) {
    return (date.isValid() ? date : emptyDate()).date().toString(own.shortDate);
}

QDateTime emptyDate() {
    return QDateTime(QDate(1899, 12, 30), QTime(0, 0));
}

} // namespace tarsel
