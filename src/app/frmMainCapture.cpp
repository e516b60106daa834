// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"
#include "acquisition/forms/frmCapture.h"
#include "app/frmMain.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "configuration/ConfigRecord.h"

#include <QDir>
#include <utility>

namespace tarsel {

void frmMain::connectCapture() {
    connect(&m_actions.action("cmdCapture"), &QAction::triggered, this, &frmMain::cmdCapture_Click);
    connect(&m_capture, &ScreenCapture::captured, this, &frmMain::subAddCapturedItem);
    connect(&m_imageDocument.background(), &BackgroundSave::ended, this, &frmMain::offerUnsavedCaptures);
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

/// The row comes once the file is whole; the preview shows it from there. A picture that can't be written
/// there is offered for another place.
void frmMain::subAddCapturedItem(const Picture& picture) {
    const settings::PublishingSettings& settings = ConfigRecord;
    TrappingString = QStringLiteral("Saving a picture of the screen");
    const QString path = newCapturedFile(settings.CaptureFolder, settings.CaptureGeneric);
    m_imageDocument.background().start(path, "FrmMain.subAddCapturedItem", [this, picture, path] {
        ImageBox box;
        box.setPictureHandle(picture);
        const auto failure = failureOf([&] { box.SaveToFile(path); });
        QMetaObject::invokeMethod(
            this, [=, this] { failure ? m_unsavedCaptures.push_back(box) : subAddItemFromTwain(path); },
            Qt::QueuedConnection);
        if (failure)
            throw *failure;
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

/// After the report of why they weren't saved.
void frmMain::offerUnsavedCaptures() {
    for (const ImageBox& box : std::exchange(m_unsavedCaptures, {}))
        m_imageDocument.ShowSaveDialog(
            box,
            QDir(m_options.programFolder).filePath(ConfigRecord.CaptureGeneric + QStringLiteral(".tif")));
}

} // namespace tarsel
