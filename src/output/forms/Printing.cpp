// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/Printing.h"

#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "base/SaveFileDialog.h"
#include "base/ScratchFolder.h"
#include "base/Stop.h"
#include "collections/LettingEventsRun.h"
#include "collections/LoadSource.h"
#include "controls/ProgressBar.h"
#include "controls/frmStatus.h"
#include "output/PrintJob.h"
#include "output/PrintedRows.h"
#include "output/SourceGuard.h"
#include "output/forms/PrintQueue.h"
#include "output/forms/frmPrint.h"
#include "tasks/Replay.h"
#include "tasks/modProcessTasks.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QThread>

namespace tarsel {

struct Printing::Order {
    PrintLayout layout;
    QPageLayout sheet;
    QString file;                        ///< of a PDF document; empty for a printer
    std::optional<PrintRequest> request; ///< for a printer
    QString title;
};

namespace {

/// As the preview shows it.
PrintPicture loadRow(const QString& path, bool upright, const std::vector<TaskRow>& tasks) {
    ImageBox box;
    const DrawnSize drawn = tasks.empty() ? frmPrint::drawnSize : DrawnSize();
    if (!loadPrepared(box, path, upright, currentStop(), drawn))
        fail(ErrorNumber::UnreadableFile, path);
    ignoringErrors([&] { replayRows(box, tasks, currentStop()); });
    return printPictureOf(box, {});
}

} // namespace

Printing::Printing(Parts parts, QWidget* owner) : m_parts(std::move(parts)), m_owner(owner) {}

// --- the dialog

/// Puts the settings into the layout and takes them back, whatever the answer is.
std::optional<Printing::Order> Printing::ask(const PrintSubject& subject, const QString& title) {
    PrintLayout layout = layoutOf(m_parts.settings);
    frmPrint dialog(layout, subject, m_owner);
    for (;;) { // who asks for no file after all has the dialog again
        const bool confirmed = dialog.exec() == QDialog::Accepted;
        takeLayout(layout, m_parts.settings);
        if (!confirmed)
            return std::nullopt;
        Order order{dialog.pageLayout(), dialog.sheet(), {}, {}, title};
        if (QPrinter* printer = dialog.printer()) {
            order.request = printRequestOf(*printer);
            return order;
        }
        if (const std::optional<QString> file = askForFile(title)) {
            order.file = *file;
            return order;
        }
    }
}

std::optional<QString> Printing::askForFile(const QString& title) const {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const auto path =
        savePathFor({tr("Save pages"), tr("PDF document (*.pdf)|*.pdf"), QDir(folder).filePath(title)},
                    QStringLiteral(".pdf"));
    if (path)
        requireNoSource(m_parts.lvPages, *path, {m_parts.preview.shownPath()});
    return path;
}

PrintSubject Printing::rowSubject() const {
    std::vector<TaskRow> tasks;
    if (m_parts.preview.OptimizedPreview)
        tasks = modProcessTasks::rowsToReplay(m_parts.tasks.lvEdit, m_parts.tasks.lvEditBatch,
                                              &m_parts.tasks.lvEditPreview, false);
    QStringList paths;
    for (int row = 0; row < m_parts.lvPages.count(); ++row)
        paths << m_parts.lvPages.row(row).tag;
    return {int(paths.size()),
            [paths, tasks, upright = m_parts.preview.upright](int index) {
                return loadRow(paths[index], upright, tasks);
            },
            [this](const PrintLayout& layout, int index) {
                return captionOf(layout, m_parts.lvPages.row(index));
            }};
}

/// A picture of the basket has the name and the description of its row.
PrintSubject Printing::shownSubject() const {
    const QString path = m_parts.preview.shownPath();
    ListRow row;
    row.text = QFileInfo(path).completeBaseName();
    for (int each = 0; each < m_parts.lvPages.count(); ++each)
        if (m_parts.lvPages.row(each).tag == path)
            row = m_parts.lvPages.row(each);
    return {1, [picture = printPictureOf(m_parts.ibMain, {})](int) { return picture; },
            [row](const PrintLayout& layout, int) { return captionOf(layout, row); }};
}

// --- the commands

void Printing::cmdPreviewPrint() {
    std::ignore = trap("FrmMain.cmdPreviewPrint_Click", [this] {
        TrappingString = QStringLiteral("Printing the picture on show");
        if (!m_parts.ibMain.HasImage())
            return;
        const PrintSubject subject = shownSubject();
        const std::optional<Order> order = ask(subject, subject.caption({.caption = PrintLayout::Name}, 0));
        if (!order)
            return;
        print(*order, [&](PrintJob& job, Progress& progress) {
            progress.start(1);
            PrintPicture picture = subject.load(0);
            picture.caption = subject.caption(order->layout, 0);
            job.add(picture);
        });
    });
}

void Printing::cmdBatchPrint() {
    std::ignore = trap("FrmMain.cmdBatchPrint_Click", [this] {
        TrappingString = QStringLiteral("Starting batch printing");
        if (m_parts.lvPages.isEmpty())
            return progressed(tr("The basket is empty: nothing to print"));
        const std::optional<Order> order = ask(rowSubject(), m_parts.lvPages.row(0).text);
        if (!order)
            return;
        QStringList remarks;
        print(*order,
              [&](PrintJob& job, Progress& progress) { remarks = printRows(job, progress, order->layout); });
        if (!remarks.isEmpty())
            reportIncomplete(remarks);
    });
}

/// Cancel takes back the pages that are ready.
void Printing::print(const Order& order, const std::function<void(PrintJob&, Progress&)>& draw) {
    m_parts.runningChanged(true);
    const auto atEnd = qScopeGuard([this] { m_parts.runningChanged(false); });
    frmStatus status(m_owner);
    status.begin();
    const ScratchFolder scratch;
    const bool isFile = !order.file.isEmpty();
    const QString path = isFile ? order.file : scratch.path() + QStringLiteral("/pages.pdf");
    PrintJob job(path, order.sheet, order.layout,
                 [](PrintJob::Ended& ended) { waitLettingEventsRun(ended); });
    draw(job, status.pbQueue());
    if (CancelRequested.exchange(false) || job.isEmpty()) {
        Q_EMIT progressed(tr("Nothing was printed"));
    } else {
        std::optional<TrappedError> refusal;
        job.finish([&] {
            if (order.request)
                refusal = failureOf([&] { sendToPrinter(*order.request, path, order.title); });
        });
        status.finish();
        if (refusal)
            return saveInstead(path, order.title, refusal->description);
        Q_EMIT progressed(isFile ? tr("Saved %1").arg(path) : tr("Sent to %1").arg(order.request->printer));
    }
    status.finish();
}

/// The pages that a printer did not take.
void Printing::saveInstead(const QString& pages, const QString& title, const QString& reason) {
    Q_EMIT progressed(tr("Nothing was printed"));
    const QString question = tr("%1\nDo you want to save the pages as a PDF document?").arg(reason);
    if (service<Dialogs>().messageBox(question, MessageIcon::Exclamation, MessageButtons::YesNo,
                                      ApplicationName) != MessageAnswer::Yes)
        return;
    if (const std::optional<QString> file = askForFile(title)) {
        writeFileSafely(*file, readWholeFile(pages));
        Q_EMIT progressed(tr("Saved %1").arg(*file));
    }
}

/// Returns a line for each row whose picture is missing or not complete.
QStringList Printing::printRows(PrintJob& job, Progress& progress, const PrintLayout& layout) {
    const ListView& rows = m_parts.lvPages;
    QStringList remarks;
    progress.start(rows.count());
    for (int row = 0; row < rows.count() && !CancelRequested; ++row) {
        const QString name = rows.row(row).text;
        progress.setSubject(Printing::tr("Printing.. %1").arg(name));
        const bool isShown = showRow(row);
        const QString damage = m_parts.ibMain.LoadDamage();
        if (isShown)
            job.add(printPictureOf(m_parts.ibMain, captionOf(layout, rows.row(row))));
        if (isShown && !damage.isEmpty())
            remarks << tr("%1: printed in part, %2").arg(name, damage);
        else if (!isShown && !CancelRequested)
            remarks << tr("%1: left out, it can't be read").arg(name);
        progress.setValue(row + 1);
    }
    return remarks;
}

/// The user may show other pictures meanwhile: then the row is shown again. False when it has no picture.
bool Printing::showRow(int row) {
    constexpr int betweenEvents = 5; // milliseconds
    Preview& preview = m_parts.preview;
    const QString path = m_parts.lvPages.row(row).tag;
    do {
        preview.ShowRow(m_parts.lvPages, row);
        while (preview.isBusy() && !CancelRequested) {
            service<EventLoop>().yield();
            QThread::msleep(betweenEvents);
        }
    } while (preview.shown().path != path && !CancelRequested);
    return m_parts.ibMain.HasImage() && !CancelRequested;
}

void Printing::reportIncomplete(const QStringList& remarks) {
    constexpr qsizetype mostShown = 10; // which any screen has room for
    QStringList shown = remarks.mid(0, mostShown);
    if (remarks.size() > mostShown)
        shown << tr("and %1 more").arg(remarks.size() - mostShown);
    service<Dialogs>().messageBox(
        tr("Not all pictures were printed in full:\n%1").arg(shown.join(QLatin1Char('\n'))),
        MessageIcon::Exclamation, MessageButtons::Ok, ApplicationName);
}

} // namespace tarsel
