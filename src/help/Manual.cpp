// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/Manual.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>

namespace tarsel {

namespace {

const QString startPage = QStringLiteral("index");

/// Pages in the order of their links on the start page; pages without a link come last.
void sortByContents(std::vector<ManualPage>& pages, const std::vector<Manual::Entry>& contents) {
    const auto place = [&](const ManualPage& page) {
        if (page.name == startPage)
            return std::ptrdiff_t(-1);
        return std::ranges::find(contents, page.name, &Manual::Entry::page) - contents.begin();
    };
    std::ranges::stable_sort(pages, {}, place);
}

bool hasAll(const QString& text, const QStringList& words) {
    return std::ranges::all_of(words,
                               [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

QString excerptOf(const QString& text, const QStringList& words) {
    constexpr qsizetype before = 24, length = 90;
    qsizetype first = text.size();
    for (const QString& word : words)
        if (const qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0)
            first = std::min(first, at);
    qsizetype from = first == text.size() ? 0 : std::max<qsizetype>(0, first - before);
    if (from > 0)
        from = text.indexOf(QLatin1Char(' '), from) + 1; // whole words
    const QString excerpt = text.mid(from, length);
    const QString dots = QStringLiteral("\u2026");
    return (from > 0 ? dots : QString()) + excerpt + (from + length < text.size() ? dots : QString());
}

} // namespace

Manual Manual::read(const QString& folder, const QStringList& languages) {
    Manual manual;
    if (folder.isEmpty())
        return manual;
    const QDir pages(folder);
    for (const QString& name : pages.entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name)) {
        QString path = pages.filePath(name);
        for (const QString& language : languages)
            if (const QString own = pages.filePath(language + QLatin1Char('/') + name); QFile::exists(own)) {
                path = own;
                break;
            }
        if (QFile file(path); file.open(QIODevice::ReadOnly))
            manual.m_pages.push_back(parseManualPage(path, QString::fromUtf8(file.readAll())));
    }
    sortByContents(manual.m_pages, manual.contents());
    return manual;
}

const ManualPage* Manual::page(const QString& name) const {
    const auto found = std::ranges::find(m_pages, name, &ManualPage::name);
    return found == m_pages.end() ? nullptr : &*found;
}

/// The start page has a heading for each group and a list of links below it.
std::vector<Manual::Entry> Manual::contents() const {
    static const QRegularExpression heading(QStringLiteral("^## (.+)$"));
    static const QRegularExpression link(QStringLiteral("^- \\[([^\\]]+)\\]\\(([\\w-]+)\\.md\\)"));
    std::vector<Entry> contents;
    const ManualPage* start = page(startPage);
    for (const QString& line : start ? start->markdown.split(QLatin1Char('\n')) : QStringList()) {
        if (const auto group = heading.match(line); group.hasMatch())
            contents.push_back({group.captured(1), {}});
        else if (const auto page = link.match(line); page.hasMatch())
            contents.push_back({page.captured(1), page.captured(2)});
    }
    return contents;
}

std::vector<Manual::Found> Manual::find(const QString& words) const {
    const QStringList wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    std::vector<Found> byTitle, byText;
    if (wanted.isEmpty())
        return byText;
    for (const ManualPage& page : m_pages)
        for (const ManualSection& section : page.sections) {
            const bool isTitle = hasAll(section.title, wanted);
            if (!isTitle && !hasAll(section.title + QLatin1Char(' ') + section.text, wanted))
                continue;
            const bool isFirst = &section == &page.sections.front();
            (isTitle ? byTitle : byText)
                .push_back({page.name, isFirst ? QString() : section.anchor,
                            isFirst ? page.title() : page.title() + QStringLiteral(" - ") + section.title,
                            excerptOf(section.text, wanted)});
        }
    byTitle.insert(byTitle.end(), byText.begin(), byText.end());
    return byTitle;
}

QString manualFolder() {
    const QString folder =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" TARSEL_MANUAL));
    return QDir(folder).exists() ? folder : QString();
}

} // namespace tarsel
