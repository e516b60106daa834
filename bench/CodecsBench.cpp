// SPDX-License-Identifier: GPL-3.0-or-later
// How long our codecs take beside other libraries: codecs_bench PICTURE.jpg. Each case runs both in turn; the
// column "ratio" is our best time over theirs, below 1 where we are faster.

#include "bench/BareJpeg.h"
#include "bench/CodecPeers.h"
#include "codecs/Codec.h"
#include "imaging/fncLoadPicture.h"

#include <QCoreApplication>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <functional>

using namespace tarsel;

namespace {

using Step = std::function<bool()>;

double secondsOf(const Step& step, bool& done) {
    const auto start = std::chrono::steady_clock::now();
    done = step() && done;
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void compare(benchmark::State& state, const Step& ours, const Step& theirs) {
    double best = 1e9;
    double theirBest = 1e9;
    bool done = true;
    for (auto _ : state) {
        theirBest = std::min(theirBest, secondsOf(theirs, done));
        const double seconds = secondsOf(ours, done);
        state.SetIterationTime(seconds);
        best = std::min(best, seconds);
    }
    if (!done)
        state.SkipWithError("one of the two doesn't do this");
    state.counters["theirs, ms"] = theirBest * 1000;
    state.counters["ratio"] = best / theirBest;
}

void add(const std::string& name, const Step& ours, const Step& theirs) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) { compare(state, ours, theirs); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(7);
}

Step loading(const Codec& codec, const QByteArray& file) {
    return [&codec, file] {
        return !codec.decode(PictureSource(file), QStringLiteral("bench"), 1).picture.isNull();
    };
}

Step saving(const Codec& codec, const Picture& picture) {
    return [&codec, picture] { return !codec.encode(picture, {}, {}).isEmpty(); };
}

void addJpeg(const QString& path, const QByteArray& file, const Picture& picture) {
    const Codec& codec = *codecForExtension(QStringLiteral("jpg"));
    const auto always = [](const auto& work) {
        return [work] {
            work();
            return true;
        };
    };
    add("jpg: load, beside bare libjpeg-turbo", loading(codec, file),
        always([=] { bench::loadBareJpeg(file); }));
    add("jpg: save, beside bare libjpeg-turbo", saving(codec, picture),
        always([=] { bench::saveBareJpeg(picture, SaveSettings().JpegQuality); }));
    constexpr int side = 150;
    add(
        "jpg: thumbnail, beside a reduced decode and means",
        [=] {
            return fncLoadPicture(path, LoadMode::FitInside, {side, side}).has_value();
        },
        always([=] { bench::makeBareThumbnail(file, side); }));
}

void addPeers(const Picture& picture) {
    const std::vector<bench::CodecPeer> peers = bench::codecPeers();
    for (const char* extension : {"jpg", "png", "tif", "gif", "psd", "bmp"}) {
        const Codec& codec = *codecForExtension(QLatin1String(extension));
        const QByteArray file = codec.encode(picture, {}, {});
        for (const bench::CodecPeer& peer : peers) {
            const std::string beside = std::string(", beside ") + peer.name;
            add(extension + std::string(": load") + beside, loading(codec, file),
                [=] { return peer.load(file); });
            add(extension + std::string(": save") + beside, saving(codec, picture),
                [=] { return peer.save(picture, extension); });
        }
    }
}

/// Formats that none of the peers reads and writes: beside one copy of the pixels.
void addWithoutPeers(const Picture& picture) {
    const Step copy = [picture] {
        Picture same = picture;
        return same.edit().width == picture.width();
    };
    const Codec& pdf = *codecForExtension(QStringLiteral("pdf"));
    add("pdf: save, beside a copy", saving(pdf, picture), copy);
    for (const char* extension : {"pcx", "wbmp"}) {
        const Codec& codec = *codecForExtension(QLatin1String(extension));
        add(std::string(extension) + ": save, beside a copy", saving(codec, picture), copy);
        add(std::string(extension) + ": load, beside a copy", loading(codec, codec.encode(picture, {}, {})),
            copy);
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::fputs("expected PICTURE.jpg\n", stderr);
        return 2;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    const QByteArray file = PictureSource::ofFile(path).all();
    const Picture picture =
        codecForExtension(QStringLiteral("jpg"))->decode(PictureSource(file), path, 1).picture;
    addJpeg(path, file, picture);
    addPeers(picture);
    addWithoutPeers(picture);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
