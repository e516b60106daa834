// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"
#include "tasks/TaskRow.h"

#include <functional>

namespace tarsel {

/// Whether the user asked for a preview, or it follows the options. Then it makes no fuss: nothing says that
/// work is in progress, and a failure is not reported.
enum class PreviewReason { Asked, Followed };

/// The picture on show, as the course of editing needs it. What takes time is done in the background: then
/// the picture is busy until TaskWorkflow::pictureSettled is called. A newer call drops what an older one
/// has begun.
class EditedPicture {
public:
    virtual ~EditedPicture() = default;
    /// Holds the picture on show; while that is busy, the one before.
    virtual ImageBox& box() = 0;
    virtual bool isBusy() const = 0;
    /// Whether pictures are shown with the tasks when nobody edits.
    virtual bool showsTasks() const = 0;
    virtual void showOriginal() = 0;
    /// With the tasks up to the selected one; while `editing`, of the list beside the preview.
    virtual void showTasks(bool editing) = 0;
    virtual void showSnapshot(const Picture& snapshot) = 0;
    /// What previewStep() makes of a snapshot.
    virtual void showPreview(const Picture& start, const TaskRow& row, PreviewReason reason) = 0;
};

/// The page with the options of the present task.
class TaskOptions {
public:
    virtual ~TaskOptions() = default;
    /// The size from which width and height keep their ratio.
    virtual void setBaseSize(int width, int height) = 0;
    /// Shows the page of a kind with its defaults, for the picture in the box; no page for kind 0.
    virtual void open(int kind, const ImageBox& box) = 0;
    /// The picture has changed under the page.
    virtual void setPicture(const ImageBox&) {}
    virtual TaskRow row() const = 0;
    /// Makes what the page shows now the defaults of the kind, once it is called.
    virtual std::function<void()> shownDefaults() = 0;
    /// The user asked for a preview, for which this row was made of the options.
    virtual void previewed(const TaskRow&) {}
};

} // namespace tarsel
