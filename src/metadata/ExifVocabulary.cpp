// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ExifVocabulary.h"

#include <algorithm>

namespace tarsel {

namespace {

constexpr ExifWord orientation[] = {
    {1, "Upper Left"}, {2, "Upper Right"}, {3, "Bottom Left"},  {4, "Bottom Left"},
    {5, "Left Upper"}, {6, "Right Upper"}, {7, "Right bottom"}, {8, "Left bottom"},
};

constexpr ExifWord resolutionUnit[] = {
    {1, "No unit"},
    {2, "Inches"},
    {3, "Centimeters"},
};

constexpr ExifWord ycbcrPositioning[] = {
    {1, "Center of pixel array"},
    {2, "Datum point(co-sited)"},
};

constexpr ExifWord exposureProgram[] = {
    {1, "Manual control"},
    {2, "Normal program"},
    {3, "Aperture priority"},
    {4, "Shutter priority"},
    {5, "Program creative (slow program)"},
    {6, "Program action(high-speed program)"},
    {7, "Portrait mode"},
    {8, "Landscape mode"},
};

constexpr ExifWord meteringMode[] = {
    {0, "Unknown"}, {1, "Average"},    {2, "Center weighted average"},
    {3, "Spot"},    {4, "Multi-spot"}, {5, "Multi-segment"},
    {6, "Partial"}, {255, "Other"},
};

constexpr ExifWord lightSource[] = {
    {0, "Unknown"},
    {1, "Daylight"},
    {2, "Fluorescent"},
    {3, "Tungsten"},
    {4, "Flash"},
    {9, "Fine weather"},
    {10, "Cloudy weather"},
    {11, "Shade"},
    {12, "Daylight fluorescent (D 5700-7100K)"},
    {13, "Day white fluorescent (N 4600-5400K)"},
    {14, "Cool white fluorescent (W 3900-4500K)"},
    {15, "White fluorescent (WW 3200-3700K)"},
    {17, "Standard light A"},
    {18, "Standard light B"},
    {19, "Standard light C"},
    {20, "D55"},
    {21, "D65"},
    {22, "D75"},
    {23, "D50"},
    {24, "ISO studio tungesten"},
    {255, "Other light source"},
};

constexpr ExifWord flash[] = {
    {0, "Flash did not fire"},
    {1, "Flash fired"},
    {5, "Strobe return light not detected"},
    {7, "Strobe return light detected"},
    {9, "Flash fired, compulsory flash mode"},
    {13, "Flash fired, compulsory flash mode, return light not detected"},
    {15, "Flash fired, compulsory flash mode, return light detected"},
    {16, "Flash did not fire, compulsory flash mode"},
    {24, "Flash did not fire, auto mode"},
    {25, "Flash fired, auto mode"},
    {29, "Flash fired, auto mode, return light not detected"},
    {31, "Flash fired, auto mode, return light detected"},
    {32, "No flash function"},
    {65, "Flash fired, red-eye reduction mode"},
    {69, "Flash fired, red-eye reduction mode, return light not detected"},
    {71, "Flash fired, red-eye reduction mode, return light detected"},
    {73, "Flash fired, compulsory flash mode, red-eye reduction mode"},
    {77, "Flash fired, compulsory flash mode, red-eye reduction mode, return light not detected"},
    {79, "Flash fired, compulsory flash mode, red-eye reduction mode, return light detected"},
    {89, "Flash fired, auto mode, red-eye reduction mode"},
    {93, "Flash fired, auto mode, return light not detected, red-eye reduction mode"},
    {95, "Flash fired, auto mode, return light detected, red-eye reduction mode"},
};

constexpr ExifWord colorSpace[] = {
    {1, "sRGB"},
    {65535, "Uncalibrated"},
};

constexpr ExifWord sceneType[] = {
    {1, "Directly photographed image"},
};

constexpr ExifWord customRendered[] = {
    {0, "Normal process"},
    {1, "Custom process"},
};

constexpr ExifWord exposureMode[] = {
    {0, "Easy Shooting"}, {1, "Program"}, {2, "Tv-priority"}, {3, "Av-priority"}, {4, "Manual"}, {5, "A-DEP"},
};

constexpr ExifWord whiteBalance[] = {
    {0, "Auto"},        {1, "Sunny"}, {2, "Cloudy"}, {3, "Tungsten"},
    {4, "Fluorescent"}, {5, "Flash"}, {6, "Custom"},
};

constexpr ExifWord sceneCaptureType[] = {
    {0, "Standard"},
    {1, "Landscape"},
    {2, "Portrait"},
    {3, "Night Scene"},
};

constexpr ExifWord contrast[] = {
    {0, "Normal"},
    {1, "Soft"},
    {2, "Hard"},
};

constexpr ExifWord saturation[] = {
    {0, "Normal"},
    {1, "Low saturation"},
    {2, "High saturation"},
};

constexpr ExifWord sharpness[] = {
    {0, "Normal"},
    {1, "Soft"},
    {2, "Hard"},
};

constexpr ExifWord isoSpeedRatings[] = {
    {0, "See ISOSpeedRatings Tag"}, {15, "Auto"}, {16, "50"}, {17, "100"}, {18, "200"}, {19, "400"},
};

constexpr ExifWord sensingMethod[] = {
    {1, "Not defined"},
    {2, "One-chip color area sensor"},
    {3, "Two-chip color area sensor"},
    {4, "Three-chip color area sensor"},
    {5, "Color sequential area sensor"},
    {7, "Trilinear sensor"},
    {8, "Color sequential linear sensor"},
};

constexpr ExifWord gainControl[] = {
    {0, "None"}, {1, "Low gain up"}, {2, "High gain up"}, {3, "Low gain down"}, {4, "High gain down"},
};

constexpr ExifWord subjectDistanceRange[] = {
    {0, "Unknown"},
    {1, "Macro"},
    {2, "Close view"},
    {3, "Distant view"},
};

constexpr ExifWord focalPlaneResolutionUnit[] = {
    {1, "pixels"},
    {2, "dpi"},
    {3, "dpcm"},
};

constexpr ExifWord fileSource[] = {
    {0, "DSC (Digital Still Camera)"},
    {3, "DSC (Digital Still Camera)"},
};

constexpr ExifWord newSubfileType[] = {
    {1, "Reduced Resolution"},
    {2, "Single Page"},
    {4, "Transparency Mask"},
};

constexpr ExifWord subfileType[] = {
    {1, "Full Resolution"},
    {2, "Reduced Resolution"},
    {3, "Single Page"},
};

constexpr ExifWord compression[] = {
    {1, "PackBytes"}, {2, "CCITT Group3"}, {3, "CCITT T4"},     {4, "CCITT T6"},
    {5, "LZW"},       {6, "JPEG"},         {32773, "PackBits"},
};

constexpr ExifWord photometricInterpretation[] = {
    {0, "WhiteIsZero"},       {1, "BlackIsZero"}, {2, "RGB"},   {3, "RGB Palette"},
    {4, "Transparency Mask"}, {5, "CMYK"},        {6, "YCbCr"}, {8, "CIELab"},
};

constexpr ExifWord threshholding[] = {
    {1, "No Dithering"},
};

constexpr ExifWord fillOrder[] = {
    {1, "Low in High"},
    {2, "High in Low"},
};

constexpr ExifWord planarConfiguration[] = {
    {1, "Chunky"},
    {2, "Planar"},
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
    {"SceneType", sceneType, "Unknown"},
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
    {"FileSource", fileSource, "Other"},
    {"NewSubfileType", newSubfileType},
    {"SubfileType", subfileType},
    {"Compression", compression},
    {"PhotometricInterpretation", photometricInterpretation},
    {"Threshholding", threshholding},
    {"FillOrder", fillOrder},
    {"PlanarConfiguration", planarConfiguration},
};

} // namespace

std::span<const ExifVocabulary> exifVocabularies() {
    return vocabularies;
}

const ExifVocabulary* exifVocabulary(const QString& name) {
    const auto found = std::ranges::find_if(
        vocabularies, [&](const ExifVocabulary& entry) { return name == QLatin1String(entry.name); });
    return found == std::end(vocabularies) ? nullptr : &*found;
}

} // namespace tarsel
