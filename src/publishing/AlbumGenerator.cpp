// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumGenerator.h"

#include "base/ErrorTrap.h"
#include "base/SystemServices.h"
#include "collections/RowLoop.h"
#include "publishing/AlbumNames.h"
#include "publishing/AlbumRows.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tarsel {

namespace {

/// The bar of the run, above which the row in work is named in a sentence.
class AlbumProgress final : public Progress {
public:
    explicit AlbumProgress(Progress& bar) : m_bar(bar) {}
    void start(int maximum, int value) override { m_bar.start(maximum, value); }
    void setValue(int value) override { m_bar.setValue(value); }
    void hide() override { m_bar.hide(); }
    void setSubject(const QString& name) override {
        m_bar.setSubject(QCoreApplication::translate("AlbumGenerator", "Working with - %1").arg(name));
    }

private:
    Progress& m_bar;
};

/// The folder that the user chose is not made.
void makeFolders(const QStringList& folders) {
    for (const QString& path : folders) {
        const QFileInfo folder(path);
        if (folder.isSymLink())
            fail(ErrorNumber::PermissionDenied,
                 QCoreApplication::translate("AlbumGenerator",
                                             "%1 is a link to a folder that may be outside the album")
                     .arg(path));
        if (folder.isDir())
            continue;
        if (!QDir(folder.path()).exists())
            fail(ErrorNumber::PathNotFound, folder.path());
        if (folder.exists() || !QDir().mkdir(path))
            fail(ErrorNumber::PermissionDenied, path);
    }
}

} // namespace

bool fncGenerateAlbum(const AlbumSources& sources, const AlbumOptions& options, Progress& progress,
                      const AlbumRun& run, std::vector<RowResult>& results) {
    const AlbumNames names(options.settings.AlbumFolder, options.settings.AlbumTitle);
    const RowRun rowRun{.rows = sources.lvPages,
                        .upright = run.upright || options.settings.ModernTemplate == 1,
                        .tasks = options.settings.ProcessTaskBasket == 1 ? sources.tasks : nullptr,
                        .stop = run.stop,
                        .onRow = run.onRow,
                        .readAhead = run.readAhead};
    std::optional<AlbumRows> rows;
    AlbumProgress bar(progress);
    std::optional<RowLoop> loop;
    std::vector<RowResult> unneeded;
    bool isComplete = false;
    const auto failure = trap("fncGenerateAlbum", [&] {
        rows.emplace(sources, options, names, run);
        loop.emplace(rowRun, *rows, sources.ibTemp, bar, results);
        names.requireUsable(sources.lvPages);
        makeFolders(rows->folders());
        rows->writeResources();
        loop->run();
        if (loop->wasCancelled() || run.stop.stop_requested())
            return;
        rows->writeIndex();
        isComplete = true;
        unneeded = rows->finish(true);
        if (options.settings.OpenWhenOver == 1)
            service<SystemServices>().shellOpen(names.index());
    });
    if (loop)
        loop->finish();
    if (rows && !isComplete)
        rows->finish(false);
    for (const RowResult& each : unneeded) {
        results.push_back(each);
        if (run.onRow)
            run.onRow(each);
    }
    return !failure;
}

} // namespace tarsel
