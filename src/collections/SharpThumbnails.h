// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/CurrentScan.h"

#include <QSet>
#include <deque>

namespace tarsel {

/// Thumbnails in full size for the rows in view of a list that is too long to hold them for all rows.
class SharpThumbnails {
public:
    /// `show` puts the picture of the row with that number in its place.
    explicit SharpThumbnails(std::function<void(int number, const Picture& picture)> show);

    /// Reads the rows that `known` of the request names, unless others are being read.
    void read(FolderScan::Request request);
    bool holds(int number) const { return m_isSharp.contains(number); }
    bool isReading() const { return m_scan.get() != nullptr; }
    void stop();
    /// The rows that are to become small again: those shown longest ago, when more than so many are sharp.
    std::vector<int> takeOldest(size_t kept);

    std::function<void()> ended; ///< all rows of a request were read

private:
    void fetch(FolderScan& scan);

    const std::function<void(int, const Picture&)> m_show;
    CurrentScan m_scan;
    qsizetype m_left = 0;
    std::deque<int> m_sharp; ///< row numbers, the oldest first
    QSet<int> m_isSharp;     ///< the same
};

} // namespace tarsel
