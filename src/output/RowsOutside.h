// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "output/BatchRun.h"

#include <QHash>
#include <QString>

namespace tarsel {

/// The files of the rows that a slice leaves to other runs. They are found out as far as names don't depend
/// on what the pictures hold: no source is read. Slices that heed them end in the files of one run, in
/// whatever order they come.
class RowsOutside {
public:
    RowsOutside(const ListView& pages, const settings::BatchSave& settings, const BatchRun& run);

    /// False when files of rows outside have names that only their pictures tell. A file that is there may be
    /// one of them.
    bool areKnown() const { return m_areKnown; }
    /// The last row outside whose file is that one; 0 when there is none.
    int rowOf(const QString& target) const;

private:
    bool m_areKnown = true;
    QHash<QString, int> m_rows; ///< by the file that they make
};

} // namespace tarsel
