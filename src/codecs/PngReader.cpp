// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PngCodec.h"

#include "base/Stop.h"
#include "codecs/CodecChecks.h"
#include "codecs/ColorProfile.h"
#include "codecs/PngErrors.h"
#include "codecs/PngTexts.h"
#include "codecs/SourceStream.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>

namespace tarsel {

namespace {

/// Deflate packs at most 1032 bytes into one, and a byte holds up to 8 pixels.
constexpr std::int64_t pixelsPerByte = 8300;
constexpr png_alloc_size_t largestChunk = png_alloc_size_t(16) << 20;
constexpr png_alloc_size_t largestText = png_alloc_size_t(1) << 20; ///< where all are read
constexpr png_uint_32 maxTextChunks = 24;                           // libpng keeps them all
/// Names of 4 letters and a zero each: text without XMP, and suggested palettes.
constexpr png_byte unreadChunks[] = "tEXt\0zTXt\0sPLT";

/// Image resources as hexadecimal text after a line with their kind and one with their size.
QByteArray resourcesOf(const QByteArray& text) {
    const qsizetype kind = text.indexOf('\n', 1), size = text.indexOf('\n', kind + 1);
    const QByteArray bytes = kind < 0 || size < 0 ? QByteArray() : QByteArray::fromHex(text.mid(size + 1));
    return bytes.startsWith("8BIM") ? bytes : QByteArray();
}

enum class Texts { OfMetadata, All };

class PngReader {
public:
    PngReader(const PictureSource& source, const QString& name, Texts kept = Texts::OfMetadata) :
        m_file{"PNG", name, source.size()}, m_stream(source), m_keptTexts(kept),
        m_png(png_create_read_struct(PNG_LIBPNG_VER_STRING, &m_errors, PngErrors::onError,
                                     PngErrors::onWarning)),
        m_info(m_png ? png_create_info_struct(m_png) : nullptr) {}
    ~PngReader() { png_destroy_read_struct(&m_png, &m_info, nullptr); }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    void readHeader() {
        if (!m_info)
            failDecoding(m_file, QCoreApplication::translate("PngReader", "no memory"));
        guard(readHeaderStep);
        requirePlausibleSize(m_file, png_get_image_width(m_png, m_info), png_get_image_height(m_png, m_info),
                             pixelsPerByte);
    }

    PictureHeader header() const {
        return {int(png_get_image_width(m_png, m_info)), int(png_get_image_height(m_png, m_info)),
                png_get_bit_depth(m_png, m_info) * png_get_channels(m_png, m_info),
                png_get_x_pixels_per_meter(m_png, m_info) * 0.0254};
    }

    Picture decode() {
        guard(configure);
        Picture picture(int(png_get_image_width(m_png, m_info)), int(png_get_image_height(m_png, m_info)),
                        png_get_channels(m_png, m_info));
        m_target = picture.edit();
        std::memset(m_target.data, 255, std::size_t(m_target.stride) * std::size_t(m_target.height));
        if (!m_errors.guarded(readRows, *this)) {
            m_damage = m_errors.message();
            if (!m_hasRows)
                failDecoding(m_file, m_damage);
        }
        // Metadata after the pixels; a truncated file has none.
        m_errors.guarded(readEnd, *this);
        return picture;
    }

    EmbeddedMetadata metadata() const {
        EmbeddedMetadata blocks;
        png_uint_32 exifSize = 0;
        png_bytep exif = nullptr;
        if (png_get_eXIf_1(m_png, m_info, &exifSize, &exif))
            blocks.exif = QByteArray(reinterpret_cast<const char*>(exif), qsizetype(exifSize));
        blocks.iccProfile = profile();
        blocks.xmp = textOf(xmpKeyword);
        blocks.resources = resourcesOf(textOf(resourcesKeyword));
        blocks.resolution = {png_get_x_pixels_per_meter(m_png, m_info) * 0.0254,
                             png_get_y_pixels_per_meter(m_png, m_info) * 0.0254};
        return blocks;
    }

    PngTexts texts() const {
        PngTexts found;
        png_textp texts = nullptr;
        const int count = png_get_text(m_png, m_info, &texts, nullptr);
        for (int i = 0; i < count; ++i)
            found.insert(texts[i].key, QByteArray(texts[i].text, textLength(texts[i])));
        return found;
    }

    QString damage() const { return m_damage; }

private:
    void guard(void (*step)(PngReader&)) {
        if (!m_errors.guarded(step, *this))
            failDecoding(m_file, m_errors.message());
    }

    static void readBytes(png_structp png, png_bytep target, std::size_t size) {
        auto& reader = *static_cast<PngReader*>(png_get_io_ptr(png));
        if (reader.m_stream.read(target, qsizetype(size)) < qsizetype(size))
            png_error(png, "file is truncated");
    }

    static void readHeaderStep(PngReader& reader) {
        png_structp png = reader.m_png;
        png_set_read_fn(png, &reader, readBytes);
        png_set_user_limits(png, 0x7FFFFFFF, 0x7FFFFFFF); // sizes are judged here, by their product
        png_set_chunk_malloc_max(png, reader.m_keptTexts == Texts::All ? largestText : largestChunk);
        png_set_chunk_cache_max(png, maxTextChunks);
        if (reader.m_keptTexts == Texts::OfMetadata)
            png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, unreadChunks, sizeof unreadChunks / 5);
        png_set_crc_action(png, PNG_CRC_WARN_USE, PNG_CRC_WARN_DISCARD);
        png_set_benign_errors(png, 1);
        png_set_option(png, PNG_SKIP_sRGB_CHECK_PROFILE, PNG_OPTION_ON);
        png_read_info(png, reader.m_info);
    }

    /// Everything becomes 8-bit red, green, blue, with alpha where the file has transparency.
    static void configure(PngReader& reader) {
        png_structp png = reader.m_png;
        png_set_expand(png);
        png_set_scale_16(png);
        png_set_gray_to_rgb(png);
        reader.m_passes = png_set_interlace_handling(png);
        png_read_update_info(png, reader.m_info);
    }

    static void readRows(PngReader& reader) {
        for (int pass = 0; pass < reader.m_passes; ++pass)
            for (int y = 0; y < reader.m_target.height; ++y) {
                raiseIfStopped();
                png_read_row(reader.m_png, reader.m_target.row(y), nullptr);
                reader.m_hasRows = true;
            }
    }

    static void readEnd(PngReader& reader) { png_read_end(reader.m_png, reader.m_info); }

    QByteArray profile() const {
        png_charp name = nullptr;
        int compression = 0;
        png_bytep data = nullptr;
        png_uint_32 size = 0;
        if (!png_get_iCCP(m_png, m_info, &name, &compression, &data, &size))
            return profileOfCalibration();
        return QByteArray(reinterpret_cast<const char*>(data), qsizetype(size));
    }

    /// By the gamma and the places of the primaries in the file.
    QByteArray profileOfCalibration() const {
        double fileGamma = 1 / 2.2;
        Chromaticities places;
        const bool hasGamma = png_get_gAMA(m_png, m_info, &fileGamma) != 0;
        const bool hasPlaces =
            png_get_cHRM(m_png, m_info, &places.white.x, &places.white.y, &places.red.x, &places.red.y,
                         &places.green.x, &places.green.y, &places.blue.x, &places.blue.y) != 0;
        if (png_get_valid(m_png, m_info, PNG_INFO_sRGB) || (!hasGamma && !hasPlaces) || fileGamma <= 0)
            return {};
        return calibratedProfile(places, 1 / fileGamma);
    }

    static qsizetype textLength(const png_text& text) {
        return qsizetype(std::max(text.text_length, text.itxt_length));
    }

    QByteArray textOf(const char* keyword) const {
        png_textp texts = nullptr;
        const int count = png_get_text(m_png, m_info, &texts, nullptr);
        for (int i = 0; i < count; ++i)
            if (std::strcmp(texts[i].key, keyword) == 0)
                return QByteArray(texts[i].text, textLength(texts[i]));
        return {};
    }

    FileUnderTest m_file;
    SourceStream m_stream;
    const Texts m_keptTexts;
    PngErrors m_errors;
    png_structp m_png;
    png_infop m_info;
    PixelView m_target;
    int m_passes = 1;
    QString m_damage;
    bool m_hasRows = false;
};

bool sniffPng(const PictureSource& source) {
    return source.start().startsWith("\x89PNG\r\n\x1A\n");
}

PictureHeader pngHeader(const PictureSource& source, const QString& name) {
    PngReader reader(source, name);
    reader.readHeader();
    return reader.header();
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

EmbeddedMetadata pngMetadata(const PictureSource& source, const QString& name, int) {
    PngReader reader(source, name);
    reader.readHeader();
    return withRgbProfileOnly(reader.metadata());
}

DecodedPicture decodePng(const PictureSource& source, const QString& name, int) {
    PngReader reader(source, name);
    reader.readHeader();
    Picture picture = reader.decode();
    EmbeddedMetadata metadata = reader.metadata();
    applyGrayProfile(picture, metadata.iccProfile);
    return {std::move(picture), withRgbProfileOnly(std::move(metadata)), reader.damage()};
}

} // namespace

void PngErrors::onError(png_structp png, png_const_charp message) {
    auto& errors = *static_cast<PngErrors*>(png_get_error_ptr(png));
    std::strncpy(errors.m_message, message, sizeof errors.m_message - 1);
    std::longjmp(errors.m_return, 1);
}

PngTexts pngTexts(const PictureSource& source, const QString& name) {
    PngReader reader(source, name, Texts::All);
    reader.readHeader();
    return reader.texts();
}

Codec pngCodec() {
    return {.name = "PNG",
            .extensions = {QStringLiteral("png")},
            .sniff = sniffPng,
            .header = pngHeader,
            .pageCount = onePage,
            .decode = decodePng,
            .encode = encodePng,
            .metadata = pngMetadata,
            .keepsTransparency = true};
}

} // namespace tarsel
