// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/Reductions.h"

#include "base/Stop.h"
#include "imaging/DisplayColors.h"
#include "imaging/PictureParts.h"

#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

constexpr int smallestReduction = 300; ///< below that, any size costs next to nothing

Picture resizedUnlessStopped(const Picture& picture, Size size) {
    Picture target = resizedTo(picture, size);
    raiseIfStopped();
    return target;
}

bool covers(const Picture& picture, Size size) {
    return picture.width() >= size.width && picture.height() >= size.height;
}

} // namespace

Reductions::Reductions(Picture full, QByteArray iccProfile, Size screen) :
    m_full(std::move(full)), m_iccProfile(std::move(iccProfile)) {
    const Size largest = fitInside({m_full.width(), m_full.height()}, screen);
    m_reduced.push_back(inDisplayColors(resizedUnlessStopped(m_full, largest), m_iccProfile));
    while (std::max(m_reduced.back().width(), m_reduced.back().height()) > 2 * smallestReduction) {
        const Picture& last = m_reduced.back();
        m_reduced.push_back(resizedUnlessStopped(last, {(last.width() + 1) / 2, (last.height() + 1) / 2}));
    }
}

const Picture* Reductions::smallestFor(Size target) const {
    const auto found = std::ranges::find_if(m_reduced.rbegin(), m_reduced.rend(),
                                            [&](const Picture& each) { return covers(each, target); });
    return found == m_reduced.rend() ? nullptr : &*found;
}

Picture Reductions::resized(Size target) const {
    if (const Picture* reduced = smallestFor(target))
        return resizedUnlessStopped(*reduced, target);
    if (covers(m_full, target))
        return inDisplayColors(resizedUnlessStopped(m_full, target), m_iccProfile);
    return resizedUnlessStopped(full(), target); // enlarged
}

const Picture& Reductions::full() const {
    if (m_converted.isNull())
        m_converted = inDisplayColors(m_full, m_iccProfile);
    return m_converted;
}

} // namespace tarsel
