// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tarsel {

class ImageBox;

/// A document whose pages are taken one after the other: its file is opened and read once for all of them.
class OpenDocument {
public:
    /// A file that can't be read has no page that can be loaded.
    explicit OpenDocument(const QString& path);

    /// Loads a page, from 1, and its metadata into the box; false, with an empty box, when it can't be read.
    bool loadPage(ImageBox& box, int page) const;

private:
    QString m_path;
    QByteArray m_bytes;
};

} // namespace tarsel
