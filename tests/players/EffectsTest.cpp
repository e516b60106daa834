// SPDX-License-Identifier: GPL-3.0-or-later
#include "players/CommandLine.h"
#include "players/Stage.h"
#include "players/effects/ClockText.h"
#include "players/effects/Effect.h"
#include "players/effects/Font.h"
#include "players/effects/Letters.h"
#include "players/effects/Refraction.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tarsel::players {

namespace {

Picture gradient(int width, int height) {
    Picture picture{{}, width, height};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.pixels.push_back(black | std::uint32_t(x * 255 / width) << 16 |
                                     std::uint32_t(y * 255 / height));
    }
    return picture;
}

ClockTime morning() {
    return {9, 5, 30.5, 0, 22, 11};
}

TEST(Effects, RipplesBendThePictureUntilThePondIsStill) {
    Picture picture = gradient(200, 100);
    const auto seen = [&](const Pond& pond) {
        Picture shown{std::vector<std::uint32_t>(picture.pixels.size()), 200, 100};
        drawThroughWater(shown.canvas(), picture, pond, 2);
        return shown.pixels;
    };
    Pond pond(101, 51);
    EXPECT_EQ(seen(pond), picture.pixels);
    pond.touch(50, 25, 5, 4);
    EXPECT_NE(seen(pond), picture.pixels);
    double energy = pond.energy();
    int seconds = 0;
    for (; !pond.isStill() && seconds < 60; ++seconds) {
        for (int step = 0; step < 120; ++step)
            pond.step();
        EXPECT_LT(pond.energy(), energy);
        energy = pond.energy();
    }
    EXPECT_LT(seconds, 60);
    EXPECT_EQ(seen(pond), picture.pixels);
    pond.touch(-3, 60, 5, 4); // from outside
    pond.step();
}

/// Frames at five times on a canvas in a larger buffer whose other pixels must stay; a picture of this size.
std::vector<std::uint32_t> frames(Style style, std::uint32_t seed, int width, int height) {
    constexpr int stride = 320;
    constexpr std::uint32_t outside = 0x12345678;
    joined::EffectOptions options;
    options.rollingText = "Grüße und ein sehr langer Text, der nicht in eine Zeile passt";
    options.showDate = 1;
    options.hourColor = 0xFFFFFF;
    const auto effect = makeEffect(style, gradient(width, height), options, morning, seed);
    std::vector<std::uint32_t> buffer(stride * 220, outside);
    const Canvas canvas{buffer.data() + 10 * stride + 10, 300, 200, stride};
    const Box place = placeOf(width, height, canvas);
    std::vector<std::uint32_t> all;
    for (const double seconds : {0.0, 0.5, 2.0, 7.0, 90.0}) {
        effect->draw(canvas, seconds);
        effect->pointer(299, 199, seconds);
        for (int i = 0; i < int(buffer.size()); ++i) {
            const int x = i % stride - 10;
            const int y = i / stride - 10;
            const bool isOnCanvas = x >= 0 && y >= 0 && x < 300 && y < 200;
            const bool isOnPicture = x >= place.left && x < place.left + place.width && y >= place.top &&
                                     y < place.top + place.height;
            if (!isOnPicture && buffer[std::size_t(i)] != (isOnCanvas ? black : outside)) {
                ADD_FAILURE() << "style " << int(style) << " drew at " << x << ',' << y << " at " << seconds;
                return all;
            }
        }
        all.insert(all.end(), buffer.begin(), buffer.end());
    }
    return all;
}

TEST(Effects, FramesStayOnThePictureAndRepeatWithTheirSeed) {
    for (const auto& [width, height] : {std::pair(200, 150), {500, 90}, {1, 1}, {40, 400}}) {
        for (const Style style : {Style::Simple, Style::Watery, Style::RainingText, Style::Clock}) {
            const auto first = frames(style, 7, width, height);
            EXPECT_EQ(first, frames(style, 7, width, height)) << int(style);
        }
    }
    for (const Style style : {Style::Watery, Style::RainingText})
        EXPECT_NE(frames(style, 7, 200, 150), frames(style, 8, 200, 150)) << int(style);
}

TEST(Effects, APictureIsCentredAndNeverScaled) {
    const Canvas canvas{nullptr, 100, 50, 100};
    EXPECT_EQ(placeOf(40, 20, canvas), (Box{30, 15, 40, 20}));
    EXPECT_EQ(placeOf(39, 21, canvas), (Box{30, 14, 39, 21})); // 30.5 and 14.5
    EXPECT_EQ(placeOf(300, 51, canvas), (Box{0, 0, 100, 50}));
}

TEST(Effects, ClocksShowTheTime) {
    const struct {
        ClockTime time;
        HandAngles angles;
        const char32_t* text;
    } times[] = {{{0, 0, 0}, {0, 0, 0}, U"00:00:00"},
                 {{15, 30, 15}, {105.125, 181.5, 90}, U"15:30:15"},
                 {{23, 59, 59.9}, {359.9991666, 359.99, 359.4}, U"23:59:59"}};
    for (const auto& [time, angles, text] : times) {
        const HandAngles shown = handAngles(time);
        EXPECT_NEAR(shown.hour, angles.hour, 1e-4);
        EXPECT_NEAR(shown.minute, angles.minute, 1e-4);
        EXPECT_NEAR(shown.second, angles.second, 1e-4);
        EXPECT_EQ(timeText(time), text);
    }
    EXPECT_EQ(dateText(morning()), U"Sun , 22 Nov");
}

TEST(Effects, TextsOfBothCodingsFallInShortPhrases) {
    EXPECT_EQ(lettersOf("Gr\xFC\xDF\x80\n"), U"Grüß€ ");
    EXPECT_EQ(lettersOf("Grüß €"), U"Grüß €");
    EXPECT_EQ(lettersOf("\xC0\xAF\xE2\x82"), U"À¯â‚"); // no valid UTF-8
    EXPECT_EQ(phrasesOf(U"  a bc  defghijk l ", 4),
              (std::vector<std::u32string>{U"a bc", U"defghijk", U"l"}));
    EXPECT_TRUE(phrasesOf(U"  ", 4).empty());
}

TEST(Effects, LettersThatTheFontLacksAreNamedOnce) {
    EXPECT_EQ(lettersWithoutGlyph("Gr\xC3\xBC\xC3\x9F"
                                  "e; \xE5\x86\x99\xE7\x9C\x9F\xE5\x86\x99"),
              U"\u5199\u771F");
    EXPECT_TRUE(lettersWithoutGlyph("\x80 \xFC").empty()) << "Windows-1252";
}

TEST(PlayerCommand, HostsAreUnderstood) {
    using enum Command::Action;
    const struct {
        std::vector<std::string_view> arguments;
        std::optional<std::uint64_t> environment;
        Command::Action action;
        std::optional<std::uint64_t> host;
    } lines[] = {{{}, {}, Show, {}},
                 {{}, 5, Show, 5},
                 {{"/S"}, {}, Show, {}},
                 {{"/setup"}, {}, Show, {}},
                 {{"/p", "77"}, 5, Show, 77},
                 {{"/p:77"}, {}, Show, 77},
                 {{"/P"}, 5, Show, 5},
                 {{"/P", "0"}, {}, Nothing, {}},
                 {{"/P", "77x"}, {}, Nothing, {}},
                 {{"-window-id", "0x1a"}, {}, Show, 26},
                 {{"-root"}, 5, Show, 5},
                 {{"-root"}, {}, Nothing, {}},
                 {{"/C:12"}, {}, Configure, {}},
                 {{"-s"}, 5, Nothing, {}},
                 {{"/"}, {}, Nothing, {}},
                 {{"--licences"}, {}, PrintLicences, {}}};
    for (const auto& line : lines) {
        const Command command = commandOf(line.arguments, line.environment);
        const auto first = line.arguments.empty() ? std::string_view() : line.arguments[0];
        EXPECT_EQ(int(command.action), int(line.action)) << first;
        EXPECT_EQ(command.host, line.host) << first;
    }
}

} // namespace

} // namespace tarsel::players
