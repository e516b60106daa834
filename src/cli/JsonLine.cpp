// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/JsonLine.h"

#include "cli/RawNameLinks.h"

#include <QLocale>

namespace tarsel::cli {

namespace {

/// A character that can't stand in a JSON string as it is. A lone surrogate has no UTF-8 form.
bool needsEscape(QChar character, QChar before, QChar after) {
    if (character.isHighSurrogate())
        return !after.isLowSurrogate();
    if (character.isLowSurrogate())
        return !before.isHighSurrogate();
    return character.category() == QChar::Other_Control;
}

QString quoted(const QString& text) {
    QString out = QStringLiteral("\"");
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        const QChar before = i > 0 ? text[i - 1] : QChar();
        const QChar after = i + 1 < text.size() ? text[i + 1] : QChar();
        if (character == QLatin1Char('"') || character == QLatin1Char('\\'))
            out += QLatin1Char('\\') + QString(character);
        else if (needsEscape(character, before, after))
            out += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            out += character;
    }
    return out + QLatin1Char('"');
}

} // namespace

JsonLine& JsonLine::addRaw(const char* key, const QString& value) {
    m_members << quoted(QString::fromLatin1(key)) + QLatin1Char(':') + value;
    return *this;
}

JsonLine& JsonLine::add(const char* key, const QString& text) {
    return addRaw(key, quoted(RawNameLinks::withOwnNames(text)));
}

JsonLine& JsonLine::add(const char* key, int number) {
    return addRaw(key, QString::number(number));
}

JsonLine& JsonLine::add(const char* key, double number) {
    return addRaw(key, QString::number(number, 'g', QLocale::FloatingPointShortest));
}

JsonLine& JsonLine::add(const char* key, const JsonLine& object) {
    return addRaw(key, object.text());
}

JsonLine& JsonLine::add(const char* key, const QList<JsonLine>& objects) {
    QStringList texts;
    for (const JsonLine& object : objects)
        texts << object.text();
    return addRaw(key, QLatin1Char('[') + texts.join(QLatin1Char(',')) + QLatin1Char(']'));
}

JsonLine& JsonLine::addNull(const char* key) {
    return addRaw(key, QStringLiteral("null"));
}

} // namespace tarsel::cli
