// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/ManualPage.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace tarsel {

namespace {

/// A line of Markdown as it reads: links by their texts, without pictures and the marks of emphasis, code and
/// tables.
QString plainWords(QString line) {
    static const QRegularExpression link(QStringLiteral("\\[([^\\]]*)\\]\\([^)]*\\)"));
    static const QRegularExpression picture(QStringLiteral("!\\[[^\\]]*\\]\\([^)]*\\)"));
    static const QRegularExpression rule(QStringLiteral("^\\s*\\|?[-:| ]+\\|?\\s*$"));
    static const QRegularExpression bullet(QStringLiteral("^\\s*(?:[-*]|\\d+\\.) "));
    static const QRegularExpression marks(QStringLiteral("\\*\\*|`|\\\\(?=[|*_<>])"));
    static const QRegularExpression cellEdge(QStringLiteral("(?<!\\\\)\\|"));
    if (rule.match(line).hasMatch())
        return {};
    line.remove(picture);
    line.replace(link, QStringLiteral("\\1"));
    line.remove(bullet);
    line.replace(cellEdge, QStringLiteral(" "));
    return line.remove(marks).simplified();
}

int headingLevel(const QString& line) {
    int level = 0;
    while (level < line.size() && line[level] == QLatin1Char('#'))
        ++level;
    return level > 0 && level < line.size() && line[level] == QLatin1Char(' ') ? level : 0;
}

} // namespace

QString headingAnchor(const QString& heading) {
    QString anchor;
    for (const QChar sign : heading.toLower())
        if (sign.isLetterOrNumber() || sign == QLatin1Char('-') || sign == QLatin1Char('_'))
            anchor += sign;
        else if (sign.isSpace())
            anchor += QLatin1Char('-');
    return anchor;
}

const QString& ManualPage::title() const {
    static const QString none;
    return sections.empty() ? none : sections.front().title;
}

bool ManualPage::hasAnchor(const QString& anchor) const {
    return std::ranges::any_of(sections, [&](const ManualSection& each) { return each.anchor == anchor; });
}

ManualPage parseManualPage(const QString& path, const QString& markdown) {
    ManualPage page{QFileInfo(path).completeBaseName(), path, markdown, {}};
    bool isCode = false;
    for (const QString& line : markdown.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("```")))
            isCode = !isCode;
        else if (const int level = isCode ? 0 : headingLevel(line)) {
            const QString title = plainWords(line.mid(level));
            page.sections.push_back({level, title, headingAnchor(title), {}});
        } else {
            if (page.sections.empty())
                page.sections.emplace_back();
            QString& text = page.sections.back().text;
            const QString words = isCode ? line.simplified() : plainWords(line);
            if (!words.isEmpty())
                text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + words;
        }
    }
    return page;
}

} // namespace tarsel
