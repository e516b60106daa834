// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tarsel::cli {

/// File names are bytes, and not all of them are UTF-8. A word of the command line as text: each byte that
/// doesn't belong to UTF-8 becomes the lone surrogate U+DC00 + byte, and is found again by bytesOfName.
QString nameFromBytes(const QByteArray& bytes);
QByteArray bytesOfName(const QString& name);

/// Where the last byte that isn't UTF-8 is in a name; -1 when all are.
qsizetype lastRawByte(const QString& name);

/// Whether Qt can open or make a file of this name.
bool isUtf8Name(const QString& name);

/// The name with `mark` and two hexadecimal digits for each byte that isn't UTF-8.
QString writtenOut(const QString& name, QLatin1String mark);

} // namespace tarsel::cli
