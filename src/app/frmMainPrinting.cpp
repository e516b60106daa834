// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmMain.h"

#include <QScopedValueRollback>

namespace tarsel {

void frmMain::connectPrinting() {
    const std::pair<const char*, void (Printing::*)()> commands[] = {
        {"cmdPreviewPrint", &Printing::cmdPreviewPrint},
        {"cmdBatchPrint", &Printing::cmdBatchPrint},
    };
    for (const auto& [name, command] : commands)
        connect(&m_actions.action(name), &QAction::triggered, this, [this, command] { print(command); });
    connect(&m_printing, &Printing::progressed, this, &frmMain::SetStatus);
}

/// Not beside a batch, which takes the same window.
void frmMain::print(void (Printing::*command)()) {
    if (isRunning())
        return;
    const QScopedValueRollback running(m_run, Run::Printing);
    m_endsAtOnce = false;
    (m_printing.*command)();
}

} // namespace tarsel
