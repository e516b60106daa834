// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Encoders.h"

#include "base/Stop.h"
#include "bytes/Numbers.h"
#include "codecs/EncoderColors.h"
#include "codecs/Resolution.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarsel {

namespace {

constexpr int largestSide = 65'535;
constexpr qsizetype headerSize = 128;
constexpr qsizetype smallPaletteSize = 48;
constexpr qsizetype largePaletteSize = 768;
constexpr char largePaletteMark = 12;
constexpr int longestRun = 63;

QByteArray paletteBytes(const std::vector<Rgb>& palette, qsizetype size) {
    QByteArray bytes;
    for (const Rgb color : palette)
        bytes.append(char(color.red)).append(char(color.green)).append(char(color.blue));
    return bytes.leftJustified(size, '\0');
}

/// A byte whose two top bits are set is a count; bytes that look like one are a run of one.
void appendRuns(QByteArray& bytes, const std::vector<std::uint8_t>& row) {
    for (std::size_t at = 0; at < row.size();) {
        std::size_t run = 1;
        while (run < longestRun && at + run < row.size() && row[at + run] == row[at])
            ++run;
        if (run > 1 || row[at] >= 0xC0)
            bytes += char(0xC0 | run);
        bytes += char(row[at]);
        at += run;
    }
}

class PcxWriter {
public:
    PcxWriter(const EncodablePicture& colors, const EmbeddedMetadata& metadata) :
        m_rgb(std::get_if<Picture>(&colors)), m_indexed(std::get_if<IndexedPicture>(&colors)),
        m_width(m_rgb ? m_rgb->width() : m_indexed->width()),
        m_height(m_rgb ? m_rgb->height() : m_indexed->height()),
        m_bits(m_rgb || m_indexed->bits == 8 ? 8 : 1), m_planes(m_rgb         ? 3
                                                                : m_bits == 1 ? 4
                                                                              : 1),
        m_resolution(resolutionOf(metadata)), m_row(std::size_t((packedSize(m_width, m_bits) + 1) / 2 * 2)) {}

    QByteArray encode() {
        writeHeader();
        for (int y = 0; y < m_height; ++y) {
            raiseIfStopped();
            for (int plane = 0; plane < m_planes; ++plane) {
                fillRow(y, plane);
                appendRuns(m_bytes, m_row);
            }
        }
        if (m_indexed && m_bits == 8)
            m_bytes += largePaletteMark + paletteBytes(m_indexed->palette, largePaletteSize);
        return std::move(m_bytes);
    }

private:
    void word(double value) {
        appendNumber(m_bytes, std::uint16_t(std::clamp(std::nearbyint(value), 0.0, 65535.0)),
                     ByteOrder::Little);
    }

    void writeHeader() {
        m_bytes = QByteArray("\x0A\x05\x01", 3) + char(m_bits); // maker, version 5, runs
        for (const double value :
             {0.0, 0.0, m_width - 1.0, m_height - 1.0, m_resolution.horizontal, m_resolution.vertical})
            word(value);
        m_bytes += m_bits == 1 ? paletteBytes(m_indexed->palette, smallPaletteSize)
                               : QByteArray(smallPaletteSize, '\0');
        m_bytes += '\0';
        m_bytes += char(m_planes);
        word(double(m_row.size()));
        word(m_indexed && m_indexed->isGray ? 2 : 1);
        m_bytes = m_bytes.leftJustified(headerSize, '\0');
    }

    void fillRow(int y, int plane) {
        std::ranges::fill(m_row, std::uint8_t(0));
        for (int x = 0; x < m_width; ++x)
            if (m_rgb)
                m_row[std::size_t(x)] = m_rgb->view().pixel(x, y)[plane];
            else if (m_bits == 8)
                m_row[std::size_t(x)] = m_indexed->row(y)[x];
            else if (m_indexed->row(y)[x] >> plane & 1) // the first plane holds the lowest bits
                m_row[std::size_t(x) / 8] |= std::uint8_t(0x80 >> x % 8);
    }

    const Picture* m_rgb;
    const IndexedPicture* m_indexed;
    int m_width;
    int m_height;
    int m_bits;
    int m_planes;
    Resolution m_resolution;
    std::vector<std::uint8_t> m_row;
    QByteArray m_bytes;
};

} // namespace

QByteArray encodePcx(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    requireEncodableSize("PCX", picture, largestSide);
    return PcxWriter(encoderColors(picture, settings, TransparencyOf::Nothing), metadata).encode();
}

} // namespace tarsel
