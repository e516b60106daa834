// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmMain.h"
#include "controls/DeletedDialog.h"
#include "help/forms/HelpDesk.h"
#include "help/forms/frmAbout.h"

namespace tarsel {

void frmMain::connectHelp() {
    m_help = new HelpDesk(m_options.manualFolder, this);
    for (const char* name : {"mnuManual", "mnuAbout"})
        addAction(&m_actions.action(name)); // a menu that is closed doesn't take their keys
    connect(&m_actions.action("mnuManual"), &QAction::triggered, m_help, &HelpDesk::showHere);
    connect(&m_actions.action("mnuAbout"), &QAction::triggered, this, [this] {
        auto* about = new frmAbout(this);
        deleteWhenClosed(*about);
        about->open(); // what runs goes on
    });
}

} // namespace tarsel
