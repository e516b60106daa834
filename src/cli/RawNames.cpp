// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RawNames.h"

#include <QStringDecoder>
#include <algorithm>

namespace tarsel::cli {

namespace {

constexpr char16_t lowestRawByte = 0xDC80;
constexpr char16_t highestRawByte = 0xDCFF;

bool isRawByte(const QString& text, qsizetype at) {
    const char16_t unit = text[at].unicode();
    return unit >= lowestRawByte && unit <= highestRawByte && (at == 0 || !text[at - 1].isHighSurrogate());
}

bool isUtf8(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder.decode(bytes);
    return !decoder.hasError() && !decoded.isNull();
}

/// Length of the UTF-8 sequence that starts there; 0 when none does.
qsizetype sequenceAt(const QByteArray& bytes, qsizetype at) {
    constexpr qsizetype longest = 4;
    for (qsizetype size = 1; size <= std::min(longest, bytes.size() - at); ++size)
        if (isUtf8(bytes.mid(at, size)))
            return size;
    return 0;
}

} // namespace

QString nameFromBytes(const QByteArray& bytes) {
    if (isUtf8(bytes))
        return QString::fromUtf8(bytes);
    QString name;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype size = sequenceAt(bytes, at);
        if (size == 0)
            name += QChar(char16_t(0xDC00 + quint8(bytes[at])));
        else
            name += QString::fromUtf8(bytes.mid(at, size));
        at += std::max<qsizetype>(size, 1);
    }
    return name;
}

QByteArray bytesOfName(const QString& name) {
    QByteArray bytes;
    qsizetype start = 0;
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (!isRawByte(name, at))
            continue;
        bytes += name.mid(start, at - start).toUtf8() + char(name[at].unicode() & 0xFF);
        start = at + 1;
    }
    return bytes + name.mid(start).toUtf8();
}

qsizetype lastRawByte(const QString& name) {
    qsizetype at = name.size() - 1;
    while (at >= 0 && !isRawByte(name, at))
        --at;
    return at;
}

bool isUtf8Name(const QString& name) {
    return lastRawByte(name) < 0;
}

QString writtenOut(const QString& name, QLatin1String mark) {
    QString text;
    for (qsizetype at = 0; at < name.size(); ++at)
        if (isRawByte(name, at))
            text += mark + QString::number(name[at].unicode() & 0xFF, 16);
        else
            text += name[at];
    return text;
}

} // namespace tarsel::cli
