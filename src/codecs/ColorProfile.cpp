// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/ColorProfile.h"

#include "bytes/ByteReader.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <lcms2.h>
#include <mutex>
#include <optional>

namespace tarsel {

namespace {

constexpr qsizetype classOffset = 12, colorSpaceOffset = 16; // of four letters in a profile's header

struct ProfileCloser {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, ProfileCloser>;

struct TransformCloser {
    void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using Transform = std::unique_ptr<void, TransformCloser>;

bool hasColorSpace(const QByteArray& iccProfile, const char* letters) {
    return iccProfile.mid(colorSpaceOffset, 4) == letters;
}

std::uint8_t withoutInk(std::uint8_t ink, std::uint8_t black) {
    return std::uint8_t(((255 - ink) * (255 - black) + 127) / 255);
}

} // namespace

namespace {

Profile openProfile(const QByteArray& iccProfile, const char* colorSpace) {
    if (!hasColorSpace(iccProfile, colorSpace))
        return nullptr;
    return Profile(cmsOpenProfileFromMem(iccProfile.constData(), cmsUInt32Number(iccProfile.size())));
}

bool isGray(ConstPixelView pixels) {
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x) {
            const std::uint8_t* pixel = pixels.pixel(x, y);
            if (pixel[0] != pixel[1] || pixel[1] != pixel[2])
                return false;
        }
    return true;
}

Profile rgbProfile(const QByteArray& iccProfile) {
    Profile embedded = openProfile(iccProfile, "RGB ");
    return embedded ? std::move(embedded) : Profile(cmsCreate_sRGBProfile());
}

/// Tries colours all over the cube: many profiles are sRGB under another name.
bool changesAnything(void* transform) {
    constexpr int step = 51;
    for (int red = 0; red < 256; red += step)
        for (int green = 0; green < 256; green += step)
            for (int blue = 0; blue < 256; blue += step) {
                const std::uint8_t color[] = {std::uint8_t(red), std::uint8_t(green), std::uint8_t(blue)};
                std::uint8_t result[3] = {};
                cmsDoTransform(transform, color, result, 1);
                for (int c = 0; c < 3; ++c)
                    if (std::abs(color[c] - result[c]) > 1)
                        return true;
            }
    return false;
}

void* rgbTransform(void* source, void* target, cmsUInt32Number format, cmsUInt32Number flags = 0) {
    return source && target ? cmsCreateTransform(source, format, target, format, INTENT_RELATIVE_COLORIMETRIC,
                                                 flags | cmsFLAGS_BLACKPOINTCOMPENSATION)
                            : nullptr;
}

/// The size that a profile claims for itself is there, and all of its tags are inside it. Layout: size 32,
/// .., at 128 the count of tags 32, and for each its name 32, offset 32, size 32.
bool isComplete(const QByteArray& iccProfile) {
    constexpr std::int64_t tagCountOffset = 128, tagSize = 12;
    const ByteReader reader(iccProfile, ByteOrder::Big);
    const std::int64_t size = reader.dword(0).value_or(0), tags = reader.dword(tagCountOffset).value_or(0);
    if (size > iccProfile.size() || tags > (size - tagCountOffset - 4) / tagSize)
        return false;
    for (std::int64_t at = tagCountOffset + 4, end = at + tags * tagSize; at < end; at += tagSize)
        if (std::int64_t(reader.dword(at + 4).value_or(0)) + reader.dword(at + 8).value_or(0) > size)
            return false;
    return true;
}

/// Of a screen, camera, printer or colour space; not of a chain of devices or of named colours.
bool isOfDevice(const QByteArray& iccProfile) {
    static constexpr const char* classes[] = {"mntr", "scnr", "prtr", "spac"};
    return std::ranges::any_of(
        classes, [kind = iccProfile.mid(classOffset, 4)](const char* name) { return kind == name; });
}

enum class RgbKind { Unusable, LikeSRgb, OfItsOwn };

RgbKind kindOf(const QByteArray& iccProfile) {
    if (!hasColorSpace(iccProfile, "RGB ") || !isOfDevice(iccProfile) || !isComplete(iccProfile))
        return RgbKind::Unusable;
    const Profile source = openProfile(iccProfile, "RGB "), sRgb(cmsCreate_sRGBProfile());
    const Transform transform(rgbTransform(source.get(), sRgb.get(), TYPE_RGB_8));
    if (!transform)
        return RgbKind::Unusable;
    return changesAnything(transform.get()) ? RgbKind::OfItsOwn : RgbKind::LikeSRgb;
}

/// What was found for the latest few profiles, on any thread: finding it takes longer than many a thumbnail,
/// and a border is merged in hundreds of pieces.
template <class Key, class Value>
class LatestResults {
public:
    template <class Find>
    Value of(const Key& key, Find find) {
        if (const std::optional<Value> known = knownFor(key))
            return *known;
        const Value value = find();
        const std::lock_guard lock(m_mutex);
        m_entries[m_next++ % m_entries.size()] = {key, value};
        return value;
    }

private:
    std::optional<Value> knownFor(const Key& key) {
        const std::lock_guard lock(m_mutex);
        for (const auto& [known, value] : m_entries)
            if (known == key)
                return value;
        return std::nullopt;
    }

    std::mutex m_mutex;
    std::array<std::pair<std::optional<Key>, Value>, 8> m_entries;
    std::size_t m_next = 0;
};

RgbKind knownKindOf(const QByteArray& iccProfile) {
    static LatestResults<QByteArray, RgbKind> kinds;
    return iccProfile.isEmpty() ? RgbKind::Unusable
                                : kinds.of(iccProfile, [&] { return kindOf(iccProfile); });
}

} // namespace

bool isRgbProfile(const QByteArray& iccProfile) {
    return knownKindOf(iccProfile) != RgbKind::Unusable;
}

EmbeddedMetadata withRgbProfileOnly(EmbeddedMetadata metadata) {
    if (isRgbProfile(metadata.iccProfile))
        metadata.iccProfile.truncate(ByteReader(metadata.iccProfile, ByteOrder::Big).dword(0).value_or(0));
    else
        metadata.iccProfile.clear();
    return metadata;
}

EmbeddedMetadata withoutRgbProfile(EmbeddedMetadata metadata) {
    if (hasColorSpace(metadata.iccProfile, "RGB "))
        metadata.iccProfile.clear();
    return metadata;
}

/// Threads may share them: lcms2 keeps no state in a transform between calls.
struct RgbConversion::Transforms {
    Transform rgb, rgba;
};

RgbConversion::RgbConversion(const QByteArray& from, const QByteArray& to) {
    static LatestResults<std::pair<QByteArray, QByteArray>, std::shared_ptr<const Transforms>> latest;
    if (from != to)
        m_transforms = latest.of({from, to}, [&] { return make(from, to); });
}

/// Null where nothing changes.
std::shared_ptr<const RgbConversion::Transforms> RgbConversion::make(const QByteArray& from,
                                                                     const QByteArray& to) {
    const bool fromSRgb = knownKindOf(from) != RgbKind::OfItsOwn,
               toSRgb = knownKindOf(to) != RgbKind::OfItsOwn;
    if (fromSRgb && toSRgb)
        return nullptr;
    const Profile source = rgbProfile(fromSRgb ? QByteArray() : from),
                  target = rgbProfile(toSRgb ? QByteArray() : to);
    Transform transform(rgbTransform(source.get(), target.get(), TYPE_RGB_8));
    if (!transform || !changesAnything(transform.get()))
        return nullptr;
    Transform withAlpha(rgbTransform(source.get(), target.get(), TYPE_RGBA_8, cmsFLAGS_COPY_ALPHA));
    return std::make_shared<Transforms>(std::move(transform), std::move(withAlpha));
}

void RgbConversion::convert(PixelView pixels) const {
    if (!m_transforms)
        return;
    void* transform = (pixels.channels == 4 ? m_transforms->rgba : m_transforms->rgb).get();
    for (int y = 0; y < pixels.height && transform; ++y)
        cmsDoTransform(transform, pixels.row(y), pixels.row(y), cmsUInt32Number(pixels.width));
}

Picture converted(const Picture& picture, const QByteArray& from, const QByteArray& to) {
    const RgbConversion conversion(from, to);
    Picture result = picture;
    if (!picture.isNull() && conversion.changesColors())
        conversion.convert(result.edit());
    return result;
}

Rgb converted(Rgb color, const QByteArray& from, const QByteArray& to) {
    Picture pixel(1, 1, 3);
    std::uint8_t* channels = pixel.edit().pixel(0, 0);
    channels[0] = color.red, channels[1] = color.green, channels[2] = color.blue;
    const Picture result = converted(pixel, from, to);
    const std::uint8_t* values = result.view().pixel(0, 0);
    return {values[0], values[1], values[2]};
}

void applyGrayProfile(Picture& picture, const QByteArray& iccProfile) {
    const Profile source = openProfile(iccProfile, "GRAY");
    if (!source)
        return;
    const Profile target(cmsCreate_sRGBProfile());
    void* transform = source && target
                          ? cmsCreateTransform(source.get(), TYPE_GRAY_8, target.get(), TYPE_RGB_8,
                                               INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_BLACKPOINTCOMPENSATION)
                          : nullptr;
    if (!transform)
        return;
    std::uint8_t colors[256][3];
    for (int level = 0; level < 256; ++level) {
        const auto gray = std::uint8_t(level);
        cmsDoTransform(transform, &gray, colors[level], 1);
    }
    cmsDeleteTransform(transform);
    if (!isGray(picture.view()))
        return;
    const PixelView pixels = picture.edit();
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x) {
            std::uint8_t* pixel = pixels.pixel(x, y);
            std::memcpy(pixel, colors[pixel[0]], 3);
        }
}

namespace {

bool isNearSRgb(const Chromaticities& places) {
    constexpr double tolerance = 0.005;
    const Chromaticities standard;
    return std::ranges::all_of(std::array{&Chromaticities::white, &Chromaticities::red,
                                          &Chromaticities::green, &Chromaticities::blue},
                               [&](auto place) {
                                   return std::abs((places.*place).x - (standard.*place).x) < tolerance &&
                                          std::abs((places.*place).y - (standard.*place).y) < tolerance;
                               });
}

cmsToneCurve* curveOf(bool isSRgb, double gamma) {
    constexpr double sRgb[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    constexpr int piecewise = 4;
    return isSRgb ? cmsBuildParametricToneCurve(nullptr, piecewise, sRgb) : cmsBuildGamma(nullptr, gamma);
}

QByteArray savedProfile(void* profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(qsizetype(size), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    constexpr qsizetype dateOffset = 24;
    return bytes.replace(dateOffset, 12, QByteArray("\x07\xD0\0\1\0\1\0\0\0\0\0\0", 12));
}

} // namespace

QByteArray calibratedProfile(const Chromaticities& places, double gamma) {
    const bool hasSRgbCurve = std::abs(gamma - 2.2) < 0.11;
    if (hasSRgbCurve && isNearSRgb(places))
        return {};
    const auto place = [](Chromaticities::Place from) { return cmsCIExyY{from.x, from.y, 1}; };
    const cmsCIExyY whitePoint = place(places.white);
    const cmsCIExyYTRIPLE primaries{place(places.red), place(places.green), place(places.blue)};
    cmsToneCurve* curve = curveOf(hasSRgbCurve, gamma);
    cmsToneCurve* curves[] = {curve, curve, curve};
    const Profile profile(curve ? cmsCreateRGBProfile(&whitePoint, &primaries, curves) : nullptr);
    cmsFreeToneCurve(curve);
    return profile ? savedProfile(profile.get()) : QByteArray();
}

CmykConversion::CmykConversion(const QByteArray& iccProfile) {
    const Profile source = openProfile(iccProfile, "CMYK");
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
