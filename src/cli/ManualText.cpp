// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ManualText.h"

#include "base/ProgramIdentity.h"

#include <QStringList>

namespace tarsel::cli {

namespace {

/// Lines of the source are no longer, as far as words allow.
constexpr qsizetype longestLine = 78;

bool endsSentence(const QString& word) {
    return word.endsWith(u'.') || word.endsWith(u'!') || word.endsWith(u'?');
}

/// A line that begins so would be a request.
QString protectedLine(const QString& line) {
    return line.startsWith(u'.') || line.startsWith(u'\'') ? QStringLiteral("\\&") + line : line;
}

} // namespace

ManualText::ManualText(const QString& page, const QString& date) {
    line(QStringLiteral(".TH %1 1 %2 \"%3 %4\" \"%3\"")
             .arg(escaped(page.toUpper()), date, programIdentity::title, QLatin1String(TARSEL_VERSION)));
}

QString ManualText::escaped(const QString& text) {
    QString result;
    for (const QChar each : text)
        switch (each.unicode()) {
        case u'\\':
            result += QStringLiteral("\\e");
            break;
        case u'-':
            result += QStringLiteral("\\-");
            break;
        case u'^':
            result += QStringLiteral("\\(ha");
            break;
        case u'~':
            result += QStringLiteral("\\(ti");
            break;
        case u'`':
            result += QStringLiteral("\\(ga");
            break;
        case u'\n':
            result += u' ';
            break;
        default:
            result += each;
        }
    return result;
}

void ManualText::section(const QString& title) {
    line(QStringLiteral(".SH \"%1\"").arg(escaped(title)));
}

/// Each sentence begins a line, as roff wants it.
void ManualText::fill(const QString& text) {
    QString current;
    for (const QString& word : escaped(text).split(u' ', Qt::SkipEmptyParts)) {
        if (!current.isEmpty() && (endsSentence(current) || current.size() + 1 + word.size() > longestLine)) {
            line(protectedLine(current));
            current.clear();
        }
        current += current.isEmpty() ? word : u' ' + word;
    }
    if (!current.isEmpty())
        line(protectedLine(current));
}

void ManualText::paragraph(const QString& text) {
    bool isFirst = m_text.section(u'\n', -2, -2).startsWith(QLatin1String(".SH"));
    for (const QString& each : text.split(QStringLiteral("\n\n"))) {
        if (!isFirst)
            line(QStringLiteral(".PP"));
        isFirst = false;
        fill(each);
    }
}

void ManualText::item(const QString& markedTerm, const QString& text) {
    line(QStringLiteral(".TP"));
    line(protectedLine(markedTerm));
    fill(text);
}

void ManualText::example(const QString& text) {
    line(QStringLiteral(".PP"));
    line(QStringLiteral(".RS 4"));
    line(QStringLiteral(".nf"));
    line(protectedLine(escaped(text).replace(u'\'', QStringLiteral("\\(aq"))));
    line(QStringLiteral(".fi"));
    line(QStringLiteral(".RE"));
}

} // namespace tarsel::cli
