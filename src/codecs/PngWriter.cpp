// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PngCodec.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "codecs/EncoderColors.h"
#include "codecs/PngErrors.h"
#include "codecs/PngTexts.h"
#include "codecs/Resolution.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <QCoreApplication>

namespace tarsel {

namespace {

/// Higher levels take many times as long and save a few per cent.
constexpr int compressionLevel = 4;

/// A line feed, the name, the size right-aligned, the bytes in lines of 72 digits.
QByteArray rawProfile(const QByteArray& bytes) {
    constexpr qsizetype lineLength = 72;
    const QByteArray digits = bytes.toHex();
    QByteArray text = "\niptc\n" + QByteArray::number(bytes.size()).rightJustified(8) + '\n';
    for (qsizetype at = 0; at < digits.size(); at += lineLength)
        text += digits.mid(at, lineLength) + '\n';
    return text;
}

class PngWriter {
public:
    PngWriter(const EncodablePicture& colors, const EmbeddedMetadata& metadata, PngTexts texts = {}) :
        m_rgb(std::get_if<Picture>(&colors)), m_indexed(std::get_if<IndexedPicture>(&colors)),
        m_metadata(withRgbProfileOnly(metadata)), m_texts(std::move(texts)),
        m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, &m_errors, PngErrors::onError,
                                      PngErrors::onWarning)),
        m_info(m_png ? png_create_info_struct(m_png) : nullptr) {
        if (!m_metadata.resources.isEmpty())
            m_resources = rawProfile(m_metadata.resources);
        if (m_indexed)
            m_row.resize(std::size_t(packedSize(m_indexed->width(), m_indexed->bits)));
    }
    ~PngWriter() { png_destroy_write_struct(&m_png, &m_info); }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    QByteArray encode() {
        if (!m_info)
            fail(ErrorNumber::OutOfMemory, QCoreApplication::translate("PngWriter", "PNG encoder"));
        m_bytes.reserve(qsizetype(width()) * height() * (m_rgb ? m_rgb->channels() : 1) / 2 + 4096);
        if (!m_errors.guarded(encodeStep, *this))
            fail(ErrorNumber::InvalidCall,
                 QCoreApplication::translate("PngWriter", "PNG encoder: %1").arg(m_errors.message()));
        return std::move(m_bytes);
    }

private:
    static void append(png_structp png, png_bytep data, std::size_t size) {
        static_cast<PngWriter*>(png_get_io_ptr(png))
            ->m_bytes.append(reinterpret_cast<const char*>(data), qsizetype(size));
    }

    static void encodeStep(PngWriter& writer) {
        png_structp png = writer.m_png;
        png_set_write_fn(png, &writer, append, nullptr);
        png_set_user_limits(png, 0x7FFFFFFF, 0x7FFFFFFF);
        png_set_option(png, PNG_SKIP_sRGB_CHECK_PROFILE, PNG_OPTION_ON); // wide-spread ones have small faults
        png_set_benign_errors(png, 1);
        png_set_compression_level(png, compressionLevel);
        png_set_IHDR(png, writer.m_info, png_uint_32(writer.width()), png_uint_32(writer.height()),
                     writer.bits(), writer.colorType(), PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                     PNG_FILTER_TYPE_DEFAULT);
        writer.setPalette();
        writer.setMetadata();
        png_write_info(png, writer.m_info);
        for (int y = 0; y < writer.height(); ++y) {
            raiseIfStopped();
            png_write_row(png, writer.row(y));
        }
        png_write_end(png, nullptr); // with the object it would write the EXIF block again
    }

    int width() const { return m_rgb ? m_rgb->width() : m_indexed->width(); }
    int height() const { return m_rgb ? m_rgb->height() : m_indexed->height(); }
    int bits() const { return m_rgb ? 8 : m_indexed->bits; }
    int colorType() const {
        if (m_rgb)
            return m_rgb->hasAlpha() ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_RGB;
        return m_indexed->isGray ? PNG_COLOR_TYPE_GRAY : PNG_COLOR_TYPE_PALETTE;
    }

    const std::uint8_t* row(int y) {
        if (m_rgb)
            return m_rgb->view().row(y);
        packIndexes(m_indexed->row(y), m_indexed->width(), m_indexed->bits, m_row.data());
        return m_row.data();
    }

    void setPalette() {
        if (!m_indexed || m_indexed->isGray)
            return;
        png_color colors[256];
        int count = 0;
        for (const Rgb color : m_indexed->palette)
            colors[count++] = {color.red, color.green, color.blue};
        png_set_PLTE(m_png, m_info, colors, count);
        if (m_indexed->transparentIndex < 0)
            return;
        png_byte alpha[256];
        std::fill_n(alpha, count, png_byte(255));
        alpha[m_indexed->transparentIndex] = 0;
        png_set_tRNS(m_png, m_info, alpha, count, nullptr);
    }

    void setResolution() {
        const Resolution resolution = resolutionOf(m_metadata);
        const auto perMeter = [](double perInch) {
            return png_uint_32(std::lround(perInch * inchesPerMeter));
        };
        if (resolution.horizontal > 0)
            png_set_pHYs(m_png, m_info, perMeter(resolution.horizontal), perMeter(resolution.vertical),
                         PNG_RESOLUTION_METER);
    }

    void setMetadata() {
        setResolution();
        const QByteArray& profile = m_metadata.iccProfile;
        if (!profile.isEmpty())
            png_set_iCCP(m_png, m_info, "ICC profile", PNG_COMPRESSION_TYPE_BASE,
                         reinterpret_cast<png_const_bytep>(profile.constData()), png_uint_32(profile.size()));
        if (!m_metadata.exif.isEmpty())
            png_set_eXIf_1(m_png, m_info, png_uint_32(m_metadata.exif.size()),
                           reinterpret_cast<png_bytep>(m_metadata.exif.data()));
        setText(xmpKeyword, m_metadata.xmp, PNG_ITXT_COMPRESSION_NONE);
        setText(resourcesKeyword, m_resources, PNG_ITXT_COMPRESSION_zTXt);
        for (auto text = m_texts.begin(); text != m_texts.end(); ++text)
            setText(text.key().constData(), text.value(), PNG_TEXT_COMPRESSION_NONE);
    }

    void setText(const char* keyword, QByteArray& value, int compression) {
        if (value.isEmpty())
            return;
        char none[] = "";
        png_text text = {};
        text.compression = compression;
        text.key = const_cast<char*>(keyword); // libpng only reads it
        text.text = value.data();
        text.itxt_length = std::size_t(value.size());
        text.lang = none;
        text.lang_key = none;
        png_set_text(m_png, m_info, &text, 1);
    }

    const Picture* m_rgb;
    const IndexedPicture* m_indexed;
    EmbeddedMetadata m_metadata;
    PngTexts m_texts;
    QByteArray m_resources; ///< as text
    std::vector<std::uint8_t> m_row;
    PngErrors m_errors;
    png_structp m_png;
    png_infop m_info;
    QByteArray m_bytes;
};

} // namespace

QByteArray encodePng(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    return PngWriter(encoderColors(picture, settings, TransparencyOf::BackColor), metadata).encode();
}

QByteArray encodePngWithTexts(const Picture& picture, const PngTexts& texts) {
    return PngWriter(EncodablePicture(picture), {}, texts).encode();
}

} // namespace tarsel
