// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmMain.h"

#include "app/SaverSamples.h"
#include "collections/forms/BasketPane.h"
#include "collections/forms/PreviewPane.h"
#include "configuration/ConfigRecord.h"
#include "controls/DeletedDialog.h"
#include "output/forms/frmBatchResults.h"
#include "publishing/forms/GenerateAlbum.h"
#include "publishing/forms/MakeJoined.h"
#include "publishing/forms/frmAlbum.h"
#include "publishing/forms/frmExecutable.h"
#include "publishing/forms/frmScreenSaverOptions.h"

#include <QScopedValueRollback>

namespace tarsel {

namespace {

/// Pictures that are prepared as for a batch.
JoinedRun joinedRun() {
    JoinedRun run;
    run.upright = ConfigRecord.BatchSave.UprightByExif == 1;
    run.stripPrivate = ConfigRecord.BatchSave.StripPrivate == 1;
    return run;
}

} // namespace

void frmMain::connectPublishing() {
    m_greetings = std::make_unique<GreetingMaker>();
    connect(m_basketPane, &BasketPane::saveAsSaver, this, &frmMain::openSaver);
    connect(m_previewPane, &PreviewPane::saveGreeting, this,
            [this] { saveShown(m_preview.shownPath(), &frmMain::openGreeting); });
}

/// Runs over pictures, which nothing may change meanwhile.
std::vector<RowResult> frmMain::publish(Run run, const std::function<std::vector<RowResult>()>& make) {
    if (isRunning())
        return {};
    const QScopedValueRollback running(m_run, run);
    m_endsAtOnce = false;
    setRunning(true);
    std::vector<RowResult> results = make();
    setRunning(false);
    return results;
}

void frmMain::openAlbum() {
    if (isRunning() || refusesEmptyBasket("frmAlbum"))
        return;
    if (!m_album) {
        m_album = new frmAlbum(ConfigRecord.Album, this);
        deleteWhenClosed(*m_album);
        connect(m_album, &frmAlbum::generate, this, &frmMain::generateAlbum);
        // It goes a moment later, and must not be shown again until then.
        connect(m_album, &QDialog::finished, this, [this] { m_album = nullptr; });
    }
    m_album->show();
    m_album->raise();
    m_album->activateWindow();
}

void frmMain::generateAlbum(const AlbumOptions& options) {
    if (isRunning() || m_workspace.lvPages.isEmpty()) // emptied while the dialog was open
        return;
    const QScopedValueRollback running(m_run, Run::Album);
    m_endsAtOnce = false;
    setRunning(true);
    const auto tasks = [this] { return shownTasks(); };
    AlbumRun run; // pictures that are turned as for a batch
    run.upright = ConfigRecord.BatchSave.UprightByExif == 1;
    const std::vector<RowResult> results =
        tarsel::generateAlbum({m_workspace.lvPages, m_workspace.ibTemp, tasks}, options, run, this);
    setRunning(false);
    showResults(tr("The album has ended"), results, options.settings.AlbumFolder);
}

void frmMain::openSaver() {
    if (isRunning() || refusesEmptyBasket("frmScreenSaverOptions"))
        return;
    auto* samples = new SaverSamples(m_workspace.lvPages, ConfigRecord.BatchSave.UprightByExif == 1,
                                     devicePixelRatioF(), this);
    auto* dialog = new frmScreenSaverOptions(ConfigRecord, samples->thumbnails(), this);
    deleteWhenClosed(*dialog);
    connect(samples, &SaverSamples::loaded, dialog, &frmScreenSaverOptions::showSample);
    connect(dialog, &QObject::destroyed, samples, &SaverSamples::stop);
    samples->read();
    connect(dialog, &frmScreenSaverOptions::generate, this, &frmMain::generateSaver);
    dialog->open();
}

void frmMain::generateSaver() {
    const bool hasTasks = ConfigRecord.SaverProcessTasks == 1;
    const std::function<std::vector<TaskRow>()> tasks = [this] { return shownTasks(); };
    const JoinedSources sources{m_workspace.lvPages, m_workspace.ibTemp, hasTasks ? tasks : nullptr};
    const std::vector<RowResult> results =
        publish(Run::Saver, [&] { return makeSaver(ConfigRecord, sources, joinedRun(), this); });
    showResults(tr("The screen saver or slide show has ended"), results);
}

void frmMain::openGreeting() {
    if (!m_workspace.ibMain.HasImage() || isRunning())
        return;
    dropSelection();
    auto* dialog = new frmExecutable(ConfigRecord, m_workspace.ibMain.picture(), this);
    deleteWhenClosed(*dialog);
    connect(dialog, &frmExecutable::create, this, &frmMain::makeGreeting);
    dialog->open();
}

void frmMain::makeGreeting(const settings::PublishingSettings& shown) {
    const EffectSource source{m_preview.shownPath(), m_workspace.ibTemp, [this] { return shownTasks(); }};
    const std::vector<RowResult> results =
        publish(Run::Greeting, [&] { return m_greetings->make(shown, source, joinedRun()); });
    if (results.empty() || !isVisible())
        return;
    const bool isWritten = results.front().state == RowState::Written && results.front().remarks.isEmpty();
    SetStatus(isWritten ? tr("Saved %1").arg(results.front().target) : resultSummary(results));
}

} // namespace tarsel
