// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QByteArray>
#include <vector>

namespace tarsel {

/// A picture in the screen's colours at any size. It keeps reductions of the picture, each half as large as
/// the one before, so that another size costs little however large the picture is.
class Reductions {
public:
    Reductions() = default;
    /// `screen` is the largest size that is asked for often.
    Reductions(Picture full, QByteArray iccProfile, Size screen);

    Picture resized(Size target) const;
    /// Every pixel. The first call converts the colours.
    const Picture& full() const;

private:
    const Picture* smallestFor(Size target) const; ///< null when only the full picture is large enough

    Picture m_full;
    QByteArray m_iccProfile;
    mutable Picture m_converted;    ///< m_full in the screen's colours; null before it is asked for
    std::vector<Picture> m_reduced; ///< in the screen's colours, the largest first
};

} // namespace tarsel
