// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/ByteReader.h"

#include <QByteArray>
#include <QPainterPath>
#include <QPointF>
#include <algorithm>

namespace tarsel::decoder {

/// The parameters of one record. What is not inside it reads as 0 and empty.
class MetafileRecord {
public:
    explicit MetafileRecord(std::span<const std::byte> bytes) : m_reader(bytes, ByteOrder::Little) {}

    std::int64_t size() const { return m_reader.size(); }
    int int16At(std::int64_t at) const { return std::int16_t(m_reader.word(at).value_or(0)); }
    unsigned wordAt(std::int64_t at) const { return m_reader.word(at).value_or(0); }
    int int32At(std::int64_t at) const { return std::int32_t(m_reader.dword(at).value_or(0)); }
    std::uint32_t dwordAt(std::int64_t at) const { return m_reader.dword(at).value_or(0); }
    float floatAt(std::int64_t at) const { return std::bit_cast<float>(dwordAt(at)); }
    int byteAt(std::int64_t at) const { return m_reader.byte(at).value_or(0); }

    /// As much of the bytes as there is.
    QByteArray bytesAt(std::int64_t at, std::int64_t count) const {
        const auto room = std::clamp<std::int64_t>(size() - at, 0, std::max<std::int64_t>(count, 0));
        const auto part = m_reader.slice(at, room);
        return part ? QByteArray(reinterpret_cast<const char*>(part->data()), qsizetype(room)) : QByteArray();
    }

    /// Two numbers each of 16 bits, or of 32.
    QPointF pointAt(std::int64_t at, bool isShort) const {
        return isShort ? QPointF(int16At(at), int16At(at + 2)) : QPointF(int32At(at), int32At(at + 4));
    }
    /// At most `count`, as many as there is room for.
    std::vector<QPointF> pointsAt(std::int64_t at, std::uint32_t count, bool isShort) const {
        const std::int64_t each = isShort ? 4 : 8;
        const auto room = std::max<std::int64_t>(size() - at, 0) / each;
        std::vector<QPointF> points(std::size_t(std::min<std::int64_t>(count, room)));
        for (std::size_t i = 0; i < points.size(); ++i)
            points[i] = pointAt(at + std::int64_t(i) * each, isShort);
        return points;
    }

private:
    ByteReader m_reader;
};

inline QPainterPath linesThrough(std::span<const QPointF> points, bool isClosed) {
    QPainterPath path;
    if (points.empty())
        return path;
    path.moveTo(points.front());
    for (const QPointF& point : points.subspan(1))
        path.lineTo(point);
    if (isClosed)
        path.closeSubpath();
    return path;
}

} // namespace tarsel::decoder
