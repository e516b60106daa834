// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScannerProtocol.h"
#include "pixels/Picture.h"

#include <span>
#include <vector>

namespace tarsel {

/// One page from the bytes of its frames: one frame, or one for each of red, green and blue in any order.
/// Lines may have padding, samples 1, 8 or 16 bits. The number of lines that a frame promises is a hint: the
/// page is as high as its lowest frame turns out to be, and an incomplete last line doesn't count.
class PageAssembly {
public:
    /// False for a form that is not supported, for a size that no picture can have, and for one that doesn't
    /// fit the frames before.
    bool begin(const ScannerFrame& frame);
    /// False when the page is larger than a picture can be.
    bool add(std::span<const std::byte> bytes);
    void end();

    int lines() const { return m_lines; }       ///< that are complete in this frame
    int allLines() const { return m_promised; } ///< 0 where nobody knows
    bool isCut() const { return m_isCut; }      ///< a frame had fewer lines than promised
    int colorFormat() const;                    ///< of pixels/ColorReduction.h
    /// Null when no line has come.
    Picture take();

private:
    void takeLine(const std::uint8_t* line);
    bool makeRoom();

    ScannerFrame m_frame;
    int m_promised = 0;
    int m_lines = 0;
    int m_height = -1; ///< of the frames so far; -1 in the first one
    bool m_isCut = false;
    Picture m_picture;             ///< with room for more lines
    std::vector<std::byte> m_rest; ///< the beginning of the next line
};

} // namespace tarsel
