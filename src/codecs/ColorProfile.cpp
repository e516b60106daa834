// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/ColorProfile.h"

#include <lcms2.h>

namespace tarsel {

namespace {

constexpr qsizetype ColorSpaceOffset = 16; // of the four letters in a profile's header

struct ProfileCloser {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, ProfileCloser>;

bool hasColorSpace(const QByteArray& iccProfile, const char* letters) {
    return iccProfile.mid(ColorSpaceOffset, 4) == letters;
}

std::uint8_t withoutInk(std::uint8_t ink, std::uint8_t black) {
    return std::uint8_t(((255 - ink) * (255 - black) + 127) / 255);
}

} // namespace

bool isRgbProfile(const QByteArray& iccProfile) {
    return hasColorSpace(iccProfile, "RGB ");
}

EmbeddedMetadata withRgbProfileOnly(EmbeddedMetadata metadata) {
    if (!isRgbProfile(metadata.iccProfile))
        metadata.iccProfile.clear();
    return metadata;
}

CmykConversion::CmykConversion(const QByteArray& iccProfile) {
    if (!hasColorSpace(iccProfile, "CMYK"))
        return;
    const Profile source(cmsOpenProfileFromMem(iccProfile.constData(), cmsUInt32Number(iccProfile.size())));
    const Profile target(cmsCreate_sRGBProfile());
    if (source && target)
        m_transform = cmsCreateTransform(source.get(), TYPE_CMYK_8, target.get(), TYPE_RGB_8,
                                         INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_BLACKPOINTCOMPENSATION);
}

CmykConversion::~CmykConversion() {
    if (m_transform)
        cmsDeleteTransform(m_transform);
}

void CmykConversion::convertRow(const std::uint8_t* cmyk, std::uint8_t* rgb, int width) const {
    if (m_transform)
        return cmsDoTransform(m_transform, cmyk, rgb, cmsUInt32Number(width));
    for (int x = 0; x < width; ++x, cmyk += 4)
        for (int c = 0; c < 3; ++c)
            *rgb++ = withoutInk(cmyk[c], cmyk[3]);
}

LabConversion::LabConversion() {
    const Profile source(cmsCreateLab4Profile(nullptr));
    const Profile target(cmsCreate_sRGBProfile());
    if (source && target)
        m_transform = cmsCreateTransform(source.get(), TYPE_Lab_DBL, target.get(), TYPE_RGB_8,
                                         INTENT_RELATIVE_COLORIMETRIC, 0);
}

LabConversion::~LabConversion() {
    if (m_transform)
        cmsDeleteTransform(m_transform);
}

void LabConversion::convertRow(const double* lab, std::uint8_t* rgb, int width) const {
    if (m_transform)
        cmsDoTransform(m_transform, lab, rgb, cmsUInt32Number(width));
}

} // namespace tarsel
