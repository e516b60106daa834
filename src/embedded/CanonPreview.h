// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <optional>

namespace tarsel {

/// The preview image that Canon's cameras put after a JPEG picture, as their maker note states it.
struct CanonPreview {
    qsizetype place = 0; ///< of the offset in the EXIF block
    quint32 offset = 0;  ///< from the start of the EXIF block
    quint32 size = 0;
};

std::optional<CanonPreview> canonPreview(const QByteArray& exif);

/// The block with another offset of the preview.
QByteArray withCanonPreviewAt(const QByteArray& exif, const CanonPreview& preview, quint32 offset);

} // namespace tarsel
