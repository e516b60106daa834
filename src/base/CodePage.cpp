// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace tarsel::codePage {

namespace {

/// Characters of the bytes 0x80 to 0x9F; the others are those of Latin-1.
constexpr char16_t upperControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char16_t characterOf(uchar byte) {
    return byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80] : byte;
}

std::optional<char> byteOf(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return char(character);
    const auto* found = std::find(std::begin(upperControls), std::end(upperControls), character);
    if (found == std::end(upperControls))
        return std::nullopt;
    return char(0x80 + (found - std::begin(upperControls)));
}

/// Length in bytes of the UTF-8 character at `at`, 1 to 4; 0 when there is none: a stray or missing
/// continuation, an overlong form, a surrogate, a value above 10FFFF.
qsizetype characterLength(const QByteArray& bytes, qsizetype at) {
    const auto lead = uchar(bytes[at]);
    if (lead < 0x80)
        return 1;
    const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + length > bytes.size())
        return 0;
    for (qsizetype i = 1; i < length; ++i) {
        if ((uchar(bytes[at + i]) & 0xC0) != 0x80)
            return 0;
    }
    const auto second = uchar(bytes[at + 1]);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second > 0x9F;
    const bool tooLarge = lead == 0xF4 && second > 0x8F;
    return overlong || surrogate || tooLarge ? 0 : length;
}

/// Whether the bytes are strict UTF-8 with at least one character of several bytes.
bool readsAsUtf8(const QByteArray& bytes) {
    bool several = false;
    for (qsizetype i = 0; i < bytes.size();) {
        const qsizetype length = characterLength(bytes, i);
        if (length == 0)
            return false;
        several = several || length > 1;
        i += length;
    }
    return several;
}

} // namespace

QByteArray encode(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) {
        const auto byte = byteOf(character.unicode());
        if (!byte)
            return text.toUtf8();
        bytes += *byte;
    }
    return readsAsUtf8(bytes) ? text.toUtf8() : bytes;
}

QString decode(const QByteArray& bytes) {
    if (readsAsUtf8(bytes)) // a mark of the byte order is a character of the text, too
        return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(bytes);
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return QChar(characterOf(uchar(byte))); });
    return text;
}

QByteArray cut(const QByteArray& bytes, qsizetype size) {
    if (bytes.size() <= size)
        return bytes;
    if (!readsAsUtf8(bytes))
        return bytes.left(size);
    while (size > 0 && (uchar(bytes[size]) & 0xC0) == 0x80)
        --size;
    return bytes.left(size);
}

} // namespace tarsel::codePage
