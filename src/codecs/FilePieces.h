// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureSource.h"

#include <vector>

namespace tarsel {

/// The new content of a file, in order: ranges of the old one, and new bytes. What is copied is not read
/// before it is written.
class FilePieces {
public:
    void copy(std::int64_t from, std::int64_t size); ///< a range of the old file
    void insert(const QByteArray& bytes);

    std::int64_t size() const { return m_size; }

    struct Piece {
        std::int64_t from = 0; ///< in the old file; without meaning for new bytes
        std::int64_t size = 0;
        QByteArray bytes; ///< empty for a range
    };
    const std::vector<Piece>& pieces() const { return m_pieces; }

private:
    std::vector<Piece> m_pieces;
    std::int64_t m_size = 0;
};

/// Some bytes of a file and where they stand.
struct FilePatch {
    std::int64_t at = 0;
    QByteArray bytes;
};

/// The file with these patches, which don't overlap, and `tail` after its end.
FilePieces patchedFile(std::int64_t size, std::vector<FilePatch> patches, const QByteArray& tail = {});

/// The size from which a file is added to rather than written again, where its format allows that.
constexpr std::int64_t appendedFrom = std::int64_t(32) << 20;

/// A change that only adds to a file: readers find what was added once the link is patched. Before that the
/// file reads as the old one, after it as the new one, and what is cleared belongs to neither.
struct AppendedChange {
    FilePatch tail;
    FilePatch link;
    std::vector<FilePatch> cleared; ///< zeros
};

/// The content as such a change; nothing when it isn't one, when its link isn't within one page of memory, or
/// for a small file.
std::optional<AppendedChange> appendedChange(const PictureSource& source, const FilePieces& content);

/// The bytes from which a file is made that has the size of the old one and differs from it inside a single
/// page of memory, as that one patch: the system writes a page as one, so that a kill leaves the old bytes or
/// the new ones. An empty patch when nothing differs; nothing when more does.
std::optional<FilePatch> patchOfOnePage(const PictureSource& source, const FilePieces& content);

} // namespace tarsel
