// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/clsFileEXIF.h"

namespace tarsel {

bool clsFileEXIF::OpenForRead(const QString& path) {
    m_fileName = path;
    return m_file.OpenForRead(path);
}

bool clsFileEXIF::OpenForWrite(const QString& path) {
    m_fileName = path;
    return m_file.OpenForWrite(path);
}

void clsFileEXIF::ReadEXIF(QString& name, QString& value) {
    if (!IsOpen())
        return;
    const QStringList fields = m_file.readFields(2);
    name = fields[0];
    value = fields[1];
}

void clsFileEXIF::WriteEXIF(const QString& name, const QString& value) {
    if (IsOpen())
        m_file.writeFields({name, value});
}

} // namespace tarsel
