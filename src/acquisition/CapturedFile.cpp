// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"

#include "base/SafeFileWriter.h"

#include <QFileInfo>
#include <array>
#include <charconv>

namespace tarsel {

namespace {

bool isTaken(const QString& path) {
    const QFileInfo file(path);
    return file.exists() || file.isSymLink(); // a dangling link leads to a file elsewhere
}

QString shortestText(float number) {
    std::array<char, 64> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

float numberOf(double drawn) {
    constexpr float numbers = 9999;
    return float(drawn) * numbers;
}

QString pathOf(const QString& folder, const QString& prefix, float number) {
    const QString start = folder.trimmed().endsWith(u'/') ? folder : folder + u'/';
    return start + prefix + shortestText(number) + QStringLiteral(".tif");
}

} // namespace

QString capturedFile(const QString& folder, const QString& prefix, double drawn) {
    return pathOf(folder, prefix, numberOf(drawn));
}

/// The look before spares the bytes of a name that is taken; the writer looks again as it takes the name.
QString saveCapturedFile(const QString& folder, const QString& prefix, double drawn,
                         const QByteArray& bytes) {
    for (float number = numberOf(drawn);; ++number) {
        QString path = pathOf(folder, prefix, number);
        if (!isTaken(path) && writeNewFileSafely(path, bytes))
            return path;
    }
}

} // namespace tarsel
