// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// What the task panel and its buttons show.
struct TaskPanelState {
    bool isOpen = false;
    int kind = 0;          ///< of the present task; 0 for none
    QString title;         ///< of the options
    QString editButton;    ///< caption of CmdPreviewEdit
    QString okButton;      ///< caption of cmdOK
    bool cmdApply = false; ///< these are on
    bool cmdOK = false;
    bool cmdReset = false;
    bool cmdOriginalImage = false;
    bool cmdPreviewType = true;

    bool operator==(const TaskPanelState&) const = default;
};

} // namespace tarsel
