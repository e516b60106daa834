// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PictureSelector.h"
#include "app/TaskPane.h"
#include "app/frmMain.h"
#include "collections/BasketActions.h"
#include "collections/BasketFile.h"
#include "collections/OfferedFiles.h"
#include "collections/forms/BeforeView.h"
#include "collections/forms/ImageBoxView.h"
#include "collections/forms/PreviewPane.h"
#include "controls/HeldKey.h"
#include "controls/ProgressBar.h"
#include "controls/Splitter.h"
#include "metadata/forms/MetadataPane.h"
#include "tasks/TaskFile.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>

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
    connect(m_taskPane, &TaskPane::liveToggled, &m_workflow, &TaskWorkflow::setLive);
    connect(m_taskPane, &TaskPane::taskChosen, this, [this] { m_endsAtOnce = false; });
    connectBefore();
    new PictureSelector(*m_taskPane, m_previewPane->ibMain(), m_workspace.ibMain, m_workflow, this);
    const SelectionOverlay& selection = m_previewPane->ibMain().selection();
    connect(&selection, &SelectionOverlay::regionChanged, this, &frmMain::describeSelection);
    connect(&selection, &SelectionOverlay::armedChanged, this, &frmMain::describeSelection);
    showEditing();
}

/// In pixels of the picture, where the page counts those of the screen.
void frmMain::describeSelection() {
    const QString text = m_previewPane->ibMain().selection().description();
    if (!text.isEmpty())
        SetStatus(text);
    else if (!m_selectionText.isEmpty() &&
             m_workspace.sbMain.panel(QStringLiteral("status")) == m_selectionText)
        SetStatus(m_zoomText);
    m_selectionText = text;
}

void frmMain::connectBefore() {
    m_beforeView = new BeforeView(m_previewPane->ibMain());
    QAction& before = m_actions.action("cmdBefore");
    QAction& compare = m_actions.action("cmdCompare");
    for (QAction* each : {&before, &compare})
        each->setCheckable(true);
    connect(&before, &QAction::toggled, this, [this](bool on) {
        showBefore();
        m_beforeView->showAll(on);
    });
    connect(&compare, &QAction::toggled, this, [this](bool on) {
        showBefore();
        m_beforeView->compare(on);
    });
    // Whoever changes something wants to see it.
    const auto end = [&before] { before.setChecked(false); };
    connect(m_taskPane, &TaskPane::optionsChanged, &before, end);
    connect(m_taskPane, &TaskPane::taskChosen, &before, end);
    for (const char* name : {"cmdApply", "cmdOK", "cmdReset", "cmdOriginalImage"})
        connect(&m_actions.action(name), &QAction::triggered, &before, end);
    new HeldKey(Qt::Key_B, before, *this);
}

/// The picture before the present task, or before all of them while none is tried. It is kept for the screen
/// only while it may be seen.
void frmMain::showBefore() {
    const bool isWanted =
        m_actions.action("cmdBefore").isChecked() || m_actions.action("cmdCompare").isChecked();
    const Picture& picture = m_workflow.isTrying() ? m_workflow.working() : m_preview.original();
    if (!isWanted || !m_workflow.isOpen() || picture.isNull())
        return m_beforeView->setPicture({});
    PreviewPicture before = m_preview.shown();
    before.picture = picture;
    before.size = {picture.width(), picture.height()};
    before.isReduced = false;
    m_beforeView->setPicture(before);
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
    if (!state.isOpen)
        for (const char* name : {"cmdBefore", "cmdCompare"})
            m_actions.action(name).setChecked(false);
    showBefore();
    m_preview.describeEdited(state.isOpen);
    m_taskPane->showState(state);
}

/// Preview and panel fill the window while the panel is open.
void frmMain::showTaskPanel(bool open) {
    if (!open)
        m_taskPane->hide();
    splRight->setVisible(!open);
    m_metadataPane->setVisible(!open && m_preview.listsMetadata());
    // They take note now: else the panel would come beside what is hidden, and widen a small window.
    for (Splitter* splitter : {splView, splMain})
        splitter->refresh();
    if (open)
        m_taskPane->show();
    m_previewPane->offerMnemonics(!open);
    if (open)
        m_taskPane->setFocus();
    else
        m_previewPane->ibMain().setFocus();
}

// --- files of ours, from other programs

/// One task list, which takes the place of the rows. False for other files.
bool frmMain::openOfferedTasks(const QList<QUrl>& files) {
    const QString path = files.size() == 1 ? localPath(files.first()) : QString();
    if (!modSaveOpenImageList::isTaskFile(path))
        return false;
    whenAnswered(path, [this, path] {
        if (isRunning())
            return SetStatus(tr("Tasks can't be changed while a batch is running"));
        m_workflow.changeRows([this, path] {
            modSaveOpenImageList::fncOpenTaskBasket(path, m_workspace.tasks);
            return true; // a failed read has changed the rows too
        });
    });
    return true;
}

/// Calls `open` once the file system has answered for the file, which one of the network may never do. A file
/// that can't be read is reported by `open`.
void frmMain::whenAnswered(const QString& path, const std::function<void()>& open) {
    m_offeredQuestion.ask([path, open] {
        if (QFile file(path); QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly))
            std::ignore = file.read(1);
        return open;
    });
}

/// One basket file, which takes the place of the rows. False for other files.
bool frmMain::openOfferedBasket(const QList<QUrl>& files) {
    const QString path = files.size() == 1 ? localPath(files.first()) : QString();
    if (!modSaveOpenImageList::isBasketFile(path))
        return false;
    whenAnswered(path, [this, path] {
        if (!m_actions.action("cmdPagesOpen").isEnabled())
            return SetStatus(tr("Another basket can't be opened now"));
        CollectionLists lists = m_workspace.lists(*pbQueue);
        basketActions::openBasketFile(path, m_basket, lists);
    });
    return true;
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    if (files.size() == 1 && modSaveOpenImageList::isTaskFile(localPath(files.first())))
        event->acceptProposedAction();
}

/// After the drag, whose source waits for its end.
void frmMain::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, files = event->mimeData()->urls()] { openOfferedTasks(files); }, Qt::QueuedConnection);
}

void frmMain::openFile(const QString& argument) {
    showOfferedFile({urlOfArgument(argument, QDir::currentPath())});
}

} // namespace tarsel
