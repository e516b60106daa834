// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskWords.h"

#include "base/IgnoringErrors.h"

namespace tarsel {

namespace {

QString quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString colorInWords(qint32 value) {
    if (value < 0)
        return QStringLiteral("system color %1").arg(value & 0xFF);
    return QStringLiteral("#%1%2%3")
        .arg(value & 0xFF, 2, 16, QLatin1Char('0'))
        .arg(value >> 8 & 0xFF, 2, 16, QLatin1Char('0'))
        .arg(value >> 16 & 0xFF, 2, 16, QLatin1Char('0'))
        .toUpper();
}

QString numberInWords(const TaskColumn& column, const QString& text, double value) {
    const ColumnLimits& limits = column.limits;
    if (limits.words[0] && value >= 0 && value <= limits.highest)
        return QString::fromLatin1(limits.words.at(std::size_t(value)));
    return text;
}

/// A text that is not of the column's type stays as it is.
QString valueInWords(const TaskColumn& column, const QString& text) {
    try {
        switch (column.type) {
        case ColumnType::Path:
            return quoted(text);
        case ColumnType::Flag:
        case ColumnType::Check:
            return toBool(text) ? QStringLiteral("on") : QStringLiteral("off");
        case ColumnType::ColorNumber:
            return colorInWords(toInt32(text));
        case ColumnType::Text:
            return column.limits.words[0] ? numberInWords(column, text, text == QLatin1String("0") ? 0 : 1)
                                          : quoted(text);
        default:
            return numberInWords(column, text, column.value(text));
        }
    } catch (const TrappedError& error) {
        logIgnored(error.description);
        return quoted(text);
    }
}

int kindOf(const TaskRow& row) {
    try {
        return toInt16(row.kind);
    } catch (const TrappedError& error) {
        logIgnored(error.description);
        return 0;
    }
}

/// A condition on a text that can't be read does not hold.
bool mayBeRead(const TaskColumn& column, std::span<const TaskColumn> columns, const TaskRow& row) {
    try {
        return isRead(column, columns, row);
    } catch (const TrappedError& error) {
        logIgnored(error.description);
        return false;
    }
}

} // namespace

QString nameInWords(const TaskColumn& column) {
    QString words;
    for (const QChar character : QString::fromLatin1(column.name))
        words += character.isUpper() ? QLatin1Char(' ') + QString(character.toLower()) : QString(character);
    return words;
}

std::vector<TaskColumn> columnsRead(const TaskRow& row) {
    const std::span<const TaskColumn> columns = taskColumns(kindOf(row));
    std::vector<TaskColumn> read;
    for (const TaskColumn& column : columns)
        if (mayBeRead(column, columns, row))
            read.push_back(column);
    return read;
}

QString parametersInWords(const TaskRow& row) {
    QStringList parameters;
    for (const TaskColumn& column : columnsRead(row))
        parameters << nameInWords(column) + QLatin1Char(' ') + valueInWords(column, column.text(row));
    return parameters.join(QStringLiteral(", "));
}

} // namespace tarsel
