// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publishing/EffectBuilder.h"
#include "publishing/SaverBuilder.h"

#include <QWidget>

namespace tarsel {

/// Makes the screen saver or slide show of the settings in the file that the user names, with frmStatus on
/// show, whose Cancel ends it after the row in work. Returns the results of all rows; none when the user
/// named no file.
std::vector<RowResult> makeSaver(const settings::PublishingSettings& settings, const JoinedSources& sources,
                                 JoinedRun run, QWidget* owner);

/// Makes greetings, with the record that lasts as long as the program runs.
class GreetingMaker {
public:
    /// In the file that the user names. Returns the result of the one row; none when the user named no file.
    std::vector<RowResult> make(const settings::PublishingSettings& shown, const EffectSource& source,
                                const JoinedRun& run);

private:
    joined::EffectOptions m_record;
};

} // namespace tarsel
