// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

namespace tarsel {

/// The .ini file next to the record, for settings that the record's fixed layout has no room for.
QString settingsPathBeside();

/// What can't be read counts as default.
void readSettingsBeside(ConfigRecordData& record);
/// Keeps what a later version has stored there. Raises what the safe writer raises.
void storeSettingsBeside(const ConfigRecordData& record);

} // namespace tarsel
