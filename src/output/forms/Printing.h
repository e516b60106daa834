// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Preview.h"
#include "configuration/ConfigRecord.h"
#include "output/PrintLayout.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <optional>

class QWidget;

namespace tarsel {

class PrintJob;
struct PrintSubject;

/// Printing from the window. The layout of the pages comes from the settings and goes back to them, also when
/// the dialog is left by Cancel.
class Printing final : public QObject {
    Q_OBJECT
public:
    struct Parts {
        Preview& preview;
        ListView& lvPages;
        TaskList& tasks;
        ImageBox& ibMain;
        settings::Print& settings;
        std::function<void(bool running)> runningChanged; ///< with true when the dialog was left by Print
    };
    Printing(Parts parts, QWidget* owner);

    /// Prints the picture on show. Trapped as "FrmMain.cmdPreviewPrint_Click".
    void cmdPreviewPrint();
    /// Prints the rows of the basket one after the other; each is shown in the preview meanwhile, and the
    /// last one stays there. Trapped as "FrmMain.cmdBatchPrint_Click".
    void cmdBatchPrint();

Q_SIGNALS:
    void progressed(const QString& text); ///< for the status line

private:
    /// What was confirmed in the dialog.
    struct Order;

    std::optional<Order> ask(const PrintSubject& subject, const QString& title);
    /// Raises 5 for a file that is one of the pictures.
    std::optional<QString> askForFile(const QString& title) const;
    PrintSubject rowSubject() const;
    PrintSubject shownSubject() const;
    void print(const Order& order, const std::function<void(PrintJob&, Progress&)>& draw);
    void saveInstead(const QString& pages, const QString& title, const QString& reason);
    QStringList printRows(PrintJob& job, Progress& progress, const PrintLayout& layout);
    bool showRow(int row);
    static void reportIncomplete(const QStringList& remarks);

    Parts m_parts;
    QWidget* m_owner;
};

} // namespace tarsel
