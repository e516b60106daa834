// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleTable.h"

#include "samples/Scenes.h"

#include <array>

namespace tarsel::samples {

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

Sample sample(const char* name, QImage (*take)(), const std::array<const char*, 10>& notes) {
    return {text(name),
            take,
            {text(notes[0]), text(notes[1]), text(notes[2]), text(notes[3]), text(notes[4]), text(notes[5]),
             text(notes[6]), text(notes[7]), text(notes[8]), text(notes[9])}};
}

// clang-format off
const std::array table{
    sample("dunes", dunes, {"2024:02:11 17:41:08", "1/320", "8/1", "100", "35/1",
        "Evening in the dunes", "Long shadows an hour before sunset; the wind has drawn fresh ripples.",
        "desert;dunes;sand;evening", "Merzouga", "Morocco"}),
    sample("alpine-morning", alpineMorning, {"2023:06:18 06:52:31", "1/250", "9/1", "100", "70/1",
        "First sun on the rock face", "The range above the valley, seen from the upper pastures.",
        "mountains;snow;morning", "Grindelwald", "Switzerland"}),
    sample("mountain-lake", mountainLake, {"2023:06:19 08:20:04", "1/160", "11/1", "100", "28/1",
        "Still water", "A light breeze wrinkles the lake just enough to break up the peaks.",
        "mountains;lake;reflection", "Zermatt", "Switzerland"}),
    sample("lavender", lavender, {"2024:07:02 20:33:47", "1/200", "8/1", "160", "24/1",
        "Lavender before the harvest", "Rows in full bloom in the last light of the day.",
        "field;lavender;flowers;summer", "Valensole", "France"}),
    sample("open-sea", openSea, {"2022:10:05 17:58:12", "1/1000", "5/1", "200", "35/1",
        "Swell after the storm", "Two metres of sea and a low sun, from the deck of the ferry.",
        "sea;waves;sunset", "Lerwick", "Scotland"}),
    sample("evening-clouds", eveningClouds, {"2022:08:27 19:46:55", "1/125", "56/10", "200", "24/1",
        "After the rain", "The sheet of clouds breaks up towards the west.",
        "sky;clouds;sunset", "Sibiu", "Romania"}),
    sample("foggy-forest", foggyForest, {"2023:11:09 08:05:19", "1/60", "56/10", "400", "105/1",
        "Firs in the morning fog", "Rows of firs, each a little paler than the one in front.",
        "forest;fog;trees", "Freudenstadt", "Germany"}),
    sample("starry-night", starryNight, {"2024:08:04 00:14:26", "20/1", "28/10", "3200", "20/1",
        "The Milky Way above the wood", "Town lights glow on the left, thirty kilometres away.",
        "night;stars;galaxy;wood", "Jokkmokk", "Sweden"}),
    sample("northern-lights", northernLights, {"2024:01:15 22:37:50", "8/1", "28/10", "1600", "20/1",
        "Curtains over the fjord", "Eight seconds were enough: the lights moved quickly that night.",
        "night;northern lights;winter", "Troms\xc3\xb8", "Norway"}),
    sample("rainy-window", rainyWindow, {"2023:12:01 17:22:03", "1/40", "18/10", "800", "85/1",
        "Waiting for the tram", "Rain on the window, the street outside out of focus.",
        "city;rain;lights;bokeh", "K\xc3\xb6ln", "Germany"}),
    sample("misty-islands", mistyIslands, {"2022:09:30 07:11:38", "1/200", "8/1", "200", "135/1",
        "Islands in the mist", "On black and white film; the ferry had not left yet.",
        "sea;islands;mist;black and white", "Krager\xc3\xb8", "Norway"}),
};
// clang-format on

} // namespace

std::span<const Sample> sampleTable() {
    return table;
}

} // namespace tarsel::samples
