// SPDX-License-Identifier: MIT
#include "players/EffectShow.h"
#include "players/Player.h"

using namespace tarsel::players;

int main(int argc, char** argv) {
    return runPlayer({".exe", "Greeting",
                      [](const Payload& payload, const Box& screen, double now) -> std::unique_ptr<Show> {
                          return std::make_unique<EffectShow>(payload, Style::TARSEL_STYLE, screen, now);
                      }},
                     argc, argv);
}
