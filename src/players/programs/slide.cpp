// SPDX-License-Identifier: MIT
#include "players/Player.h"
#include "players/SlideShow.h"

using namespace tarsel::players;

int main(int argc, char** argv) {
    return runPlayer({".exe", "Slide show",
                      [](const Payload& payload, const Box& screen, double now) -> std::unique_ptr<Show> {
                          return std::make_unique<SlideShow>(payload, screen, now);
                      }},
                     argc, argv);
}
