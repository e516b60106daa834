// SPDX-License-Identifier: MIT
#include "players/PictureShow.h"
#include "players/Player.h"

using namespace tarsel::players;

int main(int argc, char** argv) {
    return runPlayer({".scr", "Screen saver",
                      [](const Payload& payload, const Box& screen, double now) -> std::unique_ptr<Show> {
                          return std::make_unique<SaverShow>(payload, screen, now);
                      }},
                     argc, argv);
}
