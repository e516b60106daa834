// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/FileQuestion.h"
#include "tasks/TaskList.h"

#include <QWidget>

class QLabel;
class QTabBar;

namespace tarsel {

class ActionTable;
class FolderTree;
class ListControl;

/// The left pane: places and folder tree, and the task basket, on two tabs.
class BrowsePane final : public QWidget {
    Q_OBJECT
public:
    BrowsePane(TaskList& tasks, const ActionTable& actions, QWidget* parent = nullptr);

    FolderTree& ftvBrowse() const { return *m_tree; }
    ListControl& lvEdit() const { return *m_tasks; }
    void showTab(int tab); ///< 0 folders, 1 tasks
    /// For the folder to select next: the latest of what was typed, dropped and clicked counts.
    FileQuestion& question() { return m_question; }
    /// While a batch replays the tasks, nothing that changes them is offered.
    void setRunning(bool running);

Q_SIGNALS:
    /// A button of the task basket, by its index: 0 new, 1 open, 2 save, 3 remove.
    void cmdEditBar(int index);
    void fileChosen(const QString& path); ///< a picture that was typed, after its folder
    void pathRefused(const QString& reason);

private:
    QWidget* makeFolderPanel();
    QWidget* makePlaces();
    QWidget* makeTaskPanel();

    const ActionTable& m_actions;
    FolderTree* m_tree;
    ListControl* m_tasks;
    QTabBar* m_tabs;
    FileQuestion m_question;
};

} // namespace tarsel
