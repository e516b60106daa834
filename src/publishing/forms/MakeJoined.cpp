// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/MakeJoined.h"

#include "controls/ProgressBar.h"
#include "controls/frmStatus.h"

#include <utility>

namespace tarsel {

std::vector<RowResult> makeSaver(const settings::PublishingSettings& settings, const JoinedSources& sources,
                                 JoinedRun run, QWidget* owner) {
    std::vector<RowResult> results;
    const std::optional<QString> path = askForSaver(settings.SaverType != 0);
    if (!path)
        return results;
    frmStatus status(owner);
    status.begin();
    run.status = [&](const QString& stage) { status.showStage(stage); };
    MkSaver(*path, settings, sources, status.pbQueue(), run, results);
    status.finish();
    return results;
}

std::vector<RowResult> GreetingMaker::make(const settings::PublishingSettings& shown,
                                           const EffectSource& source, const JoinedRun& run) {
    takeEffectOptions(shown, m_record);
    std::vector<RowResult> results;
    const std::optional<QString> path = askForEffect();
    if (!path)
        return results;
    CancelRequested = false; // of an earlier run
    constexpr bool asks = true;
    subMakeEffectExe(*path, shown, m_record, source, asks, run, results);
    return results;
}

} // namespace tarsel
