// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QStringList>

namespace tarsel {

/// The configuration file: in the program folder, named like the executable, without an extension. Empty
/// until subLoadSetup.
inline QString ConfigPath;

/// Composes ConfigPath from the program folder and fills ConfigRecord: from the file, or with the defaults
/// when there is none; then an empty file is made. Errors go to the error report; the defaults hold then.
void subLoadSetup(const QString& programFolder);

/// Stores ConfigRecord and the settings beside it. What an older, longer file holds after the record's end
/// stays there. Errors go to the error report, and the old file stays as it was.
void subSaveSetup();

/// Removes the configuration file. Errors are ignored.
void DeleteConfiguration();

/// subLoadSetup at the start of the program: a record that looks damaged is removed, and the defaults take
/// its place. Whatever could get lost by that is kept beside. Returns what the user is to know about it.
QStringList loadConfiguration(const QString& programFolder);

/// What the end of the program remembers of the working size of the basket's thumbnails, in pixels. The sides
/// are stored crosswise: an unequal size comes back exchanged at each start.
void storeBasketThumbnailSize(int width, int height);

} // namespace tarsel
