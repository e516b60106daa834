// SPDX-License-Identifier: MIT
#pragma once

#include "players/Payload.h"
#include "players/Show.h"

#include <vector>

namespace tarsel::players {

/// The pictures one after the other, again from the first after the last. A picture that can't be decoded is
/// skipped.
class PictureShow : public Show {
public:
    /// Throws PlayerError where no picture can be decoded.
    PictureShow(const Payload& payload, const Box& screen, double now);

    void draw(const Canvas& canvas, double now) override;
    double nextFrame(double now) const override;

protected:
    void step(int by, double now); ///< 1 forward, -1 back
    void play(bool isPlaying, double now);
    bool isPlaying() const { return m_isPlaying; }

private:
    bool load();
    void loadFirst();
    void waitFrom(double now);

    const Payload& m_payload;
    Box m_screen;
    std::uint32_t m_background;
    double m_interval; ///< in seconds; 0 where no picture follows by itself
    std::size_t m_index = 0;
    std::vector<bool> m_damaged; ///< as far as they were tried
    int m_direction = 1;         ///< of the next step
    Picture m_picture;
    bool m_isPlaying = true;
    double m_next = 0;
};

/// A screen saver: any input ends it, and movement of the pointer when there is much of it in a short time.
class SaverShow : public PictureShow {
public:
    using PictureShow::PictureShow;

    bool take(const Event& event, double now) override;

private:
    int m_moves = 0;
    double m_movesEnd = 0; ///< when the count begins again
    int m_x = -1;
    int m_y = -1;
};

} // namespace tarsel::players
