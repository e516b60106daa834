// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Arguments.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel::cli {

namespace {

const OptionSpec* findOption(const QString& name, std::span<const OptionSpec> options) {
    const auto found = std::ranges::find_if(
        options, [&](const OptionSpec& option) { return name == QLatin1String(option.name); });
    return found == options.end() ? nullptr : &*found;
}

bool isHelp(const QString& word) {
    return word == QLatin1String("--help") || word == QLatin1String("-h");
}

bool isOption(const QString& word) {
    return word.size() > 1 && word.startsWith(QLatin1Char('-'));
}

} // namespace

Arguments::Arguments(const QStringList& words, std::span<const OptionSpec> options) {
    QStringList rest = words;
    while (!rest.isEmpty()) {
        const QString word = rest.takeFirst();
        if (word == QLatin1String("--")) {
            m_operands += rest;
            return;
        }
        if (isHelp(word))
            m_help = true;
        else if (isOption(word))
            takeOption(word, rest, options);
        else
            m_operands << word;
    }
}

void Arguments::takeOption(const QString& word, QStringList& rest, std::span<const OptionSpec> options) {
    const qsizetype equals = word.indexOf(QLatin1Char('='));
    const QString spelled = word.left(equals);
    const OptionSpec* option =
        spelled.startsWith(QLatin1String("--")) ? findOption(spelled.mid(2), options) : nullptr;
    if (!option)
        throw UsageError{QCoreApplication::translate("CommandLine", "unknown option %1").arg(spelled)};
    const QString name = QString::fromLatin1(option->name);
    if (m_values.contains(name) && !option->isRepeated)
        throw UsageError{QCoreApplication::translate("CommandLine", "%1 is given twice").arg(spelled)};
    if (!option->value && equals >= 0)
        throw UsageError{QCoreApplication::translate("CommandLine", "%1 takes no value").arg(spelled)};
    if (option->value && equals < 0 && rest.isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "%1 needs a value: %2")
                             .arg(spelled, QString::fromLatin1(option->value))};
    m_values[name] << (!option->value ? QString() : equals >= 0 ? word.mid(equals + 1) : rest.takeFirst());
}

QString Arguments::value(const char* name, const QString& fallback) const {
    const QStringList given = values(name);
    return given.isEmpty() ? fallback : given.first();
}

QStringList Arguments::values(const char* name) const {
    return m_values.value(QString::fromLatin1(name));
}

int numberIn(const QString& text, int lowest, int highest, const char* option) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < lowest || number > highest)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--%1 takes an integer from %2 to %3, not \"%4\"")
                .arg(QLatin1String(option))
                .arg(lowest)
                .arg(highest)
                .arg(text)};
    return number;
}

void requireOption(const Arguments& arguments, const char* option) {
    if (!arguments.has(option))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--%1 is missing").arg(QLatin1String(option))};
}

int choiceIn(const Arguments& arguments, const char* option, const QStringList& words) {
    const QString word = arguments.value(option, words.first());
    const qsizetype index = words.indexOf(word);
    if (index < 0)
        throw UsageError{QCoreApplication::translate("CommandLine", "--%1 is one of %2, not \"%3\"")
                             .arg(QLatin1String(option), words.join(QStringLiteral(", ")), word)};
    return int(index);
}

qint32 colorIn(const QString& text, const char* option) {
    bool isNumber = false;
    const uint rgb = text.toUInt(&isNumber, 16);
    if (!isNumber || text.size() != 6)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--%1: \"%2\" is not a colour such as FF8000")
                .arg(QLatin1String(option), text)};
    return qint32(rgb >> 16 | (rgb & 0xFF00) | (rgb & 0xFF) << 16);
}

} // namespace tarsel::cli
