// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileIdentity.h"
#include "base/ListView.h"
#include "configuration/ConfigRecord.h"

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <optional>
#include <vector>

namespace tarsel {

/// What the name of a row runs into.
enum class NameClash {
    None,
    Exists,      ///< a file of that name is there
    SameAsRow,   ///< an earlier row gets the same name
    OwnSource,   ///< the file there is the row's own source
    OtherSource, ///< the file there is the source of another row
    NotKnown,    ///< the name depends on the finished picture, or the source can't be read
    Invalid      ///< no file can have that name; the run would end here
};

/// The name that a row would get, found out before anything is decoded or written.
struct PlannedName {
    int row = 0; ///< from 1
    QString source;
    QString target; ///< empty when not known
    NameClash clash = NameClash::None;
    int otherRow = 0; ///< for SameAsRow and OtherSource
    QString fact;     ///< for NotKnown and Invalid: why
};

/// A sentence for the user: "replaces its own source", "exists already: will be skipped"; empty for None.
QString clashText(const PlannedName& planned, bool overwrite);

/// Plans the names of a basket's rows in slices, so that a window stays responsive. It reads file facts,
/// headers and metadata only. The list must not change while the planner lives.
class NamePlanner {
    Q_DECLARE_TR_FUNCTIONS(NamePlanner)

public:
    /// `tasks` is the task list in force (lvEditBatch): a size after its tasks isn't known before the run.
    NamePlanner(const ListView& lvPages, const ListView& tasks, const settings::BatchSave& settings);

    int rowCount() const { return m_pages.count(); }
    int planned() const { return m_next; }
    bool finished() const { return m_next >= m_pages.count(); }
    /// The next rows, at most that many; none at first, while the sources of that many rows are looked at.
    /// Never raises.
    std::vector<PlannedName> next(int rows);

private:
    void findSources(int index);
    PlannedName plan(int index);
    void findClash(PlannedName& planned);

    const ListView& m_pages;
    settings::BatchSave m_settings;
    bool m_tasksRun;
    int m_sourcesFound = 0; ///< rows whose sources are known; names are planned when all are
    int m_next = 0;
    QHash<FileIdentity, int> m_targets;              ///< rows by the file they make
    QHash<FileIdentity, std::vector<int>> m_sources; ///< rows by the file they are made from
};

/// All rows at once.
std::vector<PlannedName> planNames(const ListView& lvPages, const ListView& tasks,
                                   const settings::BatchSave& settings);

} // namespace tarsel
