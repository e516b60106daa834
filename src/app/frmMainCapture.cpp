// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"
#include "acquisition/forms/frmCapture.h"
#include "app/frmMain.h"
#include "base/AcquiredFiles.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "collections/PageFiles.h"
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

/// The picture is on show at once; its row comes when the file is there. Only threads touch the folder, which
/// may be one of the network.
void frmMain::subAddCapturedItem(const Picture& picture) {
    const settings::PublishingSettings& settings = ConfigRecord;
    TrappingString = QStringLiteral("Saving a picture of the screen");
    const QString folder = settings.CaptureFolder, prefix = settings.CaptureGeneric;
    const float number = drawCaptureNumber();
    const QString path = capturedFile(folder, prefix, number);
    if (!isRunning())
        m_preview.showNew(picture, path);
    const auto listIfTemporary = [temporary = temporaryFolder(m_options.programFolder)](const QString& file) {
        acquiredFiles::listIfIn(temporary, file);
    };
    m_imageDocument.background().startNew(path, "FrmMain.subAddCapturedItem", [=, this] {
        ImageBox box;
        box.setPictureHandle(picture);
        QString made = path;
        const auto failure = failureOf([&] {
            made = writeCapturedFile(folder, prefix, number, box.encoded(QStringLiteral("tif")),
                                     listIfTemporary);
        });
        QMetaObject::invokeMethod(
            this, [=, this] { takeCaptured(box, made, !failure); }, Qt::QueuedConnection);
        if (failure)
            throw *failure;
        return made;
    });
}

/// A picture that isn't saved waits for the report of the reason.
void frmMain::takeCaptured(const ImageBox& box, const QString& path, bool isSaved) {
    if (isSaved)
        subAddItemFromTwain(path);
    else
        m_unsavedCaptures.emplace_back(box, QFileInfo(path).fileName());
}

/// The preview may have the picture already. False where the adding was stopped.
bool frmMain::showCaptured(const QString& path) {
    ListView& pages = m_workspace.lvPages;
    const int rows = pages.count();
    m_basket.subAddEntryToListView(path);
    if (pages.count() <= rows) // fewer after New Basket
        return !m_basket.wasStopped();
    pages.selectOnly(pages.count() - 1);
    if (m_preview.wantedPath() == path)
        m_preview.reload();
    else
        m_preview.showAdded(pages, pages.count() - 1);
    return true;
}

/// In the program's own folder, unless the user chooses another one; again until it is saved or given up.
void frmMain::offerUnsavedCaptures() {
    const QDir folder(visibleFolder(m_options.programFolder));
    for (const auto& [box, name] : std::exchange(m_unsavedCaptures, {}))
        m_imageDocument.ShowRescueDialog(
            box, folder.filePath(name),
            [this, box = box](const QString& path, bool isSaved) { takeCaptured(box, path, isSaved); });
}

} // namespace tarsel
