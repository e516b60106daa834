// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"

namespace tarsel::test {

inline ImageBox boxWith(const Picture& picture) {
    ImageBox box;
    box.setPictureHandle(picture);
    return box;
}

/// The picture in a file.
inline ImageBox loaded(const QString& path) {
    ImageBox box;
    box.LoadFromFile(path);
    return box;
}

} // namespace tarsel::test
