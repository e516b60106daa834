// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

namespace tarsel::test {

/// One row of the table of levels.
struct FolderRule {
    int level = -1;       ///< -1 for a program that stands beside the levels
    QStringList mayUse;   ///< folders
    bool widgets = false; ///< may use Qt Widgets
};

/// The table of levels in a README, and the checks of a source tree against it. Each check gives one line a
/// fault, naming file and fact.
class HouseRules {
public:
    /// `readme` is the text with the table, `widgetHeaders` the header names of Qt Widgets.
    HouseRules(const QString& readme, QSet<QString> widgetHeaders);

    const QMap<QString, FolderRule>& rules() const { return m_rules; }
    /// The table itself: a folder may use only folders of the table that lie lower, and forms their own
    /// logic.
    QStringList faultsOfTable() const;
    /// Every include of the .h, .cpp and .def files below `sources`, and every library that a CMakeLists.txt
    /// there names.
    QStringList faultsOfTree(const QString& sources) const;

private:
    QString folderOf(const QString& path) const; ///< longest row that the path lies in; empty for none
    bool allows(const QString& folder, const QString& used) const;
    QString faultOfInclude(const QString& folder, const QString& line) const;
    QStringList faultsOfLibraries(const QString& folder, const QString& cmake) const;

    QMap<QString, FolderRule> m_rules;
    QSet<QString> m_widgetHeaders;
};

} // namespace tarsel::test
