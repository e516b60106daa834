// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/OpenDocument.h"

#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"
#include "codecs/Codec.h"
#include "imaging/ImageBox.h"

#include <utility>

namespace tarsel {

OpenDocument::OpenDocument(const QString& path) : m_path(path) {
    ignoringErrors([&] { m_bytes = readWholeFile(path); });
}

bool OpenDocument::loadPage(ImageBox& box, int page) const {
    box.Clear();
    return ignoringErrors([&] {
        DecodedPicture decoded = decodeByContent(m_bytes, m_path, page);
        box.setPictureHandle(decoded.picture);
        box.metadata() = MetadataStore(std::move(decoded.metadata));
    });
}

} // namespace tarsel
