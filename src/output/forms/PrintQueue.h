// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <utility>

class QPrinter;

namespace tarsel {

/// Where and how the printing system prints a document.
struct PrintRequest {
    QString printer;
    QList<std::pair<QByteArray, QByteArray>> options;
};

/// As the printer was set up by the user.
PrintRequest printRequestOf(QPrinter& printer);

/// Passes a PDF document to the queue of a printer, which copies it. Error 5 with what the printing system
/// says. May take long; any thread.
void sendToPrinter(const PrintRequest& request, const QString& document, const QString& title);

} // namespace tarsel
