// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "tasks/EditedPicture.h"
#include "tasks/TaskList.h"
#include "tasks/TaskPanelState.h"

#include <QObject>
#include <deque>
#include <functional>

namespace tarsel {

/// The course of editing: the user opens the panel, chooses a task, tries it on the picture, confirms or
/// discards it, and leaves. Two snapshots carry it: the picture as it was loaded, from which the list is
/// replayed, and the working snapshot, the picture with every confirmed task, from which each preview
/// starts.
///
/// Previews are made in the background. A confirmed task needs its result, so Confirm waits for it; what the
/// user does meanwhile is done afterwards, in its order, so that speed makes no difference to the outcome.
class TaskWorkflow final : public QObject {
    Q_OBJECT
public:
    static const QString tasksGroup; ///< key of the group that holds the tasks
    static const QString nothing;    ///< key of the item that stands for no task

    TaskWorkflow(EditedPicture& picture, TaskList& tasks, TaskOptions& options);

    TaskPanelState state() const;
    bool isOpen() const { return m_isOpen; }
    /// The picture without the present task; null while nobody edits.
    const Picture& working() const { return m_working; }
    /// Whether the picture on show has more or less than the working snapshot.
    bool isTrying() const { return m_kind && (m_modified || m_restorePending); }
    /// Whether the end of editing may lose something that is on show or about to be.
    bool isUnfinished() const;
    /// Whether the picture holds a correction that is confirmed and can't be listed.
    bool isCorrected() const { return m_isCorrected; }

    // --- what the user does; the names of buttons stand for their click
    void CmdPreviewEdit();
    void choose(const QString& group, const QString& item);
    void cmdApply();
    void cmdOK();
    void cmdReset();
    void cmdOriginalImage();
    void optionsChanged();
    void setLive(bool live); ///< whether previews follow the options by themselves
    void regionWanted();     ///< is about to be selected on the picture
    void regionLeft();       ///< without one
    void rowClicked();       ///< of the list of confirmed tasks
    /// Changes the list with a function that returns whether the picture has to be made again. Waits for a
    /// task that is being confirmed.
    void changeRows(std::function<bool()> change);
    /// Asks about a preview that is not confirmed, if there is one. `then` is left out when the user stays.
    void end(std::function<void()> then);

    void correctionSaved(); ///< with the picture on show

    // --- what becomes of the picture
    void pictureSettled(bool failed); ///< it is no longer busy
    void pictureReplacing();          ///< another file is being loaded
    void pictureReplaced();           ///< and has been, or there is none any more
    void pictureRebuilt();            ///< from its file, while nobody edits

Q_SIGNALS:
    void stateChanged();
    void listShown(); ///< the picture becomes that of the list, whatever was selected on the one before

private:
    using Step = std::function<void()>;
    struct Event {
        Step step;
        bool isOfList = false; ///< and not about the picture on show
    };

    void post(Step step);
    void postOfList(Step step);
    void dropEvents();
    void drain();
    void whenSettled(std::function<void(bool failed)> next);
    void begin();
    void takeWorkingSnapshot(Step then = {});
    void leave();
    void openTask(int kind);
    void chooseTask(const QString& item);
    void endTask(const Step& then);
    void showFirstPiece();
    bool preview();
    void followOptions();
    void show(TaskRow row, PreviewReason reason);
    void previewFailed();
    void confirm(Step then);
    void commit(const Step& storeDefaults);
    void reset();
    void restoreWorking();
    void takeRows(Step then);

    EditedPicture& m_picture;
    TaskList& m_tasks;
    TaskOptions& m_options;

    bool m_isOpen = false; ///< the editing flag
    bool m_isLive = false;
    int m_kind = 0;
    TaskRow m_row; ///< of the last preview
    Picture m_working;
    bool m_firstPreview = true;    ///< none was made of the present task
    bool m_restorePending = false; ///< the picture on show is not what a preview or the next task starts from
    bool m_optionsChanged = false; ///< since the last preview
    bool m_modified = false;       ///< a preview is shown that is not confirmed
    bool m_regionBegun = false;    ///< of an eye
    bool m_isCorrected = false;
    bool m_previewInWork = false;
    std::function<void(bool failed)> m_next; ///< waits for the picture
    std::deque<Event> m_events;              ///< wait for m_next
};

} // namespace tarsel
