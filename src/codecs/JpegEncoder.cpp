// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/JpegCodec.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "codecs/AfcpTrailer.h"
#include "codecs/ColorProfile.h"
#include "codecs/EncoderColors.h"
#include "codecs/JpegErrors.h"
#include "codecs/JpegSegments.h"
#include "codecs/JpegTables.h"
#include "codecs/Resolution.h"
#include "embedded/CanonPreview.h"
#include "pixels/Flatten.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <vector>

namespace tarsel {

namespace {

constexpr int rowsAtOnce = 16;
static_assert(largestJpegSide == JPEG_MAX_DIMENSION);
constexpr std::uint8_t dotsPerInch = 1;

/// JPEG has no palettes: what is gray gets one channel, all else three.
bool isGray(const SaveSettings& settings) {
    return isGrayFormat(colorFormatOf(settings));
}

/// A destination that lets libjpeg write straight into a growing byte array.
class ArrayDestination {
public:
    ArrayDestination(jpeg_compress_struct& jpeg, qsizetype firstRoom) :
        m_bytes(firstRoom, Qt::Uninitialized) {
        m_manager.base.init_destination = start;
        m_manager.base.empty_output_buffer = grow;
        m_manager.base.term_destination = finish;
        m_manager.owner = this;
        jpeg.dest = &m_manager.base;
    }
    QByteArray take() { return std::move(m_bytes); }

private:
    struct Manager {
        jpeg_destination_mgr base;
        ArrayDestination* owner;
    };
    static ArrayDestination& of(j_compress_ptr jpeg) {
        return *reinterpret_cast<Manager*>(jpeg->dest)->owner;
    }

    static void start(j_compress_ptr jpeg) { of(jpeg).offerRoom(0); }
    static boolean grow(j_compress_ptr jpeg) {
        QByteArray& bytes = of(jpeg).m_bytes;
        const qsizetype used = bytes.size();
        bytes.resize(used * 2);
        of(jpeg).offerRoom(used);
        return TRUE;
    }
    static void finish(j_compress_ptr jpeg) {
        QByteArray& bytes = of(jpeg).m_bytes;
        bytes.truncate(bytes.size() - qsizetype(jpeg->dest->free_in_buffer));
    }
    void offerRoom(qsizetype used) {
        m_manager.base.next_output_byte = reinterpret_cast<JOCTET*>(m_bytes.data()) + used;
        m_manager.base.free_in_buffer = std::size_t(m_bytes.size() - used);
    }

    QByteArray m_bytes;
    Manager m_manager = {};
};

class JpegWriter {
public:
    JpegWriter(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata) :
        m_view(picture.view()), m_settings(settings), m_isGray(isGray(settings)),
        m_resolution(resolutionOf(metadata)), m_segments(segmentsOf(withRgbProfileOnly(metadata))),
        m_destination(m_jpeg, firstRoom()) {
        if (m_view.channels == 4)
            m_rows.resize(std::size_t(m_view.width) * 3 * rowsAtOnce);
    }
    ~JpegWriter() { jpeg_destroy_compress(&m_jpeg); }
    JpegWriter(const JpegWriter&) = delete;
    JpegWriter& operator=(const JpegWriter&) = delete;

    QByteArray encode() {
        m_jpeg.err = m_errors.manager();
        if (!m_errors.guarded(encodeStep, *this))
            fail(ErrorNumber::InvalidCall,
                 QCoreApplication::translate("JpegEncoder", "JPEG encoder: %1").arg(m_errors.message()));
        return m_destination.take();
    }

private:
    /// Room for most photographs at quality 80, so that the array seldom grows.
    qsizetype firstRoom() const {
        qsizetype room = 16384 + qsizetype(m_view.width) * m_view.height / 3;
        for (const JpegSegment& segment : m_segments)
            room += segment.payload.size() + 4;
        return room;
    }

    static void encodeStep(JpegWriter& writer) {
        jpeg_destination_mgr* destination = writer.m_jpeg.dest;
        jpeg_create_compress(&writer.m_jpeg);
        writer.m_jpeg.dest = destination;
        writer.configure();
        jpeg_start_compress(&writer.m_jpeg, TRUE);
        for (const JpegSegment& segment : writer.m_segments)
            jpeg_write_marker(&writer.m_jpeg, segment.marker,
                              reinterpret_cast<const JOCTET*>(segment.payload.constData()),
                              unsigned(segment.payload.size()));
        writer.writeRows();
        jpeg_finish_compress(&writer.m_jpeg);
    }

    void configure() {
        m_jpeg.image_width = JDIMENSION(m_view.width);
        m_jpeg.image_height = JDIMENSION(m_view.height);
        m_jpeg.input_components = 3;
        m_jpeg.in_color_space = JCS_RGB;
        jpeg_set_defaults(&m_jpeg);
        if (m_isGray)
            jpeg_set_colorspace(&m_jpeg, JCS_GRAYSCALE);
        setTables();
        if (m_resolution.horizontal > 0) {
            m_jpeg.density_unit = dotsPerInch;
            m_jpeg.X_density = density(m_resolution.horizontal);
            m_jpeg.Y_density = density(m_resolution.vertical);
        }
        if (m_settings.JpegEncoding)
            jpeg_simple_progression(&m_jpeg);
    }

    void setTables() {
        if (m_settings.JpegTableScale <= 0)
            return jpeg_set_quality(&m_jpeg, std::clamp(m_settings.JpegQuality, 1, 100), TRUE);
        m_jpeg.optimize_coding = TRUE;
        jpeg_set_linear_quality(&m_jpeg, 100, TRUE); // the tables as the standard has them
        for (JQUANT_TBL* table : m_jpeg.quant_tbl_ptrs)
            if (table)
                scaleJpegTable(table->quantval, m_settings.JpegTableScale);
    }

    static UINT16 density(double perInch) { return UINT16(std::clamp(std::lround(perInch), 1L, 65535L)); }

    void writeRows() {
        JSAMPROW rows[rowsAtOnce];
        while (m_jpeg.next_scanline < m_jpeg.image_height) {
            raiseIfStopped();
            const int first = int(m_jpeg.next_scanline);
            const int count = std::min(rowsAtOnce, m_view.height - first);
            for (int i = 0; i < count; ++i)
                rows[i] = row(first + i, i);
            jpeg_write_scanlines(&m_jpeg, rows, JDIMENSION(count));
        }
    }

    JSAMPROW row(int y, int slot) {
        if (m_rows.empty())
            return const_cast<JSAMPROW>(m_view.row(y)); // libjpeg only reads it
        JSAMPROW flat = m_rows.data() + std::size_t(slot) * std::size_t(m_view.width) * 3;
        flattenRow(m_view, y, white, flat);
        return flat;
    }

    ConstPixelView m_view;
    SaveSettings m_settings;
    bool m_isGray;
    Resolution m_resolution;
    std::vector<JpegSegment> m_segments;
    jpeg_compress_struct m_jpeg = {};
    JpegErrors m_errors;
    ArrayDestination m_destination;
    std::vector<std::uint8_t> m_rows;
};

/// Where Canon's preview image is in the trailer: a JPEG file of the stated size.
std::optional<qsizetype> placeOf(const CanonPreview& preview, const QByteArray& trailer) {
    for (qsizetype at = trailer.indexOf("\xFF\xD8"); at >= 0; at = trailer.indexOf("\xFF\xD8", at + 2))
        if (trailer.mid(at + qsizetype(preview.size) - 2, 2) == "\xFF\xD9")
            return at;
    return std::nullopt;
}

QByteArray withTrailer(QByteArray file, const EmbeddedMetadata& metadata) {
    const auto preview = canonPreview(metadata.exif);
    const auto place = preview ? placeOf(*preview, metadata.trailer) : std::nullopt;
    const qsizetype block = file.indexOf("Exif") + 6, end = file.size();
    if (place)
        file.replace(block + preview->place, 4,
                     withCanonPreviewAt(metadata.exif, *preview, quint32(end - block + *place))
                         .sliced(preview->place, 4));
    return file + trailerAt(metadata.trailer, end);
}

} // namespace

QByteArray encodeJpeg(const Picture& picture, const SaveSettings& settings,
                      const EmbeddedMetadata& metadata) {
    requireEncodableSize("JPEG", picture, largestJpegSide);
    const QByteArray file = JpegWriter(picture, settings, metadata).encode();
    return metadata.trailer.isEmpty() ? file : withTrailer(file, metadata);
}

} // namespace tarsel
