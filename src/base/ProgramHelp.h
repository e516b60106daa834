// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace tarsel {

/// An option of the program with the window.
struct ProgramOption {
    QString name; ///< "--help"
    QString help;
};

// What the program with the window takes, for its --help and its manual page, in the user's language.
QList<ProgramOption> windowProgramOptions();
QString windowProgramPurpose();
QString windowProgramRemark();

} // namespace tarsel
