// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clsFile.h"

#include <QString>

namespace tarsel {

/// A .xiff file: one line for each EXIF attribute, its raw name and its value as two quoted fields, in the
/// code page, lines ended by CR LF. A quote inside a value has no escape and ends the field on reading.
class clsFileEXIF {
public:
    /// The name is kept also when opening fails; the result is false then, and reading returns nothing.
    bool OpenForRead(const QString& path);
    bool OpenForWrite(const QString& path);
    bool IsOpen() const { return m_file.isOpen(); }
    const std::optional<TrappedError>& openError() const { return m_file.openError(); }
    const QString& FileName() const { return m_fileName; }
    bool fEof() const { return m_file.fEof(); }

    QString readLine() { return m_file.readLine(); } ///< one raw line; "" when not open
    /// Reads one record; leaves both as they are when not open. Error 62 when the file ends within it.
    void ReadEXIF(QString& name, QString& value);
    void WriteEXIF(const QString& name, const QString& value);
    void writeline(const QString& text) { m_file.writeline(text); }
    void closefile() { m_file.closefile(); }

private:
    clsFile m_file;
    QString m_fileName;
};

} // namespace tarsel
