// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Light.h"

namespace tarsel::samples {

/// Where the photographer stands, in metres, looking along z.
struct Eye {
    Vector place;
    float focal = 1;      ///< focal length in widths of the picture
    float horizon = 0.5F; ///< row of the horizon, as a share of the height
};

struct GroundPoint {
    Vector place;
    Vector normal;
    float distance = 0;
};

/// A landscape given as a height over the plane.
class Ground {
public:
    virtual ~Ground() = default;
    /// Height in metres; `distance` from the eye decides how much detail is visible.
    virtual float height(float x, float z, float distance) const = 0;
    virtual Rgb light(const GroundPoint& point) const = 0;

protected:
    /// 1 where the sun reaches the point, 0 in full shadow; looks for `reach` metres towards the sun.
    float sunlight(const GroundPoint& point, Vector sun, float reach) const;
};

struct Depth {
    float nearest = 1;   ///< metres
    float farthest = 1;  ///< metres
    float step = 0.003F; ///< of the distance; finer shows thinner crests
};

/// Paints the ground over what is on the canvas, column by column from near to far. Gives, for each column,
/// the row of its skyline.
std::vector<float> paintGround(Canvas& canvas, const Eye& eye, const Ground& ground, const Depth& depth);

/// The unit direction in which a pixel looks.
Vector viewOf(const Canvas& canvas, const Eye& eye, float x, float y);

} // namespace tarsel::samples
