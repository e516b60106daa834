// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QString>
#include <QStringList>

namespace tarsel {

/// What an album is made by: the stored settings, and what the dialog holds besides them.
struct AlbumOptions {
    settings::Album settings;
    QString font;         ///< family; the settings have its place in a list of this system's fonts
    QStringList metadata; ///< lines for each page, as metadataLines has them
};

} // namespace tarsel
