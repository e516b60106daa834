// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"
#include "publishing/JoinedBuild.h"
#include "publishing/joined/JoinedOptions.h"

#include <optional>

namespace tarsel {

enum class GreetingStyle { Simple, Watery, RainingText, Clock };

/// The stored one; the nearest where that is out of range.
GreetingStyle styleOf(const settings::PublishingSettings& settings);

/// Brings what the style has of options from the settings to the record of this run. The other fields stay:
/// a "Simple" after a clock carries the clock's colours.
void takeEffectOptions(const settings::PublishingSettings& settings, joined::EffectOptions& record);

/// Brings what the style has of options from what a dialog shows to the stored settings, but for the colours
/// of the clock's hands, and the style and the system.
void storeEffectSettings(const settings::PublishingSettings& shown, settings::PublishingSettings& stored);

Player effectPlayer(const settings::PublishingSettings& settings);

/// `path` with the extension ".exe", unless it has it in any case of letters.
QString effectPath(const QString& path);

/// Asks for the file of a greeting. Nothing after a cancel.
std::optional<QString> askForEffect();

/// One picture as a greeting.
struct EffectSource {
    QString picture; ///< a file
    ImageBox& ibTemp;
    std::function<std::vector<TaskRow>()> tasks; ///< always run
};

/// Makes a greeting of the style in the settings. With `ask` it asks before it replaces a file: true as well,
/// with no result, when that is refused. See buildJoined.
bool subMakeEffectExe(const QString& path, const settings::PublishingSettings& settings,
                      const joined::EffectOptions& record, const EffectSource& source, bool ask,
                      const JoinedRun& run, std::vector<RowResult>& results);

} // namespace tarsel
