// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TaskPane.h"
#include "app/frmMain.h"
#include "collections/forms/ImageBoxView.h"
#include "collections/forms/PreviewPane.h"
#include "controls/Splitter.h"
#include "metadata/forms/MetadataPane.h"

// The window while the picture is edited.

namespace tarsel {

void frmMain::connectEditing() {
    const std::pair<const char*, void (TaskWorkflow::*)()> clicks[] = {
        {"CmdPreviewEdit", &TaskWorkflow::CmdPreviewEdit},
        {"mnuPreviewEdit", &TaskWorkflow::CmdPreviewEdit},
        {"cmdApply", &TaskWorkflow::cmdApply},
        {"cmdOK", &TaskWorkflow::cmdOK},
        {"cmdReset", &TaskWorkflow::cmdReset},
        {"cmdOriginalImage", &TaskWorkflow::cmdOriginalImage},
    };
    for (const auto& [name, click] : clicks)
        connect(&m_actions.action(name), &QAction::triggered, &m_workflow, click);
    connect(m_taskPane, &TaskPane::taskChosen, &m_workflow, &TaskWorkflow::choose);
    connect(m_taskPane, &TaskPane::optionsChanged, &m_workflow, &TaskWorkflow::optionsChanged);
    connect(&m_preview, &Preview::settled, &m_workflow, &TaskWorkflow::pictureSettled);
    connect(&m_preview, &Preview::loadingBegun, &m_workflow, &TaskWorkflow::pictureReplacing);
    connect(&m_preview, &Preview::replaced, &m_workflow, &TaskWorkflow::pictureReplaced);
    connect(&m_workflow, &TaskWorkflow::stateChanged, this, &frmMain::showEditing);
    showEditing();
}

void frmMain::showEditing() {
    const TaskPanelState state = m_workflow.state();
    QAction& edit = m_actions.action("CmdPreviewEdit");
    edit.setText(state.editButton);
    edit.setIconText(state.editButton);
    for (const char* name : {"cmdPreviewType", "mnuPreviewOriginal", "mnuPreviewOptimized"})
        m_actions.action(name).setEnabled(state.cmdPreviewType);
    // Another picture would drop what is not confirmed.
    m_actions.setEnabled({"cmdPreviewPrevious", "cmdPreviewNext"}, !state.isOpen);
    if (state.isOpen == m_taskPane->isHidden())
        showTaskPanel(state.isOpen);
    m_taskPane->showState(state);
}

/// Preview and panel fill the window while the panel is open.
void frmMain::showTaskPanel(bool open) {
    splRight->setVisible(!open);
    m_metadataPane->setVisible(!open);
    m_taskPane->setVisible(open);
    if (open)
        m_taskPane->setFocus();
    else
        m_previewPane->ibMain().setFocus();
}

} // namespace tarsel
