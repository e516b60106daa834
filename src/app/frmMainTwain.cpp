// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/frmTwain.h"
#include "acquisition/scanner/Scanner.h"
#include "app/frmMain.h"
#include "collections/PageFiles.h"
#include "configuration/ConfigRecord.h"
#include "controls/DeletedDialog.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <utility>

namespace tarsel {

void frmMain::connectTwain() {
    connect(&m_actions.action("cmdTwainAcquire"), &QAction::triggered, this, &frmMain::cmdTwainAcquire_Click);
}

/// The process that talks to scanners lives as long as the dialog.
void frmMain::cmdTwainAcquire_Click() {
    if (isRunning())
        return;
    if (!m_twain) {
        m_twain = new frmTwain({ConfigRecord.Twain, m_scanMemory, temporaryFolder(m_options.programFolder)},
                               std::make_unique<Scanner>(), this);
        deleteWhenClosed(*m_twain);
        connect(m_twain, &frmTwain::acquired, this, &frmMain::subAddItemFromTwain);
        connect(m_twain, &frmTwain::saved, this, [this](const QString& path) {
            m_folderView.showWritten({path});
            SetStatus(tr("Saved %1").arg(path));
        });
        connect(m_twain, &QDialog::finished, this, [this] {
            m_twain = nullptr; // it goes a moment later, and must not be shown again until then
            if (std::exchange(m_closesAfterWriting, false))
                close();
        });
    }
    m_twain->show();
    m_twain->raise();
    m_twain->activateWindow();
}

/// Of captures too.
void frmMain::subAddItemFromTwain(const QString& path) {
    m_waitingPages << path;
    addWaitingPages();
}

/// One after the other: the next page arrives while the row of the one before it is being made. A batch works
/// on the basket as it was at its start. A stop is about other files: the page is added again after it.
void frmMain::addWaitingPages() {
    constexpr int pause = 200; // a message of the batch may still be on show
    if (m_addsPages || m_waitingPages.isEmpty())
        return;
    if (isRunning())
        return QTimer::singleShot(pause, this, &frmMain::addWaitingPages);
    const QScopedValueRollback adds(m_addsPages, true);
    while (m_loaded && !isRunning() && !m_waitingPages.isEmpty()) {
        const QString path = m_waitingPages.takeFirst();
        if (showCaptured(path))
            continue;
        m_waitingPages.prepend(path);
        return QTimer::singleShot(pause, this, &frmMain::addWaitingPages);
    }
}

} // namespace tarsel
