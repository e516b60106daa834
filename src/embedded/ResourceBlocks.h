// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <vector>

namespace tarsel {

/// Image resource blocks, as they are in the APP13 segment of a JPEG file, in a PSD file and in TIFF.
///
/// Layout of a block: "8BIM" (or the mark of another maker), number 16, name as a length byte and that many
/// bytes padded to an even total, size 32, data padded to an even size. All numbers are big-endian.
class ResourceBlocks {
public:
    static constexpr quint16 iptcNumber = 0x0404;
    static constexpr quint16 digestNumber = 0x0425; ///< MD5 of the IPTC data that the XMP packet agrees with

    ResourceBlocks() = default;
    /// Reads as far as the blocks make sense; what follows is kept as it is. A last block that
    /// is cut short has what there is of its data.
    explicit ResourceBlocks(const QByteArray& bytes);

    /// The bytes of one block without a name.
    static QByteArray block(quint16 number, const QByteArray& data);

    /// Blocks that weren't replaced keep their bytes.
    QByteArray bytes() const;

    bool contains(quint16 number) const;
    /// Data of all blocks of that number, one after the other.
    QByteArray data(quint16 number) const;
    /// Puts `data` in the place of the first block of that number, or after the last block, and drops the
    /// others of that number. Empty data remove the block.
    void replace(quint16 number, const QByteArray& data);

    int count() const { return int(m_blocks.size()); }
    /// Whether the bytes ended with a complete block.
    bool isComplete() const { return m_tail.isEmpty() && !m_cutShort; }

private:
    struct Block {
        quint16 number = 0;
        QByteArray head; ///< everything before the size
        QByteArray data;
        QByteArray raw; ///< as read; empty for a block that was made here
    };
    /// Reads the block at `position` and moves on; false when none begins there.
    bool readBlock(const QByteArray& bytes, qsizetype& position);
    qsizetype placeOf(quint16 number) const;

    std::vector<Block> m_blocks;
    QByteArray m_tail;
    bool m_cutShort = false;
};

} // namespace tarsel
