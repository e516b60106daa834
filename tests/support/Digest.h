// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <string>

namespace tarsel::test {

/// Pins a table that is longer than is worth repeating in a test. When it changes on purpose, take the new
/// digest from the message of the failure.
inline std::string digestOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().left(16).toStdString();
}

} // namespace tarsel::test
