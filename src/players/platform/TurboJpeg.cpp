// SPDX-License-Identifier: MIT
#include "players/platform/Jpeg.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>

namespace tarsel::players {

namespace {

constexpr std::uint64_t mostPixels = 1ull << 31;
constexpr std::uint64_t mostBufferedPixels = 1ull << 27; ///< of a file whose scans are kept in memory
constexpr int mostScans = 200;

struct ErrorManager : jpeg_error_mgr {
    std::jmp_buf leave;
};

[[noreturn]] void leave(j_common_ptr info) {
    std::longjmp(static_cast<ErrorManager*>(info->err)->leave, 1);
}

void countScans(j_common_ptr info) {
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > mostScans)
        leave(info);
}

/// Reads one file. Nothing here has a destructor that the jump out of libjpeg would skip.
class Decoder {
public:
    Decoder() {
        m_info.err = jpeg_std_error(&m_errors);
        m_errors.error_exit = leave;
        m_errors.emit_message = [](j_common_ptr, int) {};
        m_progress.progress_monitor = countScans;
    }
    ~Decoder() { jpeg_destroy_decompress(&m_info); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    bool start(std::string_view bytes) {
        if (setjmp(m_errors.leave))
            return false;
        jpeg_create_decompress(&m_info);
        m_info.progress = &m_progress;
        jpeg_mem_src(&m_info, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
        jpeg_read_header(&m_info, TRUE);
        const std::uint64_t pixels = std::uint64_t(m_info.image_width) * m_info.image_height;
        if (pixels > (jpeg_has_multiple_scans(&m_info) ? mostBufferedPixels : mostPixels))
            return false;
        const bool isCmyk = m_info.num_components == 4;
        m_info.out_color_space = isCmyk ? JCS_CMYK : JCS_EXT_BGRX;
        return jpeg_start_decompress(&m_info);
    }

    int width() const { return int(m_info.output_width); }
    int height() const { return int(m_info.output_height); }

    /// False where the file ends in an error before that.
    bool readRow(std::uint32_t* row) {
        if (setjmp(m_errors.leave))
            return false;
        auto* samples = reinterpret_cast<JSAMPLE*>(row);
        return jpeg_read_scanlines(&m_info, &samples, 1) == 1;
    }

    std::uint32_t pixelOf(std::uint32_t samples) const {
        if (m_info.out_color_space != JCS_CMYK)
            return samples | black;
        const std::uint32_t key = samples >> 24; // 255 is no ink, as Adobe's programs write it
        const auto channel = [&](int shift) { return (samples >> shift & 0xFF) * key / 255; };
        return black | channel(0) << 16 | channel(8) << 8 | channel(16);
    }

private:
    jpeg_decompress_struct m_info{};
    ErrorManager m_errors{};
    jpeg_progress_mgr m_progress{};
};

} // namespace

std::optional<Picture> decodeJpeg(std::string_view bytes, int widest, int highest) {
    Decoder decoder;
    if (!decoder.start(bytes))
        return std::nullopt;
    Picture picture{{}, std::min(decoder.width(), widest), std::min(decoder.height(), highest)};
    picture.pixels.resize(std::size_t(picture.width) * std::size_t(picture.height), 0xFF808080);
    std::vector<std::uint32_t> row(std::size_t(decoder.width()));
    for (int y = 0; y < picture.height; ++y) {
        if (!decoder.readRow(row.data()))
            break;
        std::transform(row.begin(), row.begin() + picture.width,
                       picture.pixels.begin() + std::ptrdiff_t(y) * picture.width,
                       [&](std::uint32_t samples) { return decoder.pixelOf(samples); });
    }
    return picture;
}

} // namespace tarsel::players
