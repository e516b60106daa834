// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CompletedWord.h"

#include "imaging/SaveFormats.h"

#include <QRegularExpression>
#include <string_view>

namespace tarsel::cli {

namespace {

/// Words that the place holder of an option stands for.
struct NamedSet {
    const char* placeHolder;
    const char* words;
};

constexpr NamedSet namedSets[] = {
    {"RULE", "keep|hybrid|generic"},
    {"MODE", "fit|fill|true"},
    {"PLACE", "center|top-left|top|top-right|left|right|bottom-left|bottom|bottom-right"},
    {"KIND", "foreground|desktop"},
};
constexpr const char* compressions = "lzw|none|packbits|group4";
constexpr const char* captions = "none|name|description";

QStringList split(const char* words) {
    return QString::fromLatin1(words).split(u'|');
}

/// Place holders that several options use in different senses.
QStringList ownWords(const Command& command, const OptionSpec& option) {
    const std::string_view name = option.name, of = command.name;
    if (name == "compression")
        return split(compressions);
    if (name == "captions" && of == "print")
        return split(captions);
    QStringList words;
    for (const SaveFormat& format : saveFormats()) {
        if (name == "format")
            words << QString::fromLatin1(format.extension);
        if (name == "colors")
            for (const ColorEntry& color : format.colors)
                words << QString::fromLatin1(color.option);
    }
    words.removeDuplicates();
    return words;
}

} // namespace

CompletedWord completedValue(const Command& command, const OptionSpec& option) {
    if (!option.value)
        return {};
    if (const QStringList words = ownWords(command, option); !words.isEmpty())
        return {CompletedWord::Choice, words};
    const QString value = QString::fromLatin1(option.value);
    for (const NamedSet& set : namedSets)
        if (value == QLatin1String(set.placeHolder))
            return {CompletedWord::Choice, split(set.words)};
    const QStringList kinds = value.split(u'|');
    if (kinds.size() > 1 && value == value.toLower())
        return {CompletedWord::Choice, kinds};
    static const QRegularExpression file(QStringLiteral("^[A-Z]+\\.([a-z]+)$"));
    if (const QRegularExpressionMatch match = file.match(value); match.hasMatch())
        return {CompletedWord::File, {match.captured(1)}};
    if (value == u"FOLDER")
        return {CompletedWord::Folder};
    return {kinds.contains(u"FILE") ? CompletedWord::File : CompletedWord::Nothing};
}

CompletedWord completedOperand(const Command& command) {
    const QString operands = QString::fromLatin1(command.operands);
    if (operands.isEmpty())
        return {};
    return {CompletedWord::File, operands == u"F.tbf" ? QStringList{QStringLiteral("tbf")} : QStringList()};
}

QStringList completedActions(const Command& command) {
    QStringList actions;
    for (const QString& form : QString::fromLatin1(command.operands).split(QStringLiteral(" | ")))
        if (const QString word = form.section(u' ', 0, 0); !word.isEmpty() && word[0].isLower())
            actions << word;
    return actions;
}

} // namespace tarsel::cli
