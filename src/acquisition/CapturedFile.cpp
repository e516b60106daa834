// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"

#include "base/FileNames.h"
#include "base/RandomNumbers.h"
#include "base/SafeFileWriter.h"

#include <array>
#include <charconv>

namespace tarsel {

namespace {

QString shortestText(float number) {
    std::array<char, 64> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

} // namespace

float drawCaptureNumber() {
    constexpr float numbers = 9999;
    return float(service<RandomNumbers>().randomNumber()) * numbers;
}

QString capturedFile(const QString& folder, const QString& prefix, float number) {
    const QString start = folder.trimmed().endsWith(u'/') ? folder : folder + u'/';
    return start + prefix + shortestText(number) + QStringLiteral(".tif");
}

QString writeCapturedFile(const QString& folder, const QString& prefix, float number, const QByteArray& bytes,
                          const std::function<void(const QString&)>& beforeEach) {
    for (;; ++number) {
        QString path = capturedFile(folder, prefix, number);
        if (isNameTaken(path)) // else the picture would be written to see it refused
            continue;
        if (beforeEach)
            beforeEach(path);
        if (writeNewFileSafely(path, bytes))
            return path;
    }
}

} // namespace tarsel
