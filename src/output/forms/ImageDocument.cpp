// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/ImageDocument.h"

#include "base/DialogSubject.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "base/SaveFileDialog.h"
#include "imaging/SaveFormats.h"
#include "output/forms/frmJpegQuality.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace tarsel {

namespace {

constexpr const char* subjectName = "frmJpegQuality";

/// In the order of the dialog: `first`, then as in the table.
std::vector<const SaveFormat*> offeredFormats(const QString& first) {
    std::vector<const SaveFormat*> offered{findSaveFormat(first)};
    for (const SaveFormat& format : saveFormats())
        if (&format != offered.front())
            offered.push_back(&format);
    return offered;
}

QString filterOf(const std::vector<const SaveFormat*>& offered) {
    QStringList filters;
    for (const SaveFormat* format : offered)
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
QString completed(const std::vector<const SaveFormat*>& formats, int filterIndex, const QString& path) {
    if (findSaveFormat(QFileInfo(path).suffix()))
        return path;
    const int index = filterIndex >= 1 && filterIndex <= int(formats.size()) ? filterIndex - 1 : 0;
    return path + QLatin1Char('.') + QLatin1String(formats[std::size_t(index)]->extension);
}

/// The file that the user wants, starting at `initial`.
std::optional<QString> askForTarget(const QString& firstFormat, const QString& initial,
                                    const std::function<QString(const QString&)>& lossBy) {
    const std::vector<const SaveFormat*> formats = offeredFormats(firstFormat);
    const auto path = [&](int filterIndex, const QString& typed) {
        return completed(formats, filterIndex, typed);
    };
    const auto choice =
        saveFileDialogFor({ImageDocument::tr("Save image"), filterOf(formats), initial}, path, lossBy);
    return choice ? std::optional(path(choice->filterIndex, choice->path)) : std::nullopt;
}

} // namespace

ImageDocument::ImageDocument(settings::SaveAdvanced& settings, QWidget* owner) :
    m_settings(settings), m_owner(owner) {}

void ImageDocument::ShowSaveDialog(ImageBox box, const QString& source) {
    const DialogSubject subject(subjectName);
    std::ignore = trap("FrmMain.mnuSavePreviewAs", [&] {
        TrappingString = QStringLiteral("Saving the picture on show");
        const auto chosen =
            askForTarget(QStringLiteral("jpg"), unusedNameBeside(source),
                         [&](const QString& target) { return lossByReplacing(source, target); });
        if (!chosen)
            return;
        const QString target = *chosen;
        if (const QString reason = replacingRefusal(source, target, box.LoadDamage()); !reason.isEmpty())
            service<Dialogs>().messageBox(reason, MessageIcon::Exclamation, MessageButtons::Ok,
                                          ApplicationName);
        else if (!isJpeg(target) || takeQuality())
            m_background.start(
                target, "FrmMain.mnuSavePreviewAs",
                [box = prepared(std::move(box), target), target]() mutable { box.SaveToFile(target); });
    });
}

bool ImageDocument::takeQuality() {
    return frmJpegQuality(m_settings, m_owner).exec() == QDialog::Accepted;
}

void ImageDocument::ShowRescueDialog(const ImageBox& box, const QString& wanted,
                                     const std::function<void(const QString& path, bool isSaved)>& done) {
    const DialogSubject subject(subjectName);
    std::ignore = trap("FrmMain.mnuSavePreviewAs", [&] {
        const QFileInfo file(wanted);
        const QString initial =
            isNameTaken(wanted) ? unusedNameBeside(wanted) : file.dir().filePath(file.completeBaseName());
        std::optional<QString> target;
        do // leaving the question for the quality leads back to the name: the picture is nowhere yet
            target = askForTarget(file.suffix(), initial, {});
        while (target && isJpeg(*target) && !takeQuality());
        if (!target)
            return;
        const auto save = [=, this, path = *target, box = prepared(box, *target)]() mutable {
            const auto failure = failureOf([&] { box.SaveToFile(path); });
            QMetaObject::invokeMethod(
                this, [done, path, isSaved = !failure] { done(path, isSaved); }, Qt::QueuedConnection);
            if (failure)
                throw *failure;
        };
        m_background.start(*target, "FrmMain.mnuSavePreviewAs", save);
    });
}

ImageBox ImageDocument::prepared(ImageBox box, const QString& target) const {
    box.ColorFormat = formatOf(target).colors.front().colorFormat;
    box.BackColorTransparent = false; // the box of the preview has it on, and nobody chose the colour
    box.JpegQuality = std::clamp<int>(m_settings.JpgQuality, 1, 100); // of PDF files too
    return box;
}

} // namespace tarsel
