// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/forms/TaskOptionPage.h"

#include <QObject>
#include <optional>

namespace tarsel {

class ImageBox;
class ImageBoxView;
class SelectionOverlay;
class TaskPane;
class TaskWorkflow;

/// Lets the pages of the task panel ask for a selection on the picture, and takes the answer to them.
class PictureSelector final : public QObject {
    Q_OBJECT
public:
    PictureSelector(TaskPane& pane, ImageBoxView& view, ImageBox& box, TaskWorkflow& workflow,
                    QObject* parent);

private:
    void connectOverlay();
    void take(PictureSelection selection, bool wanted);
    void begin(PictureSelection selection);
    void cancel();
    void forget();
    void drop();
    void pageOpened();
    void raiseButtons(std::optional<PictureSelection> but = {});
    void endHover();
    Color colorAt(QPoint display) const;

    TaskPane& m_pane;
    ImageBoxView& m_view;
    SelectionOverlay& m_overlay;
    ImageBox& m_box;
    TaskWorkflow& m_workflow;
    TaskOptionPage* m_asking = nullptr; ///< for the selection that is made or shown
    bool m_isEye = false;
    bool m_raises = false; ///< the buttons, which the user did not
};

} // namespace tarsel
