// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "bench/LoopTimes.h"
#include "collections/forms/FolderTree.h"
#include "output/BatchSave.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

// Memory of the window after many pictures: a folder is listed with its thumbnails, added to the basket, and
// saved by a batch.

namespace {

using namespace tarsel;

double residentMegabytes() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * double(::sysconf(_SC_PAGESIZE)) / 1e6;
}

void print(const char* step, int rows) {
    std::printf("%s: %d pictures, %.0f MB\n", step, rows, residentMegabytes());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: memory_bench FOLDER\n");
        return 2;
    }
    QApplication application(argc, argv);
    const QtDesktop desktop;
    const QTemporaryDir home, out;
    frmMain window({home.path(), home.path(), {}});
    if (!window.Form_Load())
        return 1;
    window.show();
    QTimer beat; // so that the loop comes round also when nothing happens
    beat.start(1);
    ListView& listed = window.workspace().lvFolder;
    ListView& basket = window.workspace().lvPages;
    QElapsedTimer sinceStart;
    sinceStart.start();
    runUntil([&] { return sinceStart.elapsed() > 1000; });
    print("started", 0);
    window.findChild<FolderTree*>(QStringLiteral("ftvBrowse"))->selectFolder(QString::fromLocal8Bit(argv[1]));
    runUntil([&] { return !listed.isEmpty() && !window.folderView().isRunning(); });
    print("listed", listed.count());
    for (int row = 0; row < listed.count(); ++row)
        listed.select(row);
    window.findChild<QAbstractButton*>(QStringLiteral("cmdAddToQueue"))->click();
    sinceStart.start();
    runUntil([&] { return basket.count() == listed.count() && sinceStart.elapsed() > 1000; });
    print("added", basket.count());

    settings::BatchSave settings;
    settings.DestinationOption = 1;
    settings.DestinationFolder = out.path() + QLatin1Char('/');
    NoProgress bar;
    std::vector<RowResult> results;
    const bool hasEnded = fncSaveSinglePage(basket, window.workspace().tasks.lvEditBatch,
                                            window.workspace().ibTemp, bar, settings, {}, results);
    print(hasEnded ? "saved" : "failed", int(results.size()));
    window.endAtOnce();
    return hasEnded ? 0 : 1;
}
