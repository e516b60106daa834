// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/EditedPicture.h"
#include "tasks/TaskColumns.h"
#include "tasks/TaskList.h"
#include "tasks/TaskPanelState.h"
#include "tasks/forms/TaskOptionPage.h"

#include <QSize>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <map>

class QAction;
class QCheckBox;
class QLabel;
class QPushButton;

namespace tarsel {

class ActionTable;
class ColorWell;
class isExplorerBar;
class ListControl;

/// The panel of tasks beside the preview: the tasks, the options of the present one, the confirmed ones, and
/// the buttons. What a click means is decided by TaskWorkflow.
class TaskPane final : public QWidget, public TaskOptions {
    Q_OBJECT
public:
    TaskPane(TaskList& tasks, TaskDefaults& defaults, const ActionTable& actions, QWidget* parent = nullptr);

    ListControl& lvEditPreview() const { return *m_confirmed; }
    void showState(const TaskPanelState& state);
    void setLive(bool live); ///< whether previews follow the options
    bool isLive() const;

    void setBaseSize(int width, int height) override;
    void open(int kind, const ImageBox& box) override;
    void setPicture(const ImageBox& box) override;
    TaskRow row() const override;
    std::function<void()> shownDefaults() override;
    void previewed(const TaskRow& row) override;
    TaskOptionPage* page() const { return m_page; } ///< on show; null before the first one

Q_SIGNALS:
    void taskChosen(const QString& group, const QString& item);
    void optionsChanged();
    void liveToggled(bool live);
    void selectionWanted(tarsel::PictureSelection selection, bool wanted);
    void pageOpened(); ///< with its defaults
    void previewBegun();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addTasks();
    TaskOptionPage* pageOf(int kind);
    void changePage(int kind);
    ColorWell* backColorWell() const; ///< of the page on show; null when it has none
    void orderTabs();
    void layOutOptions();
    void scrollToOptions();
    QWidget* makeConfirmed();
    QWidget* makeButtons();
    QPushButton* makeButton(const char* name);
    QPushButton& button(const char* name) const;
    void moveFocus(const QWidget* focused, const TaskPanelState& state);

    TaskDefaults& m_defaults;
    const ActionTable& m_actions;
    isExplorerBar* m_bar;
    ListControl* m_confirmed;
    QLabel* m_title;
    QCheckBox* m_live;
    QWidget* m_options;                     ///< holds the pages
    std::map<int, TaskOptionPage*> m_pages; ///< by kind, made when they are opened
    TaskOptionPage* m_page = nullptr;       ///< on show
    int m_kind = 0;                         ///< of m_page
    QVariant m_backColor;                   ///< last shown
    bool m_previewBegun = false;            ///< asked for; the state that follows from it is not shown yet
    QSize m_base;
};

} // namespace tarsel
