// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/NamePlan.h"

#include <QCoreApplication>
#include <QStringList>

namespace tarsel {

/// What the planned names of a batch do to the files that exist, in sentences.
class NameSummary {
    Q_DECLARE_TR_FUNCTIONS(NameSummary)
public:
    explicit NameSummary(bool overwrite = true) : m_overwrite(overwrite) {}

    void add(const PlannedName& planned);
    /// "12 names, no clashes", or what happens, the worst first.
    QStringList sentences() const;

private:
    QStringList consequences() const;

    bool m_overwrite;
    int m_names = 0;
    int m_originals = 0; ///< names of source files
    int m_existing = 0;  ///< names of other files
    int m_doubles = 0;   ///< names that an earlier row has
    int m_unknown = 0;
    int m_invalid = 0;
};

} // namespace tarsel
