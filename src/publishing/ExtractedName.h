// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

namespace tarsel {

/// Names for the files of pictures that are taken out of a joined file, whose names may be anything: each is
/// new, can't leave its folder, is not hidden and ends in ".jpg".
class ExtractedNames {
public:
    QString next(const QString& name);

private:
    QHash<QString, int> m_counts; ///< of each name, in lower case, for file systems that ignore the case
};

} // namespace tarsel
