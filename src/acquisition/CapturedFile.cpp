// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"

#include "base/RandomNumbers.h"
#include "base/Service.h"

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

} // namespace

QString newCapturedFile(const QString& folder, const QString& prefix) {
    constexpr float numbers = 9999;
    const QString start = folder.trimmed().endsWith(u'/') ? folder : folder + u'/';
    for (;;) {
        const float number = float(service<RandomNumbers>().randomNumber()) * numbers;
        QString path = start + prefix + shortestText(number) + QStringLiteral(".tif");
        if (!isTaken(path))
            return path;
    }
}

} // namespace tarsel
