// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/SaveFormats.h"

#include "codecs/Formats.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel {

namespace {

constexpr ColorEntry allColors[] = {
    {QT_TRANSLATE_NOOP("SaveFormats", "24 bit (true color)"), "true-color", 0},
    {QT_TRANSLATE_NOOP("SaveFormats", "256 Colors"), "256-colors", 1},
    {QT_TRANSLATE_NOOP("SaveFormats", "256 Grayscale"), "256-grayscale", 2},
    {QT_TRANSLATE_NOOP("SaveFormats", "16 Colors"), "16-colors", 3},
    {QT_TRANSLATE_NOOP("SaveFormats", "16 Grayscale"), "16-grayscale", 4},
    {QT_TRANSLATE_NOOP("SaveFormats", "Monochrome"), "monochrome", 5},
    {QT_TRANSLATE_NOOP("SaveFormats", "Monochrome B/W"), "monochrome-bw", 6},
};
constexpr std::span<const ColorEntry> all(allColors);
constexpr ColorEntry jpegColors[] = {allColors[0], allColors[2]};

constexpr SaveFormat formats[] = {
    {"BMP", "bmp", all, QT_TRANSLATE_NOOP("SaveFormats", "Windows Bitmap (*.bmp)|*.bmp")},
    {"GIF", "gif", all.subspan(1), QT_TRANSLATE_NOOP("SaveFormats", "CompuServe GIF (*.gif)|*.gif")},
    {"JPG", "jpg", jpegColors, QT_TRANSLATE_NOOP("SaveFormats", "JPEG group (*.jpg)|*.jpg")},
    {"PCX", "pcx", all, QT_TRANSLATE_NOOP("SaveFormats", "ZSoft Paint (*.pcx)|*.pcx")},
    {"PNG", "png", all.first(2), QT_TRANSLATE_NOOP("SaveFormats", "PNG Network (*.png)|*.png")},
    {"WBMP", "wbmp", all.last(1), QT_TRANSLATE_NOOP("SaveFormats", "Wireless Bitmap (*.wbmp)|*wbmp")},
    {"PSD", "psd", all.first(1), QT_TRANSLATE_NOOP("SaveFormats", "Photoshop (*.psd)|*.psd")},
    {"TIF", "tif", all, QT_TRANSLATE_NOOP("SaveFormats", "Tag Image format (*.tif)|*.tif")},
    {"PDF", "pdf", all, QT_TRANSLATE_NOOP("SaveFormats", "Portable Document (*.pdf)|*.pdf")},
};

} // namespace

std::span<const SaveFormat> saveFormats() {
    return formats;
}

const SaveFormat* findSaveFormat(const QString& name) {
    const QString extension = usualExtension(name.toLower());
    const auto found = std::ranges::find_if(
        formats, [&](const SaveFormat& format) { return extension == QLatin1String(format.extension); });
    return found == std::end(formats) ? nullptr : &*found;
}

} // namespace tarsel
