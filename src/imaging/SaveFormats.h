// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <span>

namespace tarsel {

/// An entry of the list of colours that a format offers.
struct ColorEntry {
    const char* text;   ///< "256 Colors", to be translated where it is shown
    const char* option; ///< "256-colors", as the command line has it
    int colorFormat;    ///< ImageBox::ColorFormat
};

/// A format that a picture can be saved in. Its place in the table is the index of ImageBox::EncodedSize.
struct SaveFormat {
    const char* name;                   ///< "BMP"
    const char* extension;              ///< "bmp"
    std::span<const ColorEntry> colors; ///< one for a format that offers no choice
    const char* filter;                 ///< of the save dialog: text and pattern
};

std::span<const SaveFormat> saveFormats();

/// The format of this name or extension, in any case ("jpeg" and "tiff" too); null when there is none.
const SaveFormat* findSaveFormat(const QString& name);

} // namespace tarsel
