// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/NameSummary.h"

namespace tarsel {

void NameSummary::add(const PlannedName& planned) {
    ++m_names;
    switch (planned.clash) {
    case NameClash::OwnSource:
    case NameClash::OtherSource:
        ++m_originals;
        break;
    case NameClash::Exists:
        ++m_existing;
        break;
    case NameClash::SameAsRow:
        ++m_doubles;
        break;
    case NameClash::NotKnown:
        ++m_unknown;
        break;
    case NameClash::Invalid:
        ++m_invalid;
        break;
    default:
        break;
    }
}

QStringList NameSummary::sentences() const {
    const QStringList found = consequences();
    if (found.isEmpty())
        return {m_names == 1 ? tr("1 name, no clashes") : tr("%n names, no clashes", nullptr, m_names)};
    return QStringList{m_names == 1 ? tr("1 name") : tr("%n names", nullptr, m_names)} + found;
}

QStringList NameSummary::consequences() const {
    QStringList found;
    const auto say = [&](int count, const QString& one, const QString& many) {
        if (count > 0)
            found << (count == 1 ? one : many);
    };
    say(m_invalid, tr("1 name is not possible: the run would end there"),
        tr("%n names are not possible: the run would end at the first", nullptr, m_invalid));
    if (m_overwrite) {
        say(m_originals, tr("1 original will be overwritten"),
            tr("%n originals will be overwritten", nullptr, m_originals));
        say(m_existing, tr("1 existing file will be replaced"),
            tr("%n existing files will be replaced", nullptr, m_existing));
        say(m_doubles, tr("1 row will replace the file of an earlier row"),
            tr("%n rows will replace the file of an earlier row", nullptr, m_doubles));
    } else {
        const int existing = m_originals + m_existing;
        say(existing, tr("1 row will be skipped, because its file exists"),
            tr("%n rows will be skipped, because their files exist", nullptr, existing));
        say(m_doubles, tr("1 row will be skipped, because an earlier row has its name"),
            tr("%n rows will be skipped, because an earlier row has their name", nullptr, m_doubles));
    }
    say(m_unknown, tr("1 name is not known before the run"),
        tr("%n names are not known before the run", nullptr, m_unknown));
    return found;
}

} // namespace tarsel
