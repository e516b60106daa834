// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/EmbeddedMetadata.h"
#include "pixels/Color.h"
#include "pixels/Picture.h"

#include <cstdint>
#include <memory>

namespace tarsel {

/// Whether an ICC profile describes red, green and blue, so that it may stay with a decoded picture: only one
/// that is complete and that colours can be converted with. Without it they count as sRGB.
bool isRgbProfile(const QByteArray& iccProfile);

/// Turns pixels of one RGB profile into those of another one; bytes that are not an RGB profile stand for
/// sRGB.
class RgbConversion {
public:
    explicit RgbConversion(const QByteArray& from, const QByteArray& to = {});

    /// False when no colour would change by more than the last bit.
    bool changesColors() const { return m_transforms != nullptr; }
    /// In place. Alpha stays.
    void convert(PixelView pixels) const;

private:
    struct Transforms;
    static std::shared_ptr<const Transforms> make(const QByteArray& from, const QByteArray& to);

    std::shared_ptr<const Transforms> m_transforms; ///< shared by all conversions of the same profiles
};

/// The picture as RgbConversion makes it; shared with the source when nothing changes.
Picture converted(const Picture& picture, const QByteArray& from, const QByteArray& to = {});
Rgb converted(Rgb color, const QByteArray& from, const QByteArray& to = {});

/// Turns a gray picture into sRGB by a profile of gray values; leaves it alone with any other profile.
void applyGrayProfile(Picture& picture, const QByteArray& iccProfile);

/// Places in the diagram of x and y.
struct Chromaticities {
    struct Place {
        double x = 0, y = 0;
    };
    Place white{0.3127, 0.3290}, red{0.64, 0.33}, green{0.30, 0.60}, blue{0.15, 0.06}; ///< of sRGB
};

/// A profile of pixels whose light is value ^ gamma. Empty where that is sRGB as far as an eye can tell: the
/// gamma 2.2 of many files stands for the curve of sRGB. The same arguments give the same bytes.
QByteArray calibratedProfile(const Chromaticities& places, double gamma);

/// The blocks without a profile that is unusable or for other pixels than red, green and blue.
EmbeddedMetadata withRgbProfileOnly(EmbeddedMetadata metadata);

/// For inks and L*a*b*, which become sRGB: a profile of red, green and blue that such a file holds by mistake
/// must not reach the result.
EmbeddedMetadata withoutRgbProfile(EmbeddedMetadata metadata);

/// Turns rows of cyan, magenta, yellow and black (0 no ink, 255 full) into sRGB: by the embedded profile
/// where there is a usable one, else by red = (255 - cyan) (255 - black) / 255, and so on.
class CmykConversion {
public:
    explicit CmykConversion(const QByteArray& iccProfile);
    ~CmykConversion();
    CmykConversion(const CmykConversion&) = delete;
    CmykConversion& operator=(const CmykConversion&) = delete;

    /// `cmyk` holds 4 bytes a pixel, `rgb` 3.
    void convertRow(const std::uint8_t* cmyk, std::uint8_t* rgb, int width) const;

private:
    void* m_transform = nullptr;
};

/// Turns rows of CIE L*a*b* (D50; L 0 to 100, a and b around 0) into sRGB.
class LabConversion {
public:
    LabConversion();
    ~LabConversion();
    LabConversion(const LabConversion&) = delete;
    LabConversion& operator=(const LabConversion&) = delete;

    /// `lab` holds 3 numbers a pixel, `rgb` 3 bytes.
    void convertRow(const double* lab, std::uint8_t* rgb, int width) const;

private:
    void* m_transform = nullptr;
};

} // namespace tarsel
