// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ScratchFolder.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace tarsel::cli {

/// File names are bytes, and not all of them are UTF-8. A word of the command line as text: each byte that
/// doesn't belong to UTF-8 becomes the lone surrogate U+DC00 + byte, and is found again by bytesOfName.
QString nameFromBytes(const QByteArray& bytes);
QByteArray bytesOfName(const QString& name);

/// A path by which a file with such a name can be opened: the path itself where it can be, else a link to the
/// file that exists for as long as this object.
class ReadableName {
public:
    explicit ReadableName(const QString& path);
    const QString& path() const { return m_path; }

private:
    std::optional<ScratchFolder> m_folder;
    QString m_path;
};

} // namespace tarsel::cli
