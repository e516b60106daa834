// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffFile.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

namespace tarsel {

namespace {

constexpr char fileName[] = "memory"; ///< that libtiff puts before messages
constexpr tmsize_t largestAllocation = tmsize_t(1) << 30;
constexpr std::int64_t largestWrittenFile = std::int64_t(4) << 30; // what offsets of 32 bits reach

TiffFile& of(thandle_t self) {
    return *static_cast<TiffFile*>(self);
}

} // namespace

TiffFile::TiffFile(PictureSource source, const FileUnderTest& file) : m_source(std::move(source)) {
    open("rh"); // the caller selects the directory
    if (!m_tiff)
        failDecoding(file, m_firstError.isEmpty() ? QCoreApplication::translate("TiffFile", "not readable")
                                                  : m_firstError);
}

TiffFile::TiffFile(bool bigEndian) {
    open(bigEndian ? "wb" : "wl");
}

TiffFile::~TiffFile() {
    if (m_tiff)
        TIFFClose(m_tiff);
}

void TiffFile::open(const char* mode) {
    TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
    TIFFOpenOptionsSetMaxSingleMemAlloc(options, largestAllocation);
    TIFFOpenOptionsSetErrorHandlerExtR(options, onError, this);
    TIFFOpenOptionsSetWarningHandlerExtR(options, onWarning, this);
    m_tiff = TIFFClientOpenExt(
        fileName, mode, this, read, write, seek, [](thandle_t) { return 0; }, size, nullptr, nullptr,
        options);
    TIFFOpenOptionsFree(options);
}

QByteArray TiffFile::finish() {
    TIFFClose(m_tiff);
    m_tiff = nullptr;
    return std::move(m_bytes);
}

int TiffFile::onError(TIFF*, void* self, const char* module, const char* format, va_list arguments) {
    char text[300];
    std::vsnprintf(text, sizeof text, format, arguments);
    auto& file = *static_cast<TiffFile*>(self);
    if (!file.m_firstError.isEmpty())
        return 1;
    const bool isRoutine = module && std::strcmp(module, fileName) != 0;
    file.m_firstError = file.m_hasReadPastEnd ? QCoreApplication::translate("TiffFile", "file is truncated")
                        : isRoutine ? QStringLiteral("%1: %2").arg(QLatin1String(module), QLatin1String(text))
                                    : QString::fromUtf8(text);
    return 1;
}

tmsize_t TiffFile::read(thandle_t self, void* target, tmsize_t size) {
    TiffFile& file = of(self);
    std::int64_t count = 0;
    if (file.m_source) {
        count = file.m_source->read(file.m_position, target, size);
        file.m_hasReadPastEnd = file.m_hasReadPastEnd || count < size;
    } else {
        count = std::clamp<std::int64_t>(file.m_bytes.size() - file.m_position, 0, size);
        std::copy_n(file.m_bytes.constData() + file.m_position, count, static_cast<char*>(target));
    }
    file.m_position += count;
    return tmsize_t(count);
}

tmsize_t TiffFile::write(thandle_t self, void* data, tmsize_t size) {
    TiffFile& file = of(self);
    const std::int64_t end = file.m_position + size;
    if (size < 0 || end > largestWrittenFile)
        return -1;
    if (end > file.m_bytes.size())
        file.m_bytes.resize(qsizetype(end));
    std::memcpy(file.m_bytes.data() + file.m_position, data, std::size_t(size));
    file.m_position = end;
    return size;
}

toff_t TiffFile::seek(thandle_t self, toff_t offset, int whence) {
    TiffFile& file = of(self);
    const std::int64_t base = whence == SEEK_CUR   ? file.m_position
                              : whence == SEEK_END ? std::int64_t(size(self))
                                                   : 0;
    const std::uint64_t target = std::uint64_t(base) + offset;
    if (target > std::uint64_t(INT64_MAX))
        return toff_t(-1);
    file.m_position = std::int64_t(target);
    return target;
}

toff_t TiffFile::size(thandle_t self) {
    const TiffFile& file = of(self);
    return toff_t(file.m_source ? file.m_source->size() : file.m_bytes.size());
}

} // namespace tarsel
