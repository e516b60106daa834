// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcFields.h"
#include "imaging/ImageBox.h"
#include "imaging/clsImageHeaderInfo.h"

#include <QDirIterator>
#include <benchmark/benchmark.h>

using namespace tarsel;

namespace {

/// The metadata of the picture that TARSEL_BENCH_PICTURE names, else what is set here.
MetadataStore sample() {
    const QString path = qEnvironmentVariable("TARSEL_BENCH_PICTURE");
    if (!path.isEmpty()) {
        ImageBox box;
        box.LoadFromFile(path);
        return box.metadata();
    }
    MetadataStore store;
    store.ExifSet(QStringLiteral("Make"), QStringLiteral("Acme"));
    store.ExifSet(QStringLiteral("ExposureTime"), QStringLiteral("1/60"));
    setIptcText(store, "IptcHeadline", QStringLiteral("headline"));
    return store;
}

void brand(benchmark::State& state) {
    const EmbeddedMetadata blocks = sample().blocks();
    for (auto _ : state) {
        MetadataStore store(blocks);
        benchmark::DoNotOptimize(store.ExifSet(QStringLiteral("Software"), QStringLiteral("Editor 1.0")));
    }
}
BENCHMARK(brand)->Unit(benchmark::kMicrosecond);

void listExif(benchmark::State& state) {
    const EmbeddedMetadata blocks = sample().blocks();
    for (auto _ : state) {
        const MetadataStore store(blocks);
        benchmark::DoNotOptimize(store.ExifCount());
    }
}
BENCHMARK(listExif)->Unit(benchmark::kMicrosecond);

void changeHeadline(benchmark::State& state) {
    const EmbeddedMetadata blocks = sample().blocks();
    for (auto _ : state) {
        MetadataStore store(blocks);
        setIptcText(store, "IptcHeadline", QStringLiteral("another headline"));
        benchmark::DoNotOptimize(store.blocks());
    }
}
BENCHMARK(changeHeadline)->Unit(benchmark::kMicrosecond);

/// The headers of all pictures below TARSEL_CORPUS; the time is that of one file.
void readHeaders(benchmark::State& state) {
    QStringList paths;
    for (QDirIterator files(qEnvironmentVariable("TARSEL_CORPUS"), QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
        paths << files.next();
    clsImageHeaderInfo info;
    for (auto _ : state)
        for (const QString& path : paths) {
            info.ReadJPEG_TIFF_PNG_Header(path);
            benchmark::DoNotOptimize(info.Width());
        }
    state.counters["per file"] = benchmark::Counter(
        double(paths.size()), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(readHeaders)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
