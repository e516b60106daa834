// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/NameSummary.h"

#include "base/Translation.h"

namespace tarsel {

namespace {

QString counted(const char* one, const char* many, int count) {
    return countedText("NameSummary", one, many, count);
}

} // namespace

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
        return {counted("1 name, no clashes", QT_TRANSLATE_N_NOOP("NameSummary", "%n names, no clashes"),
                        m_names)};
    return QStringList{counted("1 name", QT_TRANSLATE_N_NOOP("NameSummary", "%n names"), m_names)} + found;
}

QStringList NameSummary::consequences() const {
    QStringList found;
    const auto say = [&](int count, const char* one, const char* many) {
        if (count > 0)
            found << counted(one, many, count);
    };
    say(m_invalid, "1 name is not possible: the run would end there",
        QT_TRANSLATE_N_NOOP("NameSummary", "%n names are not possible: the run would end at the first"));
    if (m_overwrite) {
        say(m_originals, "1 original will be overwritten",
            QT_TRANSLATE_N_NOOP("NameSummary", "%n originals will be overwritten"));
        say(m_existing, "1 existing file will be replaced",
            QT_TRANSLATE_N_NOOP("NameSummary", "%n existing files will be replaced"));
        say(m_doubles, "1 row will replace the file of an earlier row",
            QT_TRANSLATE_N_NOOP("NameSummary", "%n rows will replace the file of an earlier row"));
    } else {
        say(m_originals + m_existing, "1 row will be skipped, because its file exists",
            QT_TRANSLATE_N_NOOP("NameSummary", "%n rows will be skipped, because their files exist"));
        say(m_doubles, "1 row will be skipped, because an earlier row has its name",
            QT_TRANSLATE_N_NOOP("NameSummary",
                                "%n rows will be skipped, because an earlier row has their name"));
    }
    say(m_unknown, "1 name is not known before the run",
        QT_TRANSLATE_N_NOOP("NameSummary", "%n names are not known before the run"));
    return found;
}

} // namespace tarsel
