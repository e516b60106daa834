// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ExifVocabulary.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel {

namespace {

constexpr ExifWord orientation[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Upper Left")},   {2, QT_TRANSLATE_NOOP("Exif", "Upper Right")},
    {3, QT_TRANSLATE_NOOP("Exif", "Bottom Left")},  {4, QT_TRANSLATE_NOOP("Exif", "Bottom Left")},
    {5, QT_TRANSLATE_NOOP("Exif", "Left Upper")},   {6, QT_TRANSLATE_NOOP("Exif", "Right Upper")},
    {7, QT_TRANSLATE_NOOP("Exif", "Right bottom")}, {8, QT_TRANSLATE_NOOP("Exif", "Left bottom")},
};

constexpr ExifWord resolutionUnit[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "No unit")},
    {2, QT_TRANSLATE_NOOP("Exif", "Inches")},
    {3, QT_TRANSLATE_NOOP("Exif", "Centimeters")},
};

constexpr ExifWord ycbcrPositioning[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Center of pixel array")},
    {2, QT_TRANSLATE_NOOP("Exif", "Datum point(co-sited)")},
};

constexpr ExifWord exposureProgram[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Manual control")},
    {2, QT_TRANSLATE_NOOP("Exif", "Normal program")},
    {3, QT_TRANSLATE_NOOP("Exif", "Aperture priority")},
    {4, QT_TRANSLATE_NOOP("Exif", "Shutter priority")},
    {5, QT_TRANSLATE_NOOP("Exif", "Program creative (slow program)")},
    {6, QT_TRANSLATE_NOOP("Exif", "Program action(high-speed program)")},
    {7, QT_TRANSLATE_NOOP("Exif", "Portrait mode")},
    {8, QT_TRANSLATE_NOOP("Exif", "Landscape mode")},
};

constexpr ExifWord meteringMode[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Unknown")},
    {1, QT_TRANSLATE_NOOP("Exif", "Average")},
    {2, QT_TRANSLATE_NOOP("Exif", "Center weighted average")},
    {3, QT_TRANSLATE_NOOP("Exif", "Spot")},
    {4, QT_TRANSLATE_NOOP("Exif", "Multi-spot")},
    {5, QT_TRANSLATE_NOOP("Exif", "Multi-segment")},
    {6, QT_TRANSLATE_NOOP("Exif", "Partial")},
    {255, QT_TRANSLATE_NOOP("Exif", "Other")},
};

constexpr ExifWord lightSource[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Unknown")},
    {1, QT_TRANSLATE_NOOP("Exif", "Daylight")},
    {2, QT_TRANSLATE_NOOP("Exif", "Fluorescent")},
    {3, QT_TRANSLATE_NOOP("Exif", "Tungsten")},
    {4, QT_TRANSLATE_NOOP("Exif", "Flash")},
    {9, QT_TRANSLATE_NOOP("Exif", "Fine weather")},
    {10, QT_TRANSLATE_NOOP("Exif", "Cloudy weather")},
    {11, QT_TRANSLATE_NOOP("Exif", "Shade")},
    {12, QT_TRANSLATE_NOOP("Exif", "Daylight fluorescent (D 5700-7100K)")},
    {13, QT_TRANSLATE_NOOP("Exif", "Day white fluorescent (N 4600-5400K)")},
    {14, QT_TRANSLATE_NOOP("Exif", "Cool white fluorescent (W 3900-4500K)")},
    {15, QT_TRANSLATE_NOOP("Exif", "White fluorescent (WW 3200-3700K)")},
    {17, QT_TRANSLATE_NOOP("Exif", "Standard light A")},
    {18, QT_TRANSLATE_NOOP("Exif", "Standard light B")},
    {19, QT_TRANSLATE_NOOP("Exif", "Standard light C")},
    {20, QT_TRANSLATE_NOOP("Exif", "D55")},
    {21, QT_TRANSLATE_NOOP("Exif", "D65")},
    {22, QT_TRANSLATE_NOOP("Exif", "D75")},
    {23, QT_TRANSLATE_NOOP("Exif", "D50")},
    {24, QT_TRANSLATE_NOOP("Exif", "ISO studio tungesten")},
    {255, QT_TRANSLATE_NOOP("Exif", "Other light source")},
};

constexpr ExifWord flash[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Flash did not fire")},
    {1, QT_TRANSLATE_NOOP("Exif", "Flash fired")},
    {5, QT_TRANSLATE_NOOP("Exif", "Strobe return light not detected")},
    {7, QT_TRANSLATE_NOOP("Exif", "Strobe return light detected")},
    {9, QT_TRANSLATE_NOOP("Exif", "Flash fired, compulsory flash mode")},
    {13, QT_TRANSLATE_NOOP("Exif", "Flash fired, compulsory flash mode, return light not detected")},
    {15, QT_TRANSLATE_NOOP("Exif", "Flash fired, compulsory flash mode, return light detected")},
    {16, QT_TRANSLATE_NOOP("Exif", "Flash did not fire, compulsory flash mode")},
    {24, QT_TRANSLATE_NOOP("Exif", "Flash did not fire, auto mode")},
    {25, QT_TRANSLATE_NOOP("Exif", "Flash fired, auto mode")},
    {29, QT_TRANSLATE_NOOP("Exif", "Flash fired, auto mode, return light not detected")},
    {31, QT_TRANSLATE_NOOP("Exif", "Flash fired, auto mode, return light detected")},
    {32, QT_TRANSLATE_NOOP("Exif", "No flash function")},
    {65, QT_TRANSLATE_NOOP("Exif", "Flash fired, red-eye reduction mode")},
    {69, QT_TRANSLATE_NOOP("Exif", "Flash fired, red-eye reduction mode, return light not detected")},
    {71, QT_TRANSLATE_NOOP("Exif", "Flash fired, red-eye reduction mode, return light detected")},
    {73, QT_TRANSLATE_NOOP("Exif", "Flash fired, compulsory flash mode, red-eye reduction mode")},
    {77,
     QT_TRANSLATE_NOOP(
         "Exif", "Flash fired, compulsory flash mode, red-eye reduction mode, return light not detected")},
    {79, QT_TRANSLATE_NOOP(
             "Exif", "Flash fired, compulsory flash mode, red-eye reduction mode, return light detected")},
    {89, QT_TRANSLATE_NOOP("Exif", "Flash fired, auto mode, red-eye reduction mode")},
    {93,
     QT_TRANSLATE_NOOP("Exif", "Flash fired, auto mode, return light not detected, red-eye reduction mode")},
    {95, QT_TRANSLATE_NOOP("Exif", "Flash fired, auto mode, return light detected, red-eye reduction mode")},
};

constexpr ExifWord colorSpace[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "sRGB")},
    {65535, QT_TRANSLATE_NOOP("Exif", "Uncalibrated")},
};

constexpr ExifWord sceneType[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Directly photographed image")},
};

constexpr ExifWord customRendered[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Normal process")},
    {1, QT_TRANSLATE_NOOP("Exif", "Custom process")},
};

constexpr ExifWord exposureMode[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Easy Shooting")}, {1, QT_TRANSLATE_NOOP("Exif", "Program")},
    {2, QT_TRANSLATE_NOOP("Exif", "Tv-priority")},   {3, QT_TRANSLATE_NOOP("Exif", "Av-priority")},
    {4, QT_TRANSLATE_NOOP("Exif", "Manual")},        {5, QT_TRANSLATE_NOOP("Exif", "A-DEP")},
};

constexpr ExifWord whiteBalance[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Auto")},        {1, QT_TRANSLATE_NOOP("Exif", "Sunny")},
    {2, QT_TRANSLATE_NOOP("Exif", "Cloudy")},      {3, QT_TRANSLATE_NOOP("Exif", "Tungsten")},
    {4, QT_TRANSLATE_NOOP("Exif", "Fluorescent")}, {5, QT_TRANSLATE_NOOP("Exif", "Flash")},
    {6, QT_TRANSLATE_NOOP("Exif", "Custom")},
};

constexpr ExifWord sceneCaptureType[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Standard")},
    {1, QT_TRANSLATE_NOOP("Exif", "Landscape")},
    {2, QT_TRANSLATE_NOOP("Exif", "Portrait")},
    {3, QT_TRANSLATE_NOOP("Exif", "Night Scene")},
};

constexpr ExifWord contrast[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Normal")},
    {1, QT_TRANSLATE_NOOP("Exif", "Soft")},
    {2, QT_TRANSLATE_NOOP("Exif", "Hard")},
};

constexpr ExifWord saturation[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Normal")},
    {1, QT_TRANSLATE_NOOP("Exif", "Low saturation")},
    {2, QT_TRANSLATE_NOOP("Exif", "High saturation")},
};

constexpr ExifWord sharpness[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Normal")},
    {1, QT_TRANSLATE_NOOP("Exif", "Soft")},
    {2, QT_TRANSLATE_NOOP("Exif", "Hard")},
};

constexpr ExifWord isoSpeedRatings[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "See ISOSpeedRatings Tag")},
    {15, QT_TRANSLATE_NOOP("Exif", "Auto")},
    {16, QT_TRANSLATE_NOOP("Exif", "50")},
    {17, QT_TRANSLATE_NOOP("Exif", "100")},
    {18, QT_TRANSLATE_NOOP("Exif", "200")},
    {19, QT_TRANSLATE_NOOP("Exif", "400")},
};

constexpr ExifWord sensingMethod[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Not defined")},
    {2, QT_TRANSLATE_NOOP("Exif", "One-chip color area sensor")},
    {3, QT_TRANSLATE_NOOP("Exif", "Two-chip color area sensor")},
    {4, QT_TRANSLATE_NOOP("Exif", "Three-chip color area sensor")},
    {5, QT_TRANSLATE_NOOP("Exif", "Color sequential area sensor")},
    {7, QT_TRANSLATE_NOOP("Exif", "Trilinear sensor")},
    {8, QT_TRANSLATE_NOOP("Exif", "Color sequential linear sensor")},
};

constexpr ExifWord gainControl[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "None")},           {1, QT_TRANSLATE_NOOP("Exif", "Low gain up")},
    {2, QT_TRANSLATE_NOOP("Exif", "High gain up")},   {3, QT_TRANSLATE_NOOP("Exif", "Low gain down")},
    {4, QT_TRANSLATE_NOOP("Exif", "High gain down")},
};

constexpr ExifWord subjectDistanceRange[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "Unknown")},
    {1, QT_TRANSLATE_NOOP("Exif", "Macro")},
    {2, QT_TRANSLATE_NOOP("Exif", "Close view")},
    {3, QT_TRANSLATE_NOOP("Exif", "Distant view")},
};

constexpr ExifWord focalPlaneResolutionUnit[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "pixels")},
    {2, QT_TRANSLATE_NOOP("Exif", "dpi")},
    {3, QT_TRANSLATE_NOOP("Exif", "dpcm")},
};

constexpr ExifWord fileSource[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "DSC (Digital Still Camera)")},
    {3, QT_TRANSLATE_NOOP("Exif", "DSC (Digital Still Camera)")},
};

constexpr ExifWord newSubfileType[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Reduced Resolution")},
    {2, QT_TRANSLATE_NOOP("Exif", "Single Page")},
    {4, QT_TRANSLATE_NOOP("Exif", "Transparency Mask")},
};

constexpr ExifWord subfileType[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Full Resolution")},
    {2, QT_TRANSLATE_NOOP("Exif", "Reduced Resolution")},
    {3, QT_TRANSLATE_NOOP("Exif", "Single Page")},
};

constexpr ExifWord compression[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "PackBytes")},    {2, QT_TRANSLATE_NOOP("Exif", "CCITT Group3")},
    {3, QT_TRANSLATE_NOOP("Exif", "CCITT T4")},     {4, QT_TRANSLATE_NOOP("Exif", "CCITT T6")},
    {5, QT_TRANSLATE_NOOP("Exif", "LZW")},          {6, QT_TRANSLATE_NOOP("Exif", "JPEG")},
    {32773, QT_TRANSLATE_NOOP("Exif", "PackBits")},
};

constexpr ExifWord photometricInterpretation[] = {
    {0, QT_TRANSLATE_NOOP("Exif", "WhiteIsZero")},
    {1, QT_TRANSLATE_NOOP("Exif", "BlackIsZero")},
    {2, QT_TRANSLATE_NOOP("Exif", "RGB")},
    {3, QT_TRANSLATE_NOOP("Exif", "RGB Palette")},
    {4, QT_TRANSLATE_NOOP("Exif", "Transparency Mask")},
    {5, QT_TRANSLATE_NOOP("Exif", "CMYK")},
    {6, QT_TRANSLATE_NOOP("Exif", "YCbCr")},
    {8, QT_TRANSLATE_NOOP("Exif", "CIELab")},
};

constexpr ExifWord threshholding[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "No Dithering")},
};

constexpr ExifWord fillOrder[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Low in High")},
    {2, QT_TRANSLATE_NOOP("Exif", "High in Low")},
};

constexpr ExifWord planarConfiguration[] = {
    {1, QT_TRANSLATE_NOOP("Exif", "Chunky")},
    {2, QT_TRANSLATE_NOOP("Exif", "Planar")},
};

constexpr ExifVocabulary vocabularies[] = {
    {"Orientation", orientation},
    {"ResolutionUnit", resolutionUnit},
    {"YCbCrPositioning", ycbcrPositioning},
    {"ExposureProgram", exposureProgram},
    {"MeteringMode", meteringMode},
    {"LightSource", lightSource},
    {"Flash", flash},
    {"ColorSpace", colorSpace},
    {"SceneType", sceneType, QT_TRANSLATE_NOOP("Exif", "Unknown")},
    {"CustomRendered", customRendered},
    {"ExposureMode", exposureMode},
    {"WhiteBalance", whiteBalance},
    {"SceneCaptureType", sceneCaptureType},
    {"Contrast", contrast},
    {"Saturation", saturation},
    {"Sharpness", sharpness},
    {"ISOSpeedRatings", isoSpeedRatings},
    {"SensingMethod", sensingMethod},
    {"GainControl", gainControl},
    {"SubjectDistanceRange", subjectDistanceRange},
    {"FocalPlaneResolutionUnit", focalPlaneResolutionUnit},
    {"FileSource", fileSource, QT_TRANSLATE_NOOP("Exif", "Other")},
    {"NewSubfileType", newSubfileType},
    {"SubfileType", subfileType},
    {"Compression", compression},
    {"PhotometricInterpretation", photometricInterpretation},
    {"Threshholding", threshholding},
    {"FillOrder", fillOrder},
    {"PlanarConfiguration", planarConfiguration},
};

} // namespace

const ExifVocabulary* exifVocabulary(const QString& name) {
    const auto found = std::ranges::find_if(
        vocabularies, [&](const ExifVocabulary& entry) { return name == QLatin1String(entry.name); });
    return found == std::end(vocabularies) ? nullptr : &*found;
}

} // namespace tarsel
