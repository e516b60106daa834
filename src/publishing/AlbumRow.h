// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QString>
#include <optional>
#include <utility>
#include <vector>

namespace tarsel {

/// What the pages say of a row.
struct AlbumRow {
    QString name;
    QString source;      ///< path
    QString description; ///< of the basket
    QString caption;     ///< from the source: that of IPTC, else the description of EXIF
    QString thumbnail;   ///< its file name; empty for a row without a picture
    QSize size{0, 0};    ///< of the picture after the tasks; of the row before where this one has none
    std::optional<QString> first, previous, next, last; ///< names of the rows that its links lead to
    std::vector<std::pair<QString, QString>> metadata;  ///< lines and their values

    /// What is said of the picture; empty when nothing is.
    QString words() const {
        const QString own = description.trimmed();
        return own.isEmpty() ? caption : own;
    }
};

} // namespace tarsel
