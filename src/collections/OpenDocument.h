// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureFile.h"

#include <QString>
#include <optional>

namespace tarsel {

class ImageBox;

/// A document whose pages are taken one after the other: its file is opened once for all of them.
class OpenDocument {
public:
    /// A file that can't be read has no page that can be loaded.
    explicit OpenDocument(const QString& path);

    /// Loads a page, from 1, and its metadata into the box; false, with an empty box, when it can't be read.
    bool loadPage(ImageBox& box, int page) const;

private:
    std::optional<PictureFile> m_file;
};

} // namespace tarsel
