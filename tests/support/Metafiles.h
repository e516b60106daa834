// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <initializer_list>

namespace tarsel::test {

/// A record of a Windows metafile: the code of its function, parameters of 16 bits (the last one first).
QByteArray wmfRecord(quint16 function, std::initializer_list<int> parameters);
/// A drawing of 40 x 20 units, 96 to the inch, with a mark that says so, or without.
QByteArray wmf(const QByteArray& records, bool isPlaceable = true);
/// Fills it: a red rectangle in the left half, nothing in the right one.
QByteArray redLeftHalf();

/// A record of an enhanced metafile: the number of its kind, parameters of 32 bits.
QByteArray emfRecord(quint32 type, std::initializer_list<qint32> parameters);
/// A drawing of 40 x 20 units, 96 to the inch.
QByteArray emf(const QByteArray& records);

} // namespace tarsel::test
