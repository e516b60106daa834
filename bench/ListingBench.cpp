// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "collections/forms/FolderTree.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <functional>

// How the window lists a folder: time to the first row, to all rows and to the last picture, the longest time
// for which the event loop did not come round, processor time and memory.

namespace {

using namespace tarsel;

double processorSeconds() {
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](timeval time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

long peakMegabytes() {
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// Processor time of the window's thread, in milliseconds: what a block costs on a machine with other work.
double threadMilliseconds() {
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

struct Listing {
    QElapsedTimer clock;
    qint64 lastTurn = 0;
    qint64 longestBlock = 0;
    qint64 longestBlockAt = 0;
    double lastThreadTime = threadMilliseconds();
    double longestThreadTime = 0;

    void turn() {
        const qint64 now = clock.elapsed();
        if (now - lastTurn > longestBlock) {
            longestBlock = now - lastTurn;
            longestBlockAt = now;
        }
        lastTurn = now;
        const double threadNow = threadMilliseconds();
        longestThreadTime = std::max(longestThreadTime, threadNow - lastThreadTime);
        lastThreadTime = threadNow;
    }

    void runUntil(const std::function<bool()>& condition) {
        while (!condition()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            turn();
        }
    }
};

/// Adds that many rows of the list to the basket, empties and sorts it, and undoes each.
void measureBasket(frmMain& window, int rows) {
    ListView& list = window.workspace().lvFolder;
    ListView& basket = window.workspace().lvPages;
    const auto press = [&](const char* button) {
        window.findChild<QAbstractButton*>(QLatin1String(button))->click();
    };
    const auto undo = [&] {
        for (QAction* action : window.findChild<QMenu*>(QStringLiteral("mnuContext"))->actions())
            if (action->objectName() == QLatin1String("mnuUndo"))
                action->trigger();
    };
    for (int row = 0; row < rows; ++row)
        list.select(row);
    const struct {
        const char* name;
        std::function<void()> begin;
    } steps[] = {
        {"added", [&] { press("cmdAddToQueue"); }},
        {"emptied", [&] { press("cmdPagesNew"); }},
        {"back by undo", undo},
        {"sorted", [&] { basket.SortByColumn(0); }},
        {"back in order by undo", undo},
    };
    for (const auto& [name, begin] : steps) {
        Listing step;
        QTimer turns; // also while the adding runs its own loop
        QObject::connect(&turns, &QTimer::timeout, [&] { step.turn(); });
        turns.start(0);
        step.clock.start();
        step.runUntil([&] { return step.clock.elapsed() > 200; });
        const qint64 before = step.clock.elapsed();
        step.longestBlock = 0;
        step.longestThreadTime = 0;
        begin();
        step.turn();
        const qint64 done = step.clock.elapsed() - before;
        step.runUntil([&] { return step.clock.elapsed() > before + done + 1000; });
        std::printf("basket %s: %d rows, %lld ms; longest block %lld ms, in processor time %.0f ms; peak "
                    "memory %ld MB\n",
                    name, basket.count(), done, step.longestBlock, step.longestThreadTime, peakMegabytes());
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3 || argc > 5) {
        std::fprintf(stderr,
                     "usage: listing_bench FOLDER 0|3 [THUMBNAILS [ROWS]]    (0 thumbnails, 3 details; "
                     "the folder in which thumbnails are kept; rows for the basket)\n");
        return 2;
    }
    QApplication application(argc, argv);
    const QtDesktop desktop;
    const QTemporaryDir home;
    const QString thumbnails = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
    frmMain window({home.path(), home.path(), {}, thumbnails});
    if (!window.Form_Load())
        return 1;
    window.show();
    const bool details = QByteArray(argv[2]).toInt() != 0;
    window
        .findChild<QAbstractButton*>(details ? QStringLiteral("cmdDetailFolder")
                                             : QStringLiteral("cmdThumbnailFolder"))
        ->click();
    QTimer beat; // so that the loop comes round also when nothing happens
    beat.start(1);
    Listing listing;
    listing.clock.start();
    listing.runUntil([&] { return listing.clock.elapsed() > 1000; });

    const ListView& rows = window.workspace().lvFolder;
    const double processorBefore = processorSeconds();
    listing = {};
    listing.clock.start();
    window.findChild<FolderTree*>(QStringLiteral("ftvBrowse"))->selectFolder(QString::fromLocal8Bit(argv[1]));
    listing.turn();
    listing.runUntil([&] { return !rows.isEmpty(); });
    const qint64 firstRow = listing.clock.elapsed();
    int most = rows.count();
    qint64 allRows = firstRow;
    listing.runUntil([&] {
        if (rows.count() > most) {
            most = rows.count();
            allRows = listing.clock.elapsed();
        }
        return !window.folderView().isRunning();
    });
    std::printf("%d rows of %d; first row %lld ms, all rows %lld ms, finished %lld ms; longest block %lld ms "
                "(at %lld ms), in processor time %.0f ms; processor %.2f s; peak memory %ld MB\n",
                rows.count(), most, firstRow, allRows, listing.clock.elapsed(), listing.longestBlock,
                listing.longestBlockAt, listing.longestThreadTime, processorSeconds() - processorBefore,
                peakMegabytes());
    if (argc == 5)
        measureBasket(window, std::min(QByteArray(argv[4]).toInt(), rows.count()));
    window.close();
    return 0;
}
