// SPDX-License-Identifier: GPL-3.0-or-later
#include "docs/screenshots/SampleDialogs.h"

#include "acquisition/forms/frmCapture.h"
#include "acquisition/forms/frmScanOptions.h"
#include "acquisition/forms/frmTwain.h"
#include "app/MainActions.h"
#include "app/frmErrorReport.h"
#include "app/frmSettings.h"
#include "base/IgnoringErrors.h"
#include "collections/forms/frmAlbumDescription.h"
#include "controls/ProgressBar.h"
#include "controls/frmStatus.h"
#include "docs/screenshots/SampleScanner.h"
#include "help/forms/frmAbout.h"
#include "help/forms/frmManual.h"
#include "imaging/ImageBox.h"
#include "metadata/forms/frmExifEditAttribute.h"
#include "metadata/forms/frmExifNewAttribute.h"
#include "metadata/forms/frmIPTCCategory.h"
#include "metadata/forms/frmIPTCKeywords.h"
#include "output/forms/frmBatchResults.h"
#include "output/forms/frmJpegQuality.h"
#include "output/forms/frmPrint.h"
#include "output/forms/frmSaveAdvanced.h"
#include "output/forms/frmSaveSinglePage.h"
#include "publishing/forms/frmAlbum.h"
#include "publishing/forms/frmExecutable.h"
#include "publishing/forms/frmInsertMetadata.h"
#include "publishing/forms/frmScreenSaverOptions.h"

#include <QCoreApplication>
#include <QPageSize>
#include <QPushButton>
#include <utility>

namespace tarsel {

SampleDialogs::SampleDialogs(ListView& lvPages, ConfigRecordData record) :
    m_pages(lvPages), m_record(std::move(record)) {
    m_record.BatchSave.NameOption = 1;
    m_record.BatchSave.DestinationOption = 1;
    m_record.BatchSave.RenamePrefix = QStringLiteral("Summer");
    m_record.Album.AlbumFolder = QStringLiteral("/home/marta/public_html");
}

std::vector<std::unique_ptr<QDialog>> SampleDialogs::all(QWidget* owner) {
    std::vector<std::unique_ptr<QDialog>> dialogs;
    dialogs.push_back(std::make_unique<frmSettings>(
        m_record, ActionTable(mainActions(), mainActionsContext).shortcuts(), owner));
    dialogs.push_back(saveDialog(owner));
    dialogs.push_back(progress(owner));
    dialogs.push_back(results(owner));
    dialogs.push_back(errorReport(owner));
    dialogs.push_back(std::make_unique<frmJpegQuality>(m_record.SaveAdvanced, owner));
    dialogs.push_back(printDialog(owner));
    const QString artist = QStringLiteral("Artist"), taken = QStringLiteral("DateTimeOriginal");
    dialogs.push_back(std::make_unique<frmExifEditAttribute>(artist, QStringLiteral("Ann"), owner));
    dialogs.push_back(
        std::make_unique<frmExifEditAttribute>(taken, QStringLiteral("1/31/2004 3:05:09 PM"), owner));
    dialogs.push_back(std::make_unique<frmExifNewAttribute>(ListView(), owner));
    dialogs.push_back(std::make_unique<frmIPTCKeywords>(
        QStringList{QStringLiteral("river"), QStringLiteral("lake")}, owner));
    dialogs.push_back(std::make_unique<frmIPTCCategory>(QStringList{QStringLiteral("water")}, 3, owner));
    dialogs.push_back(std::make_unique<frmAlbum>(m_record.Album, owner));
    dialogs.push_back(std::make_unique<frmInsertMetadata>(owner));
    dialogs.push_back(std::make_unique<frmCapture>(m_record, false, owner));
    dialogs.push_back(scanDialog(owner));
    dialogs.push_back(scanOptions(owner));
    dialogs.push_back(std::make_unique<frmManual>(Manual::read(manualFolder()), owner));
    dialogs.push_back(std::make_unique<frmAbout>(owner));
    if (!m_pages.isEmpty()) {
        dialogs.push_back(interactiveSave(owner));
        dialogs.push_back(saverDialog(owner));
        dialogs.push_back(greeting(owner));
        dialogs.push_back(std::make_unique<frmAlbumDescription>(m_pages, 0, owner));
    }
    return dialogs;
}

std::unique_ptr<QDialog> SampleDialogs::saveDialog(QWidget* owner) {
    return std::make_unique<frmSaveSinglePage>(m_record.BatchSave, m_pages, m_tasks, owner);
}

/// Of the pictures of the basket, as they are on the disk.
std::unique_ptr<QDialog> SampleDialogs::printDialog(QWidget* owner) {
    m_layout = {.paper = QPageSize::A4,
                .marginAcross = 10,
                .marginDown = 10,
                .perPage = 2,
                .caption = PrintLayout::Name};
    QStringList paths, names;
    for (int i = 0; i < m_pages.count(); ++i) {
        paths << m_pages.row(i).tag;
        names << m_pages.row(i).text;
    }
    const auto load = [paths](int index) {
        ImageBox box;
        box.LoadFromFile(paths.value(index));
        return printPictureOf(box, {});
    };
    const auto caption = [names](const PrintLayout&, int index) { return names.value(index); };
    return std::make_unique<frmPrint>(m_layout, PrintSubject{std::max(1, m_pages.count()), load, caption},
                                      owner);
}

std::unique_ptr<QDialog> SampleDialogs::interactiveSave(QWidget* owner) {
    ImageBox box;
    ignoringErrors([&] { box.LoadFromFile(m_pages.row(0).tag); });
    box.Tag = m_pages.row(0).tag;
    return std::make_unique<frmSaveAdvanced>(
        frmSaveAdvanced::Start{std::move(box), m_pages.row(0).tag, m_folder.path()}, m_record.SaveAdvanced,
        m_record.BatchSave, m_background, owner);
}

std::unique_ptr<QDialog> SampleDialogs::saverDialog(QWidget* owner) {
    const QPixmap picture(m_pages.row(0).tag);
    return std::make_unique<frmScreenSaverOptions>(
        m_record, std::vector<SaverSample>{{picture, picture.size()}}, owner);
}

std::unique_ptr<QDialog> SampleDialogs::greeting(QWidget* owner) {
    ImageBox box;
    ignoringErrors([&] { box.LoadFromFile(m_pages.row(0).tag); });
    return std::make_unique<frmExecutable>(m_record, box.picture(), owner);
}

/// With the first picture on the glass.
std::unique_ptr<QDialog> SampleDialogs::scanDialog(QWidget* owner) {
    auto scanner = std::make_unique<SampleScanner>();
    if (!m_pages.isEmpty()) {
        ImageBox box;
        ignoringErrors([&] { box.LoadFromFile(m_pages.row(0).tag); });
        scanner->page = box.picture();
    }
    m_record.Twain.Acquire = m_record.Twain.FileOption = 1;
    SampleScanner& sample = *scanner;
    auto dialog = std::make_unique<frmTwain>(frmTwain::Start{m_record.Twain, m_scanMemory, m_folder.path()},
                                             std::move(scanner), owner);
    QObject::connect(
        &sample, &Scanner::opened, dialog.get(),
        [button = dialog->findChild<QPushButton*>(QStringLiteral("cmdPreview"))] { button->click(); });
    return dialog;
}

std::unique_ptr<QDialog> SampleDialogs::scanOptions(QWidget* owner) {
    auto dialog = std::make_unique<frmScanOptions>(owner);
    dialog->show(SampleScanner::sampleOptions());
    return dialog;
}

std::unique_ptr<QDialog> SampleDialogs::progress(QWidget* owner) const {
    auto status = std::make_unique<frmStatus>(owner);
    status->pbQueue().start(std::max(3, m_pages.count()));
    status->pbQueue().setValue(2);
    status->pbQueue().setSubject(m_pages.count() > 2 ? m_pages.row(2).text : QString());
    return status;
}

std::unique_ptr<QDialog> SampleDialogs::results(QWidget* owner) const {
    std::vector<RowResult> rows;
    for (int i = 0; i < m_pages.count(); ++i) {
        RowResult row;
        row.row = i + 1;
        row.source = m_pages.row(i).tag;
        row.target = m_record.BatchSave.DestinationFolder.trimmed() +
                     QStringLiteral("/Summer_%1_.jpg").arg(m_pages.row(i).text);
        row.state = RowState::Written;
        rows.push_back(row);
    }
    if (rows.size() > 2) {
        rows[1].skip(SkipReason::Exists);
        rows[1].state = RowState::Skipped;
        rows[2].state = RowState::Failed;
        rows[2].remark(QCoreApplication::translate("JpegCodec", "no image data"));
    }
    return std::make_unique<frmBatchResults>(rows, owner);
}

std::unique_ptr<QDialog> SampleDialogs::errorReport(QWidget* owner) const {
    ErrorReport report;
    report.ErrApplicationVersion = QStringLiteral(TARSEL_VERSION);
    report.ErrRoutine = QStringLiteral("fncSaveSinglePage");
    report.ErrLine = 96;
    report.ErrTrappingString = QStringLiteral("Saving a new Single file");
    report.ErrSystem = QStringLiteral("61 - /media/card/Summer_beach_.jpg: no space left on the device");
    return std::make_unique<frmErrorReport>(report, owner);
}

} // namespace tarsel
