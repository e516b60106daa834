// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

class IimData;

/// IPTC data in a .ffo file. It has the form of an .exv file, which other programs read too: a start mark,
/// APP13 segments as in a JPEG file, which together hold an image resource block with the data, and the end
/// mark.
void writeIptcSideFile(const QString& path, const IimData& data);

/// Also a bare image resource block, and bare data. Error 53 for a missing file, 0x8000FFFF for another form
/// and for one that is damaged or cut short.
IimData readIptcSideFile(const QString& path);

} // namespace tarsel
