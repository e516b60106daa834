// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "tasks/TaskColumns.h"

#include <QPoint>
#include <QWidget>
#include <optional>

namespace tarsel {

/// What a page may ask the user to show on the picture.
enum class PictureSelection { Region, Location, BackColor, Eye };

/// The options of one kind of task.
class TaskOptionPage : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// The size of the picture now, and when editing began. To be called before showRow.
    virtual void setPicture(QSize present, QSize base) = 0;
    /// Shows the settings, then the row's columns where they hold a text. Emits nothing.
    virtual void showRow(const TaskRow& row) = 0;
    /// The row as the controls show it. Columns that depend on the picture box are empty: the point where a
    /// text starts at a named position, StretchToFit, a region selected with the mouse.
    virtual TaskRow row() const = 0;
    /// The defaults with what the controls show.
    virtual TaskDefaults shownDefaults() const = 0;
    /// Whether a slider that is dragged changes the page at once, or when it is released.
    virtual void setLive(bool live) = 0;

    // --- selection on the picture
    /// Raises the button that asked.
    virtual void endSelection(PictureSelection selection) = 0;
    /// The point that a text or a merged picture is placed at. Setting it is a change by the user.
    virtual void setLocation(QPoint location) = 0;
    virtual QPoint location() const = 0;
    virtual void setBackColor(Color color) = 0; ///< also a change, unlike the next
    /// Shows a colour that the user may pick; its own one again for none. Rows never have it.
    virtual void hoverBackColor(std::optional<Color> color) = 0;
    /// Corners as dragged, which the rows from now on have.
    virtual void showRegion(QPoint start, QPoint end) = 0;
    /// Keeps the point that a preview has converted.
    virtual void keepLocation(const TaskRow& recorded) = 0;

Q_SIGNALS:
    void changed(); ///< by the user
    void selectionWanted(tarsel::PictureSelection selection, bool wanted);
};

/// The page of a kind, which shows its defaults. For kind 0, and for a task without options, it has a text
/// only; null for an unknown kind. `defaults` must outlive it.
TaskOptionPage* makeTaskOptionPage(int kind, TaskDefaults& defaults, QWidget* parent = nullptr);

} // namespace tarsel
