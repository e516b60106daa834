// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPageSize>
#include <QPrinter>
#include <QStringList>
#include <memory>

namespace tarsel {

struct FoundPrinters {
    QStringList names;
    QString usual; ///< the user's default; may be empty
};

/// A printer as its queue is set up, with what is known of its paper.
struct OpenPrinter {
    explicit OpenPrinter(const QString& name);

    bool isThere = false;
    QPrinter printer; ///< any other one where that one is gone
    QPageSize usualPaper;
    QList<QPageSize> papers;
};

/// Both ask the printing system, which may be on another computer and take long, or never answer. Any thread;
/// one waits for the other.
FoundPrinters findPrinters();
std::shared_ptr<OpenPrinter> openPrinter(const QString& name);

} // namespace tarsel
