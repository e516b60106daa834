// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QByteArray>

namespace tarsel {

/// The record as the bytes of its file: the fields of the table one after the other, little-endian, without
/// padding, without signature or length. Texts are in the code page. Error 6 for a text of more than 65,535
/// bytes.
QByteArray recordImage(const ConfigRecordData& record);

/// The record from the bytes of a file. An incomplete field and all that follow come back as zero or
/// empty; bytes after the last field are ignored. Any bytes are a record: a foreign file can't be recognised.
ConfigRecordData recordFromImage(const QByteArray& bytes);

/// True when the bytes reach to the end of the last field.
bool isWholeRecord(const QByteArray& bytes);

/// Bytes of a text of type F.
constexpr int fixedTextSize = 256;

} // namespace tarsel
