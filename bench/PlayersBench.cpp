// SPDX-License-Identifier: GPL-3.0-or-later
// What a frame of each effect takes on a screen of 1920 x 1080; CPU time, at 60 frames a second after a start
// of 10 seconds.
#include "players/effects/Effect.h"

#include <benchmark/benchmark.h>

namespace {

using namespace tarsel::players;

constexpr int width = 1920, height = 1080;

Picture stripes() {
    Picture picture{std::vector<std::uint32_t>(std::size_t(width) * height), width, height};
    for (std::size_t i = 0; i < picture.pixels.size(); ++i)
        picture.pixels[i] = black | std::uint32_t(i * 2654435761u >> 8);
    return picture;
}

void frame(benchmark::State& state, Style style, std::uint8_t clockKind) {
    tarsel::joined::EffectOptions options;
    options.rollingText = "Happy Greetings!";
    options.clockKind = clockKind;
    options.showDate = 1;
    const auto effect =
        makeEffect(style, stripes(), options, [] { return ClockTime{10, 9, 36.5, 0, 22, 11}; });
    Picture screen{std::vector<std::uint32_t>(std::size_t(width) * height), width, height};
    double seconds = 0;
    for (; seconds < 10; seconds += 1.0 / 60)
        effect->draw(screen.canvas(), seconds);
    for (auto _ : state)
        effect->draw(screen.canvas(), seconds += 1.0 / 60);
}

BENCHMARK_CAPTURE(frame, simple, Style::Simple, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, watery, Style::Watery, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, rainingText, Style::RainingText, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, analogClock, Style::Clock, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, digitalClock, Style::Clock, 1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
