// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcFields.h"
#include "imaging/ImageBox.h"

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

} // namespace

BENCHMARK_MAIN();
