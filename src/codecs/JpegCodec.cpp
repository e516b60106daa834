// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/JpegCodec.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "codecs/CodecChecks.h"
#include "codecs/ColorProfile.h"
#include "codecs/JpegErrors.h"
#include "codecs/JpegMetadata.h"
#include "codecs/JpegSegments.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <climits>
#include <optional>
#include <vector>

namespace tarsel {

namespace {

/// A block of 8 x 8 takes at least a few bits, however plain it is.
constexpr std::int64_t pixelsPerByte = 1000;
/// Coefficients of a progressive picture are held in memory; beyond this the file is refused.
constexpr long memoryLimit = long(2) << 30;
/// A crafted file repeats scans over a large picture to keep its reader busy; honest ones have some ten.
constexpr std::int64_t fewScans = 30;
constexpr std::int64_t manyScans = 500;
constexpr std::int64_t pixelsOfAllScans = 5'000'000'000; // empty scans over so many take some two seconds
/// An extended XMP packet of 300 MB, or as many comments.
constexpr int maxSegments = 5000;
constexpr int rowsAtOnce = 16;

enum class Purpose { Header, Picture };

std::int64_t maxScans(const jpeg_decompress_struct& jpeg) {
    const std::int64_t pixels = std::int64_t(jpeg.image_width) * jpeg.image_height;
    return std::clamp(pixelsOfAllScans / std::max<std::int64_t>(pixels, 1), fewScans, manyScans);
}

class JpegReader {
public:
    JpegReader(QByteArray bytes, FileUnderTest file) : m_file(std::move(file)), m_bytes(std::move(bytes)) {
        m_jpeg.err = m_errors.manager();
        guard(create);
    }
    ~JpegReader() { jpeg_destroy_decompress(&m_jpeg); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    void readHeader(Purpose purpose) {
        if (purpose == Purpose::Picture) {
            if (hasMoreSegmentsThan(maxSegments, m_bytes))
                failDecoding(
                    m_file,
                    QCoreApplication::translate("JpegCodec", "more than %1 segments").arg(maxSegments));
            keepMetadataSegments(m_jpeg);
        }
        guard(readHeaderStep);
        requirePlausibleSize(m_file, m_jpeg.image_width, m_jpeg.image_height, pixelsPerByte);
    }

    PictureHeader header() const {
        return {int(m_jpeg.image_width), int(m_jpeg.image_height),
                m_jpeg.num_components * m_jpeg.data_precision, resolution().horizontal};
    }

    EmbeddedMetadata metadata() const {
        EmbeddedMetadata metadata = metadataOfSegments(m_jpeg);
        metadata.resolution = resolution();
        return hasInks() ? withoutRgbProfile(std::move(metadata)) : metadata;
    }
    PixelSize size() const { return {int(m_jpeg.image_width), int(m_jpeg.image_height)}; }

    /// Scales by eighths while decoding, so that at least `wanted` comes out.
    void reduceTo(PixelSize wanted) {
        const auto suffices = [&](int eighths) {
            return std::int64_t(m_jpeg.image_width) * eighths >= std::int64_t(wanted.width) * 8 &&
                   std::int64_t(m_jpeg.image_height) * eighths >= std::int64_t(wanted.height) * 8;
        };
        int eighths = 1;
        while (eighths < 8 && !suffices(eighths))
            ++eighths;
        m_jpeg.scale_num = unsigned(eighths);
        m_jpeg.scale_denom = 8;
        if (eighths < 8)
            m_jpeg.do_fancy_upsampling = FALSE;
    }

    Picture decode(const QByteArray& iccProfile) {
        m_jpeg.out_color_space = hasInks() ? JCS_CMYK : JCS_RGB;
        guard(start);
        Picture picture(int(m_jpeg.output_width), int(m_jpeg.output_height), 3);
        m_target = picture.edit();
        if (hasInks())
            readCmykRows(iccProfile);
        else
            guard(readRows);
        if (m_errors.endedBeforeFirstRows())
            failDecoding(m_file, QCoreApplication::translate("JpegCodec", "no image data"));
        return picture;
    }

    /// What follows the picture, after it was decoded. The decoder has read up to the end mark or somewhat
    /// beyond it; in the data of a picture no such mark stands. Filling is left out.
    QByteArray trailer() const {
        constexpr qsizetype readAhead = 16;
        const qsizetype at = m_bytes.size() - qsizetype(m_jpeg.src->bytes_in_buffer);
        const qsizetype end = m_bytes.indexOf("\xFF\xD9", std::max<qsizetype>(at - readAhead, 0));
        if (end < 0 || m_errors.endedEarly() || hasPictureList(m_jpeg))
            return {};
        const QByteArray rest = m_bytes.mid(end + 2);
        return std::ranges::any_of(rest, [](char byte) { return byte != 0; }) ? rest : QByteArray();
    }

    QString damage() const {
        return m_errors.endedEarly() ? QCoreApplication::translate("JpegCodec", "file is truncated")
                                     : QString();
    }

private:
    bool hasInks() const {
        return m_jpeg.jpeg_color_space == JCS_CMYK || m_jpeg.jpeg_color_space == JCS_YCCK;
    }
    Resolution resolution() const {
        const double perUnit = m_jpeg.density_unit == 2 ? 2.54 : m_jpeg.density_unit == 1 ? 1 : 0;
        return {m_jpeg.X_density * perUnit, m_jpeg.Y_density * perUnit};
    }

    void guard(void (*step)(JpegReader&)) {
        if (m_errors.guarded(step, *this))
            return;
        raiseIfStopped();
        failDecoding(m_file, m_errors.message());
    }

    static void create(JpegReader& reader) {
        jpeg_create_decompress(&reader.m_jpeg);
        reader.m_jpeg.mem->max_memory_to_use = memoryLimit;
        jpeg_mem_src(&reader.m_jpeg, reinterpret_cast<const unsigned char*>(reader.m_bytes.constData()),
                     static_cast<unsigned long>(reader.m_bytes.size()));
        reader.m_jpeg.client_data = &reader;
        reader.m_progress.progress_monitor = watch;
        reader.m_jpeg.progress = &reader.m_progress;
    }

    static void readHeaderStep(JpegReader& reader) { jpeg_read_header(&reader.m_jpeg, TRUE); }

    static void start(JpegReader& reader) { jpeg_start_decompress(&reader.m_jpeg); }

    static void watch(j_common_ptr common) {
        auto jpeg = reinterpret_cast<j_decompress_ptr>(common);
        auto& reader = *static_cast<JpegReader*>(common->client_data);
        if (jpeg->input_scan_number > maxScans(*jpeg))
            reader.m_errors.giveUp("too many scans");
        if (currentStop().stop_requested())
            reader.m_errors.giveUp("stopped"); // guard says so
    }

    static void readRows(JpegReader& reader) {
        jpeg_decompress_struct& jpeg = reader.m_jpeg;
        JSAMPROW rows[rowsAtOnce];
        while (jpeg.output_scanline < jpeg.output_height) {
            const int count = int(std::min(jpeg.output_height - jpeg.output_scanline, unsigned(rowsAtOnce)));
            for (int i = 0; i < count; ++i)
                rows[i] = reader.m_target.row(int(jpeg.output_scanline) + i);
            jpeg_read_scanlines(&jpeg, rows, unsigned(count));
        }
    }

    static void readCmykRow(JpegReader& reader) {
        JSAMPROW row = reader.m_cmykRow.data();
        jpeg_read_scanlines(&reader.m_jpeg, &row, 1);
    }

    void readCmykRows(const QByteArray& iccProfile) {
        const CmykConversion conversion(iccProfile);
        m_cmykRow.resize(std::size_t(m_target.width) * 4);
        while (m_jpeg.output_scanline < m_jpeg.output_height) {
            const int y = int(m_jpeg.output_scanline);
            guard(readCmykRow);
            // The ink that is missing, also without Adobe's marker, which only some tool will have removed.
            std::transform(m_cmykRow.begin(), m_cmykRow.end(), m_cmykRow.begin(),
                           [](std::uint8_t ink) { return std::uint8_t(255 - ink); });
            conversion.convertRow(m_cmykRow.data(), m_target.row(y), m_target.width);
        }
    }

    FileUnderTest m_file;
    QByteArray m_bytes;
    jpeg_decompress_struct m_jpeg = {};
    jpeg_progress_mgr m_progress = {};
    JpegErrors m_errors;
    PixelView m_target;
    std::vector<std::uint8_t> m_cmykRow;
};

FileUnderTest fileOf(const PictureSource& source, const QString& name) {
    return {"JPEG", name, source.size()};
}

bool sniffJpeg(const PictureSource& source) {
    return source.start().startsWith("\xFF\xD8\xFF");
}

PictureHeader headerOf(const QByteArray& bytes, const FileUnderTest& file) {
    JpegReader reader(bytes, file);
    reader.readHeader(Purpose::Header);
    return reader.header();
}

/// Reads on only where segments fill the start of the file.
PictureHeader jpegHeader(const PictureSource& source, const QString& name) {
    const FileUnderTest file = fileOf(source, name);
    const QByteArray start = source.start();
    if (start.size() == source.size())
        return headerOf(start, file);
    try {
        return headerOf(start, file);
    } catch (const TrappedError&) {
        return headerOf(source.all(), file);
    }
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

EmbeddedMetadata jpegMetadata(const PictureSource& source, const QString& name, int) {
    JpegReader reader(jpegHead(source), fileOf(source, name));
    reader.readHeader(Purpose::Picture);
    return withRgbProfileOnly(reader.metadata());
}

ReducedPicture decodeReducedJpeg(const PictureSource& source, const QString& name, PixelSize wanted) {
    JpegReader reader(source.all(), fileOf(source, name));
    reader.readHeader(Purpose::Picture);
    reader.reduceTo(wanted);
    EmbeddedMetadata metadata = reader.metadata();
    Picture picture = reader.decode(metadata.iccProfile);
    applyGrayProfile(picture, metadata.iccProfile);
    metadata.trailer = reader.trailer();
    return {std::move(picture), reader.size(), withRgbProfileOnly(std::move(metadata)), reader.damage()};
}

DecodedPicture decodeJpeg(const PictureSource& source, const QString& name, int) {
    constexpr PixelSize all{INT_MAX, INT_MAX};
    ReducedPicture read = decodeReducedJpeg(source, name, all);
    return {std::move(read.picture), std::move(read.metadata), std::move(read.damage)};
}

} // namespace

Codec jpegCodec() {
    return {.name = "JPEG",
            .extensions = {QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("jpe")},
            .sniff = sniffJpeg,
            .header = jpegHeader,
            .pageCount = onePage,
            .decode = decodeJpeg,
            .encode = encodeJpeg,
            .metadata = jpegMetadata,
            .withMetadata = jpegWithMetadata,
            .decodeReduced = decodeReducedJpeg};
}

} // namespace tarsel
