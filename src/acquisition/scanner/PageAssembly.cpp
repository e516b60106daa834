// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/PageAssembly.h"

#include "acquisition/scanner/ScanLines.h"
#include "pixels/ColorReduction.h"

#include <algorithm>
#include <cstring>

namespace tarsel {

namespace {

constexpr int firstRoom = 1024; ///< lines, where nobody knows how many will come

bool isRoomFor(int width, std::int64_t height) {
    return width * height <= Picture::maximumPixels;
}

/// The top lines in a picture of that height.
Picture withHeight(const Picture& picture, int lines, int height) {
    Picture result(picture.width(), height, 3);
    const PixelView to = result.edit();
    const ConstPixelView from = picture.view();
    std::memcpy(to.data, from.data, std::size_t(from.stride) * std::size_t(std::min(lines, height)));
    return result;
}

} // namespace

bool PageAssembly::begin(const ScannerFrame& frame) {
    const bool isFirst = m_picture.isNull();
    if (!isSupportedFrame(frame) || (!isFirst && frame.pixelsPerLine != m_picture.width()))
        return false;
    const int height = frame.lines > 0 ? frame.lines : firstRoom;
    if (isFirst && !isRoomFor(frame.pixelsPerLine, height))
        return false;
    if (isFirst)
        m_picture = Picture(frame.pixelsPerLine, height, 3);
    m_frame = frame;
    m_promised = std::max(frame.lines, 0);
    m_lines = 0;
    m_rest.clear();
    return true;
}

bool PageAssembly::add(std::span<const std::byte> bytes) {
    const auto size = std::size_t(m_frame.bytesPerLine);
    if (!m_rest.empty()) {
        const std::size_t missing = std::min(size - m_rest.size(), bytes.size());
        m_rest.insert(m_rest.end(), bytes.begin(), bytes.begin() + std::ptrdiff_t(missing));
        bytes = bytes.subspan(missing);
        if (m_rest.size() < size)
            return true;
        if (!makeRoom())
            return false;
        takeLine(reinterpret_cast<const std::uint8_t*>(m_rest.data()));
        m_rest.clear();
    }
    for (; bytes.size() >= size; bytes = bytes.subspan(size)) {
        if (!makeRoom())
            return false;
        takeLine(reinterpret_cast<const std::uint8_t*>(bytes.data()));
    }
    m_rest.assign(bytes.begin(), bytes.end());
    return true;
}

bool PageAssembly::makeRoom() {
    if (m_lines < m_picture.height())
        return true;
    if (m_height >= 0) // a line that the frames before don't have doesn't count
        return true;
    const int height = m_picture.height() + std::max(m_picture.height() / 2, 1);
    if (!isRoomFor(m_picture.width(), height))
        return false;
    m_picture = withHeight(m_picture, m_lines, height);
    return true;
}

void PageAssembly::takeLine(const std::uint8_t* line) {
    if (m_lines >= m_picture.height())
        return;
    const PixelView view = m_picture.edit();
    convertScanLine(m_frame, line, view.row(m_lines));
    ++m_lines;
}

void PageAssembly::end() {
    m_isCut = m_isCut || m_lines < m_promised;
    m_height = m_height < 0 ? m_lines : std::min(m_height, m_lines);
}

int PageAssembly::colorFormat() const {
    if (m_frame.format != int(ScanFrameFormat::Gray))
        return int(ColorFormat::TrueColor);
    return int(m_frame.depth == 1 ? ColorFormat::BlackAndWhite : ColorFormat::Gray256);
}

Picture PageAssembly::take() {
    const int height = std::max(m_height, 0);
    Picture page = std::exchange(m_picture, {});
    if (height == 0)
        return {};
    return height == page.height() ? page : withHeight(page, height, height);
}

} // namespace tarsel
