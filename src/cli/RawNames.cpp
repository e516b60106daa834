// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RawNames.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>
#include <unistd.h>

namespace tarsel::cli {

namespace {

constexpr char16_t firstRawByte = 0xDC80;
constexpr char16_t lastRawByte = 0xDCFF;

bool isRawByte(const QString& text, qsizetype at) {
    const char16_t unit = text[at].unicode();
    return unit >= firstRawByte && unit <= lastRawByte && (at == 0 || !text[at - 1].isHighSurrogate());
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

ReadableName::ReadableName(const QString& path) : m_path(path) {
    const QByteArray bytes = bytesOfName(path);
    if (isUtf8(bytes))
        return;
    m_folder.emplace();
    // Some formats are recognised by their extension.
    const QString link = m_folder->path() + QStringLiteral("/picture.") + QFileInfo(path).suffix();
    if (::symlink(bytes.constData(), QFile::encodeName(link).constData()) == 0)
        m_path = link;
}

} // namespace tarsel::cli
