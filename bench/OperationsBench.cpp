// SPDX-License-Identifier: GPL-3.0-or-later
// How long the pixel operations take on a picture of 12 megapixels, and the same work in other libraries.
// Times mean something only beside a memcpy of the picture in the same run: with
// --benchmark_counters_tabular=true the column "memcpys" shows the best time in that unit.

#include "base/Spreading.h"
#include "bench/OperationPeers.h"
#include "imaging/ImageBox.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <random>

using namespace tarsel;

namespace {

constexpr int pictureWidth = 4000;
constexpr int pictureHeight = 3000;

/// Detail of all sizes, as photographs have it.
Picture detailedPicture(int width, int height, int channels) {
    std::mt19937 random(1);
    Picture picture(width, height, channels);
    const PixelView view = picture.edit();
    for (int y = 0; y < height; ++y)
        for (int i = 0; i < width * channels; ++i)
            view.row(y)[i] = std::uint8_t((i / 7 + y / 5 + random() % 32) & 0xFF);
    return picture;
}

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The unit: one copy between two buffers of a picture's size, both in memory already.
double memcpySeconds(int channels) {
    static const std::vector<char> from(std::size_t(pictureWidth) * pictureHeight * 4, 1);
    static std::vector<char> to(std::size_t(pictureWidth) * pictureHeight * 4, 2);
    return secondsOf([&] {
        std::memcpy(to.data(), from.data(),
                    std::size_t(pictureWidth) * pictureHeight * std::size_t(channels));
        benchmark::ClobberMemory();
    });
}

using Work = std::function<void(ImageBox&)>;

/// `prepare` is not measured. Counts the best round of `work`, and the best memcpy.
void measure(benchmark::State& state, int channels, const std::function<void()>& prepare,
             const std::function<void()>& work) {
    double best = 1e9;
    double unit = 1e9;
    for (auto _ : state) {
        prepare();
        unit = std::min(unit, memcpySeconds(channels));
        const double seconds = secondsOf(work);
        state.SetIterationTime(seconds);
        best = std::min(best, seconds);
    }
    state.counters["memcpys"] = best / unit;
}

/// Each round starts from the same unshared picture.
void measureBox(benchmark::State& state, const Work& work, int channels, const Spreading& spreading) {
    const SpreadingScope scope(spreading);
    const Picture original = detailedPicture(pictureWidth, pictureHeight, channels);
    ImageBox box;
    box.Resample = true;
    box.Font.Name = QStringLiteral("DejaVu Sans");
    const auto prepare = [&] {
        Picture copy = original;
        copy.edit();
        box.setPictureHandle(std::exchange(copy, {}));
    };
    measure(state, channels, prepare, [&] { work(box); });
}

struct Case {
    const char* name;
    Work work;
};

std::vector<Case> cases() {
    static const Picture logo = detailedPicture(300, 200, 4);
    static const Picture tile = detailedPicture(300, 200, 3);
    static const Picture cover = detailedPicture(pictureWidth, pictureHeight, 3);
    static const Picture alphaCover = detailedPicture(pictureWidth, pictureHeight, 4);
    const auto mergeWith = [](const Picture& layer, int style, double transparency) {
        return [&layer, style, transparency](ImageBox& b) {
            b.MergeStyle = style;
            b.MergeTransparency = transparency;
            b.MergeHandle(layer);
        };
    };
    return {
        {"snapshot, edit and restore",
         [](ImageBox& b) {
             const Picture snapshot = b.SaveToMemory(7);
             b.Flip(1);
             b.LoadFromMemory(snapshot, 7);
         }},
        {"Negative", [](ImageBox& b) { b.Negative(); }},
        {"Brightness", [](ImageBox& b) { b.Brightness(70, true, true, true); }},
        {"Contrast", [](ImageBox& b) { b.Contrast(70, true, true, false); }},
        {"Sharpen", [](ImageBox& b) { b.Sharpen(5); }},
        {"Blur 1", [](ImageBox& b) { b.Blur(1); }},
        {"Blur 2", [](ImageBox& b) { b.Blur(2); }},
        {"Blur 3", [](ImageBox& b) { b.Blur(3); }},
        {"Blur 5", [](ImageBox& b) { b.Blur(5); }},
        {"Blur 7", [](ImageBox& b) { b.Blur(7); }},
        {"Blur 10", [](ImageBox& b) { b.Blur(10); }},
        {"Flip horizontally", [](ImageBox& b) { b.Flip(0); }},
        {"Flip vertically", [](ImageBox& b) { b.Flip(1); }},
        {"Rotate 90", [](ImageBox& b) { b.Rotate(90); }},
        {"Rotate 180", [](ImageBox& b) { b.Rotate(180); }},
        {"Rotate 7, smooth", [](ImageBox& b) { b.Rotate(7); }},
        {"Rotate 45, smooth", [](ImageBox& b) { b.Rotate(45); }},
        {"Rotate 7, nearest",
         [](ImageBox& b) {
             b.Resample = false;
             b.Rotate(7);
             b.Resample = true;
         }},
        {"Resize to a half", [](ImageBox& b) { b.Resize(2000, 1500); }},
        {"Resize to a third", [](ImageBox& b) { b.Resize(1000, 750); }},
        {"Resize just beside a half", [](ImageBox& b) { b.Resize(2001, 1501); }},
        {"Resize to 1024 x 768", [](ImageBox& b) { b.Resize(1024, 768); }},
        {"Resize to 150 x 113", [](ImageBox& b) { b.Resize(150, 113); }},
        {"Resize to 6000 x 4500", [](ImageBox& b) { b.Resize(6000, 4500); }},
        {"ResizeTo a half, nearest",
         [](ImageBox& b) {
             b.Resample = false;
             b.ResizeTo(2000, 1500);
             b.Resample = true;
         }},
        {"Crop a frame of 10", [](ImageBox& b) { b.Crop(-10, -10, b.Width() + 10, b.Height() + 10); }},
        {"Ellipse",
         [](ImageBox& b) {
             b.SelectionActive = true;
             b.SelectEllipse(0, 0, b.Width(), b.Height());
             b.CropToSelection();
         }},
        {"Merge a logo", mergeWith(logo, 0, 50)},
        {"Merge tiles, opaque", mergeWith(tile, 2, 0)},
        {"Merge tiles, half transparent", mergeWith(tile, 2, 50)},
        {"Merge tiles with alpha", mergeWith(logo, 2, 50)},
        {"Merge a cover, half transparent", mergeWith(cover, 1, 50)},
        {"Merge a cover with alpha", mergeWith(alphaCover, 1, 0)},
        {"DrawText",
         [](ImageBox& b) {
             b.DrawText(b.Width() - 800, b.Height() - 80, QStringLiteral("Harbour, September"));
         }},
    };
}

template <class Measure>
void add(const QString& name, const Measure& body) {
    benchmark::RegisterBenchmark(name.toStdString().c_str(), body)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(12);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const auto& [name, work] : cases())
        for (const int channels : {3, 4})
            for (const bool spread : {false, true})
                add(QLatin1String(name) + (channels == 4 ? QStringLiteral(", 32 bits") : QString()) +
                        (spread ? QStringLiteral(", spread") : QString()),
                    [work = work, channels, spread](benchmark::State& state) {
                        measureBox(state, work, channels, spread ? Spreading::overProcessors() : Spreading{});
                    });
    const Picture picture = detailedPicture(pictureWidth, pictureHeight, 3);
    for (const auto& [name, work] : bench::peersOn(picture))
        add(QLatin1String(name), [work = work](benchmark::State& state) {
            measure(
                state, 3, [] {}, work);
        });
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
