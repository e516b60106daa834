// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/CodecChecks.h"
#include "codecs/PictureSource.h"

#include <QByteArray>
#include <optional>
#include <tiffio.h>

namespace tarsel {

/// A TIFF file as libtiff sees it: a source for reading, bytes in memory for writing. Warnings are silent,
/// errors are kept.
class TiffFile {
public:
    /// For reading. Error 0x8000FFFF when it is not a TIFF file.
    TiffFile(PictureSource source, const FileUnderTest& file);
    /// For writing, in one of the two byte orders.
    explicit TiffFile(bool bigEndian);
    ~TiffFile();
    TiffFile(const TiffFile&) = delete;
    TiffFile& operator=(const TiffFile&) = delete;

    TIFF* handle() const { return m_tiff; }
    operator TIFF*() const { return m_tiff; }

    bool hasErrors() const { return !m_firstError.isEmpty(); }
    QString firstError() const { return m_firstError; }

    /// Closes a written file and returns its bytes.
    QByteArray finish();

    /// The value of a field, by its default where the file has none.
    template <class Number>
    Number field(std::uint32_t tag) const {
        Number value = {};
        TIFFGetFieldDefaulted(m_tiff, tag, &value);
        return value;
    }

private:
    void open(const char* mode);

    static int onError(TIFF*, void* self, const char* module, const char* format, va_list arguments);
    static int onWarning(TIFF*, void*, const char*, const char*, va_list) { return 1; }
    static tmsize_t read(thandle_t self, void* target, tmsize_t size);
    static tmsize_t write(thandle_t self, void* data, tmsize_t size);
    static toff_t seek(thandle_t self, toff_t offset, int whence);
    static toff_t size(thandle_t self);

    std::optional<PictureSource> m_source; ///< of a file that is read
    QByteArray m_bytes;                    ///< of a file that is written
    std::int64_t m_position = 0;
    bool m_hasReadPastEnd = false;
    QString m_firstError;
    TIFF* m_tiff = nullptr;
};

} // namespace tarsel
