// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"
#include "publishing/JoinedBuild.h"

#include <optional>

namespace tarsel {

Player saverPlayer(const settings::PublishingSettings& settings);

/// `path` with the extension of slide shows or screen savers, ".exe" or ".scr", unless it has it in any case
/// of letters.
QString saverPath(const QString& path, bool isSlide);

/// Asks for the file of a slide show or a screen saver, and whether to replace it when it exists: No asks for
/// another one. Nothing after a cancel.
std::optional<QString> askForSaver(bool isSlide);

/// Makes a screen saver or slide show of all rows, by the settings of type, colour, interval and quality. See
/// buildJoined.
bool MkSaver(const QString& path, const settings::PublishingSettings& settings, const JoinedSources& sources,
             Progress& progress, const JoinedRun& run, std::vector<RowResult>& results);

} // namespace tarsel
