// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/house/HouseRules.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace tarsel::test {

namespace {

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The cells of a table's row, or nothing for another line.
QStringList cellsOf(const QString& line) {
    if (!line.startsWith(QLatin1Char('|')) || line.startsWith(QLatin1String("|---")))
        return {};
    QStringList cells = line.split(QLatin1Char('|'));
    for (QString& cell : cells)
        cell = cell.trimmed();
    return cells.mid(1);
}

FolderRule ruleOf(const QString& level, QString mayUse) {
    FolderRule rule;
    bool isNumber = false;
    const int number = level.toInt(&isNumber);
    rule.level = isNumber ? number : -1;
    rule.widgets = mayUse.contains(QLatin1String("Qt Widgets"));
    mayUse.remove(QLatin1String("Qt Widgets")).remove(QLatin1Char(','));
    rule.mayUse = mayUse.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return rule;
}

} // namespace

HouseRules::HouseRules(const QString& readme, QSet<QString> widgetHeaders) :
    m_widgetHeaders(std::move(widgetHeaders)) {
    for (const QString& line : readme.split(QLatin1Char('\n'))) {
        const QStringList cells = cellsOf(line);
        if (cells.size() >= 4 && cells[0] != QLatin1String("folder"))
            m_rules.insert(cells[0], ruleOf(cells[1], cells[2]));
    }
}

QStringList HouseRules::faultsOfTable() const {
    QStringList faults;
    for (auto it = m_rules.begin(); it != m_rules.end(); ++it) {
        for (const QString& used : it->mayUse) {
            const bool ownLogic = it.key().startsWith(used + QLatin1Char('/'));
            if (!m_rules.contains(used))
                faults << it.key() + QStringLiteral(" uses ") + used + QStringLiteral(", which has no row");
            else if (it->level >= 0 && m_rules[used].level >= it->level && !ownLogic)
                faults << it.key() + QStringLiteral(" uses ") + used + QStringLiteral(", which is no lower");
        }
    }
    return faults;
}

QString HouseRules::folderOf(const QString& path) const {
    QString longest;
    for (auto it = m_rules.keyBegin(); it != m_rules.keyEnd(); ++it) {
        const bool within = path == *it || path.startsWith(*it + QLatin1Char('/'));
        if (within && it->size() > longest.size())
            longest = *it;
    }
    return longest;
}

bool HouseRules::allows(const QString& folder, const QString& used) const {
    return used == folder || m_rules[folder].mayUse.contains(used);
}

QString HouseRules::faultOfInclude(const QString& folder, const QString& line) const {
    static const QRegularExpression own(QStringLiteral("^\\s*#\\s*include\\s*\"([^\"]+)\""));
    static const QRegularExpression library(QStringLiteral("^\\s*#\\s*include\\s*<([^>]+)>"));
    if (const auto match = own.match(line); match.hasMatch()) {
        const QString used = folderOf(match.captured(1));
        if (used.isEmpty())
            return match.captured(1) + QStringLiteral(" does not begin with a folder of the table");
        return allows(folder, used) ? QString() : folder + QStringLiteral(" may not use ") + used;
    }
    const QString header = library.match(line).captured(1);
    const bool widgets = header.startsWith(QLatin1String("QtWidgets")) || m_widgetHeaders.contains(header);
    return widgets && !m_rules[folder].widgets
               ? folder + QStringLiteral(" may not use <") + header + QLatin1Char('>')
               : QString();
}

QStringList HouseRules::faultsOfLibraries(const QString& folder, const QString& cmake) const {
    static const QRegularExpression comment(QStringLiteral("#[^\n]*"));
    static const QRegularExpression ours(QStringLiteral("\\btarsel_(\\w+)|Qt6::Widgets"));
    static const QStringList notLibraries = {QStringLiteral("library"), QStringLiteral("flags")};
    QStringList faults;
    auto matches = ours.globalMatch(QString(cmake).remove(comment));
    while (matches.hasNext()) {
        const auto match = matches.next();
        QString used = match.captured(1);
        if (used.isEmpty() && !m_rules[folder].widgets)
            faults << folder + QStringLiteral(" may not link Qt6::Widgets");
        if (used.isEmpty() || notLibraries.contains(used))
            continue;
        used = folderOf(used.replace(QLatin1Char('_'), QLatin1Char('/'))); // output_forms is output/forms
        if (!allows(folder, used))
            faults << folder + QStringLiteral(" may not link ") + match.captured();
    }
    return faults;
}

QStringList HouseRules::faultsOfTree(const QString& sources) const {
    QStringList faults;
    QDirIterator files(sources,
                       {QStringLiteral("*.h"), QStringLiteral("*.cpp"), QStringLiteral("*.def"),
                        QStringLiteral("CMakeLists.txt")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString inside = path.mid(sources.size() + 1);
        if (!inside.contains(QLatin1Char('/'))) // the list of the folders themselves
            continue;
        const QString folder = folderOf(inside);
        QStringList found;
        if (folder.isEmpty())
            found << QStringLiteral("lies in no folder of the table");
        else if (inside.endsWith(QLatin1String(".txt")))
            found = faultsOfLibraries(folder, textOf(path));
        else
            for (const QString& line : textOf(path).split(QLatin1Char('\n')))
                found << faultOfInclude(folder, line);
        found.removeAll(QString());
        for (const QString& fault : found)
            faults << inside + QStringLiteral(": ") + fault;
    }
    faults.sort();
    return faults;
}

} // namespace tarsel::test
