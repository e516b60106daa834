// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace tarsel::cli {

/// A page for man(1), in the language of the installed translation. It is made of the same tables as --help.
struct ManualPage {
    QString fileName; ///< "tarsel-batch.1"
    QString text;     ///< in the macros of man(7)
};

/// A page of `tarsel`, of each of its commands, and of the program with the window. `date` is that of the
/// release, "2026-11-22".
QList<ManualPage> manualPages(const QString& date);

} // namespace tarsel::cli
