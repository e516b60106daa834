// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ProgramHelp.h"

#include "base/ProgramIdentity.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ProgramOptions)
};

} // namespace

QList<ProgramOption> windowProgramOptions() {
    return {{QStringLiteral("--help"), Texts::tr("show this page")},
            {QStringLiteral("--version"), Texts::tr("show the version")}};
}

QString windowProgramPurpose() {
    return Texts::tr("Opens the window of %1: on a picture or a folder, with the pictures of a basket file "
                     "(*.ibf, *.ibd), or with the tasks of a task basket file (*.tbf).")
        .arg(programIdentity::title);
}

QString windowProgramRemark() {
    return Texts::tr(
        "Options of Qt, such as -platform and -style, are taken too. The program \"tarsel\" does "
        "the same work without a window.");
}

} // namespace tarsel
