// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QByteArray>
#include <QString>

namespace tarsel {

/// What the preview shows: a picture, perhaps with fewer pixels than it has, or the reason why there is none.
struct PreviewPicture {
    QString path;
    Picture picture;         ///< null where nothing can be shown
    Size size{};             ///< of the full picture
    QByteArray iccProfile{}; ///< of the pixels; empty for sRGB
    bool isReduced = false;  ///< stands in for the full picture, which is still being read
    QString notice{};        ///< what is wrong with the file
};

} // namespace tarsel
