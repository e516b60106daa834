// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "collections/forms/FolderTree.h"
#include "collections/forms/ImageBoxView.h"
#include "controls/Splitter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

// How the preview shows the pictures of a folder: time from the request to the first pixels and to the sharp
// picture, the longest time for which the event loop did not come round, and what dragging a splitter costs.

namespace {

using namespace tarsel;

constexpr int firstPosition = 35, lastPosition = 75; // of the splitter, in percent

double milliseconds(const QElapsedTimer& clock) {
    return double(clock.nsecsElapsed()) / 1e6;
}

/// Runs events until the condition holds, and returns the longest turn in milliseconds.
double runUntil(const std::function<bool()>& condition) {
    double longest = 0;
    while (!condition()) {
        QElapsedTimer turn;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        turn.start();
        QCoreApplication::processEvents();
        longest = std::max(longest, milliseconds(turn));
    }
    return longest;
}

/// Processor time of the window's thread, in milliseconds: what a step costs on a machine with other work.
double threadMilliseconds() {
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void drag(frmMain& window, ImageBoxView& view) {
    auto& splitter = *window.findChild<Splitter*>(QStringLiteral("splMain"));
    std::vector<double> steps, paints;
    for (int position = firstPosition; position <= lastPosition; ++position) {
        const double before = threadMilliseconds();
        splitter.setSplitterPosition(position);
        const double placed = threadMilliseconds();
        QPixmap screen(view.viewport()->size() * view.devicePixelRatioF());
        screen.setDevicePixelRatio(view.devicePixelRatioF());
        const double ready = threadMilliseconds();
        view.viewport()->render(&screen);
        paints.push_back(threadMilliseconds() - ready);
        steps.push_back(placed - before);
        QCoreApplication::processEvents();
    }
    QElapsedTimer clock;
    clock.start();
    runUntil([&] { return view.isSharp(); });
    std::printf(
        "; a step of the splitter: placing the panes %.1f ms, painting the picture %.1f ms (at most %.1f), "
        "sharp %.0f ms after the last",
        median(steps), median(paints), std::ranges::max(paints), milliseconds(clock));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: preview_bench FOLDER\n");
        return 2;
    }
    QApplication application(argc, argv);
    const QtDesktop desktop;
    const QTemporaryDir home;
    frmMain window({home.path(), home.path(), {}});
    if (!window.Form_Load())
        return 1;
    window.resize(1600, 1000);
    window.show();
    QTimer beat; // so that the loop comes round also when nothing happens
    beat.start(1);
    QElapsedTimer sinceStart;
    sinceStart.start();
    runUntil([&] { return sinceStart.elapsed() > 1000; });
    ListView& rows = window.workspace().lvFolder;
    window.findChild<QAbstractButton*>(QStringLiteral("cmdDetailFolder"))->click();
    window.findChild<FolderTree*>(QStringLiteral("ftvBrowse"))->selectFolder(QString::fromLocal8Bit(argv[1]));
    runUntil([&] { return !rows.isEmpty() && !window.folderView().isRunning(); });
    auto& view = *window.findChild<ImageBoxView*>(QStringLiteral("PicViewImage"));
    Preview& preview = window.preview();
    for (int row = 0; row < rows.count(); ++row) {
        const QString path = rows.row(row).tag;
        QElapsedTimer clock;
        clock.start();
        preview.ShowRow(rows, row);
        const double firstBlock = runUntil([&] { return view.drawnPath() == path || !preview.isBusy(); });
        view.viewport()->repaint();
        const double first = milliseconds(clock);
        const double block = runUntil([&] { return view.isSharp() && !preview.isBusy(); });
        std::printf("%s: shown after %.0f ms, sharp after %.0f ms, longest block %.0f ms",
                    qPrintable(path.section(QLatin1Char('/'), -1)), first, milliseconds(clock),
                    std::max(block, firstBlock));
        drag(window, view);
        std::printf("\n");
    }
    window.close();
    return 0;
}
