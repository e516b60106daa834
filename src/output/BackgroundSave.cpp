// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/BackgroundSave.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/FileIdentity.h"
#include "base/IgnoringErrors.h"
#include "codecs/PictureExtras.h"
#include "codecs/PictureFile.h"
#include "imaging/ImageBox.h"
#include "imaging/SaveFormats.h"
#include "output/SourceGuard.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

namespace tarsel {

namespace {

bool isSameFile(const QString& source, const QString& target) {
    return QFileInfo::exists(target) && FileIdentity::of(source) == FileIdentity::of(target);
}

/// That of the picture, unless it takes no files, as that of the sample pictures.
QDir folderToSaveIn(const QFileInfo& picture) {
    if (QFileInfo(picture.path()).isWritable())
        return picture.dir();
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

PictureExtras extrasOf(const QString& path) {
    PictureExtras extras;
    ignoringErrors([&] { extras = pictureExtras(PictureFile(path)); });
    return extras;
}

} // namespace

void BackgroundSave::start(const QString& target, const char* routine, std::function<void()> write) {
    startNew(target, routine, [target, write = std::move(write)] {
        write();
        return target;
    });
}

void BackgroundSave::startNew(const QString& target, const char* routine, std::function<QString()> write) {
    m_hasFailed = m_running++ > 0 && m_hasFailed;
    Q_EMIT progressed(tr("Saving %1").arg(target));
    m_threads.start([this, write = std::move(write), target, routine] {
        QString made = target;
        const std::optional<TrappedError> failure = failureOf([&] { made = write(); });
        QMetaObject::invokeMethod(
            this, [this, made, routine, failure] { finish(made, routine, failure); }, Qt::QueuedConnection);
    });
}

void BackgroundSave::finish(const QString& target, const char* routine,
                            const std::optional<TrappedError>& failure) {
    Q_EMIT progressed(failure ? tr("%1 was not saved").arg(target) : tr("Saved %1").arg(target));
    if (failure) {
        m_hasFailed = true;
        const ErrorSubject subject(target);
        std::ignore = trap(routine, [&] { throw *failure; });
    } else {
        Q_EMIT saved(target);
    }
    if (--m_running == 0)
        Q_EMIT ended(m_hasFailed);
}

QString unusedNameBeside(const QString& source) {
    const QFileInfo file(source);
    const QDir folder = folderToSaveIn(file);
    const auto isUsed = [&](const QString& name) {
        return std::ranges::any_of(saveFormats(), [&](const SaveFormat& format) {
            return folder.exists(name + QLatin1Char('.') + QLatin1String(format.extension));
        });
    };
    QString name = file.completeBaseName();
    for (int number = 1; name == file.completeBaseName() || isUsed(name); ++number)
        name = QStringLiteral("%1-%2").arg(file.completeBaseName(), QString::number(number));
    return folder.filePath(name);
}

QString replacingRefusal(const QString& source, const QString& target, const QString& damage) {
    if (!isSameFile(source, target))
        return {};
    if (!damage.isEmpty())
        return readInPartText(target);
    if (ImageBox::PageCount(source) > 1)
        return BackgroundSave::tr("%1 was not replaced: it has more pages than the one on show").arg(target);
    if (extrasOf(source).frames > 1)
        return BackgroundSave::tr("%1 was not replaced: it has more frames than the one on show").arg(target);
    return {};
}

QString lossByReplacing(const QString& source, const QString& target) {
    if (!isSameFile(source, target))
        return {};
    const PictureExtras extras = extrasOf(source);
    QStringList lost;
    if (extras.hasTransparency)
        lost << BackgroundSave::tr("transparency");
    if (extras.isDeep)
        lost << BackgroundSave::tr("more than 8 bits a channel");
    if (extras.hasLayers)
        lost << BackgroundSave::tr("layers");
    return lost.isEmpty()
               ? QString()
               : BackgroundSave::tr("This is lost then, because the picture on show doesn't have it: %1.")
                     .arg(lost.join(QStringLiteral(", ")));
}

} // namespace tarsel
