// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskWorkflow.h"

#include "base/DialogSubject.h"
#include "base/Dialogs.h"
#include "base/ErrorReport.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "tasks/PreviewStep.h"

#include <QCoreApplication>
#include <utility>

namespace tarsel {

namespace {

constexpr int snapshotFormat = 7;
constexpr int redEye = 16;

constexpr const char* subjectName = "picTask";

int kindOfItem(const QString& item) {
    for (const TaskKind& kind : taskKinds())
        if (item == QLatin1String(kind.panelKey))
            return kind.number;
    return 0;
}

void inform(const QString& text) {
    const DialogSubject subject(subjectName);
    service<Dialogs>().messageBox(text, MessageIcon::Information, MessageButtons::Ok, ApplicationName);
}

} // namespace

const QString TaskWorkflow::tasksGroup = QStringLiteral("Special Group");
const QString TaskWorkflow::nothing = QStringLiteral("Nothing");

TaskWorkflow::TaskWorkflow(EditedPicture& picture, TaskList& tasks, TaskOptions& options) :
    m_picture(picture), m_tasks(tasks), m_options(options) {}

TaskPanelState TaskWorkflow::state() const {
    TaskPanelState state;
    state.isOpen = m_isOpen;
    state.kind = m_kind;
    state.title =
        m_kind ? QCoreApplication::translate("TaskKinds", taskKind(m_kind)->optionTitle) : tr("Options");
    state.editButton = m_isOpen ? tr("  Finish") : tr("  Edit");
    state.okButton = m_kind ? tr("Confirm") : tr("Finish");
    const auto isRegionLeft = [this] {
        return m_kind != redEye && !missingRegionText(m_options.row()).isEmpty();
    };
    state.cmdApply = m_kind && (m_optionsChanged || (m_firstPreview && !isRegionLeft()));
    state.cmdOK = m_isOpen && (m_kind != redEye || m_regionBegun || !m_firstPreview);
    state.cmdReset = m_kind && !m_firstPreview;
    state.cmdOriginalImage = m_isOpen && m_tasks.count() > 0;
    state.cmdPreviewType = !m_isOpen;
    return state;
}

// --- events and what they wait for

void TaskWorkflow::post(Step step) {
    m_events.push_back({std::move(step)});
    drain();
}

void TaskWorkflow::postOfList(Step step) {
    m_events.push_back({std::move(step), true});
    drain();
}

/// Of the picture that goes.
void TaskWorkflow::dropEvents() {
    std::erase_if(m_events, [](const Event& event) { return !event.isOfList; });
}

void TaskWorkflow::drain() {
    while (!m_next && !m_events.empty()) {
        const Step step = std::move(m_events.front().step);
        m_events.pop_front();
        step();
    }
    Q_EMIT stateChanged();
}

void TaskWorkflow::whenSettled(std::function<void(bool failed)> next) {
    if (m_picture.isBusy())
        m_next = std::move(next);
    else
        next(false);
}

void TaskWorkflow::pictureSettled(bool failed) {
    const bool previewed = std::exchange(m_previewInWork, false);
    if (const auto next = std::exchange(m_next, nullptr))
        next(failed);
    else if (previewed && failed)
        previewFailed();
    drain();
}

void TaskWorkflow::pictureReplacing() {
    m_previewInWork = false;
    dropEvents();
    m_next = [](bool) {};
}

/// What the user did meanwhile was about the picture before.
void TaskWorkflow::pictureReplaced() {
    m_next = nullptr;
    m_isCorrected = false;
    if (m_isOpen) {
        dropEvents();
        m_working = {};
        if (m_picture.box().HasImage())
            begin();
        else
            leave();
    }
    drain();
}

// --- entering and leaving

void TaskWorkflow::CmdPreviewEdit() {
    post([this] {
        if (m_isOpen)
            leave();
        else if (m_picture.box().HasImage()) {
            m_isOpen = true;
            begin();
        }
    });
}

void TaskWorkflow::begin() {
    m_options.setBaseSize(m_picture.box().Width(), m_picture.box().Height());
    openTask(0);
    // Each view of the list has a selected row, at which its picture ends.
    if (!m_picture.showsTasks() || m_tasks.lvEdit.selectedIndex() != m_tasks.lvEditPreview.selectedIndex()) {
        m_isCorrected = false;
        m_picture.showTasks(true);
    }
    takeWorkingSnapshot();
}

/// Of what is going to be on show.
void TaskWorkflow::takeWorkingSnapshot(Step then) {
    m_restorePending = false;
    whenSettled([this, then = std::move(then)](bool) {
        m_working = m_picture.box().SaveToMemory(snapshotFormat);
        if (then)
            then();
    });
}

void TaskWorkflow::leave() {
    reset();
    m_isOpen = false;
    m_isCorrected = m_isCorrected && m_picture.showsTasks(); // where the picture stays as it is
    m_kind = 0;
    m_optionsChanged = false;
    m_working = {};
    if (!m_picture.showsTasks() && m_picture.box().HasImage())
        m_picture.showOriginal();
}

// --- choosing

void TaskWorkflow::choose(const QString& group, const QString& item) {
    if (group.compare(tasksGroup, Qt::CaseInsensitive) == 0)
        post([this, item] { chooseTask(item); });
}

/// What was entered for the present task stays when it is chosen once more.
void TaskWorkflow::chooseTask(const QString& item) {
    if (!m_isOpen)
        return;
    const bool isPresent = m_kind && !m_modified && kindOfItem(item) == m_kind;
    endTask([this, item, isPresent] {
        if (std::exchange(m_restorePending, false))
            restoreWorking();
        if (!isPresent)
            openTask(kindOfItem(item));
        showFirstPiece();
    });
}

void TaskWorkflow::end(Step then) {
    postOfList([this, then = std::move(then)] { endTask(then); });
}

bool TaskWorkflow::isUnfinished() const {
    return m_isOpen && (m_modified || m_next || !m_events.empty());
}

void TaskWorkflow::endTask(const Step& then) {
    if (!m_modified)
        return then();
    const DialogSubject subject(subjectName);
    switch (service<Dialogs>().messageBox(
        tr("The image has been modified!\nDo you want to confirm the changes made to the image?"),
        MessageIcon::Information, MessageButtons::YesNoCancel, ApplicationName)) {
    case MessageAnswer::Yes:
        return confirm(then);
    case MessageAnswer::No:
        reset();
        return then();
    default:
        return;
    }
}

/// Shows the page of a task as it was left with the last confirmed one, and nothing of it in the picture.
void TaskWorkflow::openTask(int kind) {
    m_kind = kind;
    m_row = {};
    m_firstPreview = true;
    m_modified = m_regionBegun = false;
    m_picture.box().ClearSelection();
    m_options.open(kind, m_picture.box());
    m_optionsChanged = kind && previewsAtOnce(m_options.row());
}

void TaskWorkflow::optionsChanged() {
    if (m_kind)
        m_optionsChanged = true;
    if (m_isLive)
        post([this] { followOptions(); });
    else
        Q_EMIT stateChanged();
}

void TaskWorkflow::setLive(bool live) {
    if (std::exchange(m_isLive, live) != live && live)
        post([this] { followOptions(); });
}

/// A region is selected on the picture without the present task.
void TaskWorkflow::regionWanted() {
    post([this] {
        if (!m_kind)
            return;
        reset();
        if (m_kind == redEye)
            openTask(redEye);
        m_regionBegun = m_kind == redEye;
        m_optionsChanged = m_kind != redEye;
    });
}

/// Without a region there is nothing to preview. Other options stay as changed as they are.
void TaskWorkflow::regionLeft() {
    post([this] {
        if (m_kind && !missingRegionText(m_options.row()).isEmpty())
            m_optionsChanged = false;
    });
}

// --- preview, confirm, reset

void TaskWorkflow::cmdApply() {
    post([this] {
        if (m_optionsChanged)
            preview();
    });
}

/// Whatever is on show, a preview starts from the working snapshot: effects don't add up.
/// False for options of which no row can be made.
bool TaskWorkflow::preview() {
    TaskRow row = m_options.row();
    QString refusal;
    const auto record = [&] {
        refusal = missingRegionText(row, m_picture.box(), m_working);
        if (!refusal.isEmpty())
            return;
        row = recordedRow(m_picture.box(), m_working, row);
        refusal = reversedRegionText(row);
    };
    if (trap("FrmMain.cmdApply_Click", record))
        return false;
    if (!refusal.isEmpty()) {
        inform(refusal);
        return false;
    }
    m_options.previewed(row); // for what is asked for alone: else a clicked place would move with each change
    show(std::move(row), PreviewReason::Asked);
    if (const QString text = missingPictureText(m_row); !text.isEmpty())
        inform(text);
    return true;
}

/// Options that can't be shown wait without a message for the user to go on typing.
void TaskWorkflow::followOptions() {
    if (!m_optionsChanged || m_working.isNull())
        return;
    TaskRow row = m_options.row();
    if (followsOptions(row) && !failureOf([&] { row = recordedRow(m_picture.box(), m_working, row); }))
        show(std::move(row), PreviewReason::Followed);
}

/// Frames and the like are chosen by their look. To the user the task is still as it was opened.
void TaskWorkflow::showFirstPiece() {
    const TaskRow row = m_options.row();
    if (!m_isLive || m_working.isNull() || !showsAsItOpens(row))
        return;
    m_picture.showPreview(m_working, row, PreviewReason::Followed);
    m_restorePending = m_previewInWork = true;
}

void TaskWorkflow::show(TaskRow row, PreviewReason reason) {
    m_row = std::move(row);
    m_picture.showPreview(m_working, m_row, reason);
    m_restorePending = m_firstPreview = m_optionsChanged = false;
    m_modified = m_previewInWork = true;
}

/// The picture stays as far as the step had come, which Reset takes back. The preview doesn't count as made.
void TaskWorkflow::previewFailed() {
    m_modified = false;
    m_optionsChanged = m_restorePending = true;
}

void TaskWorkflow::cmdOK() {
    post([this] {
        if (m_kind)
            confirm({});
        else if (m_isOpen)
            leave();
    });
}

/// A task is recorded once its result is there, with what the preview was made of; so are the defaults,
/// whatever the page shows by then. `then` is left out when that fails.
void TaskWorkflow::confirm(Step then) {
    const bool previewsFirst = m_optionsChanged || (m_firstPreview && m_kind != redEye);
    if (previewsFirst && !preview())
        return;
    const Step storeDefaults = m_kind == redEye ? Step() : m_options.shownDefaults();
    whenSettled([this, storeDefaults, then = std::move(then)](bool failed) {
        if (failed)
            return previewFailed();
        commit(storeDefaults);
        if (then)
            then();
    });
}

void TaskWorkflow::commit(const Step& storeDefaults) {
    if (storeDefaults) {
        m_tasks.append(m_row);
        storeDefaults();
    } else {
        m_isCorrected = true;
    }
    openTask(0);
    takeWorkingSnapshot();
}

void TaskWorkflow::correctionSaved() {
    m_isCorrected = false;
}

void TaskWorkflow::pictureRebuilt() {
    m_isCorrected = false;
}

void TaskWorkflow::cmdReset() {
    post([this] {
        if (!m_kind)
            return;
        reset();
        openTask(m_kind);
    });
}

void TaskWorkflow::reset() {
    if (!m_firstPreview || m_restorePending)
        restoreWorking();
    m_firstPreview = true;
    m_modified = m_restorePending = false;
}

void TaskWorkflow::restoreWorking() {
    m_previewInWork = false;
    if (!m_working.isNull())
        m_picture.showSnapshot(m_working);
}

// --- the list

void TaskWorkflow::cmdOriginalImage() {
    post([this] {
        if (m_tasks.count() == 0)
            return;
        const DialogSubject subject(subjectName);
        const MessageAnswer answer = service<Dialogs>().messageBox(
            tr("Resetting to original image will erase all editing functions from the batch list!\n"
               " Do you want to continue?"),
            MessageIcon::Information, MessageButtons::YesNo, ApplicationName);
        if (answer != MessageAnswer::Yes)
            return;
        m_tasks.clear();
        takeRows([this] { openTask(m_kind); });
    });
}

void TaskWorkflow::changeRows(std::function<bool()> change) {
    const Step take = [this] { takeRows([this] { m_options.setPicture(m_picture.box()); }); };
    if (!m_isOpen) { // nothing is being confirmed, and no dialog waits for a picture
        if (change())
            post(take);
        return;
    }
    postOfList([change = std::move(change), take] {
        if (change())
            take();
    });
}

/// Shows the picture with the list as it is now, and goes on from there. `then` finds it on show.
void TaskWorkflow::takeRows(Step then) {
    m_previewInWork = false;
    Q_EMIT listShown();
    m_isCorrected = false;
    m_picture.showTasks(m_isOpen);
    if (!m_isOpen)
        return;
    m_firstPreview = true;
    m_modified = false;
    m_optionsChanged = m_kind != 0;
    takeWorkingSnapshot(std::move(then));
}

/// The picture shows the list up to that row. Neither the list nor the working snapshot changes.
void TaskWorkflow::rowClicked() {
    post([this] {
        if (m_tasks.count() == 0)
            return;
        m_previewInWork = false;
        Q_EMIT listShown();
        m_picture.showTasks(m_isOpen);
        m_isCorrected = m_isCorrected && m_isOpen; // the working snapshot still is
        m_restorePending = m_isOpen;
        m_optionsChanged = m_kind != 0;
    });
}

} // namespace tarsel
