// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DisplayFailure.h"

#include "base/ProgramIdentity.h"
#include "base/Translation.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tarsel {

namespace {

QtMessageHandler before = nullptr;
QStringList held; ///< the first is the reason

void print(const QString& text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

/// The application object exists, though not to the end.
[[noreturn]] void endProgram() {
    installTranslation();
    print(QCoreApplication::translate(
              "DisplayFailure", "%1: no display could be opened. \"tarsel\" does the same work without one.")
              .arg(programIdentity::name));
    if (!held.isEmpty())
        print(held.constFirst());
    std::_Exit(1);
}

void take(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg)
        endProgram();
    held << qFormatLogMessage(type, context, message);
}

} // namespace

DisplayFailure::DisplayFailure() {
    before = qInstallMessageHandler(take);
}

DisplayFailure::~DisplayFailure() {
    qInstallMessageHandler(before);
    for (const QString& message : std::exchange(held, {}))
        print(message);
}

} // namespace tarsel
