// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/ImageDocument.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/FileIdentity.h"
#include "base/SaveFileDialog.h"
#include "imaging/SaveFormats.h"
#include "output/SourceGuard.h"
#include "output/forms/frmJpegQuality.h"

#include <QDir>
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
        filters << QLatin1String(format->filter);
    return filters.join(QLatin1Char('|'));
}

/// "photo-1" for "photo.png": the first name that no picture next to the source has, in any format.
QString unusedName(const QFileInfo& source) {
    const QDir folder = source.dir();
    const auto isUsed = [&](const QString& name) {
        return std::ranges::any_of(saveFormats(), [&](const SaveFormat& format) {
            return folder.exists(name + QLatin1Char('.') + QLatin1String(format.extension));
        });
    };
    QString name = source.completeBaseName();
    for (int number = 1; name == source.completeBaseName() || isUsed(name); ++number)
        name = QStringLiteral("%1-%2").arg(source.completeBaseName()).arg(number);
    return folder.filePath(name);
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

/// Why the picture must not be saved there; empty when it may.
QString refusal(const ImageBox& box, const QString& source, const QString& target) {
    if (!QFileInfo::exists(target) || FileIdentity::of(source) != FileIdentity::of(target))
        return {};
    if (!box.LoadDamage().isEmpty())
        return readInPartText(target);
    if (ImageBox::PageCount(source) > 1)
        return ImageDocument::tr("%1 was not replaced: it has more pages than the one on show").arg(target);
    return {};
}

} // namespace

ImageDocument::ImageDocument(settings::SaveAdvanced& settings, QWidget* owner) :
    m_settings(settings), m_owner(owner) {
    m_threads.setMaxThreadCount(1);
}

void ImageDocument::ShowSaveDialog(ImageBox box, const QString& source) {
    std::ignore = trap("FrmMain.mnuSavePreviewAs", [&] {
        TrappingString = QStringLiteral("Saving the picture on show");
        const auto choice =
            saveFileDialogFor({tr("Save image"), filterOfAll(), unusedName(QFileInfo(source))}, completed);
        if (!choice)
            return;
        const QString target = completed(choice->filterIndex, choice->path);
        if (const QString reason = refusal(box, source, target); !reason.isEmpty())
            service<Dialogs>().messageBox(reason, MessageIcon::Exclamation, MessageButtons::Ok,
                                          ApplicationName);
        else if (!isJpeg(target) || takeQuality(box))
            start(std::move(box), target);
    });
}

bool ImageDocument::takeQuality(ImageBox& box) {
    const bool chosen = frmJpegQuality(m_settings, m_owner).exec() == QDialog::Accepted;
    box.JpegQuality = m_settings.JpgQuality;
    return chosen;
}

void ImageDocument::start(ImageBox box, const QString& target) {
    box.ColorFormat = formatOf(target).colors.front().colorFormat;
    Q_EMIT progressed(tr("Saving %1").arg(target));
    m_threads.start([this, box = std::move(box), target]() mutable {
        const std::optional<TrappedError> failure = failureOf([&] { box.SaveToFile(target); });
        QMetaObject::invokeMethod(
            this, [this, target, failure] { finish(target, failure); }, Qt::QueuedConnection);
    });
}

void ImageDocument::finish(const QString& target, const std::optional<TrappedError>& failure) {
    Q_EMIT progressed(failure ? tr("%1 was not saved").arg(target) : tr("Saved %1").arg(target));
    if (!failure)
        return saved();
    const ErrorSubject subject(target);
    std::ignore = trap("FrmMain.mnuSavePreviewAs", [&] { throw *failure; });
}

} // namespace tarsel
