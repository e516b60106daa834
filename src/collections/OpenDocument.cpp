// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/OpenDocument.h"

#include "base/IgnoringErrors.h"
#include "imaging/ImageBox.h"

namespace tarsel {

OpenDocument::OpenDocument(const QString& path) {
    ignoringErrors([&] { m_file.emplace(path); });
}

bool OpenDocument::loadPage(ImageBox& box, int page) const {
    box.Clear();
    return m_file && ignoringErrors([&] { box.LoadPage(*m_file, page); });
}

} // namespace tarsel
