// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

namespace tarsel {

/// The picture from which previews start, in the size that it has on the screen. One preview follows the
/// other with the same picture, which is reduced for the first one only.
class ReducedStart {
public:
    const Picture& of(const Picture& start, Size view);

private:
    Picture m_start; ///< held, so that no other picture gets its place in memory
    Size m_view;
    Picture m_reduced;
};

} // namespace tarsel
