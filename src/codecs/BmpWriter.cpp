// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Encoders.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "bytes/Numbers.h"
#include "codecs/EncoderColors.h"
#include "codecs/Resolution.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace tarsel {

namespace {

// The file header: "BM", size 32, reserved 32, offset of the pixels 32. The info header follows, starting
// with its size; then the palette and the rows from the bottom.
constexpr qsizetype fileHeaderSize = 14;
constexpr qsizetype headerSize = 40;

class BmpWriter {
public:
    BmpWriter(const EncodablePicture& colors, const EmbeddedMetadata& metadata) :
        m_rgb(std::get_if<Picture>(&colors)), m_indexed(std::get_if<IndexedPicture>(&colors)),
        m_width(m_rgb ? m_rgb->width() : m_indexed->width()),
        m_height(m_rgb ? m_rgb->height() : m_indexed->height()), m_bits(m_rgb ? 24 : m_indexed->bits),
        m_stride((packedSize(m_width, m_bits) + 3) / 4 * 4), m_resolution(resolutionOf(metadata)) {}

    QByteArray encode() {
        const qsizetype pixels = m_stride * m_height;
        const qsizetype start = fileHeaderSize + headerSize + paletteSize();
        const qsizetype size = start + pixels;
        if (size > qsizetype(UINT32_MAX))
            fail(ErrorNumber::InvalidCall,
                 QCoreApplication::translate("BmpWriter", "BMP encoder: the picture is larger than 4 GB"));
        m_bytes.reserve(size);
        m_bytes += "BM";
        dword(size).dword(0).dword(start);
        writeHeader(pixels);
        writePalette();
        m_bytes.resize(start + pixels);
        for (int y = 0; y < m_height; ++y) {
            raiseIfStopped();
            writeRow(y,
                     reinterpret_cast<std::uint8_t*>(m_bytes.data()) + start + m_stride * (m_height - 1 - y));
        }
        return std::move(m_bytes);
    }

private:
    BmpWriter& dword(std::int64_t value) {
        appendNumber(m_bytes, std::uint32_t(value), ByteOrder::Little);
        return *this;
    }
    BmpWriter& word(int value) {
        appendNumber(m_bytes, std::uint16_t(value), ByteOrder::Little);
        return *this;
    }

    qsizetype paletteSize() const { return m_indexed ? qsizetype(4) << m_bits : 0; }

    static std::int64_t perMeter(double perInch) { return std::llround(perInch * inchesPerMeter); }

    void writeHeader(qsizetype pixels) {
        dword(headerSize).dword(m_width).dword(m_height).word(1).word(m_bits).dword(0).dword(pixels);
        dword(perMeter(m_resolution.horizontal)).dword(perMeter(m_resolution.vertical)).dword(0).dword(0);
    }

    void writePalette() {
        if (!m_indexed)
            return;
        for (const Rgb color : m_indexed->palette)
            m_bytes.append(char(color.blue)).append(char(color.green)).append(char(color.red)).append('\0');
        m_bytes.resize(fileHeaderSize + headerSize + paletteSize(), '\0');
    }

    void writeRow(int y, std::uint8_t* row) const {
        std::fill_n(row, m_stride, std::uint8_t(0));
        if (m_indexed)
            return packIndexes(m_indexed->row(y), m_width, m_bits, row);
        const std::uint8_t* pixel = m_rgb->view().row(y);
        for (int x = 0; x < m_width; ++x, pixel += 3, row += 3) {
            row[0] = pixel[2];
            row[1] = pixel[1];
            row[2] = pixel[0];
        }
    }

    const Picture* m_rgb;
    const IndexedPicture* m_indexed;
    int m_width;
    int m_height;
    int m_bits;
    qsizetype m_stride;
    Resolution m_resolution;
    QByteArray m_bytes;
};

} // namespace

QByteArray encodeBmp(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    return BmpWriter(encoderColors(picture, settings, TransparencyOf::Nothing), metadata).encode();
}

} // namespace tarsel
