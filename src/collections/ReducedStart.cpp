// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/ReducedStart.h"

#include "base/Stop.h"
#include "imaging/PicturePlacement.h"
#include "imaging/Reductions.h"

namespace tarsel {

const Picture& ReducedStart::of(const Picture& start, Size view) {
    const bool isSame = !m_start.isNull() && m_start.view().data == start.view().data && m_view == view;
    if (isSame)
        return m_reduced;
    *this = {};
    const StopScope unstopped({}); // or options that change quickly would begin it again and again
    const Size size{start.width(), start.height()};
    m_reduced = Reductions(start, {}, view).resized(stretchedSize(size, view.width, view.height));
    m_start = start;
    m_view = view;
    return m_reduced;
}

} // namespace tarsel
