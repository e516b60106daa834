// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ResourceBlocks.h"

#include "bytes/ByteReader.h"

#include <algorithm>
#include <array>

namespace tarsel {

namespace {

constexpr qsizetype markSize = 4;
constexpr qsizetype namePosition = 6;
constexpr std::array<const char*, 5> marks{"8BIM", "MeSa", "PHUT", "AgHg", "DCSR"};

bool startsWithMark(QByteArrayView bytes) {
    return std::ranges::any_of(marks, [&](const char* mark) { return bytes.startsWith(mark); });
}

qsizetype even(qsizetype size) {
    return size + size % 2;
}

QByteArray headOf(quint16 number) {
    const QByteArray noName(2, '\0');
    return QByteArray(marks[0], markSize) + numberBytes<QByteArray>(number, ByteOrder::Big) + noName;
}

QByteArray blockBytes(const QByteArray& head, const QByteArray& data) {
    return head + numberBytes<QByteArray>(quint32(data.size()), ByteOrder::Big) + data +
           QByteArray(data.size() % 2, '\0');
}

} // namespace

ResourceBlocks::ResourceBlocks(const QByteArray& bytes) {
    qsizetype position = 0;
    while (position < bytes.size() && readBlock(bytes, position)) {
    }
    m_tail = bytes.mid(position);
}

bool ResourceBlocks::readBlock(const QByteArray& bytes, qsizetype& position) {
    const QByteArrayView rest = QByteArrayView(bytes).sliced(position);
    const ByteReader reader(rest, ByteOrder::Big);
    const auto number = reader.word(markSize);
    const auto nameSize = reader.byte(namePosition);
    if (!startsWithMark(rest) || !number || !nameSize)
        return false;
    const qsizetype headSize = namePosition + even(1 + *nameSize);
    const qsizetype dataPosition = headSize + qsizetype(sizeof(quint32));
    const auto declared = reader.dword(headSize);
    if (!declared)
        return false;
    const qsizetype available = rest.size() - dataPosition;
    const qsizetype size = std::min<qint64>(*declared, available);
    const qsizetype fullSize = std::min(dataPosition + even(size), rest.size());
    m_cutShort = *declared > available;
    m_blocks.push_back({*number, rest.first(headSize).toByteArray(),
                        rest.sliced(dataPosition, size).toByteArray(), rest.first(fullSize).toByteArray()});
    position += fullSize;
    return true;
}

QByteArray ResourceBlocks::block(quint16 number, const QByteArray& data) {
    return blockBytes(headOf(number), data);
}

QByteArray ResourceBlocks::bytes() const {
    QByteArray bytes;
    for (const Block& block : m_blocks) {
        // What was the last block may have come without the byte that fills it up.
        if (bytes.size() % 2)
            bytes.append('\0');
        bytes += block.raw.isEmpty() ? blockBytes(block.head, block.data) : block.raw;
    }
    return bytes + m_tail;
}

bool ResourceBlocks::contains(quint16 number) const {
    return std::ranges::find(m_blocks, number, &Block::number) != m_blocks.end();
}

QByteArray ResourceBlocks::data(quint16 number) const {
    QByteArray data;
    for (const Block& block : m_blocks)
        if (block.number == number)
            data += block.data;
    return data;
}

/// A block that declares more than there is would take what follows it as its data: nothing is put after it.
qsizetype ResourceBlocks::placeOf(quint16 number) const {
    const auto first = std::ranges::find(m_blocks, number, &Block::number);
    const qsizetype end = qsizetype(m_blocks.size()) - (m_cutShort ? 1 : 0);
    return std::min<qsizetype>(first - m_blocks.begin(), end);
}

void ResourceBlocks::replace(quint16 number, const QByteArray& data) {
    const auto first = std::ranges::find(m_blocks, number, &Block::number);
    const Block made{number, first == m_blocks.end() ? headOf(number) : first->head, data, {}};
    const qsizetype place = placeOf(number);
    if (m_cutShort && m_blocks.back().number == number)
        m_cutShort = false;
    std::erase_if(m_blocks, [&](const Block& block) { return block.number == number; });
    if (!data.isEmpty())
        m_blocks.insert(m_blocks.begin() + place, made);
}

} // namespace tarsel
