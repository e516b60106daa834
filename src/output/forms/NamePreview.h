// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "output/NamePlan.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <memory>

class QLabel;

namespace tarsel {

/// Shows the names that a batch would give, where the files will lie and what they run into. The names are
/// found in slices between two events, so that the dialog around it always answers; a change of the settings
/// starts anew.
class NamePreview final : public QWidget {
    Q_OBJECT
public:
    NamePreview(const ListView& lvPages, const ListView& lvEditBatch, QWidget* parent = nullptr);

    /// Plans with these settings from now on.
    void show(const BatchSave& settings);
    /// Columns: name, source file, remark.
    const ListView& names() const { return m_names; }
    bool isFinished() const { return m_planner && m_planner->finished(); }

private:
    void planSlice();
    void addName(const PlannedName& planned);
    void showSummary();

    const ListView& m_pages;
    const ListView& m_tasks;
    ListView m_names;
    ImageList m_icons;
    QLabel* m_summary;
    QLabel* m_destination;
    QTimer m_slice;
    std::unique_ptr<NamePlanner> m_planner;
    bool m_overwrite = true;
    int m_remarks = 0;
    QStringList m_folders; ///< of all names, each once
};

} // namespace tarsel
