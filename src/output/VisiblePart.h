// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/PreviewPicture.h"
#include "collections/ReducedStart.h"
#include "output/RoundTrip.h"

#include <QRect>
#include <optional>

namespace tarsel {

/// What a pane shows of the picture.
struct VisibleArea {
    bool isFitted = true; ///< the complete picture, scaled to the pane
    Size pane{};          ///< device pixels
    QRect pixels;         ///< of the picture, when it isn't scaled

    bool operator==(const VisibleArea&) const = default;
};

/// Answers for the part of a large picture that is seen, long before the complete one is through. Scaled
/// pictures go through the encoder at the size of the pane, others in the area on show, to full blocks of
/// JPEG files, with gray around it. It belongs to one thread.
class VisiblePart {
public:
    /// Nothing for a picture that is as quickly done in full, and for a format that isn't read.
    std::optional<PreviewPicture> roundTrip(const RoundTripSource& source, const RoundTripSettings& settings,
                                            const VisibleArea& visible);

private:
    std::optional<PreviewPicture> fitted(const RoundTripSource& source, const RoundTripSettings& settings,
                                         Size pane);
    std::optional<PreviewPicture> cut(const RoundTripSource& source, const RoundTripSettings& settings,
                                      const QRect& pixels);

    ReducedStart m_reduced;
};

/// The area that takes the place of the visible one: its edges are multiples of 16, or those of the picture.
QRect blocksAround(const QRect& pixels, const QRect& picture);

/// A gray picture of that size with the pixels of `part` at that place.
Picture aroundPart(Size size, const Picture& part, QPoint place);

} // namespace tarsel
