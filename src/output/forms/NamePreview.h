// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "output/forms/NameSummary.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <memory>

class QLabel;

namespace tarsel {

class DestinationNotice;
class ListControl;

/// Shows the names that a batch would use, the folders of the files and what they run into. The names are
/// found in slices between two events, so that the dialog always answers; a change of the settings starts
/// again.
class NamePreview final : public QWidget {
    Q_OBJECT
public:
    NamePreview(const ListView& lvPages, const ListView& lvEditBatch, QWidget* parent = nullptr);

    /// Plans with these settings from now on.
    void show(const settings::BatchSave& settings);
    /// Columns: name, source file, remark.
    const ListView& names() const { return m_names; }
    bool isFinished() const { return m_planner && m_planner->finished(); }
    /// False while a folder that files would go to is known to be missing or unusable.
    bool isDestinationUsable() const;
    /// Puts its controls between two others in the order of the Tab key.
    void setTabOrderBetween(QWidget* before, QWidget* after);

Q_SIGNALS:
    void destinationUsableChanged(bool usable);

private:
    ListControl* makeList();
    void planSlice();
    void addName(const PlannedName& planned);
    void showSummary();

    const ListView& m_pages;
    const ListView& m_tasks;
    ListView m_names;
    QLabel* m_summary;
    DestinationNotice* m_destination;
    QTimer m_slice;
    settings::BatchSave m_settings;
    std::unique_ptr<NamePlanner> m_planner;
    NameSummary m_counts;
    QStringList m_folders;       ///< of all names, each once
    QStringList m_sourceFolders; ///< of the pictures and documents, each once
};

} // namespace tarsel
