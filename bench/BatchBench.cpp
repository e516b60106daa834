// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/EventLoop.h"
#include "base/SafeFileWriter.h"
#include "output/BatchSave.h"
#include "tasks/TaskFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>

// What read-ahead gains in a batch: runs with and without it in turn, over the same pictures.

namespace {

using namespace tarsel;

class NoEvents final : public EventLoop {
public:
    void yield() override {}
    void setBusyPointer(bool) override {}
};

struct Cost {
    double wall = 0;
    double processor = 0;
};

double processorSeconds() {
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](timeval time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double medianOf(std::vector<Cost> costs, double Cost::*part) {
    std::ranges::sort(costs, {}, part);
    return costs[costs.size() / 2].*part;
}

Cost run(const ListView& pages, const TaskList& tasks, const QString& folder, bool readAhead) {
    settings::BatchSave settings;
    settings.DestinationFolder = folder + QLatin1Char('/');
    settings.ProcessEditingList = 1;
    BatchRun batch;
    batch.readAhead = readAhead;
    ImageBox box;
    NoProgress bar;
    std::vector<RowResult> results;
    QElapsedTimer clock;
    clock.start();
    const double before = processorSeconds();
    fncSaveSinglePage(pages, tasks.lvEditBatch, box, bar, settings, batch, results);
    const Cost cost{double(clock.elapsed()) / 1e3, processorSeconds() - before};
    for (const RowResult& result : results)
        if (result.state != RowState::Written || !result.remarks.isEmpty())
            std::printf("%s: %s\n", qPrintable(result.source), qPrintable(result.reason()));
    std::printf("read-ahead %-3s  wall %.2f s, processor %.2f s\n", readAhead ? "on" : "off", cost.wall,
                cost.processor);
    return cost;
}

int differences(const QDir& one, const QDir& other) {
    int count = 0;
    for (const QString& name : one.entryList(QDir::Files))
        count += readWholeFile(one.filePath(name)) == readWholeFile(other.filePath(name)) ? 0 : 1;
    return count;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: batch_bench TASKS.tbf RUNS PICTURE...\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    NoEvents events;
    const ServiceScope<EventLoop> scope(events);
    TaskList tasks;
    modSaveOpenImageList::readTaskBasket(QString::fromLocal8Bit(argv[1]), tasks);
    ListView pages;
    for (int i = 3; i < argc; ++i) {
        ListRow row;
        row.tag = QString::fromLocal8Bit(argv[i]);
        row.text = QStringLiteral("row%1").arg(i - 2);
        pages.add(row);
    }
    const QTemporaryDir folders[2];
    std::vector<Cost> costs[2];
    for (int i = 0; i < std::max(1, atoi(argv[2])); ++i)
        for (const bool readAhead : {false, true})
            costs[readAhead].push_back(run(pages, tasks, folders[readAhead].path(), readAhead));
    std::printf("on/off: wall %.2f, processor %.2f; %d files differ\n",
                medianOf(costs[1], &Cost::wall) / medianOf(costs[0], &Cost::wall),
                medianOf(costs[1], &Cost::processor) / medianOf(costs[0], &Cost::processor),
                differences(QDir(folders[0].path()), QDir(folders[1].path())));
    return 0;
}
