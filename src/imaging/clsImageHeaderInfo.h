// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstdint>
#include <stop_token>

namespace tarsel {

/// Size and depth of a picture from the first bytes of its file, for a list of files that are not opened.
/// It is fast and forgiving on purpose, and not the header of the codecs: progressive JPEG files and TIFF
/// files in big-endian order have no size here, colour pictures have 24 bits, sizes above 32767 don't fit.
///
/// The object keeps its last result. Both routines raise error 18 once a stop is requested.
class clsImageHeaderInfo {
public:
    /// Error 6, with what was read before, for a side above 32767. Other files than GIF and BMP, and those
    /// that can't be read, have the size 0.
    void ReadGIF_BMP_Header(const QString& path, const std::stop_token& stop = {});
    /// True when a header was walked to its end. A missing file leaves the result as it was.
    bool ReadJPEG_TIFF_PNG_Header(const QString& path, const std::stop_token& stop = {});

    int dpi() const { return m_dpi; } ///< horizontal
    bool IsGray() const { return m_isGray; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    int BitsPerPixel() const { return m_bitsPerPixel; }

private:
    class Walk;

    std::int16_t m_height = 0;
    std::int16_t m_width = 0;
    std::int16_t m_dpi = 0;
    std::uint8_t m_bitsPerPixel = 0;
    bool m_isGray = false;
};

} // namespace tarsel
