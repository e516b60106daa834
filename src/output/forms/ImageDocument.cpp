// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/ImageDocument.h"

#include "base/ErrorTrap.h"
#include "base/SaveFileDialog.h"
#include "imaging/SaveFormats.h"
#include "output/forms/frmJpegQuality.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <algorithm>

namespace tarsel {

namespace {

/// In the order of the dialog: what this program makes most comes first.
std::vector<const SaveFormat*> offeredFormats() {
    std::vector<const SaveFormat*> offered{findSaveFormat(QStringLiteral("jpg"))};
    for (const SaveFormat& format : saveFormats())
        if (&format != offered.front())
            offered.push_back(&format);
    return offered;
}

QString filterOfAll() {
    QStringList filters;
    for (const SaveFormat* format : offeredFormats())
        filters << QCoreApplication::translate("SaveFormats", format->filter);
    return filters.join(QLatin1Char('|'));
}

const SaveFormat& formatOf(const QString& target) {
    return *findSaveFormat(QFileInfo(target).suffix());
}

bool isJpeg(const QString& target) {
    return &formatOf(target) == findSaveFormat(QStringLiteral("jpg"));
}

/// An extension that names a format is kept; without one, that of the chosen filter is added.
QString completed(int filterIndex, const QString& path) {
    if (findSaveFormat(QFileInfo(path).suffix()))
        return path;
    const std::vector<const SaveFormat*> formats = offeredFormats();
    const int index = filterIndex >= 1 && filterIndex <= int(formats.size()) ? filterIndex - 1 : 0;
    return path + QLatin1Char('.') + QLatin1String(formats[std::size_t(index)]->extension);
}

} // namespace

ImageDocument::ImageDocument(settings::SaveAdvanced& settings, QWidget* owner) :
    m_settings(settings), m_owner(owner) {}

void ImageDocument::ShowSaveDialog(ImageBox box, const QString& source) {
    std::ignore = trap("FrmMain.mnuSavePreviewAs", [&] {
        TrappingString = QStringLiteral("Saving the picture on show");
        const auto choice =
            saveFileDialogFor({tr("Save image"), filterOfAll(), unusedNameBeside(source)}, completed,
                              [&](const QString& target) { return lossByReplacing(source, target); });
        if (!choice)
            return;
        const QString target = completed(choice->filterIndex, choice->path);
        if (const QString reason = replacingRefusal(source, target, box.LoadDamage()); !reason.isEmpty())
            service<Dialogs>().messageBox(reason, MessageIcon::Exclamation, MessageButtons::Ok,
                                          ApplicationName);
        else if (!isJpeg(target) || takeQuality())
            start(std::move(box), target);
    });
}

void ImageDocument::SaveElsewhere(ImageBox box, const QString& offered) {
    std::ignore = trap("FrmMain.mnuSavePreviewAs", [&] {
        TrappingString = QStringLiteral("Saving a picture elsewhere");
        const auto choice = saveFileDialogFor({tr("Save image"), filterOfAll(), offered}, completed);
        if (!choice)
            return;
        const QString target = completed(choice->filterIndex, choice->path);
        if (!isJpeg(target) || takeQuality())
            start(std::move(box), target, [this, target] {
                QMetaObject::invokeMethod(
                    this, [=, this] { Q_EMIT savedElsewhere(target); }, Qt::QueuedConnection);
            });
    });
}

bool ImageDocument::takeQuality() {
    return frmJpegQuality(m_settings, m_owner).exec() == QDialog::Accepted;
}

/// `saved` is called on the thread that has saved it.
void ImageDocument::start(ImageBox box, const QString& target, const std::function<void()>& saved) {
    box.ColorFormat = formatOf(target).colors.front().colorFormat;
    box.BackColorTransparent = false; // the box of the preview has it on, and nobody chose the colour
    box.JpegQuality = std::clamp<int>(m_settings.JpgQuality, 1, 100); // of PDF files too
    m_background.start(target, "FrmMain.mnuSavePreviewAs", [box = std::move(box), target, saved]() mutable {
        box.SaveToFile(target);
        if (saved)
            saved();
    });
}

} // namespace tarsel
