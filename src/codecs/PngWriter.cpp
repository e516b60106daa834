// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PngCodec.h"

#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "codecs/PngErrors.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

/// Higher levels take many times as long and save a few per cent.
constexpr int CompressionLevel = 4;

class PngWriter {
public:
    PngWriter(const Picture& picture, const EmbeddedMetadata& metadata) :
        m_view(picture.view()), m_metadata(withRgbProfileOnly(metadata)),
        m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, &m_errors, PngErrors::onError,
                                      PngErrors::onWarning)),
        m_info(m_png ? png_create_info_struct(m_png) : nullptr) {}
    ~PngWriter() { png_destroy_write_struct(&m_png, &m_info); }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    QByteArray encode() {
        if (!m_info)
            fail(ErrorNumber::OutOfMemory, QCoreApplication::translate("PngWriter", "PNG encoder"));
        m_bytes.reserve(m_view.stride * m_view.height / 2 + 4096);
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
        const ConstPixelView& view = writer.m_view;
        png_set_write_fn(png, &writer, append, nullptr);
        png_set_user_limits(png, 0x7FFFFFFF, 0x7FFFFFFF);
        png_set_option(png, PNG_SKIP_sRGB_CHECK_PROFILE, PNG_OPTION_ON); // wide-spread ones have small faults
        png_set_benign_errors(png, 1);
        png_set_compression_level(png, CompressionLevel);
        png_set_IHDR(png, writer.m_info, png_uint_32(view.width), png_uint_32(view.height), 8,
                     view.channels == 4 ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        writer.setMetadata();
        png_write_info(png, writer.m_info);
        for (int y = 0; y < view.height; ++y)
            png_write_row(png, view.row(y));
        png_write_end(png, nullptr); // with the object it would write the EXIF block again
    }

    void setMetadata() {
        const QByteArray& profile = m_metadata.iccProfile;
        if (!profile.isEmpty())
            png_set_iCCP(m_png, m_info, "ICC profile", PNG_COMPRESSION_TYPE_BASE,
                         reinterpret_cast<png_const_bytep>(profile.constData()), png_uint_32(profile.size()));
        if (!m_metadata.exif.isEmpty())
            png_set_eXIf_1(m_png, m_info, png_uint_32(m_metadata.exif.size()),
                           reinterpret_cast<png_bytep>(m_metadata.exif.data()));
        if (!m_metadata.xmp.isEmpty())
            setXmp();
    }

    void setXmp() {
        char keyword[] = "XML:com.adobe.xmp";
        char none[] = "";
        png_text text = {};
        text.compression = PNG_ITXT_COMPRESSION_NONE;
        text.key = keyword;
        text.text = m_metadata.xmp.data();
        text.itxt_length = std::size_t(m_metadata.xmp.size());
        text.lang = none;
        text.lang_key = none;
        png_set_text(m_png, m_info, &text, 1);
    }

    ConstPixelView m_view;
    EmbeddedMetadata m_metadata;
    PngErrors m_errors;
    png_structp m_png;
    png_infop m_info;
    QByteArray m_bytes;
};

} // namespace

QByteArray encodePng(const Picture& picture, const SaveSettings&, const EmbeddedMetadata& metadata) {
    return PngWriter(picture, metadata).encode();
}

} // namespace tarsel
