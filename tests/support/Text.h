// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <gtest/gtest.h>

namespace tarsel::test {

inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

inline testing::AssertionResult contains(const QString& all, const QString& part) {
    if (all.contains(part))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << part.toStdString() << " is not in: " << all.toStdString();
}
inline testing::AssertionResult contains(const QString& all, const char* part) {
    return contains(all, text(part));
}
inline testing::AssertionResult contains(const QByteArray& all, const char* part) {
    return contains(QString::fromUtf8(all), text(part));
}

} // namespace tarsel::test
