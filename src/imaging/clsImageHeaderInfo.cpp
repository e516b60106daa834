// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/clsImageHeaderInfo.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "bytes/ByteReader.h"
#include "bytes/Descriptor.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <cmath>
#include <fcntl.h>
#include <limits>
#include <span>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace tarsel {

namespace {

/// A statement that can't be carried out: a number that doesn't fit, a byte outside the buffer, a division
/// by zero.
struct Failure {};

std::int16_t fitted(double value) {
    if (!(std::abs(value) <= std::numeric_limits<std::int16_t>::max()))
        throw Failure();
    return std::int16_t(value);
}

/// Ties go to even.
std::int16_t rounded(double value) {
    return fitted(std::nearbyint(value));
}

/// Opened for reading; never waits for a pipe's other end.
Descriptor openedRegular(const QString& path) {
    Descriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (file.isOpen() && (::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)))
        file.reset();
    return file;
}

} // namespace

/// Walks through a file with the buffer of the routines: each read makes it the size of what is wanted next.
/// Past the end of the file there are zeros.
class clsImageHeaderInfo::Walk {
public:
    Walk(clsImageHeaderInfo& info, Descriptor file) : m_info(info), m_file(std::move(file)) {}

    bool isEmptyFile() { return blockAt(0).empty(); }

    bool read() {
        take(2);
        bool result = false;
        if (at(0) == 'I' && at(1) == 'I')
            result = endingAtFailure(&Walk::readTiff);
        if (at(0) == 0xFF && at(1) == 0xD8)
            result = readJpeg();
        if (at(0) == 0x89 && at(1) == 'P')
            result = endingAtFailure(&Walk::readPng);
        return result;
    }

private:
    bool endingAtFailure(bool (Walk::*routine)()) {
        try {
            return (this->*routine)();
        } catch (const Failure&) {
            return false;
        }
    }

    /// Runs a statement that is skipped when it fails.
    template <class Statement>
    static void skippingFailure(Statement statement) {
        try {
            statement();
        } catch (const Failure&) { // NOLINT(bugprone-empty-catch): the next statement runs
        }
    }

    // --- PNG: chunks of length 32, type, data, checksum 32

    bool readPng() {
        take(6);
        if (text(6) != "NG\r\n\x1a\n")
            return false;
        for (;;) {
            take(4);
            const std::int64_t length = big32(0);
            take(4);
            const std::string type(text(4));
            if (length == 0 || length > std::numeric_limits<std::int32_t>::max())
                throw Failure();
            take(length);
            if (type == "IHDR")
                readPngSize();
            else if (type == "pHYs" && at(8) == 1)
                m_info.m_dpi = rounded(double(big32(0)) * 0.0254);
            else if (type == "IDAT" || type == "IEND")
                return true;
            take(4);
        }
    }

    void readPngSize() {
        m_info.m_width = fitted(double(big32(0)));
        m_info.m_height = fitted(double(big32(4)));
        m_info.m_bitsPerPixel = at(8);
        const std::uint8_t colorType = at(9);
        if (colorType == 0 || colorType == 4)
            m_info.m_isGray = true;
        if (colorType == 2 || colorType == 6)
            m_info.m_bitsPerPixel = 24;
    }

    // --- TIFF in little-endian order, its first directory alone

    bool readTiff() {
        take(6);
        if (at(0) != 42)
            return false;
        const std::int64_t directory = offset(2);
        m_position = directory;
        take(2);
        const std::int64_t count = little16(0);
        if (count == 0)
            throw Failure();
        m_position = directory + 2;
        take(12 * count, 12 * count);
        double resolution = 0;
        std::uint8_t unit = 0;
        for (std::int64_t entry = 0; entry < 12 * count; entry += 12)
            readTiffEntry(entry, resolution, unit);
        constexpr std::uint8_t inch = 2;
        m_info.m_dpi = unit == inch ? rounded(resolution) : fitted(std::floor(resolution * 2.54));
        m_info.m_bitsPerPixel = 24;
        return true;
    }

    void readTiffEntry(std::int64_t entry, double& resolution, std::uint8_t& unit) {
        const std::uint32_t value = little32(entry + 8);
        switch (little16(entry)) {
        case 256:
            m_info.m_width = fitted(value);
            break;
        case 257:
            m_info.m_height = fitted(value);
            break;
        case 282:
            resolution = resolutionAt(offset(entry + 8));
            break;
        case 296:
            if (value > 255)
                throw Failure();
            unit = std::uint8_t(value);
            break;
        default:
            break;
        }
    }

    double resolutionAt(std::int64_t position) {
        std::array<std::byte, 8> bytes = {};
        readAt(position, bytes);
        m_position = position + 8;
        const ByteReader reader(bytes, ByteOrder::Little);
        if (*reader.dword(4) == 0)
            throw Failure();
        return double(*reader.dword(0)) / *reader.dword(4);
    }

    // --- JPEG: segments of 0xFF, marker, length 16, body. Statements that fail are skipped.

    bool readJpeg() {
        take(4);
        while (at(0) == 0xFF) {
            const std::uint8_t marker = at(1);
            const int length = at(2) * 256 + at(3);
            take(length < 3 ? 4 : length - 2); // the buffer stays as long as it was where that fails
            if (marker == 0xE0)
                readJpegDensity();
            if (marker == 0xC0)
                readJpegSize();
            take(4);
        }
        if (m_info.m_dpi == 0)
            m_info.m_dpi = 1;
        m_info.m_bitsPerPixel = 24;
        return true;
    }

    void readJpegDensity() {
        skippingFailure([this] {
            const std::uint8_t unit = at(7);
            if (unit == 1)
                m_info.m_dpi = fitted(at(8) * 256 + at(9));
            if (unit == 2)
                m_info.m_dpi = rounded((at(8) * 256 + at(9)) * 2.54);
        });
    }

    void readJpegSize() {
        skippingFailure([this] { m_info.m_height = fitted(at(1) * 256 + at(2)); });
        skippingFailure([this] { m_info.m_width = fitted(at(3) * 256 + at(4)); });
        skippingFailure([this] { m_info.m_isGray |= at(5) == 1; });
    }

    // --- the buffer

    /// The next bytes of the file. Only the first few of a chunk or segment are looked at, so the buffer
    /// holds `lookedAt` of them at most.
    void take(std::int64_t count, std::int64_t lookedAt = 16) {
        raiseIfStopped();
        m_buffer.assign(std::size_t(std::min(count, lookedAt)), std::byte());
        readAt(m_position, m_buffer);
        m_position += count;
    }

    std::uint8_t at(std::int64_t index) const {
        if (index >= std::int64_t(m_buffer.size()))
            throw Failure();
        return std::uint8_t(m_buffer[std::size_t(index)]);
    }

    std::string_view text(std::size_t count) const {
        return {reinterpret_cast<const char*>(m_buffer.data()), count};
    }

    template <class Number>
    Number number(std::int64_t index, ByteOrder order) const {
        const auto value = ByteReader(m_buffer, order).number<Number>(index);
        if (!value)
            throw Failure();
        return *value;
    }
    std::int64_t big32(std::int64_t index) const { return number<std::uint32_t>(index, ByteOrder::Big); }
    std::uint32_t little32(std::int64_t index) const {
        return number<std::uint32_t>(index, ByteOrder::Little);
    }
    int little16(std::int64_t index) const { return number<std::uint16_t>(index, ByteOrder::Little); }

    /// Offsets are signed numbers of 32 bits.
    std::int64_t offset(std::int64_t index) const {
        const std::uint32_t value = little32(index);
        if (value > std::uint32_t(std::numeric_limits<std::int32_t>::max()))
            throw Failure();
        return value;
    }

    /// Copies what the file has there, from a block that is kept for the next pieces.
    void readAt(std::int64_t position, std::span<std::byte> target) {
        while (!target.empty()) {
            const std::span<const std::byte> block = blockAt(position);
            if (block.empty())
                return;
            const std::size_t count = std::min(block.size(), target.size());
            std::copy_n(block.begin(), count, target.begin());
            target = target.subspan(count);
            position += std::int64_t(count);
        }
    }

    /// The bytes from that position on that are in one block; none past the end of the file.
    std::span<const std::byte> blockAt(std::int64_t position) {
        if (position < m_blockStart || position >= m_blockStart + m_blockSize) {
            m_blockStart = position;
            m_blockSize =
                std::max<std::int64_t>(0, ::pread(m_file.number(), m_block.data(), m_block.size(), position));
        }
        return std::span(m_block).subspan(std::size_t(position - m_blockStart),
                                          std::size_t(m_blockStart + m_blockSize - position));
    }

    clsImageHeaderInfo& m_info;
    Descriptor m_file;
    std::int64_t m_position = 0;
    std::vector<std::byte> m_buffer;
    std::array<std::byte, 4096> m_block;
    std::int64_t m_blockStart = 0;
    std::int64_t m_blockSize = 0;
};

void clsImageHeaderInfo::ReadGIF_BMP_Header(const QString& path, const std::stop_token& stop) {
    const StopScope scope(stop);
    raiseIfStopped();
    m_width = m_height = 0;
    m_bitsPerPixel = 0;
    std::array<std::byte, 32> start = {};
    const Descriptor file = openedRegular(path);
    if (!file.isOpen() || ::pread(file.number(), start.data(), start.size(), 0) <= 0)
        return;
    const ByteReader reader(start, ByteOrder::Little);
    const auto side = [&](std::int64_t at) {
        const std::uint16_t value = *reader.word(at);
        if (value > std::numeric_limits<std::int16_t>::max())
            fail(ErrorNumber::Overflow);
        return std::int16_t(value);
    };
    const std::string_view text(reinterpret_cast<const char*>(start.data()), start.size());
    if (text.starts_with("GIF")) {
        m_width = side(6);
        m_height = side(8);
        m_bitsPerPixel = std::uint8_t((*reader.byte(10) & 7) + 1);
    }
    if (text.starts_with("BM")) {
        m_width = side(18);
        m_height = side(22);
        m_bitsPerPixel = *reader.byte(28);
    }
}

bool clsImageHeaderInfo::ReadJPEG_TIFF_PNG_Header(const QString& path, const std::stop_token& stop) {
    const StopScope scope(stop);
    raiseIfStopped();
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    *this = {};
    Descriptor file = openedRegular(path);
    if (!file.isOpen())
        return false;
    Walk walk(*this, std::move(file));
    return !walk.isEmptyFile() && walk.read();
}

} // namespace tarsel
