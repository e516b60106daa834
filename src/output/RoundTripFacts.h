// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/RoundTrip.h"

#include <QStringList>

namespace tarsel {

/// "12 KB", ties to even: below 512 bytes it is "0 KB".
QString sizeInKilobytes(qint64 bytes);

/// What the user should know of the file that a round trip made, a line each: its size, also beside that of
/// the original file (0 for none), how close its picture is to that of the source, and how long it took.
QStringList roundTripFacts(const RoundTripResult& result, const RoundTripSource& source,
                           qint64 originalBytes);

} // namespace tarsel
