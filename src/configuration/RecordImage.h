// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QByteArray>

namespace tarsel {

/// The record as the bytes of its file: the fields of the table one after the other, little-endian, without
/// padding, without signature or length. Texts are in the code page. Error 6 for a text of more than 65,535
/// bytes.
QByteArray recordImage(const ConfigRecordData& record);

/// The record from the bytes of a file. A field that isn't whole, and all behind it, comes back as zero or
/// empty; bytes behind the last field are ignored. Any bytes are a record: nothing tells a foreign file.
ConfigRecordData recordFromImage(const QByteArray& bytes);

/// Bytes of a text of type F.
constexpr int fixedTextSize = 256;

} // namespace tarsel
