// SPDX-License-Identifier: GPL-3.0-or-later
// tarsel-samples FOLDER: makes the sample pictures that come with the program. Every run makes the same ones.

#include "base/TrappedError.h"
#include "samples/writeSample.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <atomic>
#include <cstdio>
#include <functional>
#include <thread>

namespace {

using namespace tarsel::samples;

/// Works off a list in as many threads as there are processors. False when one of the works failed.
bool workOff(const std::vector<std::function<void()>>& works) {
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> good = true;
    const auto worker = [&] {
        for (std::size_t i = next++; i < works.size(); i = next++)
            try {
                works[i]();
            } catch (const tarsel::TrappedError& error) {
                std::fprintf(stderr, "%s\n", qPrintable(error.description));
                good = false;
            }
    };
    std::vector<std::jthread> threads;
    for (unsigned i = 0; i < std::max(std::thread::hardware_concurrency(), 1U); ++i)
        threads.emplace_back(worker);
    threads.clear();
    return good;
}

} // namespace

int main(int argc, char** argv) {
    // Text needs the fonts of a platform, and no display; the platform wants a folder of its own at run time.
    const QTemporaryDir runtime;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    const QGuiApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "usage: tarsel-samples FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    std::vector<std::function<void()>> works;
    for (const Sample& sample : sampleTable())
        works.emplace_back([&] { writeSample(folder, sample); });
    works.emplace_back([&] { writeWatermark(folder); });
    return workOff(works) && workOff({[&] { writeLetter(folder); }}) ? 0 : 1;
}
