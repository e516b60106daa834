// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/FilePieces.h"

#include <algorithm>

namespace tarsel {

namespace {

constexpr std::int64_t pageSize = 4096; // the smallest of any system

/// The part of `bytes` that differs from those at `at` of the source.
FilePatch difference(const PictureSource& source, std::int64_t at, const QByteArray& bytes) {
    const QByteArray old = source.bytes(at, bytes.size());
    const auto [first, oldFirst] = std::ranges::mismatch(bytes, old);
    if (first == bytes.end())
        return {};
    if (old.size() != bytes.size())
        return {at, bytes};
    qsizetype end = bytes.size();
    while (bytes[end - 1] == old[end - 1])
        --end;
    const qsizetype start = first - bytes.begin();
    return {at + start, bytes.mid(start, end - start)};
}

bool isWithinPage(const FilePatch& patch) {
    return patch.at / pageSize == (patch.at + patch.bytes.size() - 1) / pageSize;
}

} // namespace

void FilePieces::copy(std::int64_t from, std::int64_t size) {
    if (size <= 0)
        return;
    m_size += size;
    if (!m_pieces.empty() && m_pieces.back().bytes.isEmpty() &&
        m_pieces.back().from + m_pieces.back().size == from)
        m_pieces.back().size += size;
    else
        m_pieces.push_back({from, size, {}});
}

void FilePieces::insert(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return;
    m_size += bytes.size();
    m_pieces.push_back({0, bytes.size(), bytes});
}

FilePieces patchedFile(std::int64_t size, std::vector<FilePatch> patches, const QByteArray& tail) {
    std::ranges::sort(patches, {}, &FilePatch::at);
    FilePieces content;
    std::int64_t at = 0;
    for (const FilePatch& patch : patches) {
        content.copy(at, patch.at - at);
        content.insert(patch.bytes);
        at = patch.at + patch.bytes.size();
    }
    content.copy(at, size - at);
    content.insert(tail);
    return content;
}

std::optional<AppendedChange> appendedChange(const PictureSource& source, const FilePieces& content) {
    if (source.size() < appendedFrom)
        return std::nullopt;
    AppendedChange change;
    std::int64_t at = 0;
    for (const FilePieces::Piece& piece : content.pieces()) {
        const FilePatch patch{at, piece.bytes};
        at += piece.size;
        if (piece.bytes.isEmpty() ? piece.from != patch.at : patch.at < source.size() && at > source.size())
            return std::nullopt;
        if (piece.bytes.isEmpty())
            continue;
        if (patch.at >= source.size())
            change.tail = patch;
        else if (std::ranges::all_of(patch.bytes, [](char byte) { return byte == 0; }))
            change.cleared.push_back(patch);
        else if (change.link.bytes.isEmpty() && isWithinPage(patch))
            change.link = patch;
        else
            return std::nullopt;
    }
    const bool isComplete = !change.tail.bytes.isEmpty() && !change.link.bytes.isEmpty();
    return isComplete ? std::optional(change) : std::nullopt;
}

std::optional<FilePatch> patchOfOnePage(const PictureSource& source, const FilePieces& content) {
    if (content.size() != source.size())
        return std::nullopt;
    FilePatch all;
    std::int64_t at = 0;
    for (const FilePieces::Piece& piece : content.pieces()) {
        if (piece.bytes.isEmpty() && piece.from != at)
            return std::nullopt;
        FilePatch patch = piece.bytes.isEmpty() ? FilePatch() : difference(source, at, piece.bytes);
        at += piece.size;
        if (patch.bytes.isEmpty())
            continue;
        if (all.bytes.isEmpty())
            all = std::move(patch);
        else
            all.bytes +=
                source.bytes(all.at + all.bytes.size(), patch.at - all.at - all.bytes.size()) + patch.bytes;
        if (!isWithinPage(all))
            return std::nullopt;
    }
    return all;
}

} // namespace tarsel
