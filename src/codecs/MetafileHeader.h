// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace tarsel {

/// Where the drawing of a Windows metafile (WMF) or an enhanced one (EMF) is, and its size.
struct MetafileHeader {
    bool isEnhanced = false;
    /// Edges of the drawing: units of the recording device (EMF), logical units (WMF).
    double left = 0, top = 0, right = 0, bottom = 0;
    /// At 96 dots per inch.
    double width = 0, height = 0;
    std::int64_t records = 0; ///< offset of the first one
};

/// Nothing for other bytes, and for a drawing without a size. `file` may be its start only.
std::optional<MetafileHeader> readMetafileHeader(std::span<const std::uint8_t> file);

} // namespace tarsel
