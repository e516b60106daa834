// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"
#include "samples/scenes/Alps.h"

namespace tarsel::samples {

namespace {

/// The water below `shore`: the picture above it turned over, shaken by ripples that grow towards the eye,
/// and darker the steeper the look into it.
void paintWater(Canvas& canvas, float shore) {
    const int first = int(shore);
    const float depth = float(canvas.height()) - shore;
    for (int y = first; y < canvas.height(); ++y) {
        const float near = (float(y) - shore) / depth;
        const float away = 1 / (near + 0.02F);
        const float steep = 0.25F + 0.55F * near;
        for (int x = 0; x < canvas.width(); ++x) {
            const float across = (float(x) / float(canvas.width()) - 0.5F) * away;
            const float ripple = fractal(across * 22, away * 34, 3, 40) - 0.5F;
            const float calm = ramp(0.35F, 0.6F, fractal(across * 1.5F, away * 6, 2, 41));
            const float shake = ripple * (0.25F + 0.75F * calm) * 110 * near;
            const Rgb mirrored =
                canvas.between(float(x) + shake * 0.15F, 2 * shore - float(y) - std::fabs(shake));
            canvas.at(x, y) =
                mix(mirrored * 0.86F, Rgb{0.012F, 0.045F, 0.05F}, steep * (0.75F - ripple * 0.5F));
        }
    }
}

/// Ground that sinks below the lake.
class AboveWater final : public Ground {
public:
    AboveWater(const Ground& land, float level) : m_land(land), m_level(level) {}
    float height(float x, float z, float distance) const override {
        return std::max(m_land.height(x, z, distance) - 330 * ramp(6500, 2200, z), m_level);
    }
    Rgb light(const GroundPoint& point) const override { return m_land.light(point); }

private:
    const Ground& m_land;
    float m_level;
};

} // namespace

QImage mountainLake() {
    Canvas canvas(1600, 1200);
    Sky sky{{0.13F, 0.27F, 0.60F}, {0.70F, 0.76F, 0.84F}, {0.5F, 0.4F, 0.3F}, unit({-0.7F, 0.52F, 0.05F})};
    sky.hazeReach = 45000;
    const Eye eye{{11000, 24, -2500}, 0.95F, 0.52F};
    expose(canvas, [&](float x, float y) {
        const Vector view = viewOf(canvas, eye, x, y);
        const float away = 1 / (std::max(view.y, 0.0F) + 0.10F);
        const float cloud = fractal(view.x * away * 0.9F, view.z * away * 1.1F, 7, 61);
        return mix(sky.light(view), Rgb{1.2F, 1.18F, 1.15F},
                   0.85F * ramp(0.50F, 0.72F, cloud) * ramp(0, 0.25F, view.y));
    });
    const Alps alps(sky, 33, 3300, 1500);
    paintGround(canvas, eye, AboveWater(alps, 0), {4200, 36000, 0.004F});
    paintWater(canvas, eye.horizon * float(canvas.height()) + 4);
    return develop(std::move(canvas), {1.35F, 0.06F, 0.35F, 0.018F, 0.55F, false, 3});
}

} // namespace tarsel::samples
