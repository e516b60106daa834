// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumGenerator.h"

#include "base/ErrorTrap.h"
#include "base/SystemServices.h"
#include "collections/RowLoop.h"
#include "publishing/AlbumArtwork.h"
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
void makeDirectory(const AlbumNames& names) {
    const QFileInfo directory(names.directoryPath());
    if (directory.isDir())
        return;
    if (!QDir(directory.path()).exists())
        fail(ErrorNumber::PathNotFound, directory.path());
    if (directory.exists() || !QDir().mkdir(directory.filePath()))
        fail(ErrorNumber::PermissionDenied, directory.filePath());
}

void writeResource(const AlbumRows& rows, const AlbumNames& names, const char* type, const QString& name,
                   const QString& fileName) {
    rows.writeFile(names.inDirectory(fileName.toLower()), albumArtwork::resource(QLatin1String(type), name));
}

void writeResources(const AlbumRows& rows, const AlbumNames& names, const settings::Album& settings) {
    for (const char* each : albumArtwork::navigation) {
        const QString name = QLatin1String(each);
        writeResource(rows, names, "ALBUM", name, name + QStringLiteral(".gif"));
    }
    const auto writeBackground = [&](const QString& image) {
        writeResource(rows, names, "BACKGROUND", image, image);
    };
    if (settings.PageStyle == 0)
        writeBackground(albumArtwork::pageImage(settings.PageImage));
    if (settings.ContainerBackground == 0)
        writeBackground(albumArtwork::containerImage(settings.ContainerImage));
}

} // namespace

bool fncGenerateAlbum(const AlbumSources& sources, const AlbumOptions& options, Progress& progress,
                      const AlbumRun& run, std::vector<RowResult>& results) {
    const AlbumNames names(options.settings.AlbumFolder, options.settings.AlbumTitle);
    const RowRun rowRun{.rows = sources.lvPages,
                        .upright = run.upright,
                        .tasks = options.settings.ProcessTaskBasket == 1 ? sources.tasks : nullptr,
                        .stop = run.stop,
                        .onRow = run.onRow,
                        .readAhead = run.readAhead};
    std::optional<AlbumRows> rows;
    AlbumProgress bar(progress);
    std::optional<RowLoop> loop;
    const auto failure = trap("fncGenerateAlbum", [&] {
        rows.emplace(sources.lvPages, options, names, run);
        loop.emplace(rowRun, *rows, sources.ibTemp, bar, results);
        names.requireUsable(sources.lvPages);
        makeDirectory(names);
        writeResources(*rows, names, options.settings);
        loop->run();
        if (loop->wasCancelled() || run.stop.stop_requested())
            return;
        rows->writeFile(names.index(), rows->index());
        if (options.settings.OpenWhenOver == 1)
            service<SystemServices>().shellOpen(names.index());
    });
    if (loop)
        loop->finish();
    return !failure;
}

} // namespace tarsel
