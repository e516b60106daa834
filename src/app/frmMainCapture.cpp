// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"
#include "acquisition/forms/frmCapture.h"
#include "app/frmMain.h"
#include "configuration/ConfigRecord.h"

namespace tarsel {

void frmMain::connectCapture() {
    connect(&m_actions.action("cmdCapture"), &QAction::triggered, this, &frmMain::cmdCapture_Click);
    connect(&m_capture, &ScreenCapture::captured, this, &frmMain::subAddCapturedItem);
}

void frmMain::cmdCapture_Click() {
    if (isRunning() || m_capture.isRunning())
        return;
    frmCapture dialog(ConfigRecord, m_capturesPointer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    dropSelection();
    m_capturesPointer = dialog.choice().withPointer;
    m_capture.subCapture(dialog.choice());
}

/// The row comes once the file is whole; the preview shows it from there.
void frmMain::subAddCapturedItem(const Picture& picture) {
    const settings::PublishingSettings& settings = ConfigRecord;
    const QString path = newCapturedFile(settings.CaptureFolder, settings.CaptureGeneric);
    m_imageDocument.background().start(path, "FrmMain.subAddCapturedItem", [this, picture, path] {
        ImageBox box;
        box.setPictureHandle(picture);
        box.SaveToFile(path);
        QMetaObject::invokeMethod(
            this, [this, path] { showCaptured(path); }, Qt::QueuedConnection);
    });
}

void frmMain::showCaptured(const QString& path) {
    ListView& pages = m_workspace.lvPages;
    const int rows = pages.count();
    m_basket.subAddEntryToListView(path);
    if (pages.count() == rows)
        return;
    pages.selectOnly(pages.count() - 1);
    m_preview.ShowRow(pages, pages.count() - 1);
}

} // namespace tarsel
