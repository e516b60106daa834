// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SinglePicture.h"

#include "base/FileIdentity.h"
#include "base/TrappedError.h"
#include "cli/PictureFacts.h"
#include "codecs/Formats.h"
#include "codecs/PictureExtras.h"
#include "codecs/PictureFile.h"
#include "imaging/ImageBox.h"
#include "imaging/Upright.h"
#include "output/SourceGuard.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

void requireAllToReplace(const SourceState& state, const QString& source, const QString& target) {
    const bool isReplaced = FileIdentity::of(source) == FileIdentity::of(target);
    if (isReplaced && !state.damage.isEmpty())
        throw TrappedError{ErrorNumber::InvalidPicture,
                           readInPartText(target) + QStringLiteral("; ") + state.damage};
    if (isReplaced && (state.pages > 1 || pictureExtras(PictureFile(source)).frames > 1))
        throw TrappedError{ErrorNumber::InvalidPicture, readInPartText(target)};
}

} // namespace

SourceState loadForTarget(ImageBox& box, const QString& source, const QString& target) {
    loadPicture(box, source);
    SourceState state{.damage = box.LoadDamage(), .pages = ImageBox::PageCount(source)};
    requireAllToReplace(state, source, target);
    return state;
}

QString damageText(const SourceState& state) {
    return state.damage.isEmpty()
               ? QString()
               : QCoreApplication::translate("CommandLine", "the source is damaged: %1").arg(state.damage);
}

QStringList remarksOn(const QString& source, const SourceState& state) {
    QStringList remarks;
    if (state.pages > 1)
        remarks << QCoreApplication::translate("CommandLine",
                                               "tarsel: %1: only the first of its %2 pages was saved")
                       .arg(source, QString::number(state.pages));
    if (state.losesOrientation)
        remarks << QCoreApplication::translate("CommandLine",
                                               "tarsel: %1: the format can't hold the EXIF orientation; use "
                                               "--upright to turn the picture")
                       .arg(source);
    return remarks;
}

bool isOrientationLost(const ImageBox& box, const QString& source, const QString& extension) {
    static const QStringList holders{QStringLiteral("jpg"), QStringLiteral("png"), QStringLiteral("psd"),
                                     QStringLiteral("tif")};
    if (box.metadata().blocks().isEmpty())
        return fileOrientation(source) != 1;
    return exifOrientation(box.metadata()) != 1 && !holders.contains(usualExtension(extension.toLower()));
}

} // namespace tarsel::cli
