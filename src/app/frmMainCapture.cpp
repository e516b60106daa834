// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"
#include "acquisition/forms/frmCapture.h"
#include "app/frmMain.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/RandomNumbers.h"
#include "configuration/ConfigRecord.h"
#include "configuration/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>
#include <utility>

namespace tarsel {

void frmMain::connectCapture() {
    connect(&m_actions.action("cmdCapture"), &QAction::triggered, this, &frmMain::cmdCapture_Click);
    connect(&m_capture, &ScreenCapture::waiting, this,
            [this] { SetStatus(tr("Waiting for the picture of the screen from the desktop")); });
    connect(&m_capture, &ScreenCapture::captured, this, &frmMain::subAddCapturedItem);
    connect(&m_imageDocument, &ImageDocument::savedElsewhere, this, &frmMain::subAddItemFromTwain);
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
    const QString folder = settings.CaptureFolder, prefix = settings.CaptureGeneric;
    const double drawn = service<RandomNumbers>().randomNumber();
    const QString drawnFile = capturedFile(folder, prefix, drawn);
    m_imageDocument.background().start(drawnFile, "FrmMain.subAddCapturedItem", [=, this] {
        ImageBox box;
        box.setPictureHandle(picture);
        QString path;
        const auto failure = failureOf(
            [&] { path = saveCapturedFile(folder, prefix, drawn, box.encoded(QStringLiteral("tif"))); });
        QMetaObject::invokeMethod(
            this,
            [=, this] {
                if (failure)
                    m_unsavedCaptures.emplace_back(QFileInfo(drawnFile).fileName(), box);
                else
                    subAddItemFromTwain(path);
            },
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
    const QDir folder(visibleFolder(m_options.programFolder));
    for (const auto& [name, box] : std::exchange(m_unsavedCaptures, {}))
        m_imageDocument.SaveElsewhere(box, folder.filePath(name));
}

} // namespace tarsel
